#include "XmlText.h"

#include <cstddef>
#include <cstdint>

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstSupplementary = 0x10000;

constexpr bool isSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

constexpr bool isXmlCharacter(char32_t c) {
    return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c != 0xFFFE && c != 0xFFFF);
}

/// The bytes that follow the lead byte \p lead, and the bits the lead byte gives; -1 for a byte that leads nothing.
int continuationBytes(unsigned char lead, char32_t& bits) {
    struct Lead {
        unsigned char mask;
        unsigned char mark;
        int following;
    };
    constexpr Lead kLeads[] = {{0x80, 0x00, 0}, {0xE0, 0xC0, 1}, {0xF0, 0xE0, 2}, {0xF8, 0xF0, 3}};
    for (const Lead& kind : kLeads) {
        if ((lead & kind.mask) == kind.mark) {
            bits = lead & static_cast<unsigned char>(~kind.mask);
            return kind.following;
        }
    }
    return -1;
}

/// Takes one code point off the front of \p utf8, or one byte of what isn't UTF-8.
char32_t nextCodePoint(std::string_view& utf8) {
    constexpr char32_t kSmallest[] = {0, 0x80, 0x800, kFirstSupplementary};
    char32_t point = 0;
    const int following = continuationBytes(static_cast<unsigned char>(utf8.front()), point);
    const auto length = static_cast<std::size_t>(following + 1);
    bool valid = following >= 0 && length <= utf8.size();
    for (std::size_t i = 1; valid && i < length; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        valid = (byte & 0xC0) == 0x80;
        point = (point << 6) | (byte & 0x3F);
    }
    valid = valid && point >= kSmallest[following] && point <= 0x10FFFF && !isSurrogate(point);
    utf8.remove_prefix(valid ? length : 1);
    return valid ? point : kReplacement;
}

void appendUtf8(std::string& text, char32_t point) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto tail = [&put, point](int shift) { put(0x80 | ((point >> shift) & 0x3F)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        tail(0);
    } else if (point < kFirstSupplementary) {
        put(0xE0 | (point >> 12));
        tail(6);
        tail(0);
    } else {
        put(0xF0 | (point >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace

std::u16string toXmlText(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t point = nextCodePoint(utf8);
        if (!isXmlCharacter(point)) {
            continue;
        }
        if (point < kFirstSupplementary) {
            text.push_back(static_cast<char16_t>(point));
        } else {
            const char32_t offset = point - kFirstSupplementary;
            text.push_back(static_cast<char16_t>(0xD800 + (offset >> 10)));
            text.push_back(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
        }
    }
    return text;
}

std::string fromXmlText(const char16_t* text) {
    std::string utf8;
    for (; text != nullptr && *text != 0; ++text) {
        char32_t point = *text;
        const bool pair = point >= 0xD800 && point <= 0xDBFF && text[1] >= 0xDC00 && text[1] <= 0xDFFF;
        if (pair) {
            point = kFirstSupplementary + ((point - 0xD800) << 10) + (static_cast<char32_t>(text[1]) - 0xDC00);
            ++text;
        }
        appendUtf8(utf8, isSurrogate(point) ? kReplacement : point);
    }
    return utf8;
}
