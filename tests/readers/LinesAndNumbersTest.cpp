#include "NumberText.h"
#include "SoundingLines.h"
#include "WrittenTime.h"

#include <gmock/gmock.h>

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
    EXPECT_EQ(integerOf("+08"), 8);
    EXPECT_EQ(integerOf("-12.9"), -12);
    EXPECT_EQ(integerOf("abc"), 0);
    EXPECT_EQ(integerOf("2147483648"), std::numeric_limits<int>::max());
    EXPECT_EQ(integerOf("-99999999999999999999"), std::numeric_limits<int>::min());
}

TEST(WrittenTime, StaysInTheCalendar) {
    EXPECT_EQ(WrittenTime::of(1e300).text(), "9999-12-31 23:59:59");
    EXPECT_EQ(WrittenTime::of(-1e300).text(), "0001-01-01 00:00:00");
}

TEST(SoundingLines, KeepsTheirOrderAndEmptiesBlankOnes) {
    EXPECT_THAT(linesOf("a\n \t\v\f\r\n\n b\r\n"), ElementsAre("a", "", "", " b\r", ""));
    EXPECT_THAT(linesOf("a\nlast"), ElementsAre("a", "last"));
}

TEST(SoundingLines, PreprocessLeavesPrintableAscii) {
    const std::string nul("d\0e", 3);
    EXPECT_THAT(preprocess({"a\tb\r", "", "\xC3\xA9\x7F", "~!", nul, ""}), ElementsAre("a b ", "   ", "~!", "d e"));
}
