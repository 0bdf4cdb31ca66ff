#include "SkewTRect.h"

namespace skewt {

SkewTRect::SkewTRect(SkewTAdapter& adapter, const PageBox& page, const Limits& limits, double skew)
    : PresRect(adapter, page, limits.pTop, limits.pBottom), _tmin(limits.tmin), _tmax(limits.tmax),
      _tSpan(limits.tmax - limits.tmin), _skew(skew) {}

void SkewTRect::Text(const std::string& text, double t, double p, unsigned colour) {
    const Point at = toData(t, p);
    Rect::Text(text, at.x, at.y, colour);
}

void SkewTRect::drawLine(const Line& line, unsigned colour, LineType type, bool clipped) {
    Rect::drawLine({toData(line.p1.x, line.p1.y), toData(line.p2.x, line.p2.y)}, colour, type, clipped);
}

void SkewTRect::symbol(double t, double p, unsigned colour, SymType type) {
    const Point at = toData(t, p);
    Rect::symbol(at.x, at.y, colour, type);
}

void SkewTRect::addTdry(double t, double p) {
    const Point at = toData(t, p);
    Rect::addTdry(at.x, at.y);
}

void SkewTRect::addDp(double t, double p) {
    const Point at = toData(t, p);
    Rect::addDp(at.x, at.y);
}

Point SkewTRect::toData(double t, double p) const {
    const double height = y(p);
    return {(t - _tmin) / _tSpan + height / _skew, height};
}

double SkewTRect::t(double x, double y) const {
    return (x - y / _skew) * _tSpan + _tmin;
}

} // namespace skewt
