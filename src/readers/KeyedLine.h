#pragma once

#include <array>
#include <cstddef>
#include <string_view>

// The D files of several sounding systems are made of keyed lines: an identifier of fixed length, a key word, then
// words. Two characters at fixed positions tell the kind of a line, and for comments the text behind the identifier.

struct KeyedLineSignature {
    char first = ' ';  ///< of the identifier: D data, T text
    char second = ' '; ///< the first letter of the key word
    std::string_view text;

    friend constexpr bool operator==(const KeyedLineSignature& a, const KeyedLineSignature& b) {
        return a.first == b.first && a.second == b.second && a.text == b.text;
    }
};

/// Where the parts of a signature stand in a line.
struct KeyedLineLayout {
    std::size_t shortest; ///< a shorter line is none of the known kinds; more than the two positions of characters
    std::size_t first;
    std::size_t second;
    std::size_t text;
};

template <typename Type>
struct KeyedLineRule {
    Type type;
    KeyedLineSignature signature; ///< with an empty text the two characters decide alone
};

/// The type of the first rule that \p line matches, else \p other. The text of a rule matches the same number of
/// characters of the line.
template <typename Type, std::size_t N>
Type keyedLineType(std::string_view line, const KeyedLineLayout& layout,
                   const std::array<KeyedLineRule<Type>, N>& rules, Type other) {
    if (line.size() < layout.shortest) {
        return other;
    }
    for (const auto& [type, signature] : rules) {
        const KeyedLineSignature found{line[layout.first], line[layout.second],
                                       line.substr(layout.text, signature.text.size())};
        if (found == signature) {
            return type;
        }
    }
    return other;
}
