#include "GraphXY.h"

#include "CsvText.h"
#include "Levels.h"
#include "MadeConfig.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Remembers what it should have drawn.
class Recorder : public GraphAdapter {
public:
    void plot(bool ascending, bool resetAxes, double yMin, double yMax, const std::string& credit) override {
        ++plots;
        isDown = ascending;
        isReset = resetAxes;
        limits = {yMin, yMax};
        footer = credit;
    }
    void decorate(bool /*ascending*/) override {}

    const std::vector<Trace>& lower() const { return _leftTraces; }
    const std::vector<Trace>& upper() const { return _rightTraces; }
    const Trace& trace(const std::string& title) const {
        for (const auto* side : {&_leftTraces, &_rightTraces}) {
            for (const Trace& each : *side) {
                if (each.title() == title) {
                    return each;
                }
            }
        }
        throw std::runtime_error("no trace " + title);
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> all;
        for (const auto* side : {&_leftTraces, &_rightTraces}) {
            for (const Trace& each : *side) {
                all.push_back(each.title());
            }
        }
        return all;
    }
    /// "axis title color style" of each trace, and its limits where it has both.
    std::vector<std::string> looks() const {
        std::vector<std::string> all;
        for (int axis = 0; axis < 2; ++axis) {
            for (const Trace& each : axis == 0 ? _leftTraces : _rightTraces) {
                std::ostringstream text;
                double min = 0.0;
                double max = 0.0;
                text << axis << " " << each.title() << " " << each.color() << " " << each.style();
                if (each.axisMin(min) && each.axisMax(max)) {
                    text << " " << min << ".." << max;
                }
                all.push_back(text.str());
            }
        }
        return all;
    }
    std::vector<std::string> words() const { return {_title, _xLabelBottom, _xLabelTop, _yLabel}; }

    int plots = 0;
    bool isDown = false;
    bool isReset = false;
    std::pair<double, double> limits;
    std::string footer;
};

/// Three rows; the launch observation, of which there is none, has a row ahead of them.
CsvText ascent() {
    CsvText text(true);
    text.fields("Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,Altitude,Sats,Ascent");
    text.data("0,1000,20,80,5,90,10,20,100,7,4").data("1,999,,70,12.5,100,10.1,20.1,109,8,5");
    text.data("2,998,19,60,,110,10.2,20.2,118,9,6");
    return text;
}

struct Plot {
    explicit Plot(const std::string& text) : editor(config.set, "V3.4.8"), graph(&recorder) {
        config.override("DoLevels", 1.0);
        std::istringstream stream(text);
        editor.getSounding("made.csv", &stream);
    }
    void process() {
        editor.qcProcess();
        editor.doLevels();
    }
    MadeConfig config;
    EditorControl editor;
    Recorder recorder;
    GraphXY graph;
};

