// What is taken from the sounding, and when.

#include "DataArray.h"
#include "GraphXY.h"
#include "Levels.h"

namespace {

constexpr std::uint32_t kTestedFlags = 0x1ffff; // the end of the drop condemns nothing by itself

struct ColumnName {
    Column column;
    const char* series;
};

constexpr ColumnName kRawColumns[] = {
    {Column::RawTime, "RawTime"}, {Column::RawPres, "RawPres"}, {Column::RawTdry, "RawTdry"},
    {Column::RawRH, "RawRH"},     {Column::RawWspd, "RawWspd"}, {Column::RawWdir, "RawWdir"},
    {Column::RawDz, "RawDz"},     {Column::RawSats, "RawSats"}, {Column::RawLat, "RawLat"},
    {Column::RawLon, "RawLon"},
};

constexpr ColumnName kChannelColumns[] = {
    {Column::RawRH0, "RawRH0"},
    {Column::RawRH1, "RawRH1"},
    {Column::RawRH2, "RawRH2"},
};

struct FlaggedName {
    Column column;
    const char* series;
    const char* flagged;
};

constexpr FlaggedName kFlaggedColumns[] = {
    {Column::FlaggedPres, "RawPres", "fRawPres"}, {Column::FlaggedTdry, "RawTdry", "fRawTdry"},
    {Column::FlaggedRH, "RawRH", "fRawRH"},       {Column::FlaggedWspd, "RawWspd", "fRawWspd"},
    {Column::FlaggedWdir, "RawWdir", "fRawWdir"}, {Column::FlaggedLat, "RawLat", "fRawLat"},
    {Column::FlaggedLon, "RawLon", "fRawLon"},
};

constexpr ColumnName kQCColumns[] = {
    {Column::QCTime, "QCTime"},     {Column::QCPres, "QCPres"}, {Column::QCTdry, "QCTdry"},
    {Column::QCRH, "QCRH"},         {Column::QCWspd, "QCWspd"}, {Column::QCWdir, "QCWdir"},
    {Column::QCLat, "QCLat"},       {Column::QCLon, "QCLon"},   {Column::QCGpsLat, "QCGpsLat"},
    {Column::QCGpsLon, "QCGpsLon"}, {Column::QCDz, "QCDz"},     {Column::QCVVPres, "QCVVPres"},
    {Column::QCVVDz, "QCVVDz"},     {Column::QCW, "QCW"},
};

/// Some files hold the altitude of the GPS only, others that of the sounding system.
const Series* fullerAltitude(const EditorControl& editor) {
    const Series* altitude = editor.getSeries("RawAlt");
    const Series* gps = editor.getSeries("RawGpsAlt");
    return gps->lastIndex() > altitude->lastIndex() ? gps : altitude;
}

} // namespace

bool GraphXY::setData(EditorControl& editor) {
    bool rebuilt = false;
    if (editor.rawVersion() != _rawVersion || editor.RHselection() != _rhSelection) {
        _rawVersion = editor.rawVersion();
        _rhSelection = editor.RHselection();
        collectRawData(editor);
        rebuilt = true;
    }
    if (editor.QCready() && editor.QCversion() != _qcVersion) {
        _qcVersion = editor.QCversion();
        collectQCData(editor);
        rebuilt = true;
    }
    if (editor.levels() == nullptr) {
        rebuilt = rebuilt || pointsOf(TraceSource::Levels) > 0;
        clearLevels();
    } else if (editor.levelsVersion() != _levelsVersion) {
        _levelsVersion = editor.levelsVersion();
        clearLevels();
        collectLevelsData(editor);
        rebuilt = true;
    }
    _title = editor.description();
    _launchTime = editor.getSndMetaData(true).launchTime;
    if (rebuilt) {
        plot();
    }
    return rebuilt;
}

void GraphXY::collectRawData(const EditorControl& editor) {
    ColumnSources sources;
    for (const auto& [column, name] : kRawColumns) {
        sources.emplace_back(column, editor.getSeries(name));
    }
    sources.emplace_back(Column::RawAlt, fullerAltitude(editor));
    if (editor.numRhChan() > 1) {
        for (const auto& [column, name] : kChannelColumns) {
            sources.emplace_back(column, editor.getSeries(name));
        }
    }
    std::vector<Series> flagged;
    flagged.reserve(std::size(kFlaggedColumns));
    for (const FlaggedName& name : kFlaggedColumns) {
        int& count = _flagged[static_cast<std::size_t>(name.column)];
        count = 0;
        if (_plotFlagged) {
            flagged.push_back(getFlaggedData(name.flagged, *editor.getSeries(name.series), count));
            sources.emplace_back(name.column, &flagged.back());
        }
    }
    keepColumns(TraceSource::Raw, sources);
}

Series GraphXY::getFlaggedData(const char* name, const Series& series, int& count) const {
    Series flagged(series, name);
    for (int i = 0; i <= flagged.lastIndex(); ++i) {
        if ((flagged.attributes(i) & _flagMask & kTestedFlags) == 0) {
            flagged.setData(i, kMissing);
        }
        count += flagged.data(i) != kMissing ? 1 : 0;
    }
    return flagged;
}

void GraphXY::clearFlags() {
    _flagMask = FlagNone;
    _plotFlagged = false;
}

void GraphXY::flagType(FlagTypes flag) {
    constexpr int kNoVersion = -1;
    _flagMask |= flag;
    _plotFlagged = _flagMask != 0;
    if (_plotFlagged) {
        _rawVersion = kNoVersion;
    }
}

void GraphXY::collectQCData(const EditorControl& editor) {
    ColumnSources sources;
    for (const auto& [column, name] : kQCColumns) {
        sources.emplace_back(column, editor.getSeries(name));
    }
    sources.emplace_back(Column::QCAlt, editor.getAltitudeSeries());
    keepColumns(TraceSource::QC, sources);
}

/// Columns without a series are forgotten: a descending sounding has some more than an ascending one.
void GraphXY::keepColumns(TraceSource source, const ColumnSources& sources) {
    DataArray rows;
    for (const auto& [column, series] : sources) {
        if (series != nullptr) {
            rows.addSeries(series);
        }
    }
    rows.generate();
    const int n = rows.nRows();
    pointsOf(source) = n;
    int next = 0;
    for (const auto& [column, series] : sources) {
        Trace::Points& kept = _columns[static_cast<std::size_t>(column)];
        kept.reset();
        if (series != nullptr) {
            const double* data = rows.getColumn(next++);
            kept = n == 0 ? std::make_shared<std::vector<double>>()
                          : std::make_shared<std::vector<double>>(data, data + n);
        }
    }
}
