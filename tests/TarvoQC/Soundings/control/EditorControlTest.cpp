#include "EditorControl.h"

#include "CsvText.h"
#include "MadeConfig.h"
#include "PrescribedTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Key;
using testing::Not;
using testing::Pair;

class PhaseRecorder : public StatusAgent {
public:
    void SetStatus(const std::string& text) override { phases.push_back(text); }
    std::vector<std::string> phases;
};

CsvText drop() {
    CsvText text(false);
    text.line("SondeId,204715063").line("Comments,\"synthetic\"").line("Project,FILE").line("Flight,RF07");
    text.line("Latitude,25.5").line("Longitude,-80.25");
    text.fields("Time,Pressure,Temperature,Speed,Direction");
    text.data("0,500,-5,10,90").data("0.5,,-4.5,10,90").data("1,510,-4,10,");
    return text;
}

struct Analysis {
    explicit Analysis(const CsvText& text) : editor(config.set, "V3.4.8") {
        std::istringstream stream(text.text());
        editor.getSounding("/some/where/drop.csv", &stream);
    }
    MadeConfig config;
    EditorControl editor;
};

} // namespace

TEST(EditorControl, GoesThroughItsPhases) {
    const PrescribedTime processingTime; // durations are told by its seconds
    MadeConfig config;
    EditorControl editor(config.set, "V3.4.8");
    PhaseRecorder recorder;
    editor.setStatusAgent(&recorder);
    EXPECT_FALSE(editor.isValid());

    std::istringstream garbage("no sounding\n");
    editor.getSounding("x", &garbage);
    EXPECT_FALSE(editor.isValid());
    EXPECT_EQ(editor.getSndfileErrorMsg(), "Unrecognized file type");

    std::istringstream stream(drop().text());
    editor.getSounding("drop.csv", &stream);
    ASSERT_TRUE(editor.isValid());
    EXPECT_THAT(editor.summaryItems("Processing Steps"), ElementsAre("Data loaded (in less than 1.0s)"));
    editor.qcProcess();
    EXPECT_THAT(recorder.phases, ElementsAre("Loading Data...", "Loading Data...", "Loaded format Ombra", "Ready",
                                             "QC processing...", "Ready"));
    EXPECT_THAT(editor.summaryItems("Processing Steps"), ElementsAre("QC processing completed (in less than 1.0s)"));
    EXPECT_EQ(editor.description(), "drop.csv ");
    std::string name;
    EXPECT_EQ(editor.soundingType(name), SoundingType::Ombra);
    EXPECT_EQ(name, "Ombra");
}

TEST(EditorControl, EveryRunCountsAndStartsAFreshSummary) {
    Analysis analysis(drop());
    EditorControl& editor = analysis.editor;
    editor.qcProcess();
    const int qc = editor.QCversion();
    const int raw = editor.rawVersion();
    editor.summaryAddItem("Mine", "left over");
    editor.qcProcess();
    EXPECT_EQ(editor.QCversion(), qc + 1);
    EXPECT_EQ(editor.rawVersion(), raw + 1);
    EXPECT_THAT(editor.summaryTopics(), Not(Contains("Mine")));

    Analysis without(drop());
    without.config.set.set("DoQC", 0.0);
    without.editor.qcProcess();
    EXPECT_FALSE(without.editor.QCready());
    EXPECT_THAT(without.editor.summaryTopics(), Not(Contains("QC Data Recovery Statistics")));
}

TEST(EditorControl, TellsQcErrorsLineByLineAndGoesOn) {
    CsvText text(false);
    text.fields("Time,Pressure").data("0,900").data("1,910").data("2,905");
    Analysis analysis(text);
    analysis.editor.qcProcess();
    std::string errors;
    EXPECT_TRUE(analysis.editor.qcError(errors));
    EXPECT_THAT(analysis.editor.summaryItems("QC Processing Errors"),
                ElementsAre("- This sounding appears to contain post-splash data. Please remove post-splash data by "
                            "setting end-of-drop time.",
                            "- Filter check failed for pressure", "- Filter check failed for VVpressure",
                            "- Unable to compute vertical velocity from pressure (temperature sensor time constant)",
                            "- Unable to compute vertical velocity from pressure (final)"));
    EXPECT_TRUE(analysis.editor.QCready());
    EXPECT_THAT(analysis.editor.summaryTopics(), Contains("QC Data Recovery Statistics"));
}