/// A drop with everything: two RH channels, levels, a check of the vertical velocity.
struct Drop : Plot {
    Drop() : Plot(example()) {
        process();
        graph.setDirection(false);
        graph.flagType(FlagAll);
        graph.plotChoice(true, true, true);
        graph.setData(editor);
    }
    static std::string example() {
        std::ifstream file(TARVO_SOURCE_DIR "/examples/data/D20210914_043120.2");
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

} // namespace

TEST(GraphXY, PlotsRawDataOfAnAscentAgainstTime) {
    Plot plot(ascent().text());
    plot.graph.plotType(PlotTdryRH);
    plot.graph.setData(plot.editor);
    EXPECT_THAT(plot.recorder.looks(), ElementsAre("0 Raw Tdry red 0", "1 Raw RH blue 0"));
    EXPECT_THAT(plot.recorder.trace("Raw Tdry").x(), ElementsAre(-999.0, 20.0, -999.0, 19.0));
    EXPECT_THAT(plot.recorder.trace("Raw Tdry").y(), ElementsAre(-1.0, 0.0, 1.0, 2.0));
    EXPECT_THAT(plot.recorder.words(),
                ElementsAre(plot.editor.description() + "\nTemperature and Relative Humidity versus Time",
                            "Temperature (C)", "Relative Humidity (%)", "seconds since 2021-08-01 12:00:03 UTC"));
    EXPECT_FALSE(plot.recorder.isDown);
    EXPECT_EQ(plot.recorder.limits, std::make_pair(-999.0, -999.0));
    EXPECT_EQ(plot.recorder.footer, "   ");
    plot.graph.setDirection(false);
    plot.graph.plot();
    EXPECT_TRUE(plot.recorder.isDown);
}

TEST(GraphXY, PressureRunsDownwardsAndAltitudeUpwards) {
    Plot plot(ascent().text());
    plot.graph.setData(plot.editor);
    plot.graph.plotAxis(AxisPres, false, 100.0, 1050.0);
    EXPECT_TRUE(plot.recorder.isDown);
    EXPECT_EQ(plot.recorder.limits, std::make_pair(100.0, 1050.0));
    EXPECT_THAT(plot.recorder.trace("Raw Wdir").y(), ElementsAre(-999.0, 1000.0, 999.0, 998.0));
    EXPECT_EQ(plot.recorder.words()[3], "Pressure (mb)");
    EXPECT_THAT(plot.recorder.words()[0], HasSubstr("Wind Speed and Wind Direction versus Pressure"));
    plot.graph.plotAxis(AxisAlt, true, 5.0, 6.0);
    EXPECT_FALSE(plot.recorder.isDown);
    EXPECT_EQ(plot.recorder.limits, std::make_pair(-999.0, -999.0));
    EXPECT_THAT(plot.recorder.trace("Raw Wdir").y(), ElementsAre(-999.0, 100.0, 109.0, 118.0));
    EXPECT_THAT(plot.recorder.words()[0], HasSubstr("versus Altitude"));
}

TEST(GraphXY, EveryPlotTypeOfADrop) {
    Drop drop;
    drop.graph.plotAxis(AxisPres, true, 0.0, 0.0);
    drop.graph.setWspdScale(false, 1.0, 90.0);
    drop.graph.plotType(PlotWind);
    EXPECT_THAT(drop.recorder.looks(),
                ElementsAre("0 Raw Wdir red 0", "0 Flagged Raw Wdir cyan 2 0..360", "0 QC Wdir green 0",
                            "0 Levels Wdir purple 0", "0 Levels WdirStd purple 3", "0 Levels WdirSft purple 4",
                            "0 Levels WdirLyr purple 4", "1 Raw Wspd blue 0 1..90", "1 Flagged Raw Wspd yellow 2 0..90",
                            "1 QC Wspd orange 0 1..90", "1 Levels Wspd darkcyan 0 1..90",
                            "1 Levels WspdStd darkcyan 3 1..90", "1 Levels WspdSft darkcyan 4 1..90",
                            "1 Levels WspdLyr darkcyan 4 1..90"));
    drop.graph.setTdryScale(false, -60.0, 40.0);
    drop.graph.plotType(PlotTdryRH);
    EXPECT_THAT(drop.recorder.looks(),
                ElementsAre("0 Raw Tdry red 0 -60..40", "0 Flagged Raw Tdry cyan 2 -60..40",
                            "0 QC Tdry green 0 -60..40", "0 Levels Tdry purple 0 -60..40",
                            "0 Levels TdryStd purple 3 -60..40", "0 Levels TdrySft purple 4 -60..40", "1 Raw RH blue 0",
                            "1 Flagged Raw RH yellow 2", "1 QC RH orange 0", "1 Levels RH darkcyan 0",
                            "1 Levels RHStd darkcyan 3", "1 Levels RHSft darkcyan 4"));
    drop.graph.plotType(PlotSatsDz);
    EXPECT_THAT(drop.recorder.looks(),
                ElementsAre("0 Sats red 1 -60..20", "1 GPS dz/dt blue 0", "1 VVcheck dz/dt green 0",
                            "1 Hydrostatic dz/dt orange 0", "1 Vertical wind plum 0"));
    EXPECT_EQ(drop.recorder.words()[1], "Number of satellites");
    EXPECT_EQ(drop.recorder.words()[2], "dz/dt (m/s)");
    drop.graph.plotType(PlotPresAlt);
    EXPECT_THAT(drop.recorder.looks(),
                ElementsAre("0 Raw Pres red 0", "0 Flagged Raw Pres cyan 2", "0 VVcheck Pres plum 0",
                            "0 QC Pres green 0", "1 Raw Alt blue 0", "1 QC alt orange 0"));
    drop.graph.plotType(PlotLatLon);
    EXPECT_THAT(drop.recorder.looks(),
                ElementsAre("0 Raw Lat red 0", "0 Flagged Raw Lat cyan 2", "0 QC Lat green 0", "1 Raw Lon blue 0",
                            "1 Flagged Raw Lon yellow 2", "1 QC Lon orange 0"));
    const Series& observed = *drop.editor.getSeries("QCGpsLat");
    const std::vector<double> integrated = drop.recorder.trace("QC Lat").x();
    drop.graph.observedPosition(true);
    drop.graph.plot();
    EXPECT_NE(drop.recorder.trace("QC Lat").x(), integrated);
    EXPECT_THAT(drop.recorder.trace("QC Lat").x(), Contains(observed.data(observed.lastIndex())));
    drop.graph.plotRawRH(false, true, true, true);
    drop.graph.plotType(PlotRawRHs);
    EXPECT_THAT(drop.recorder.looks(),
                ElementsAre("1 RH1 blue 0", "1 RH2 green 0", "1 Flagged RH yellow 2", "1 QC-Used RH red 0"));
    drop.graph.plotRawRH(true, false, false, false);
    drop.graph.plot();
    EXPECT_THAT(drop.recorder.looks(), ElementsAre("1 RH0 (OMBRA Selected) cyan 0", "1 Flagged RH yellow 2"));
}

TEST(GraphXY, WithoutQCThereIsRawOnly) {
    Plot plot(ascent().text());
    plot.config.override("DoQC", 0.0);
    plot.process();
    plot.graph.plotChoice(true, true, true);
    plot.graph.setData(plot.editor);
    EXPECT_THAT(plot.recorder.titles(), ElementsAre("Raw Wdir", "Raw Wspd"));
    plot.graph.plotChoice(false, true, true);
    EXPECT_THAT(plot.recorder.titles(), IsEmpty());
}

TEST(GraphXY, LevelsAreNeverPlottedAgainstAltitude) {
    Drop drop;
    EXPECT_THAT(drop.recorder.titles(), Contains("Levels WdirStd"));
    drop.graph.plotAxis(AxisAlt, true, 0.0, 0.0);
    EXPECT_THAT(drop.recorder.titles(), Each(Not(HasSubstr("Levels"))));
}

TEST(GraphXY, LevelsStandInTheTraceOfTheirKind) {
    Drop drop;
    for (const auto& [title, first, last] : {std::tuple("Levels WspdStd", 0, 0),
                                             {"Levels WspdSft", 1, 28},
                                             {"Levels WspdLyr", 29, 32}}) { // types, as numbers
        std::set<double> speeds{-999.0};
        for (const Level& level : drop.editor.levels()->levels()) {
            const int type = static_cast<int>(level.levelType());
            double speed = 0.0;
            if (type >= first && type <= last && level.has(LFtime) && level.getFieldData(LFwspd, speed)) {
                speeds.insert(speed);
            }
        }
        const std::vector<double>& x = drop.recorder.trace(title).x();
        EXPECT_EQ(std::set<double>(x.begin(), x.end()), speeds) << title;
        EXPECT_GT(speeds.size(), 1U) << title;
    }
}

TEST(GraphXY, LevelsCarryTheirLabels) {
    Drop drop;
    drop.graph.plotAxis(AxisPres, true, 0.0, 0.0);
    const auto labelAt = [&](const char* title, double y) {
        for (const Decoration& each : drop.recorder.trace(title).getDecor()) {
            if (each.y() == y && each.label().rfind("Standard", 0) == 0) {
                return each;
            }
        }
        return Decoration();
    };
    EXPECT_EQ(labelAt("Levels Wspd", 700.0).label(), "Standard at 700.0 mb");
    double speed = 0.0;
    for (const Level& level : drop.editor.levels()->subsetByType(LevelType::Standard, 700.0, 700.1, false)) {
        level.getFieldData(LFwspd, speed);
    }
    EXPECT_DOUBLE_EQ(labelAt("Levels Wspd", 700.0).x(), speed);
    ASSERT_EQ(drop.recorder.trace("Levels WspdStd").getDecor().size(), 1U);
    EXPECT_EQ(drop.recorder.trace("Levels WspdStd").getDecor()[0].label(), "");
    drop.graph.wspdUnit(true);
    drop.graph.plot();
    EXPECT_DOUBLE_EQ(labelAt("Levels Wspd", 700.0).x(), speed * 1.944);
}

TEST(GraphXY, KnotsScaleSpeedsAndLeaveGapsAlone) {
    Drop drop;
    const std::vector<double> before = drop.recorder.trace("Levels WspdStd").x();
    drop.graph.wspdUnit(true);
    drop.graph.plot();
    const std::vector<double>& after = drop.recorder.trace("Levels WspdStd").x();
    ASSERT_EQ(after.size(), before.size());
    int values = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_DOUBLE_EQ(after[i], before[i] == -999.0 ? -999.0 : before[i] * 1.944);
        values += before[i] == -999.0 ? 0 : 1;
    }
    EXPECT_GT(values, 2);
    EXPECT_LT(values, static_cast<int>(before.size()));
    EXPECT_EQ(drop.recorder.words()[2], "Wind Speed (knot)");
    drop.graph.plotType(PlotTdryRH);
    EXPECT_EQ(drop.recorder.words()[2], "Relative Humidity (%)");
}

