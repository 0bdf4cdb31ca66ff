#include "SkewTtrace.h"

namespace skewt {

SkewTtrace::SkewTtrace(SkewTAdapter& adapter, const PageBox& page, const Limits& limits, double skew,
                       std::vector<double> t, std::vector<double> p, unsigned colour, TraceSymbol symbol)
    : SkewTRect(adapter, page, limits, skew), _t(std::move(t)), _p(std::move(p)), _colour(colour), _symbol(symbol) {}

void SkewTtrace::draw(bool isTemperature) {
    for (std::size_t i = 0; i < _t.size(); ++i) {
        if (isTemperature) {
            addTdry(_t[i], _p[i]);
        } else {
            addDp(_t[i], _p[i]);
        }
    }
}

} // namespace skewt
