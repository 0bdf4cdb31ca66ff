#pragma once

#include "Series.h"

#include <string>
#include <utility>
#include <vector>

using Sample = std::pair<double, double>; // time, datum

inline Series makeSeries(const std::vector<Sample>& samples, const std::string& name = "S") {
    Series series{Id(name)};
    for (const auto& [time, data] : samples) {
        series.appendValue(data, time);
    }
    return series;
}

inline std::vector<Sample> samplesOf(const Series& series) {
    std::vector<Sample> samples;
    for (const Value& value : series) {
        samples.emplace_back(value.time(), value.data());
    }
    return samples;
}