TEST(GraphXY, SpeedAxisEndsAtTheNextFive) {
    Plot plot(ascent().text());
    plot.graph.setData(plot.editor);
    EXPECT_THAT(plot.recorder.looks(), Contains("1 Raw Wspd blue 0 0..15"));
    plot.graph.wspdUnit(true); // 24.3 knots
    plot.graph.plot();
    EXPECT_THAT(plot.recorder.looks(), Contains("1 Raw Wspd blue 0 0..25"));
    EXPECT_THAT(plot.recorder.trace("Raw Wspd").x(), ElementsAre(-999.0, 5 * 1.944, 12.5 * 1.944, -999.0));
}

TEST(GraphXY, SpeedAxisHoldsAnySpeed) {
    CsvText text(true);
    text.fields("Time,Pressure,Speed,Direction").data("0,1000,5e10,90").data("1,999,5,90");
    Plot plot(text.text());
    plot.graph.setData(plot.editor);
    EXPECT_THAT(plot.recorder.looks(), Contains("1 Raw Wspd blue 0 0..5e+10"));
}

TEST(GraphXY, FlaggedSeriesHoldTheFlaggedSamplesOnly) {
    Plot plot(ascent().text());
    plot.editor.setDataAtt("RawTdry", 2.0, Value::QcIgnore, true);
    plot.editor.setDataAtt("RawTdry", 0.0, Value::QcKeep, true);
    plot.graph.plotType(PlotTdryRH);
    plot.graph.flagType(FlagIgnore);
    EXPECT_TRUE(plot.graph.setData(plot.editor));
    EXPECT_THAT(plot.recorder.trace("Flagged Raw Tdry").x(), ElementsAre(-999.0, -999.0, -999.0, 19.0));
    EXPECT_THAT(plot.recorder.titles(), Not(Contains("Flagged Raw RH")));
    plot.graph.flagType(FlagKeep); // in addition
    plot.graph.setData(plot.editor);
    EXPECT_THAT(plot.recorder.trace("Flagged Raw Tdry").x(), ElementsAre(-999.0, 20.0, -999.0, 19.0));
    plot.graph.clearFlags();
    plot.graph.flagType(FlagBuddyCheck);
    plot.graph.setData(plot.editor);
    EXPECT_THAT(plot.recorder.titles(), ElementsAre("Raw Tdry", "Raw RH"));
}

