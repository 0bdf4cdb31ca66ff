#include "SoundingLines.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr std::size_t kLineBuffer = kLongestLine + 1; // the terminator

bool isPrintableAscii(char c) {
    return c >= ' ' && c <= '~';
}

} // namespace

std::vector<std::string> readLines(std::istream& stream) {
    std::vector<std::string> lines;
    std::array<char, kLineBuffer> buffer{};
    while (stream.good()) {
        stream.getline(buffer.data(), buffer.size());
        auto length = static_cast<std::size_t>(stream.gcount());
        const bool delimited = stream.good(); // the line feed is counted as taken
        if (delimited && length > 0) {
            --length;
        }
        const std::string_view line(buffer.data(), length);
        const bool blank = line.find_first_not_of(" \t\n\v\f\r") == std::string_view::npos;
        lines.emplace_back(blank ? std::string_view() : line);
    }
    return lines;
}

bool endedByLongLine(const std::istream& stream) {
    return stream.fail() && !stream.bad() && !stream.eof();
}

std::vector<std::string> preprocess(std::vector<std::string> lines) {
    lines.erase(std::remove(lines.begin(), lines.end(), std::string()), lines.end());
    for (std::string& line : lines) {
        std::replace_if(
            line.begin(), line.end(), [](char c) { return !isPrintableAscii(c); }, ' ');
    }
    return lines;
}
