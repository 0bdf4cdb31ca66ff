#include "CsvText.h"
#include "EditorControl.h"
#include "Levels.h"
#include "MadeConfig.h"
#include "PrescribedTime.h"
#include "Text.h"
#include "WMO.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class PhaseRecorder : public StatusAgent {
public:
    void SetStatus(const std::string& text) override { phases.push_back(text); }
    std::vector<std::string> phases;
};

/// What the configuration says of levels and message, beside the mild QC.
class LevelsConfig : public MadeConfig {
public:
    LevelsConfig() {
        for (const char* key : {"DoLevels", "DoWMO", "TdryLevelDelta"}) {
            override(key, 1.0);
        }
        for (const char* key : {"RHLevelDelta", "WspdLevelDelta", "WdirLevelDelta", "Wspd850LevelDelta"}) {
            override(key, 10.0);
        }
        override("TropSmoothWL", 60.0);
        override("TempMsgType", 0.0);
        override("ExcludeAbrHdr", 0.0);
        for (const char* key : {"BSN", "UpsondeICAO", "UpsondeAbrHdr"}) {
            set.add(key, "72469", false, false, false);
        }
    }
};

struct Analysis {
    explicit Analysis(const std::string& text) : editor(config.set, "V3.4.8") {
        std::istringstream stream(text);
        editor.getSounding("made", &stream);
    }
    void run() {
        editor.qcProcess();
        editor.doLevels();
        editor.doWMO();
    }
    std::string message() const {
        std::ostringstream text;
        editor.wmo()->saveTextFile(text, false);
        return text.str();
    }
    LevelsConfig config;
    EditorControl editor;
};

/// A sounding of 1 mb a second between 1010 and 840 mb.
std::string column(bool ascending) {
    CsvText text(ascending);
    text.line("Latitude,25.5").line("Longitude,-80.4").line("Altitude,3.0");
    text.fields("Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude");
    for (int i = 0; i <= 170; ++i) {
        const int p = ascending ? 1010 - i : 840 + i;
        text.data(stringFormat("%d,", i) + stringFormat("%d,", p) + stringFormat("%.1f,", 20.0 - (1010 - p) * 0.05) +
                  "80,10,90,26.5,-81.5");
    }
    return text.text();
}

const char* const kMessage = "XXAA 55128 99255 70803 08150 99010 20056 09020 00/// ///// ///// 92/// 162// 09021\n"
                             "88999 77999 31313 09608 81203 61616 62626 MBL WND 09022 WL150 09021 085 =\n"
                             "XXBB 55128 99255 70803 08150 00010 20056 11880 140// 21212 22870 09025\n"
                             "31313 09608 81203 61616 =\n";

std::string fieldText(const Level& level, LevelFieldId id) {
    double value = 0.0;
    return level.getFieldData(id, value) ? stringFormat("%.1f", value) : "-";
}

std::string textOf(const Levels& levels) {
    std::string text;
    for (const Level& level : levels.levels()) {
        text += level.LTname();
        for (const LevelFieldId id : {LFtime, LFpres, LFtdry, LFwspd, LFwdir, LFalt}) {
            text += " " + fieldText(level, id);
        }
        text += "\n";
    }
    return text;
}

} // namespace

TEST(EditorLevels, RunsAfterQcAndCounts) {
    const PrescribedTime processingTime; // durations are told by its seconds
    Analysis analysis(column(false));
    EditorControl& editor = analysis.editor;
    editor.doLevels();
    editor.doWMO();
    EXPECT_EQ(editor.levels(), nullptr) << "there is no QC data yet";
    PhaseRecorder recorder;
    editor.setStatusAgent(&recorder);
    analysis.run();
    ASSERT_NE(editor.levels(), nullptr);
    ASSERT_NE(editor.wmo(), nullptr);
    EXPECT_THAT(recorder.phases, ElementsAre("QC processing...", "Ready", "calculating levels...", "Ready",
                                             "Creating WMO message...", "Ready"));
    EXPECT_THAT(editor.summaryItems("Processing Steps"),
                ElementsAre("QC processing completed (in less than 1.0s)", "Levels created (in less than 1.0s)",
                            "WMO message coded (in less than 1.0s)"));
    EXPECT_EQ(editor.origWMOgroupCount(), static_cast<int>(editor.wmo()->groupCount()));
    const int levels = editor.levelsVersion();
    const int message = editor.WMOversion();
    editor.doWMO();
    EXPECT_EQ(editor.levelsVersion(), levels);
    EXPECT_EQ(editor.WMOversion(), message + 1);
    editor.doLevels();
    EXPECT_EQ(editor.levelsVersion(), levels + 1);
    EXPECT_EQ(editor.wmo(), nullptr) << "the message of levels that are gone";
    analysis.config.override("DoWMO", 0.0);
    editor.doWMO();
    EXPECT_EQ(editor.wmo(), nullptr);
    analysis.config.override("DoLevels", 0.0);
    analysis.run();
    EXPECT_EQ(editor.levels(), nullptr);
}

