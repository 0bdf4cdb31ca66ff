#include "Text.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Text, trimsSpacesOnly) {
    const char* const cases[][5] = {// text, left, right, both, left word
                                    {"   ", "", "", "", ""},
                                    {"  a b ", "a b ", "  a b", "a b", " b "},
                                    {"word", "word", "word", "word", ""},
                                    {"\ta ", "\ta ", "\ta", "\ta", " "},
                                    {" a\n", "a\n", " a\n", "a\n", ""}};
    for (const auto& [text, left, right, both, leftWord] : cases) {
        EXPECT_EQ(trimLeft(text), left);
        EXPECT_EQ(trimRight(text), right);
        EXPECT_EQ(trimBoth(text), both);
        EXPECT_EQ(trimLeftWord(text), leftWord);
    }
}

TEST(Text, tokenizeKeepsEmptyTokensButNoneAfterTheLastDelimiter) {
    EXPECT_THAT(tokenize("", ","), IsEmpty());
    EXPECT_THAT(tokenize("a,,b", ","), ElementsAre("a", "", "b"));
    EXPECT_THAT(tokenize("a,", ","), ElementsAre("a"));
    EXPECT_THAT(tokenize(",,", ","), ElementsAre("", ""));
    EXPECT_THAT(tokenize("a, ", ","), ElementsAre("a", ""));
    EXPECT_THAT(tokenize(" a , b ", ","), ElementsAre("a", "b"));
    EXPECT_THAT(tokenize("a b\t,c;d", ",;"), ElementsAre("a b\t", "c", "d"));
}

TEST(Text, lowerizeAndFormat) {
    std::string text = "AZaz[@ \xC3\x89 09";
    lowerize(text);
    EXPECT_EQ(text, "azaz[@ \xC3\x89 09");
    EXPECT_EQ(stringFormat("%7.2f|", -3.14159), "  -3.14|");
    EXPECT_EQ(stringFormat("%207d", 1), std::string(206, ' ') + "1");
}
