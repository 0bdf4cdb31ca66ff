#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The groups of a message in order, taken from the front. The operations in capitals throw the text of the error, a
/// std::string, when the message doesn't go on as they need it.
class TokenQueue {
public:
    TokenQueue() = default;
    explicit TokenQueue(std::string_view text) { tokenize(text); }

    /// Cuts \p text at white space. A token that is only "=" is dropped, and from any other its first "=".
    void tokenize(std::string_view text);
    /// The tokens that are left.
    std::vector<std::string> texts() const;

    bool empty() const { return size() == 0; }
    std::size_t size() const { return _tokens.size() - _next; }
    /// The token \p ahead places behind the front; empty, as no token is, beyond the end.
    std::string_view token(std::size_t ahead = 0) const;
    /// Whether the front may be the first half of a word that a line break has cut in two.
    bool mayContinue() const { return size() > 1 && _tokens[_next].mayContinue; }

    /// Drops the front; without one nothing happens.
    void drop();
    /// Makes one token of the first two, which must be there.
    void joinFirstTwo();
    /// Does that for a word cut in two: when together they are \p isWhole, and the front alone isn't.
    template <typename Predicate>
    void joinCutWord(Predicate isWhole);

    void NEED_TOKENS(std::size_t n) const;
    void SKIP_TOKENS(std::size_t n);
    /// A front of that length passes, and so do the first two tokens when together they have it: they become one.
    void NEED_TOKEN_OF_LENGTH(std::size_t n);
    /// Up to \p n tokens from the front, each followed by a blank.
    std::string whereAreWe(std::size_t n) const;
    [[noreturn]] void throwErrorMsg(const std::string& text) const;

private:
    struct Token {
        std::string text;
        bool mayContinue = false;
    };
    void addLine(std::string_view line, bool cutAtEnd);

    std::vector<Token> _tokens;
    std::size_t _next = 0;
};

template <typename Predicate>
void TokenQueue::joinCutWord(Predicate isWhole) {
    if (mayContinue() && !isWhole(token()) && isWhole(std::string(token()).append(token(1)))) {
        joinFirstTwo();
    }
}
