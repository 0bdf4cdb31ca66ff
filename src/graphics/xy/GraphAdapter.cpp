#include "GraphAdapter.h"

void GraphAdapter::reset() {
    _leftTraces.clear();
    _rightTraces.clear();
}

void GraphAdapter::addTrace(int axis, Trace trace) {
    (axis == 0 ? _leftTraces : _rightTraces).push_back(std::move(trace));
}

void GraphAdapter::labels(const std::string& title, const std::string& xLabelBottom, const std::string& xLabelTop,
                          const std::string& yLabel, const std::string& credit) {
    _title = title;
    _xLabelBottom = xLabelBottom;
    _xLabelTop = xLabelTop;
    _yLabel = yLabel;
    _credit = credit;
}
