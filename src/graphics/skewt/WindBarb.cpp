#include "WindBarb.h"

#include "Angles.h"
#include "Wind.h"

#include <cmath>

namespace skewt {

namespace {

constexpr double kStaff = 0.4;
constexpr double kPennantSide = 0.11547011280666253; // whose height is that of a full barb
constexpr double kPennantGap = 0.03333333333333333;
constexpr double kFullBarb = 0.1;
constexpr double kHalfBarb = 0.05;
constexpr double kBarbGap = 0.05;

constexpr double kPennantKnots = 50.0;
constexpr double kFullBarbKnots = 10.0;
constexpr double kHalfBarbKnots = 5.0;

} // namespace

WindBarb::WindBarb(Rect& rect, double x, double y, double spd, double dir)
    : _rect(rect), _base{x, y}, _knots(spd * kKnotsPerMetrePerSecond), _angle(std::fmod(450.0 - dir, 360.0)),
      _aspect(rect.aspectRatio()) {}

void WindBarb::draw() {
    Point at = stroke(_base, kStaff, _angle);
    _rect.symbol(_base.x, _base.y, kBlue, SymType::Base);
    double knots = _knots;
    const double back = _angle + 180.0;
    if (knots > kPennantKnots) {
        for (; knots > kPennantKnots; knots -= kPennantKnots) {
            at = pennant(at);
        }
        at = away(at, kPennantGap, back);
    }
    for (; knots > kFullBarbKnots; knots -= kFullBarbKnots) {
        at = away(barb(at, kFullBarb), kBarbGap, back);
    }
    for (; knots > kHalfBarbKnots; knots -= kHalfBarbKnots) {
        at = away(barb(at, kHalfBarb), kBarbGap, back);
    }
}

Point WindBarb::away(const Point& from, double length, double angle) const {
    const double radians = angle * kShortPi / 180.0;
    return {from.x + length * std::cos(radians), from.y + length * std::sin(radians) / _aspect};
}

Point WindBarb::stroke(const Point& from, double length, double angle) {
    const Point to = away(from, length, angle);
    _rect.drawLine({from, to}, kBlue, LineType::Solid, false);
    return to;
}

/// Where it comes back to the staff.
Point WindBarb::pennant(const Point& at) {
    return stroke(stroke(at, kPennantSide, _angle - 120.0), kPennantSide, _angle + 120.0);
}

Point WindBarb::barb(const Point& at, double length) {
    return stroke(stroke(at, length, _angle - 90.0), length, _angle + 90.0);
}

} // namespace skewt
