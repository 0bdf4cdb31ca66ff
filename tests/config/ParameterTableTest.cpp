#include "ParameterTable.h"

#include "Registry.h"
#include "TarvoConfigSet.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

template <typename Condition>
long countOf(Condition condition) {
    return std::count_if(parameterTable().begin(), parameterTable().end(), condition);
}

TEST(ParameterTableTest, FindsEveryParameterByItsExactKey) {
    for (const Parameter& parameter : parameterTable()) {
        EXPECT_EQ(findParameter(parameter.key), &parameter) << parameter.key;
        EXPECT_FALSE(parameter.meaning.empty() || groupTitle(parameter.group).empty()) << parameter.key;
    }
    for (const char* wrong : {"", "windQCWL", "WindQCWL ", "WindQC"}) {
        EXPECT_EQ(findParameter(wrong), nullptr) << wrong;
    }
    EXPECT_EQ(countOf([](const Parameter& p) { return p.isRegistered(); }), 183);
    EXPECT_EQ(countOf([](const Parameter& p) { return p.isShipped(); }), 191);
    EXPECT_EQ(countOf([](const Parameter& p) { return p.isShipped() && p.isRegistered(); }), 176);
    EXPECT_EQ(countOf([](const Parameter& p) { return p.scope == ParameterScope::Batch; }), 15);
    EXPECT_EQ(countOf([](const Parameter& p) { return p.isRegistered() && !p.isBound(); }), 1);
    EXPECT_EQ(countOf([](const Parameter& p) { return p.scope == ParameterScope::OnDemand; }), 12);
    EXPECT_EQ(countOf([](const Parameter& p) { return p.immediate; }), 66);
    EXPECT_EQ(countOf([](const Parameter& p) { return p.isShipped() && p.outputAttribute; }), 65);
    EXPECT_EQ(countOf([](const Parameter& p) { return p.isShipped() && p.kind == ParameterKind::Flag; }), 71);
    EXPECT_EQ(countOf([](const Parameter& p) { return p.isShipped() && p.fileType == Option::NUMERIC; }), 86);
}

TEST(TarvoConfigSetTest, RunsFromTheBuiltInValuesWithoutAFile) {
    Registry registry;
    const TarvoConfigSet set(&registry);
    EXPECT_EQ(std::distance(set.begin(), set.end()), 183);
    EXPECT_FALSE(set.changed());
    const std::pair<const char*, double> numbers[] = {
        {"WindQCWL", 10.0},       {"WindBuddySlope", 1.5}, {"GPSPosBuddySlope", 0.001}, {"GPSPosQCDev", 20.0},
        {"GPSAltQCWL", 30.0},     {"ChuteArea", 676.0},    {"DropSondeMass", 400.0},    {"UseTheoryVentRate", 0.0},
        {"PresMonoCheck", 1.0},   {"TempMsgType", 2.0},    {"BaudRateIndex", 2.0},      {"DisableKermit", 0.0},
        {"xyGraphPresMin", 50.0}, {"ObsNum", 99.0},        {"DropsondeHitSfc", 1.0},    {"QCAutoSaveEnable", 1.0},
        {"SfcAltUnknown", 0.0},   {"xyGraphLonMin", -180}, {"RHThreshold", 0.0},        {"DragCoef", 0.61}};
    for (const auto& [key, value] : numbers) {
        ASSERT_NE(set[Id(key)], nullptr) << key;
        EXPECT_TRUE(set[Id(key)]->isNumeric()) << key;
        EXPECT_EQ(set[Id(key)]->value(), value) << key;
    }
    const std::pair<const char*, const char*> texts[] = {
        {"ACagency", "AF001"},
        {"DataDir", "C:\\"},
        {"FixedSrcDir", ""},
        {"OptIcao", ""},
        {"UpsondeAbrHdr", ""},
        {"OpenFileSeleFilter", "OMBRA D files (D*.?)"},
        {"BSN", "99999"},
        {"FontFamily", "Arial"},
        {"KermitPath", "C:\\Program Files (x86)\\Kermit 95 2.1\\K95.exe"}};
    for (const auto& [key, text] : texts) {
        ASSERT_NE(set[Id(key)], nullptr) << key;
        EXPECT_FALSE(set[Id(key)]->isNumeric()) << key;
        EXPECT_EQ(set[Id(key)]->text(), text) << key;
    }
    EXPECT_FALSE(set.exists("BatchSaveDir"));
    EXPECT_FALSE(set.exists("LaunchPresOverride"));
}

TEST(TarvoConfigSetTest, QcModesByName) {
    const std::pair<int, const char*> names[] = {{0, "none"}, {1, "normal"}, {2, "pass"}, {3, "tddrybias"}};
    for (const auto& [choice, name] : names) {
        EXPECT_EQ(TarvoConfigSet::doqcToString(choice), name);
        EXPECT_EQ(TarvoConfigSet::stringToDoqc(name), choice);
    }
    for (const int outside : {-1, 4, 1000000}) {
        EXPECT_EQ(TarvoConfigSet::doqcToString(outside), "none");
    }
    for (const std::string unknown : {"", "Normal", "passthrough"}) {
        try {
            TarvoConfigSet::stringToDoqc(unknown);
            ADD_FAILURE() << unknown;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(), "not a recognized qc mode: " + unknown);
        }
    }
}

} // namespace
