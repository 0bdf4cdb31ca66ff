#pragma once

namespace skewt {

/// A place in whichever space the context tells: data space, page space, or temperature (deg C) and pressure (mb).
struct Point {
    double x;
    double y;
};
inline bool operator==(const Point& a, const Point& b) {
    return a.x == b.x && a.y == b.y;
}

struct Line {
    Point p1;
    Point p2;
};

/// A rectangle in page space.
struct PageBox {
    double left;
    double right;
    double bottom;
    double top;
};

/// What the plot spans: the temperatures (deg C) along its bottom, and the pressures (mb) of its top and bottom.
struct Limits {
    double tmin;
    double tmax;
    double pTop;
    double pBottom;
};

} // namespace skewt
