#include "SvgText.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace skewt {

namespace {

constexpr const char* kReplacement = "\xEF\xBF\xBD"; // U+FFFD

/// The length of the UTF-8 character at \p i, 0 when there is none.
std::size_t characterLength(const std::string& text, std::size_t i) {
    struct Form {
        unsigned mask, lead;
        std::size_t length;
        std::uint32_t least; ///< what a shorter form couldn't hold
    };
    static constexpr std::array<Form, 4> kForms{
        {{0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}}};
    const auto byte = [&text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    for (const Form& form : kForms) {
        if ((byte(i) & form.mask) != form.lead) {
            continue;
        }
        std::uint32_t code = byte(i) & ~form.mask;
        for (std::size_t k = 1; k < form.length; ++k) {
            if (i + k >= text.size() || (byte(i + k) & 0xC0U) != 0x80U) {
                return 0;
            }
            code = code << 6U | (byte(i + k) & 0x3FU);
        }
        const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
        const bool isForbidden = code == 0xFFFE || code == 0xFFFF || code > 0x10FFFF;
        return code < form.least || isSurrogate || isForbidden ? 0 : form.length;
    }
    return 0;
}

} // namespace

std::string svgEscaped(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = characterLength(text, i);
        if (length == 0) {
            out += kReplacement;
            ++i;
            continue;
        }
        const char c = text[i];
        if (length > 1) {
            out.append(text, i, length);
        } else if (c == '&') {
            out += "&amp;";
        } else if (c == '<') {
            out += "&lt;";
        } else if (c == '>') {
            out += "&gt;";
        } else {
            out += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
        }
        i += length;
    }
    return out;
}

void appendNumber(std::string& out, double value) {
    std::array<char, 400> digits{}; // the largest double has 309 before the point
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed, 2);
    out.append(digits.data(), error == std::errc() ? end : digits.data());
}

} // namespace skewt
