#include "GraphXY.h"

#include "UtcTime.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr double kKnotsPerMs = 1.944; // nearer than the 1.94 of levels and messages
constexpr double kWspdStep = 5.0;     // of the top of the speed axis
constexpr TraceScale kFullCircle{false, 0.0, 360.0};
constexpr double kMostSats = 20.0;
constexpr double kSatsMinUp = 0.0;
constexpr double kSatsMinDown = -60.0; // keeps the satellites of a drop out of the way of its fall rate

const char* const kKnotsLabel = "Wind Speed (knot)";

/// What stands along the vertical axis, by source and axis.
struct AxisColumns {
    std::array<Column, kPlotAxes> column;
};
constexpr std::array<AxisColumns, kTraceSources> kAxisColumns{{
    {{Column::RawTime, Column::RawPres, Column::RawAlt}},
    {{Column::RawTime, Column::RawPres, Column::RawAlt}},
    {{Column::QCTime, Column::QCPres, Column::QCAlt}},
    {{Column::LevelsTime, Column::LevelsPres, Column::LevelsAlt}},
}};

constexpr std::array<const char*, kPlotAxes> kVersus{"versus Time", "versus Pressure", "versus Altitude"};

bool isSpeed(Column column) {
    constexpr std::array<Column, 7> kSpeeds{Column::RawWspd,      Column::FlaggedWspd,   Column::QCWspd,
                                            Column::LevelsWspd,   Column::LevelsWspdStd, Column::LevelsWspdSft,
                                            Column::LevelsWspdLyr};
    return std::find(kSpeeds.begin(), kSpeeds.end(), column) != kSpeeds.end();
}

} // namespace

GraphXY::GraphXY(GraphAdapter* adapter) : _adapter(adapter) {}

void GraphXY::plotType(PlotTypes type) {
    _resetAxes = _resetAxes || type != _plotType;
    _plotType = type;
    plot();
}

void GraphXY::plotAxis(PlotAxes axis, bool automatic, double min, double max) {
    _resetAxes = _resetAxes || axis != _plotAxis;
    _plotAxis = axis;
    if (axis != AxisTime) {
        setScale(axis == AxisPres ? ScaleName::Pres : ScaleName::Alt, automatic, min, max);
    }
    plot();
}

void GraphXY::plotChoice(bool raw, bool qc, bool levels) {
    _plotRaw = raw;
    _plotQC = qc;
    _plotLevels = levels;
    plot();
}

void GraphXY::plotRawRH(bool channel0, bool channel1, bool channel2, bool qcUsed) {
    _plotRawRH = {channel0, channel1, channel2, qcUsed};
}

void GraphXY::setScale(ScaleName name, bool automatic, double min, double max) {
    _scales[static_cast<std::size_t>(name)] = automatic ? TraceScale{} : TraceScale{false, min, max};
}

void GraphXY::plot() {
    _adapter->reset();
    addTraces();
    const PlotWords& words = plotWords(_plotType);
    const bool knots = _plotType == PlotWind && _wspdKnots;
    _adapter->labels(_title + "\n" + words.title + kVersus[_plotAxis], words.lower, knots ? kKnotsLabel : words.upper,
                     axisLabel(), _credit);
    // An axis that runs downwards has the ground at the bottom: pressure, and the time of a drop.
    const bool downwards = _plotAxis == AxisTime ? !_ascending : _plotAxis == AxisPres;
    const TraceScale scale = _plotAxis == AxisTime   ? TraceScale{}
                             : _plotAxis == AxisPres ? scaleOf(ScaleName::Pres)
                                                     : scaleOf(ScaleName::Alt);
    _adapter->plot(downwards, _resetAxes, scale.min, scale.max, _credit);
    _resetAxes = false;
}

std::string GraphXY::axisLabel() const {
    switch (_plotAxis) {
    case AxisPres:
        return "Pressure (mb)";
    case AxisAlt:
        return "Altitude (m)";
    case AxisTime:
        break;
    }
    return utcText(_launchTime, "seconds since %Y-%m-%d %H:%M:%S UTC");
}

void GraphXY::addTraces() {
    for (const TraceRow& row : traceTable()) {
        if (isShown(row)) {
            addTrace(row);
        }
    }
}

