#pragma once

#include "EditorControl.h"
#include "GraphAdapter.h"
#include "TraceTable.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// The flags of samples that can be shown: the bits of Value::AttributeType.
enum FlagTypes : std::uint32_t {
    FlagNone = 0,
    FlagFlight = Value::ObsFlight,
    FlagSurface = Value::ObsSurface,
    FlagPTU = Value::CrcPtu,
    FlagGPS = Value::CrcGps,
    FlagIgnore = Value::QcIgnore,
    FlagKeep = Value::QcKeep,
    FlagAmbientEquil = Value::QcAmbientEquilibration,
    FlagLimitCheck = Value::QcLimitCheck,
    FlagSatsCheck = Value::QcSatsCheck,
    FlagBuddyCheck = Value::QcBuddyCheck,
    FlagOutlierCheck = Value::QcOutlierCheck,
    FlagFilterCheck = Value::QcFilterCheck,
    FlagMpresCheck = Value::QcMonotonicPresCheck,
    FlagVvCheck = Value::QcVerticalVelCheck,
    FlagRHThreshold = Value::QcRHThreshold,
    FlagRHDryBias = Value::DryBiasCorrection,
    FlagWindErrCheck = Value::QcWindErrorCheck,
    FlagAll = 0x7ffff
};

/// Turns one sounding into the traces of a plot, which an adapter draws: two quantities against time, pressure or
/// altitude. It keeps the data of the versions that it has seen, and makes every plot from them. The adapter is
/// borrowed.
class GraphXY {
public:
    explicit GraphXY(GraphAdapter* adapter);

    /// Takes over those data that have changed, and plots when there were any. True when it has plotted.
    bool setData(EditorControl& editor);
    void plot();

    /// Each plots at once. Another type or axis gives up a zoom.
    void plotType(PlotTypes type);
    void plotAxis(PlotAxes axis, bool automatic, double min, double max);
    void plotChoice(bool raw, bool qc, bool levels);

    /// Which traces a plot of the raw RHs has: the three channels, and the RH that QC uses.
    void plotRawRH(bool channel0, bool channel1, bool channel2, bool qcUsed);
    /// The flags to be shown, one added at a time. The flagged data are made by the next setData().
    void clearFlags();
    void flagType(FlagTypes flag);
    /// Whether the sounding ascends: time then runs from the bottom to the top.
    void setDirection(bool ascending) { _ascending = ascending; }
    /// Knots instead of m/s, from the next plot on.
    void wspdUnit(bool knots) { _wspdKnots = knots; }
    /// Which of the two positions of the QC data is plotted, from the next plot on.
    void observedPosition(bool observed) { _observedPosition = observed; }

    void setPresScale(bool automatic, double min, double max) { setScale(ScaleName::Pres, automatic, min, max); }
    void setAltScale(bool automatic, double min, double max) { setScale(ScaleName::Alt, automatic, min, max); }
    void setTdryScale(bool automatic, double min, double max) { setScale(ScaleName::Tdry, automatic, min, max); }
    void setRHScale(bool automatic, double min, double max) { setScale(ScaleName::RH, automatic, min, max); }
    /// In the unit shown.
    void setWspdScale(bool automatic, double min, double max) { setScale(ScaleName::Wspd, automatic, min, max); }
    void setWdirScale(bool automatic, double min, double max) { setScale(ScaleName::Wdir, automatic, min, max); }
    void setDzDtScale(bool automatic, double min, double max) { setScale(ScaleName::DzDt, automatic, min, max); }
    void setLatScale(bool automatic, double min, double max) { setScale(ScaleName::Lat, automatic, min, max); }
    void setLonScale(bool automatic, double min, double max) { setScale(ScaleName::Lon, automatic, min, max); }

    void setCredit(const std::string& credit) { _credit = credit; }
    void markPoints(bool on) { _adapter->markPoints(on); }
    void drawLines(bool on) { _adapter->drawLines(on); }
    void gridType(int type) { _adapter->gridType(type); }
    void print() { _adapter->print(); }
    void unZoom() { _adapter->unZoom(); }
    void maximize() { _adapter->maximize(); }

    /// Replaces \p decorations by one for each pair, with the label of its index.
    static void makeDecor(const std::vector<std::pair<double, double>>& pairs, std::vector<Decoration>& decorations,
                          const std::vector<std::string>& labels);

private:
    using ColumnSources = std::vector<std::pair<Column, const Series*>>;

    // The data.
    void collectRawData(const EditorControl& editor);
    void collectQCData(const EditorControl& editor);
    Series getFlaggedData(const char* name, const Series& series, int& count) const;
    void collectLevelsData(const EditorControl& editor);
    void makeLvlsDecor(const Levels& levels);
    void clearLevels();
    void keepColumns(TraceSource source, const ColumnSources& sources);

    // The plot.
    void addTraces();
    void addTrace(const TraceRow& row);
    bool isShown(const TraceRow& row) const;
    Trace::Points dataOf(Column column) const;
    Trace::Points inUnit(Column column) const;
    Trace::Points axisData(TraceSource source) const;
    TraceScale scaleOf(ScaleName name) const;
    double topOfWspd() const;
    void decorateTrace(Trace& trace, Labelled quantity) const;
    std::string axisLabel() const;
    void setScale(ScaleName name, bool automatic, double min, double max);
    int& pointsOf(TraceSource source) { return _points[static_cast<std::size_t>(source)]; }
    int pointsOf(TraceSource source) const { return _points[static_cast<std::size_t>(source)]; }

    GraphAdapter* _adapter;
    std::array<Trace::Points, kColumns> _columns;
    std::array<int, kColumns> _flagged{};     // how many samples of a flagged column are there
    std::array<int, kTraceSources> _points{}; // rows of the columns of a source
    int _rawVersion = -1;
    int _qcVersion = -1;
    int _levelsVersion = -1;
    int _rhSelection = 0;

    bool _plotRaw = true;
    bool _plotQC = false;
    bool _plotLevels = false;
    bool _plotFlagged = false;
    std::array<bool, 4> _plotRawRH{true, true, true, true};
    std::uint32_t _flagMask = FlagNone;
    PlotTypes _plotType = PlotWind;
    PlotAxes _plotAxis = AxisTime;
    bool _wspdKnots = false;
    bool _observedPosition = false;
    bool _resetAxes = true;
    bool _ascending = true;
    std::array<TraceScale, kSettableScales> _scales;

    std::string _title;
    std::string _credit = "   ";
    std::int64_t _launchTime = 0;
    std::array<std::array<std::vector<Decoration>, kPlotAxes>, kLabelled> _decorations;
};
