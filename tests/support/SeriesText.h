#pragma once

#include "Series.h"

#include <sstream>
#include <string>

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
