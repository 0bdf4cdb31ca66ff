#pragma once

#include "PresRect.h"

namespace skewt {

/// The plot: temperature (deg C) and pressure (mb) in place of x and y. Isotherms lean to the right, by 1 / skew of the
/// width over the whole height; the limits of temperature hold at the bottom.
class SkewTRect : public PresRect {
public:
    SkewTRect(SkewTAdapter& adapter, const PageBox& page, const Limits& limits, double skew);

    void Text(const std::string& text, double t, double p, unsigned colour) override;
    void drawLine(const Line& line, unsigned colour, LineType type, bool clipped) override;
    void symbol(double t, double p, unsigned colour, SymType type) override;
    void addTdry(double t, double p) override;
    void addDp(double t, double p) override;

    /// The place of a temperature at a pressure, in data space.
    Point toData(double t, double p) const;
    /// The temperature at a place in data space.
    double t(double x, double y) const;

    double tmin() const { return _tmin; }
    double tmax() const { return _tmax; }

private:
    double _tmin;
    double _tmax;
    double _tSpan;
    double _skew;
};

} // namespace skewt
