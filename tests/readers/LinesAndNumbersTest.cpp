#include "NumberText.h"
#include "SoundingLines.h"
#include "Words.h"
#include "WrittenTime.h"

#include <gmock/gmock.h>

#include <clocale>
#include <limits>
#include <sstream>

using testing::ElementsAre;

namespace {

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    return readLines(stream);
}

} // namespace

TEST(NumberText, ReadsTheNumberAtTheStart) {
    const std::pair<const char*, double> cases[] = {
        {"1013.25", 1013.25}, {"-0.5", -0.5},      {"+7.5", 7.5},      {"  3.5", 3.5},
        {".5", 0.5},          {"5.", 5.0},         {"1e3", 1000.0},    {"12.5mb", 12.5},
        {"12 34", 12.0},      {"1e", 1.0},         {"", 0.0},          {"-", 0.0},
        {"+", 0.0},           {"+-5", 0.0},        {"x12", 0.0},       {"\"3.0\"", 0.0},
        {"0x1A", 26.0},       {"1,5", 1.0},        {"nan", -999.0},    {"inf", -999.0},
        {"-inf", -999.0},     {"1e999", -999.0},   {"-1e999", -999.0}, {"1e-999", 0.0},
        {"3.4e38", 3.4e38},   {"-3.5e38", -999.0},
    };
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(numberOf(text), number) << text;
    }
}

TEST(NumberText, ClampsIntegers) {
    const std::pair<const char*, int> cases[] = {
        {"2021", 2021},
        {"-5", -5},
        {"+08", 8},
        {"12.9", 12},
        {"7 8", 7},
        {"abc", 0},
        {"", 0},
        {"2147483648", std::numeric_limits<int>::max()},
        {"99999999999999999999", std::numeric_limits<int>::max()},
        {"-99999999999999999999", std::numeric_limits<int>::min()},
    };
    for (const auto& [text, number] : cases) {
        EXPECT_EQ(integerOf(text), number) << text;
    }
}

TEST(Words, AreTakenOffTheFront) {
    std::string_view line = "  OMBRA-D01 S00  204 ";
    EXPECT_EQ(nextWord(line), "OMBRA-D01");
    EXPECT_EQ(line, "S00  204 ");
    skipWords(line, 1);
    EXPECT_EQ(line, " 204 ");
    EXPECT_EQ(nextWord(line), "204");
    EXPECT_EQ(line, "");
    EXPECT_EQ(nextWord(line), "");
}

// Expected seconds: `date -u -d ... +%s`.
TEST(WrittenTime, ReadsKeyedLines) {
    EXPECT_EQ(timeTag("210801", "120003.00"), 1627819203.0);
    EXPECT_EQ(timeTag("210801", "120003.25"), 1627819203.25);
    EXPECT_EQ(timeTag("210801", "120003"), 1627819203.0);
    EXPECT_EQ(timeTag("890101", "000000.0"), 3755376000.0);
    EXPECT_EQ(timeTag("900101", "000000.0"), 631152000.0);
    EXPECT_EQ(WrittenTime::of(timeTag("210801", "120003.75")).text(), "2021-08-01 12:00:03");
}

TEST(WrittenTime, StaysInTheCalendar) {
    EXPECT_EQ(WrittenTime::of(1e300).text(), "9999-12-31 23:59:59");
    EXPECT_EQ(WrittenTime::of(-1e300).text(), "0001-01-01 00:00:00");
}

TEST(SoundingLines, KeepsTheirOrderAndEmptiesBlankOnes) {
    EXPECT_THAT(linesOf("a\n \t\v\f\r\n\n b\r\n"), ElementsAre("a", "", "", " b\r", ""));
    EXPECT_THAT(linesOf("a\nlast"), ElementsAre("a", "last"));
}

TEST(SoundingLines, ALineOfMoreThan498CharactersEndsTheReading) {
    const std::string longest(498, 'x');
    EXPECT_THAT(linesOf(longest + "\nnext"), ElementsAre(longest, "next"));
    EXPECT_THAT(linesOf("first\n" + longest + "x\nnext"), ElementsAre("first", longest));
    EXPECT_THAT(linesOf(std::string(800, 'x') + "\nnext"), ElementsAre(longest));
}

TEST(SoundingLines, PreprocessLeavesPrintableAscii) {
    const std::string nul("d\0e", 3);
    EXPECT_THAT(preprocess({"a\tb\r", "", "\xC3\xA9\x7F", "~!", nul, ""}), ElementsAre("a b ", "   ", "~!", "d e"));
}
