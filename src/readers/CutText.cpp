#include "CutText.h"

#include "NumberText.h"
#include "Text.h"

#include <vector>

namespace {

template <typename Field, typename Read>
void takeTokens(const std::string& text, const char* delimiters, std::initializer_list<Field*> fields, Read read) {
    const std::vector<std::string> tokens = tokenize(text, delimiters);
    auto token = tokens.begin();
    for (Field* field : fields) {
        if (token == tokens.end()) {
            return;
        }
        *field = read(*token++);
    }
}

} // namespace

void takeTexts(const std::string& text, const char* delimiters, std::initializer_list<std::string*> fields) {
    takeTokens(text, delimiters, fields, [](const std::string& token) { return token; });
}

void takeNumbers(const std::string& text, const char* delimiters, std::initializer_list<int*> fields) {
    takeTokens(text, delimiters, fields, [](const std::string& token) { return integerOf(token); });
}