bool GraphXY::isShown(const TraceRow& row) const {
    if (row.type != _plotType || dataOf(row.data) == nullptr || axisData(row.source) == nullptr) {
        return false;
    }
    switch (row.source) {
    case TraceSource::Raw:
        return _plotRaw && pointsOf(TraceSource::Raw) > 0 &&
               (row.rawRHswitch < 0 || _plotRawRH[static_cast<std::size_t>(row.rawRHswitch)]);
    case TraceSource::Flagged:
        return _plotFlagged && _flagged[static_cast<std::size_t>(row.data)] > 0;
    case TraceSource::QC:
        return _plotQC && pointsOf(TraceSource::QC) > 0;
    case TraceSource::Levels:
        return _plotLevels && pointsOf(TraceSource::Levels) > 0 && _plotAxis != AxisAlt;
    }
    return false;
}

void GraphXY::addTrace(const TraceRow& row) {
    Trace trace(inUnit(row.data), axisData(row.source), row.title, row.color, row.style);
    trace.setScale(scaleOf(row.scale));
    decorateTrace(trace, row.labelled);
    _adapter->addTrace(row.axis, std::move(trace));
}

Trace::Points GraphXY::dataOf(Column column) const {
    if (_observedPosition && (column == Column::QCLat || column == Column::QCLon)) {
        column = column == Column::QCLat ? Column::QCGpsLat : Column::QCGpsLon;
    }
    return _columns[static_cast<std::size_t>(column)];
}

Trace::Points GraphXY::inUnit(Column column) const {
    Trace::Points data = dataOf(column);
    if (!_wspdKnots || !isSpeed(column)) {
        return data;
    }
    auto knots = std::make_shared<std::vector<double>>(*data);
    for (double& speed : *knots) {
        speed = speed > kMissing ? speed * kKnotsPerMs : speed;
    }
    return knots;
}

Trace::Points GraphXY::axisData(TraceSource source) const {
    return dataOf(kAxisColumns[static_cast<std::size_t>(source)].column[_plotAxis]);
}

TraceScale GraphXY::scaleOf(ScaleName name) const {
    const TraceScale& speed = _scales[static_cast<std::size_t>(ScaleName::Wspd)];
    switch (name) {
    case ScaleName::Sats:
        return {false, _ascending ? kSatsMinUp : kSatsMinDown, kMostSats};
    case ScaleName::FlaggedWdir:
        return kFullCircle;
    case ScaleName::FlaggedWspd:
        return {false, 0.0, speed.automatic ? topOfWspd() : speed.max};
    case ScaleName::Wspd:
        return speed.automatic ? TraceScale{false, 0.0, topOfWspd()} : speed;
    default:
        return _scales[static_cast<std::size_t>(name)];
    }
}

double GraphXY::topOfWspd() const {
    double top = 0.0;
    for (const TraceRow& row : traceTable()) {
        if (row.scale == ScaleName::Wspd && isShown(row)) {
            const std::vector<double>& speeds = *dataOf(row.data);
            top = std::accumulate(speeds.begin(), speeds.end(), top, [](double a, double b) { return std::max(a, b); });
        }
    }
    top *= _wspdKnots ? kKnotsPerMs : 1.0;
    return (std::floor(top / kWspdStep) + 1.0) * kWspdStep;
}

void GraphXY::decorateTrace(Trace& trace, Labelled quantity) const {
    if (quantity == Labelled::None) {
        return;
    }
    std::vector<Decoration> decorations = _decorations[static_cast<std::size_t>(quantity)][_plotAxis];
    if (quantity == Labelled::Wspd && _wspdKnots) {
        for (Decoration& decoration : decorations) {
            decoration = Decoration(decoration.x() * kKnotsPerMs, decoration.y(), decoration.label());
        }
    }
    trace.setDecor(std::move(decorations));
}

void GraphXY::makeDecor(const std::vector<std::pair<double, double>>& pairs, std::vector<Decoration>& decorations,
                        const std::vector<std::string>& labels) {
    decorations.clear();
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        decorations.emplace_back(pairs[i].first, pairs[i].second, labels[i]);
    }
}
