#include "MessageText.h"

#include <gtest/gtest.h>

namespace {

constexpr double kKnot = 0.5144;

using U = UnLevels;

std::string withRemarks(const std::string& remarks) {
    return "XXBB 75198 99254 70804 08145 00012 27632 31313 09608 81905 " + remarks;
}

/// A remark group as a message is written: pieces of 65 characters, a blank at the end of one lost and given back to
/// the start of the next.
std::string written(const std::string& group) {
    constexpr std::size_t kPiece = 65;
    std::string lines;
    std::string line;
    for (std::size_t at = 0; at < group.size(); at += kPiece) {
        line += group.substr(at, kPiece);
        if (at + kPiece < group.size()) {
            const bool endsInBlank = line.back() == ' ';
            line.erase(line.find_last_not_of(' ') + 1);
            lines += line + "\n";
            line = endsInBlank ? " " : "";
        }
    }
    return lines + line + " =\n";
}

void expectField(const UnLevels& read, U::LEVEL_TYPE type, U::LEVEL_FIELD field, double expected) {
    const auto levels = read.levels({type});
    ASSERT_EQ(levels.size(), 1U) << U::Level(type).name();
    EXPECT_NEAR(levels[0].value(field), expected, 1e-9) << levels[0].name() << ' ' << field;
}

void expectAllRemarks(const UnLevels& read, double height) {
    expectField(read, U::LASTWINDHEIGHT, U::HEIGHT, height);
    expectField(read, U::MEANBLWIND, U::WDIR, 125);
    expectField(read, U::MEANBLWIND, U::WSPD, 25 * kKnot);
    expectField(read, U::DEEPLAYER, U::WDIR, 130);
    expectField(read, U::DEEPLAYER, U::PRES, 1010);
    expectField(read, U::DEEPLAYER, U::PRES2, 250);
    expectField(read, U::LAYER150M, U::WSPD, 28 * kKnot);
    expectField(read, U::LAYER150M, U::HEIGHT, height);
    expectField(read, U::RELEASEPOINT, U::LAT, 25.62);
    expectField(read, U::RELEASEPOINT, U::LON, -80.51);
    expectField(read, U::RELEASEPOINT, U::CLOCK, 190530);
    expectField(read, U::SPLASHPOINTRAWGPS, U::LAT, -25.4);
    expectField(read, U::SPLASHPOINTRAWGPS, U::LON, 80.4);
    expectField(read, U::SPLASHPOINTRAWGPS, U::CLOCK, 91845);
    expectField(read, U::SPLASHPOINTWINDINTEG, U::CLOCK, 1918);
}

} // namespace

// A word in front, longer by one letter each time, moves the cuts over every place of the remarks.
TEST(UnLevelsRemarks, MayBeCutAnywhere) {
    for (const auto& [coded, height] : {std::pair("085", 85), std::pair("1085", 1085), std::pair("-123", -123)}) {
        const std::string remarks = std::string(" RELEASED SPL 2540N08040W 1918 LST WND ") + coded +
                                    " MBL WND 12525 AEV 30408 LAST REPORT DLM WND 13030 010250 WL150 12528 " + coded +
                                    " REL 2562N08051W 190530 SPG 2540S08040E 091845";
        for (std::size_t length = 0; length <= 130; ++length) {
            const std::string text =
                withRemarks("\n" + written("62626 EYEWALL 045 " + std::string(length, 'Z') + remarks)) +
                "XXCC 75191 99254 70804 08145 88999 77999";
            ASSERT_EQ(errorOf(text), "read") << text;
            const UnLevels read(text);
            SCOPED_TRACE(text);
            expectAllRemarks(read, height);
            if (testing::Test::HasFailure()) {
                return;
            }
        }
    }
}

