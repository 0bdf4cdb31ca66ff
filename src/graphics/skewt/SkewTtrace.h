#pragma once

#include "SkewTRect.h"

#include <vector>

namespace skewt {

/// How the data of a trace are marked.
using TraceSymbol = SymType;

/// The curve of a sounding: temperatures (deg C) and their pressures (mb), which it copies.
class SkewTtrace : public SkewTRect {
public:
    SkewTtrace(SkewTAdapter& adapter, const PageBox& page, const Limits& limits, double skew, std::vector<double> t,
               std::vector<double> p, unsigned colour, TraceSymbol symbol);

    /// As temperature or as dew point.
    void draw(bool isTemperature);

    unsigned colour() const { return _colour; }
    TraceSymbol traceSymbol() const { return _symbol; }

private:
    std::vector<double> _t;
    std::vector<double> _p;
    unsigned _colour;
    TraceSymbol _symbol;
};

} // namespace skewt
