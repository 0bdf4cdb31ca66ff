// Every shipped configuration set runs on every example, again and again with the same result.

#include "ExampleRun.h"
#include "SeriesText.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

std::string qcSet(const EditorControl& editor) {
    std::string text;
    for (const char* name :
         {"QCPres", "QCTdry", "QCRH", "QCWspd", "QCWdir", "QCU", "QCV", "QCAltUp", "QCLat", "QCDz"}) {
        text += std::string(name) + " " + textOf(*editor.getSeries(name)) + "\n";
    }
    return text;
}

} // namespace

TEST(EverySet, RunsOnEveryExample) {
    int runs = 0;
    for (const ShippedSet& set : shippedSets()) {
        for (const auto& entry : std::filesystem::directory_iterator(kExamples)) {
            const std::string what = std::string(set.name) + " on " + entry.path().filename().string();
            ExampleRun run(entry.path().filename().string(), std::string(set.name));
            EditorControl& editor = run.editor;
            if (!editor.isValid()) { // a full-size sonde with the set of minisondes
                EXPECT_EQ(set.name, "mini-dropsonde") << what;
                EXPECT_EQ(editor.getSndfileErrorMsg().substr(0, 26), "This is not a minisonde, b") << what;
                continue;
            }
            editor.qcProcess();
            if (entry.path().extension() == ".wmo") { // levels, and no samples
                EXPECT_TRUE(editor.getSeries("QCPres")->empty()) << what;
                continue;
            }
            const std::string first = qcSet(editor);
            EXPECT_GT(editor.getSeries("QCPres")->lastIndex(), 300) << what;
            EXPECT_FALSE(editor.getAltitudeSeries()->empty()) << what;
            editor.qcProcess();
            EXPECT_EQ(qcSet(editor), first) << what;
            ++runs;
        }
    }
    EXPECT_GT(runs, 60);
}

TEST(EverySet, TheDryBiasIsTakenOutOfAFileThatNeedsIt) {
    ExampleRun run("D20100119_180708.4");
    EditorControl& editor = run.editor;
    run.config.set("DoQC", 3.0); // nothing but the correction
    editor.qcProcess();
    EXPECT_EQ(editor.attributesSnd().at("TDDryBiasCorrApplied"), "true");
    const auto items = editor.summaryItems("TD Dry Bias Correction");
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0], "Correction was applied");
    const Series& raw = *editor.getSeries("RawRH");
    const Series& qc = *editor.getSeries("QCRH");
    EXPECT_EQ(qc.data(0), raw.data(0)) << "the launch value";
    EXPECT_TRUE(qc.getValue(0).isObservation());
    int changed = 0;
    for (int i = 1; i <= qc.lastIndex(); ++i) {
        const int k = raw.indexFromTime(qc.time(i));
        ASSERT_GE(k, 0);
        changed += qc.data(i) != raw.data(k) ? 1 : 0;
    }
    EXPECT_GT(changed, 1600);

    Series& channel = *editor.getSeries("RawRH0");
    for (int i = 0; i <= channel.lastIndex(); ++i) {
        channel.setAttribute(i, Value::QcIgnore);
    }
    editor.qcProcess();
    ASSERT_TRUE(editor.getSeries("QCRH")->empty());
    EXPECT_EQ(editor.attributesSnd().at("TDDryBiasCorrApplied"), "true") << "also when no RH is left";
    const std::vector<std::string> told{items[0], "Points which were removed due to missing temperature or bad RH:  0"};
    EXPECT_EQ(editor.summaryItems("TD Dry Bias Correction"), told);
}
