#include "Text.h"

#include <cmath>
#include <cstdio>
#include <gmock/gmock.h>
#include <random>

using testing::ElementsAre;

TEST(Text, trimsSpacesOnly) {
    EXPECT_EQ(trimLeft("  \ta "), "\ta ");
    EXPECT_EQ(trimRight(" a\n "), " a\n");
    EXPECT_EQ(trimBoth("  a b ") + trimBoth("   "), "a b");
    EXPECT_EQ(trimLeftWord("  a b ") + trimLeftWord("word"), " b ");
}

TEST(Text, tokenizeKeepsEmptyTokensButNoneAfterTheLastDelimiter) {
    EXPECT_THAT(tokenize("a,,b", ","), ElementsAre("a", "", "b"));
    EXPECT_THAT(tokenize("a,", ","), ElementsAre("a"));
    EXPECT_THAT(tokenize("a, ", ","), ElementsAre("a", ""));
    EXPECT_THAT(tokenize(" a , b ", ","), ElementsAre("a", "b"));
    EXPECT_THAT(tokenize("a b\t,c;d", ",;"), ElementsAre("a b\t", "c", "d"));
}

TEST(Text, formatsAsTheCLibraryDoes) {
    std::mt19937_64 random(20211114);
    std::uniform_real_distribution<double> magnitude(-8.0, 21.0);
    std::vector<double> values{0.0,  -0.0,    0.5,      -0.5,   2.5,   0.125, 0.25,     -0.004,    999.995, 1.005,
                               -999, 99999.0, 1e15 + 1, 5e-324, 1e300, -1e40, INFINITY, -INFINITY, NAN};
    for (int i = 0; i < 4000; ++i) {
        values.push_back((i % 2 == 0 ? 1.0 : -1.0) * std::pow(10.0, magnitude(random)));
        values.push_back(std::round(values.back() * 100.0) / 100.0); // what has been written once already
        values.push_back((i - 2000) / 8.0);                          // exact halves
    }
    for (const char* format : {"%.1f", "%.0f", "%7.2f", "%05.2f", "%06.1f", " %11.6f mb", "%9.9f", "%3.0f|", "%08.3f,",
                               "%g", "%+6.1f", "%-8.2f|", "%12.5g", "%.12f", "%6.2e", "100%% %.1f"}) {
        for (const double value : values) {
            char expected[400];
            std::snprintf(expected, sizeof expected, format, value);
            ASSERT_EQ(stringFormat(format, value), expected) << format << " of " << value;
        }
    }
}

TEST(Text, lowerizeAndFormat) {
    std::string text = "AZaz[@ \xC3\x89 09";
    lowerize(text);
    EXPECT_EQ(text, "azaz[@ \xC3\x89 09");
    EXPECT_EQ(stringFormat("%7.2f|", -3.14159), "  -3.14|");
    EXPECT_EQ(stringFormat("%207d", 1), std::string(206, ' ') + "1");
}
