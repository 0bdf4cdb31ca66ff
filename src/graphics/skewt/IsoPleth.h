#pragma once

#include "SkewTRect.h"

#include <functional>

namespace skewt {

/// A set of lines of the background, each labelled where it can be seen.
class IsoPleth : public SkewTRect {
public:
    using SkewTRect::SkewTRect;
    virtual void draw() = 0;

protected:
    /// How a line looks and what stands at its end.
    struct Style {
        unsigned colour;
        LineType type;
    };
    /// Draws one line from \p pFrom to \p pTo (mb) in \p steps steps of equal log pressure, with the temperature
    /// (deg C) that \p temperature has at each, and \p label where it ends in the plot.
    void drawCurve(double pFrom, double pTo, int steps, const std::function<double(double)>& temperature, Style style,
                   const std::string& label);
};

} // namespace skewt
