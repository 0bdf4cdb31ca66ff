// The levels of a sounding as traces, and their labels.

#include "GraphXY.h"
#include "Levels.h"

namespace {

constexpr double kLowestPressure = 1.0;      // mb
constexpr double kHighestPressure = 1200.01; // mb

using Types = std::vector<LevelType>;

Types typesBetween(int first, int last) {
    Types types;
    for (int type = first; type <= last; ++type) {
        types.push_back(static_cast<LevelType>(type));
    }
    return types;
}

const Types& standardTypes() {
    static const Types types{LevelType::Standard};
    return types;
}

const Types& layerTypes() {
    static const Types types{LevelType::LastWindAlt, LevelType::MeanBLWind, LevelType::Layer150m, LevelType::DeepLayer};
    return types;
}

/// The surface, the ends of the data and all points of significant change.
const Types& significantTypes() {
    static const Types types =
        typesBetween(static_cast<int>(LevelType::SurfaceThermo), static_cast<int>(LevelType::ShearBelow));
    return types;
}

const Types& allTypes() {
    static const Types types =
        typesBetween(static_cast<int>(LevelType::Standard), static_cast<int>(LevelType::RELLocation));
    return types;
}

struct LevelsColumn {
    Column column;
    const char* series;
    const Types& (*types)();
    LevelFieldId field;
};

constexpr LevelsColumn kLevelsColumns[] = {
    {Column::LevelsTime, "LevelsTime", &allTypes, LFtime},
    {Column::LevelsTimeLyr, "LevelsTimeLyr", &layerTypes, LFtime},
    {Column::LevelsPres, "LevelsPres", &allTypes, LFpres},
    {Column::LevelsPresLyr, "LevelsPresLyr", &layerTypes, LFpres},
    {Column::LevelsTdry, "LevelsTdry", &allTypes, LFtdry},
    {Column::LevelsTdryStd, "LevelsTdryStd", &standardTypes, LFtdry},
    {Column::LevelsTdrySft, "LevelsTdrySft", &significantTypes, LFtdry},
    {Column::LevelsRH, "LevelsRH", &allTypes, LFrh},
    {Column::LevelsRHStd, "LevelsRHStd", &standardTypes, LFrh},
    {Column::LevelsRHSft, "LevelsRHSft", &significantTypes, LFrh},
    {Column::LevelsWspd, "LevelsWspd", &allTypes, LFwspd},
    {Column::LevelsWspdStd, "LevelsWspdStd", &standardTypes, LFwspd},
    {Column::LevelsWspdSft, "LevelsWspdSft", &significantTypes, LFwspd},
    {Column::LevelsWspdLyr, "LevelsWspdLyr", &layerTypes, LFwspd},
    {Column::LevelsWdir, "LevelsWdir", &allTypes, LFwdir},
    {Column::LevelsWdirStd, "LevelsWdirStd", &standardTypes, LFwdir},
    {Column::LevelsWdirSft, "LevelsWdirSft", &significantTypes, LFwdir},
    {Column::LevelsWdirLyr, "LevelsWdirLyr", &layerTypes, LFwdir},
    {Column::LevelsAlt, "LevelsAlt", &allTypes, LFalt},
};

/// By Labelled and by PlotAxes.
constexpr std::array<LevelFieldId, kLabelled> kLabelledFields{LFtdry, LFrh, LFwspd, LFwdir};
constexpr std::array<LevelFieldId, kPlotAxes> kAxisFields{LFtime, LFpres, LFalt};

} // namespace

void GraphXY::clearLevels() {
    for (auto& ofQuantity : _decorations) {
        for (auto& decorations : ofQuantity) {
            decorations.clear();
        }
    }
    for (const LevelsColumn& row : kLevelsColumns) {
        _columns[static_cast<std::size_t>(row.column)].reset();
    }
    pointsOf(TraceSource::Levels) = 0;
}

void GraphXY::collectLevelsData(const EditorControl& editor) {
    const Levels& levels = *editor.levels();
    makeLvlsDecor(levels);
    std::vector<Series> series;
    series.reserve(std::size(kLevelsColumns));
    ColumnSources sources;
    for (const LevelsColumn& row : kLevelsColumns) {
        series.emplace_back(Id(row.series));
        levels.dataFromLevels(row.types(), kLowestPressure, kHighestPressure, false, series.back(), row.field);
        sources.emplace_back(row.column, &series.back());
    }
    keepColumns(TraceSource::Levels, sources);
}

void GraphXY::makeLvlsDecor(const Levels& levels) {
    std::vector<std::pair<double, double>> pairs;
    std::vector<std::string> labels;
    for (std::size_t quantity = 0; quantity < kLabelled; ++quantity) {
        for (std::size_t axis = 0; axis < kPlotAxes; ++axis) {
            levels.dataFor2Fields(kLabelledFields[quantity], kAxisFields[axis], false, pairs, labels);
            makeDecor(pairs, _decorations[quantity][axis], labels);
        }
    }
}
