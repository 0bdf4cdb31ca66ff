#include "PageStyle.h"

#include <algorithm>

namespace skewt {

namespace {

constexpr double kReadable = 9.0;
constexpr double kLabelsPerHeight = 75.0;
constexpr double kTitleSize = 18.0;
constexpr double kSubTitleSize = 15.0;
constexpr double kThinTrace = 1.5;
constexpr double kTracesPerHeight = 400.0;
constexpr double kTitleShare = 0.98;    // of the width of the page
constexpr double kTitlesHeight = 480.0; // of the least page that has room for both titles

// Advance widths per size, of Liberation Sans and the types that it is metrically equal to.
constexpr double kDigitWidth = 0.556;
constexpr double kHyphenWidth = 0.333;
constexpr double kNarrowWidth = 0.278; // blank, full stop, comma, colon, slash
constexpr double kOtherWidth = 0.6;

double advance(char c) {
    const auto isOneOf = [c](const char* set) { return std::string(set).find(c) != std::string::npos; };
    if (c >= '0' && c <= '9') {
        return kDigitWidth;
    }
    return c == '-' ? kHyphenWidth : isOneOf(" .,:/") ? kNarrowWidth : kOtherWidth;
}

} // namespace

PageStyle::PageStyle(int width, int height, double fontSize)
    : _width(width), _height(height), _labelSize(std::max({fontSize, kReadable, height / kLabelsPerHeight})),
      _traceWidth(std::max(kThinTrace, height / kTracesPerHeight)) {}

double PageStyle::titleSize(const std::string& text) const {
    return fitted(text, kTitleSize);
}

double PageStyle::subTitleSize(const std::string& text) const {
    return fitted(text, kSubTitleSize);
}

double PageStyle::fitted(const std::string& text, double size) const {
    return std::min({size, size * _height / kTitlesHeight, kTitleShare * _width / std::max(textWidth(text, 1.0), 1.0)});
}

double PageStyle::textWidth(const std::string& text, double size) {
    double width = 0.0;
    for (const char c : text) {
        const bool continues = (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; // a byte within a UTF-8 character
        width += continues ? 0.0 : advance(c);
    }
    return width * size;
}

} // namespace skewt
