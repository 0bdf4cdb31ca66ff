#pragma once

#include <string>
#include <vector>

/// Each line with its end.
inline std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}