// Blanks within a group of known length are no fault, wherever they come from.
TEST(UnLevelsRemarks, GroupsMayBeSplitByABlank) {
    expectAllRemarks(
        UnLevels(withRemarks("62626 SPL 2540N 08040W 19 18 LST WND 0 85 MBL WND 125 25 DLM WND 130 30 010 250 "
                             "WL 150 125 28 08 5 LAST REP ORT REL 2562N 08051W 1905 30 "
                             "SPG 2540S08 040E 0918 45 =")),
        85);
}

TEST(UnLevelsRemarks, CountWhereTheyAreGivenFirst) {
    const UnLevels read(fourParts());
    expectField(read, U::MEANBLWIND, U::WDIR, 125);
    expectField(read, U::SPLASHPOINTWINDINTEG, U::CLOCK, 1918);
    EXPECT_TRUE(UnLevels(withRemarks("62626 WL150 ///// 085 =")).levels({U::LAYER150M}).empty());
    expectField(UnLevels(withRemarks("62626 MBL WND ///// MBL WND 13030")), U::MEANBLWIND, U::WDIR, 130);
}

// A part begins with its code form, and nothing else ends the remarks of the part before.
TEST(UnLevelsRemarks, EndWithTheNextPartOnly) {
    const std::string partA = "XXAA 7519/ 99254 70804 08145 99012 27632 12525 88999 77999 31313 09608 81905";
    const auto surfaces = [](const std::string& text) { return UnLevels(text).levels({U::SURFACE}).size(); };
    expectField(UnLevels(withRemarks("61616 TODD 62626 TODD MBL WND 13030")), U::MEANBLWIND, U::WDIR, 130);
    EXPECT_EQ(surfaces(withRemarks("62626 EYE = NNNN " + partA)), 1U);
    EXPECT_EQ(surfaces(withRemarks("62626 EYEWALL = " + partA)), 1U);
    EXPECT_EQ(surfaces(withRemarks("62626 SPL 2540N08040W = " + partA)), 1U);
    EXPECT_EQ(surfaces(partA + " NNNN UZNT13 KNHC 251930 " + partA), 1U);
}

TEST(UnLevelsRemarks, ASplashMayHaveNoTime) {
    for (const char* end : {"", " = XXCC 75191 99254 70804 08145 88999 77999", " LST WND 012"}) {
        const UnLevels read(withRemarks("62626 SPL 2540N08040W" + std::string(end)));
        expectField(read, U::SPLASHPOINTWINDINTEG, U::LAT, 25.4);
        expectField(read, U::SPLASHPOINTWINDINTEG, U::CLOCK, -999);
    }
    for (const char* incomplete : {"62626 SPL", "62626 REL 2540N08040W", "62626 SPG 2540N08040W"}) {
        EXPECT_EQ(errorOf(withRemarks(incomplete)).substr(0, 8), "At least") << incomplete;
    }
}

TEST(UnLevelsRemarks, SayWhatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"LAST DROP", "LAST must be followed by REPORT. Error detected near DROP  ..."},
        {"DLM 13030 850250 X", "DLM must be followed by WND. Error detected at 13030 850250 X ..."},
        {"MBL 13030 X", "MBL must be followed by WND."},
        {"LST 012 X", "LST must be followed by WND."},
        {"MBL WND 1303", "This code group requires exactly 5 characters. Error detected near 1303  ..."},
        {"REL 2562X08051Y 190530", "REL and SPG position must be coded as 3233N06956W."},
        {"REL 2562N0805111 190530", "This code group requires exactly 11 characters."},
        {"REL 2562N080511 190530", "REL and SPG position must be coded as 3233N06956W."},
        {"AEV 304", "This code group requires exactly 5 characters."},
        {"AEV ///// AEV 130408 AEV 30408", "read"},
    };
    for (const auto& [remark, error] : cases) {
        const std::string said = errorOf(withRemarks("62626 " + std::string(remark)));
        EXPECT_EQ(said.substr(0, std::string(error).size()), error) << remark;
    }
}
