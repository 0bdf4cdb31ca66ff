#include "PresRect.h"

#include <cmath>

namespace skewt {

PresRect::PresRect(SkewTAdapter& adapter, const PageBox& page, double pTop, double pBottom)
    : Rect(adapter, page), _pTop(pTop), _pBottom(pBottom), _logTopOverBottom(std::log10(pTop / pBottom)) {}

double PresRect::y(double p) const {
    return std::log10(p / _pBottom) / _logTopOverBottom;
}

double PresRect::p(double y) const {
    return _pBottom * std::pow(10.0, y * _logTopOverBottom);
}

} // namespace skewt
