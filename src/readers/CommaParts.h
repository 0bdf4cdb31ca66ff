#pragma once

#include "Text.h"

#include <cstddef>
#include <optional>
#include <string>

// Values of header lines that hold several things between commas.

/// Part \p index of \p value, without blanks around it; none when there are fewer.
inline std::optional<std::string> commaPart(const std::string& value, std::size_t index) {
    const auto parts = tokenize(value, ",");
    return index < parts.size() ? std::optional<std::string>(parts[index]) : std::nullopt;
}

/// Sets \p field to that part; without one it stays as it is.
inline void takeCommaPart(const std::string& value, std::size_t index, std::string& field) {
    if (auto part = commaPart(value, index)) {
        field = std::move(*part);
    }
}