TEST(EditorLevels, NoneOfTheQcDataOfAnEarlierMode) {
    Analysis analysis(column(false));
    analysis.run();
    ASSERT_NE(analysis.editor.wmo(), nullptr);
    analysis.config.override("DoQC", 0.0);
    analysis.run();
    EXPECT_EQ(analysis.editor.levels(), nullptr);
    EXPECT_EQ(analysis.editor.wmo(), nullptr);
    analysis.editor.doWMO();
    EXPECT_EQ(analysis.editor.wmo(), nullptr);
    analysis.config.override("DoQC", 1.0);
    analysis.run();
    EXPECT_NE(analysis.editor.wmo(), nullptr);
}

TEST(EditorLevels, SurfaceAltitudeOfTheLevels) {
    // The station base pressure tells which altitude was taken: 850 mb below 1000 m, 800 mb from there, none unknown.
    Analysis analysis(column(false));
    const auto base = [&] {
        analysis.run();
        const auto found = analysis.editor.levels()->subsetByType(LevelType::StationBasePres);
        return found.empty() ? std::string("none") : fieldText(found[0], LFpres);
    };
    EXPECT_EQ(base(), "850.0");
    analysis.config.override("SfcAltUnknown", 1.0);
    EXPECT_EQ(base(), "none");
    analysis.config.override("SfcAltOverride", 5.0);
    EXPECT_EQ(base(), "850.0") << "an override counts all the same";
}

TEST(EditorLevels, PositionsComeFromTheSeriesThatIsReported) {
    Analysis analysis(column(false));
    const auto release = [&] {
        analysis.run();
        return fieldText(analysis.editor.levels()->subsetByType(LevelType::RELLocation).at(0), LFlon);
    };
    EXPECT_EQ(release(), "-80.4") << "from the launch position";
    analysis.config.override("ReportObservedPos", 1.0);
    EXPECT_EQ(release(), "-81.5") << "as the sonde tells it";
}

TEST(EditorLevels, TheMessageOfAnUpsondeIsAsConfigured) {
    Analysis analysis(column(true));
    analysis.config.set.add("CallSign", "SHIP7", false, false, false);
    analysis.run();
    EXPECT_THAT(analysis.message(), HasSubstr("\nTTAA  51128 72469 99"));
    EXPECT_THAT(analysis.message(), testing::StartsWith("72469 72469 ")) << "override and station of the header";
    analysis.config.override("ExcludeAbrHdr", 1.0);
    analysis.config.override("TempMsgType", 1.0);
    analysis.run();
    EXPECT_THAT(analysis.message(), testing::StartsWith("UUAA  SHIP7 51128 99255 70804 "));
    analysis.config.override("TempMsgType", 2.0);
    analysis.run();
    EXPECT_THAT(analysis.message(), testing::StartsWith("IIAA  SHIP7 51128 99255 70804 "));
    analysis.config.override("TempMsgType", 7.0);
    analysis.run();
    EXPECT_THAT(analysis.message(), testing::StartsWith("TTAA  51128 72469 ")) << "a type that isn't one";
}

TEST(EditorLevels, AMessageGivesItsLevelsRankedByPressure) {
    Analysis analysis(kMessage);
    ASSERT_TRUE(analysis.editor.isValid()) << analysis.editor.getSndfileErrorMsg();
    const int version = analysis.editor.levelsVersion();
    analysis.run();
    EXPECT_EQ(analysis.editor.wmo(), nullptr) << "it is a message already";
    EXPECT_EQ(analysis.editor.levelsVersion(), version + 1);
    EXPECT_THAT(analysis.editor.summaryItems("Processing Steps"), Not(Contains(HasSubstr("Levels created"))));
    // 20 knots are 20 * 0.5144 = 10.3 m/s, 21 10.8, 22 11.3, 25 12.9
    EXPECT_EQ(textOf(*analysis.editor.levels()), "62626 150m Layer Mean Wind 0.0 1200.0 - 10.8 90.0 85.0\n"
                                                 "62626 Mean BL Wind 0.0 1200.0 - 11.3 90.0 -\n"
                                                 "Surface Thermodynamic 1.0 1010.0 20.0 10.3 90.0 -\n"
                                                 "Surface Wind 1.0 1010.0 20.0 10.3 90.0 -\n"
                                                 "GDL Temperature 1.0 1010.0 20.0 - - -\n"
                                                 "GDL RH 1.0 1010.0 20.0 - - -\n"
                                                 "Standard 2.0 925.0 16.2 10.8 90.0 -\n"
                                                 "GDL Temperature 3.0 880.0 14.0 - - -\n"
                                                 "GDL RH 3.0 880.0 14.0 - - -\n"
                                                 "GDL Wind Speed 4.0 870.0 - 12.9 90.0 -\n"
                                                 "GDL Wind Direction 4.0 870.0 - 12.9 90.0 -\n");
    double rh = 0.0;
    const auto thermo = analysis.editor.levels()->subsetByType(LevelType::GDLRH);
    EXPECT_TRUE(thermo.at(0).getFieldData(LFrh, rh));
    EXPECT_NEAR(rh, 67.96, 0.3) << "100 * 10^(2353/293.15 - 2353/287.15), T and dew point in K";
    EXPECT_FALSE(thermo.at(1).has(LFrh)) << "without a dew point";
}
