#include "Trace.h"

Trace::Trace(Points x, Points y, std::string title, std::string color, TraceStyle style)
    : _x(std::move(x)), _y(std::move(y)), _title(std::move(title)), _color(std::move(color)), _style(style) {}

void Trace::setAxisMin(double min) {
    _hasAxisMin = true;
    _axisMin = min;
}

void Trace::setAxisMax(double max) {
    _hasAxisMax = true;
    _axisMax = max;
}

void Trace::setScale(const TraceScale& scale) {
    if (!scale.automatic) {
        setAxisMin(scale.min);
        setAxisMax(scale.max);
    }
}

bool Trace::axisMin(double& min) const {
    if (_hasAxisMin) {
        min = _axisMin;
    }
    return _hasAxisMin;
}

bool Trace::axisMax(double& max) const {
    if (_hasAxisMax) {
        max = _axisMax;
    }
    return _hasAxisMax;
}
