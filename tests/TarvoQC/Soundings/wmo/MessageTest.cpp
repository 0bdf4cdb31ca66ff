#include "MadeLevels.h"
#include "Trailer.h"
#include "WMO.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using testing::ElementsAre;
using T = LevelType;

std::vector<int> sectionNumbers(const WMOpart& part) {
    std::vector<int> numbers;
    for (const auto& section : part.sections()) {
        numbers.push_back(section->sectionNumber());
    }
    return numbers;
}

/// A message whose part A ends in a group of the given text, which is put ahead of the trailer.
std::vector<std::string> linesWith(const std::string& text, bool newLine) {
    MadeLevels made;
    WMO wmo(made.levels, TempMsgType::TempDrop, SndMetaData(), true, "", "");
    std::vector<WMOsection*> sections;
    wmo.findSection(10, sections);
    sections[0]->groups()[0].modify(text);
    sections[0]->groups()[0].newLine(newLine);
    std::vector<std::string> lines = wmo.textLines();
    lines.erase(lines.begin(), lines.begin() + 1); // section 1 and 2
    lines.resize(lines.size() - 2);                // part B
    return lines;
}

std::string letters(std::size_t n) {
    std::string text;
    for (std::size_t i = 0; i < n; ++i) {
        text += static_cast<char>('a' + i % 26);
    }
    return text;
}

} // namespace

TEST(WMO, PartsAndTheOrderOfTheirSections) {
    MadeLevels made;
    made.add(T::GDLTdry, {{LFpres, 100.0}});
    const WMO low(made.levels, TempMsgType::TempDrop, SndMetaData(), false, "", "");
    ASSERT_EQ(low.parts().size(), 2u) << "100 mb doesn't bring parts C and D";
    EXPECT_THAT(sectionNumbers(low.parts()[0]), ElementsAre(0, 1, 2, 3, 4, 7, 9, 10, 100));
    EXPECT_THAT(sectionNumbers(low.parts()[1]), ElementsAre(1, 5, 6, 7, 9, 10, 100));

    made.add(T::GDLTdry, {{LFpres, 99.99}});
    const WMO high(made.levels, TempMsgType::Temp, SndMetaData(), true, "", "");
    ASSERT_EQ(high.parts().size(), 4u);
    EXPECT_THAT(sectionNumbers(high.parts()[0]), ElementsAre(1, 2, 3, 4, 7, 100)) << "without the header";
    EXPECT_THAT(sectionNumbers(high.parts()[2]), ElementsAre(1, 2, 3, 4, 7, 100));
    EXPECT_THAT(sectionNumbers(high.parts()[3]), ElementsAre(1, 5, 6, 7, 100));
}

TEST(WMO, AnEmptyLevelSetGivesAMessageOfSlashes) {
    MadeLevels made;
    SndMetaData meta;
    meta.day = 5;
    const WMO wmo(made.levels, TempMsgType::TempDrop, meta, true, "", "");
    std::ostringstream text;
    wmo.saveTextFile(text, true);
    EXPECT_EQ(text.str(), "XXAA  0500/ 99/// ///// ///// 99/// ///// ///// 88999 77999\n"
                          "31313 0//// 80000 61616 =\n"
                          "XXBB  0500/ 99/// ///// ///// 00/// ///// 00/// /////\n"
                          "31313 0//// 80000 61616 =\n"
                          "NNNN");
}

TEST(WMO, ElevenGroupsFillALine) {
    MadeLevels made;
    for (int i = 0; i < 8; ++i) {
        made.add(T::GDLTdry, {{LFpres, 200.0 + 50.0 * i}});
    }
    SndMetaData meta;
    meta.day = 5;
    const WMO wmo(made.levels, TempMsgType::Temp, meta, true, "", "");
    std::vector<std::string> lines = wmo.textLines();
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[2], "TTBB  5500/ 99999 00/// ///// 11550 ///// 22500 ///// 33450 ///// ");
    EXPECT_EQ(lines[3], "44400 ///// 55350 ///// 66300 ///// 77250 ///// 88200 ///// 00/// ");
    EXPECT_EQ(lines[4], "///// ");
    EXPECT_EQ(lines[5], "31313 0//// 80000 = ");
}

TEST(WMO, LongGroupsAreCut) {
    const std::string system = "31313 0//// 80000 ";
    EXPECT_THAT(linesWith(letters(64), false), ElementsAre(system + letters(64) + " = "));
    EXPECT_THAT(linesWith(letters(65), false), ElementsAre(system, letters(65) + " = "));
    const std::string text = letters(131);
    const std::string first = text.substr(0, 65);
    const std::string second = text.substr(65, 65);
    EXPECT_THAT(linesWith(text.substr(0, 66), true), ElementsAre(system, first, second.substr(0, 1) + " = "));
    EXPECT_THAT(linesWith(text.substr(0, 130), true), ElementsAre(system, first, second + " = "));
    EXPECT_THAT(linesWith(text, true), ElementsAre(system, first, second, text.substr(130) + " = "));
}

TEST(WMO, ABlankAtACutGoesToTheNextLine) {
    std::string text = letters(140);
    text[64] = ' ';
    EXPECT_THAT(linesWith(text, true), ElementsAre("31313 0//// 80000 ", text.substr(0, 65), " " + text.substr(65, 65),
                                                   text.substr(130) + " = "));
}

TEST(WMO, DoubtfulHeightsAlsoInAMessageThatHasNoSuchSection) {
    MadeLevels made;
    WMO wmo(made.levels, TempMsgType::Temp, SndMetaData(), true, "", "");
    const std::size_t groups = wmo.groupCount();
    std::vector<WMOsection*> sections;
    wmo.doubtfulHts(false, 850.0, 500.0, WMOpartType::A, made.levels);
    wmo.doubtfulHts(true, 850.0, 500.0, WMOpartType::C, made.levels); // there is no part C
    wmo.findSection(9, sections);
    EXPECT_TRUE(sections.empty());
    wmo.doubtfulHts(true, 850.0, 500.0, WMOpartType::A, made.levels);
    EXPECT_THAT(sectionNumbers(wmo.parts()[0]), ElementsAre(1, 2, 3, 4, 7, 9, 100));
    EXPECT_EQ(wmo.textLines()[2], "51515 10166 08550 = ");
    EXPECT_EQ(wmo.groupCount(), groups + 3);
    wmo.doubtfulHts(false, 0.0, 0.0, WMOpartType::A, made.levels);
    EXPECT_EQ(wmo.groupCount(), groups);
}

TEST(WMOcodeGroup, RemembersWhatItWas) {
    WMOcodeGroup group("TTAA ", true);
    EXPECT_FALSE(group.modified());
    group.modify(" TTAA");
    EXPECT_FALSE(group.modified()) << "blanks at the ends don't count";
    group.modify("TTBB");
    EXPECT_TRUE(group.modified());
    group.revert();
    EXPECT_EQ(group.text(), "TTAA ");
    EXPECT_FALSE(group.modified());
    MadeLevels made;
    Trailer trailer(made.levels, WMOpartType::A, "=");
    trailer.insertGroup("end", 7);
    trailer.insertGroup("start", -1);
    trailer.deleteGroup(9);
    trailer.deleteGroup(1);
    ASSERT_EQ(trailer.groups().size(), 2u);
    EXPECT_EQ(trailer.groups()[0].text() + trailer.groups()[1].text(), "startend");
}