TEST(EditorControl, RecoveryStatistics) {
    Analysis analysis(drop());
    analysis.editor.qcProcess();
    // Four records with the launch; pressure in two, temperature in three, no RH, a wind speed in three of which the
    // last has no direction.
    EXPECT_THAT(analysis.editor.summaryItems("QC Data Recovery Statistics"),
                ElementsAre("4 raw data records", "0 ( 0.0%) raw data records had PTU checksum errors",
                            "0 ( 0.0%) raw data records had GPS checksum errors",
                            "0 ( 0.0%) raw data records had both PTU and GPS checksum errors",
                            "pres :\tinput file reported     2 ( 50.0%) values, \tQC retained     2 (100.0%), "
                            "\toverall rate:  50.0%",
                            "tdry :\tinput file reported     3 ( 75.0%) values, \tQC retained     3 (100.0%), "
                            "\toverall rate:  75.0%",
                            "RH   :\tinput file reported     0 (  0.0%) values, \tQC retained     0 (  0.0%), "
                            "\toverall rate:   0.0%",
                            "winds:\tinput file reported     3 ( 75.0%) values, \tQC retained     2 ( 66.7%), "
                            "\toverall rate:  50.0%"));
}

TEST(EditorControl, LaunchPosition) {
    struct {
        double lat, lon;
        const char* text;
    } const cases[] = {{25.5, -80.25, "N25.5000 W80.2500"},
                       {-90.0, 180.0, "S90.0000 E180.0000"},
                       {90.01, 0.0, ""},
                       {0.0, -180.01, ""},
                       {0.0, 0.0, "N0.0000 E0.0000"}};
    for (const auto& c : cases) {
        Analysis analysis(drop());
        analysis.config.override("LaunchLatOverride", c.lat);
        analysis.config.override("LaunchLonOverride", c.lon);
        analysis.editor.qcProcess();
        EXPECT_EQ(analysis.editor.getLaunchPosString(), c.text);
        EXPECT_EQ(analysis.editor.getSndMetaData(false).launchLat.value(), 25.5);
    }
    Analysis analysis(drop());
    analysis.config.override("IgnoreLaunchLat", 1.0);
    analysis.editor.qcProcess();
    EXPECT_EQ(analysis.editor.getLaunchPosString(), "");
}

TEST(EditorControl, EstimatedHeights) {
    Analysis analysis(drop());
    double out = -1.0;
    EXPECT_FALSE(analysis.editor.estLaunchAlt(out)) << "no QC run yet";
    EXPECT_FALSE(analysis.editor.estTermAlt(out));
    analysis.editor.qcProcess();
    Series& up = *analysis.editor.getSeries("QCAltUp");
    up.removeAll();
    up.appendValue(6000, -1);
    EXPECT_FALSE(analysis.editor.estLaunchAlt(out)) << "not a launch value";
    up.setAttribute(0, Value::ObsFlight);
    EXPECT_TRUE(analysis.editor.estLaunchAlt(out));
    EXPECT_EQ(out, 6000);

    Series& down = *analysis.editor.getSeries("QCAltDn");
    down.removeAll();
    down.appendValue(30, 0);
    EXPECT_FALSE(analysis.editor.estTermAlt(out));
    down.appendValue(20, 1);
    EXPECT_TRUE(analysis.editor.estTermAlt(out));
    EXPECT_EQ(out, 20);
    down.setAttribute(1, Value::ObsSurface);
    analysis.editor.estTermAlt(out);
    EXPECT_EQ(out, 20) << "of two values the last";
    down.appendValue(10, 2);
    down.setAttribute(2, Value::ObsSurface);
    analysis.editor.estTermAlt(out);
    EXPECT_EQ(out, 20) << "the last above the surface";
}

