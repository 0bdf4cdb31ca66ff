#pragma once

#include "Rect.h"

namespace skewt {

/// One wind barb: a staff from its base to where the wind comes from, with pennants of 50, barbs of 10 and half barbs
/// of 5 knots, on the side of low pressure of the northern hemisphere. It is drawn unclipped into a rectangle that it
/// borrows, in whose data space its lengths are.
class WindBarb {
public:
    /// \p x and \p y are the base; \p spd in m/s, \p dir in degrees.
    WindBarb(Rect& rect, double x, double y, double spd, double dir);

    void draw();

private:
    Point away(const Point& from, double length, double angle) const;
    Point stroke(const Point& from, double length, double angle);
    Point pennant(const Point& at);
    Point barb(const Point& at, double length);

    Rect& _rect;
    Point _base;
    double _knots;
    double _angle; ///< of the staff, degrees, from the x axis to the left
    double _aspect;
};

} // namespace skewt
