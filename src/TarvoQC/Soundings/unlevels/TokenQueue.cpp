#include "TokenQueue.h"

#include "CodeText.h"

#include <algorithm>

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";
constexpr std::size_t kShown = 6; // tokens in an error text

std::string_view withoutTrailingSpace(std::string_view line) {
    return line.substr(0, line.find_last_not_of(kWhiteSpace) + 1);
}

/// Follows the remark groups through the lines of a message. A remark group too long for one line is written in lines
/// of 65 characters, cut wherever that falls, with a blank ahead of a line when one was lost at the end of the line
/// before.
class RemarkLines {
public:
    /// Whether a word of \p line may go on in \p next. To be asked line by line.
    bool isCutAtEnd(std::string_view line, std::string_view next) {
        constexpr std::size_t kPiece = 65;
        _inRemark = (_inRemark || beginsWith(line, "61616") || beginsWith(line, "62626")) &&
                    line.find('=') == std::string_view::npos;
        const std::size_t length = line.size() - (beginsWith(line, " ") ? 1 : 0);
        return _inRemark && (line.size() == kPiece || length == kPiece) && !next.empty() &&
               kWhiteSpace.find(next.front()) == std::string_view::npos;
    }

private:
    bool _inRemark = false;
};

} // namespace

void TokenQueue::tokenize(std::string_view text) {
    RemarkLines remarks;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        const std::string_view written = withoutTrailingSpace(line);
        // The start of the next line tells enough, and the whole of it is looked for once only.
        addLine(written, remarks.isCutAtEnd(written, text.substr(0, 1)));
    }
}

void TokenQueue::addLine(std::string_view line, bool cutAtEnd) {
    for (auto start = line.find_first_not_of(kWhiteSpace); start != std::string_view::npos;
         start = line.find_first_not_of(kWhiteSpace)) {
        line.remove_prefix(start);
        std::string token(line.substr(0, line.find_first_of(kWhiteSpace)));
        line.remove_prefix(token.size());
        if (const auto sign = token.find('='); sign != std::string::npos) {
            token.erase(sign, 1);
        }
        if (!token.empty()) {
            _tokens.push_back({std::move(token), cutAtEnd && line.empty()});
        }
    }
}

std::vector<std::string> TokenQueue::texts() const {
    std::vector<std::string> texts;
    texts.reserve(size());
    for (std::size_t i = _next; i < _tokens.size(); ++i) {
        texts.push_back(_tokens[i].text);
    }
    return texts;
}

std::string_view TokenQueue::token(std::size_t ahead) const {
    return ahead < size() ? std::string_view(_tokens[_next + ahead].text) : std::string_view();
}

void TokenQueue::drop() {
    _next += empty() ? 0 : 1;
}

void TokenQueue::joinFirstTwo() {
    Token& second = _tokens[_next + 1];
    second.text.insert(0, _tokens[_next].text);
    ++_next;
}

void TokenQueue::NEED_TOKENS(std::size_t n) const {
    if (size() < n) {
        throw "At least " + std::to_string(n) + " code groups are required. Error detected at" + whereAreWe(kShown) +
            " ...";
    }
}

void TokenQueue::SKIP_TOKENS(std::size_t n) {
    NEED_TOKENS(n);
    _next += n;
}

void TokenQueue::NEED_TOKEN_OF_LENGTH(std::size_t n) {
    NEED_TOKENS(1);
    if (token().size() == n) {
        return;
    }
    if (size() < 2 || token().size() + token(1).size() != n) {
        throw "This code group requires exactly " + std::to_string(n) + " characters. Error detected near " +
            whereAreWe(kShown) + " ...";
    }
    joinFirstTwo();
}

std::string TokenQueue::whereAreWe(std::size_t n) const {
    std::string where;
    for (std::size_t i = 0; i < std::min(n, size()); ++i) {
        where.append(token(i)).append(" ");
    }
    return where;
}

void TokenQueue::throwErrorMsg(const std::string& text) const {
    throw text + " Error detected at " + whereAreWe(kShown) + "...";
}
