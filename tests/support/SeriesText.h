#pragma once

#include "Series.h"

#include <sstream>
#include <string>
#include <vector>

/// A series as a test states it: "time:data time:data".
inline std::string textOf(const Series& series) {
    std::ostringstream text;
    for (const Value& value : series) {
        text << (text.tellp() > 0 ? " " : "") << value.time() << ":" << value.data();
    }
    return text.str();
}

/// The times only.
inline std::string timesOf(const Series& series) {
    std::ostringstream text;
    for (const Value& value : series) {
        text << (text.tellp() > 0 ? " " : "") << value.time();
    }
    return text.str();
}

/// A series with a value each second.
inline Series seriesOf(const char* name, const std::vector<double>& data, double start = 0.0) {
    Series series{Id(name)};
    for (const double value : data) {
        series.appendValue(value, start + series.lastIndex() + 1);
    }
    return series;
}