// Chosen for the sounding alone, it is another than the configuration's.
TEST(EditorControl, AttributesTellTheRhChannelOfTheData) {
    CsvText text(true);
    text.fields("Time,Pressure,Temperature,RH,RH1,RH2").data("0,500,-5,50,51,52").data("1,499,-5,50,51,52");
    Analysis analysis(text);
    EditorControl& editor = analysis.editor;
    ASSERT_GT(editor.numRhChan(), 1);
    editor.qcProcess();
    EXPECT_THAT(editor.filteredAttributes(), Contains(Pair("RHchoice", "0")));
    editor.selectRH(2);
    EXPECT_THAT(editor.filteredAttributes(), Contains(Pair("RHchoice", "0"))) << "for the next run";
    editor.qcProcess();
    EXPECT_EQ(editor.getSeries("QCRH")->data(0), 52);
    EXPECT_THAT(editor.filteredAttributes(), Contains(Pair("RHchoice", "2")));
    EXPECT_THAT(editor.attributes(true, false), Contains(Pair("RHchoice", "2")));
    EXPECT_THAT(editor.baseAttributes(), Not(Contains(Key("RHchoice"))));

    Analysis single(drop());
    single.editor.selectRH(2);
    single.editor.qcProcess();
    EXPECT_THAT(single.editor.filteredAttributes(), Contains(Pair("RHchoice", "0")));
}

TEST(EditorControl, Attributes) {
    const PrescribedTime processingTime;
    Analysis analysis(drop());
    ConfigSet& config = analysis.config.set;
    config.set("Agency", "AGENCY");
    config.set("Project", "CONFIG");
    config.set("QCDisclaimer", "handle with care");
    config.add("WindQCDev", 3.0, false, false, true);
    config.add("PresOffset", 0.1234567, false, false, true);
    config.add("Secret", "text", false, false, false);
    config.add("SondeId", "from the configuration", false, false, true);
    analysis.editor.qcProcess();

    const auto base = analysis.editor.baseAttributes();
    EXPECT_THAT(base, IsSupersetOf({Pair("TarvoVersion", "V3.4.8"), Pair("ProcessingTime", "01 Aug 2021 12:00 UTC"),
                                    Pair("SoundingDescription", "drop.csv "), Pair("QCDisclaimer", "handle with care"),
                                    Pair("SondeId", "204715063"), Pair("Agency", "AGENCY"), Pair("Project", "CONFIG"),
                                    Pair("Flight", "RF07"), Pair("Comment", "synthetic"), Pair("PlatformId", "")}));
    EXPECT_THAT(base, Not(Contains(Key("ConfigSetName"))));
    EXPECT_THAT(base, Not(Contains(Key("WindQCDev"))));

    const auto filtered = analysis.editor.filteredAttributes();
    EXPECT_THAT(filtered,
                IsSupersetOf({Pair("ConfigSetName", "internal"), Pair("DoQC", "1"), Pair("PresOffset", "0.12346"),
                              Pair("SfcAltitude", "0"), Pair("SondeId", "204715063")}))
        << "a configuration pair never replaces another";
    EXPECT_THAT(filtered, Not(Contains(Key("Secret"))));
    EXPECT_THAT(analysis.editor.attributes(true, false), Contains(Pair("Secret", "text")));
}

TEST(EditorControl, LimitsOfADisabledCheckRead999) {
    struct {
        const char* switchKey;
        std::vector<std::string> limits;
    } const cases[] = {{"WindDisableQCFilter", {"WindQCDev"}},
                       {"WindDisableOutlierCheck", {"WindOutlier"}},
                       {"WindDisableSatsCheck", {"WindSats"}},
                       {"PresDisableOutlierCheck", {"PresOutlier"}},
                       {"TdryDisableOutlierCheck", {"TdryOutlier"}},
                       {"RHDisableOutlierCheck", {"RHOutlier"}},
                       {"WindDisableErrorCheck", {"WindErrorHigh", "WindErrorLow"}}};
    for (const auto& c : cases) {
        Analysis analysis(drop());
        analysis.config.set.add(c.switchKey, 0.0, false, false, false);
        for (const std::string& limit : c.limits) {
            analysis.config.set.add(limit, 1.5, false, false, true);
            EXPECT_EQ(analysis.editor.attributesConfig(true)[limit], "1.5");
        }
        analysis.config.set.add(c.switchKey, 1.0, false, false, false);
        for (const std::string& limit : c.limits) {
            EXPECT_EQ(analysis.editor.attributesConfig(true)[limit], "999") << limit;
        }
    }
}
