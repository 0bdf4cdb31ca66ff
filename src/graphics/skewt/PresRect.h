#pragma once

#include "Rect.h"

namespace skewt {

/// A rectangle whose height is the logarithm of pressure: y is 0 at \p pBottom and 1 at \p pTop (mb).
class PresRect : public Rect {
public:
    PresRect(SkewTAdapter& adapter, const PageBox& page, double pTop, double pBottom);

    double y(double p) const;
    double p(double y) const;

    double pTop() const { return _pTop; }
    double pBottom() const { return _pBottom; }

private:
    double _pTop;
    double _pBottom;
    double _logTopOverBottom;
};

} // namespace skewt