TEST(GraphXY, NothingIsRebuiltWithoutNewVersions) {
    Drop drop;
    const std::vector<double>* points = &drop.recorder.trace("Raw Wdir").x();
    const std::vector<double>* levels = &drop.recorder.trace("Levels Wdir").x();
    const int plots = drop.recorder.plots;
    EXPECT_FALSE(drop.graph.setData(drop.editor));
    drop.graph.clearFlags();
    drop.graph.flagType(FlagNone);
    EXPECT_FALSE(drop.graph.setData(drop.editor));
    EXPECT_EQ(drop.recorder.plots, plots);
    drop.graph.plotType(PlotTdryRH);
    drop.graph.plotAxis(AxisPres, true, 0.0, 0.0);
    drop.graph.plotChoice(true, false, true);
    drop.graph.plotType(PlotWind);
    EXPECT_EQ(drop.recorder.plots, plots + 4);
    EXPECT_EQ(&drop.recorder.trace("Raw Wdir").x(), points);
    drop.editor.changeRawVer();
    EXPECT_TRUE(drop.graph.setData(drop.editor));
    EXPECT_NE(&drop.recorder.trace("Raw Wdir").x(), points);
    EXPECT_EQ(&drop.recorder.trace("Levels Wdir").x(), levels);
    drop.editor.doLevels();
    EXPECT_TRUE(drop.graph.setData(drop.editor));
    EXPECT_NE(&drop.recorder.trace("Levels Wdir").x(), levels);
}

TEST(GraphXY, AZoomGoesWithAnotherTypeOrAxis) {
    Plot plot(ascent().text());
    plot.graph.setData(plot.editor);
    EXPECT_TRUE(plot.recorder.isReset);
    plot.graph.plotType(PlotWind);
    EXPECT_FALSE(plot.recorder.isReset);
    plot.graph.plotType(PlotLatLon);
    EXPECT_TRUE(plot.recorder.isReset);
    plot.graph.plotChoice(true, true, true);
    EXPECT_FALSE(plot.recorder.isReset);
    plot.graph.plotAxis(AxisAlt, true, 0.0, 0.0);
    EXPECT_TRUE(plot.recorder.isReset);
}
