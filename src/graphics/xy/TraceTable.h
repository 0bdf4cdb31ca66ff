#pragma once

#include "Trace.h"

#include <cstddef>
#include <vector>

/// What a plot shows: the numbers are those of the interface.
enum PlotTypes { PlotWind = 0, PlotTdryRH = 1, PlotSatsDz = 2, PlotPresAlt = 3, PlotLatLon = 4, PlotRawRHs = 5 };
constexpr std::size_t kPlotTypes = 6;

/// What the vertical axis shows.
enum PlotAxes { AxisTime = 0, AxisPres = 1, AxisAlt = 2 };
constexpr std::size_t kPlotAxes = 3;

/// Where a trace comes from, which decides when it is shown.
enum class TraceSource { Raw, Flagged, QC, Levels };
constexpr std::size_t kTraceSources = 4;

/// The data that plots are made of.
enum class Column : std::size_t {
    RawTime,
    RawPres,
    RawAlt,
    RawTdry,
    RawRH,
    RawWspd,
    RawWdir,
    RawDz,
    RawSats,
    RawLat,
    RawLon,
    RawRH0,
    RawRH1,
    RawRH2,
    FlaggedPres,
    FlaggedTdry,
    FlaggedRH,
    FlaggedWspd,
    FlaggedWdir,
    FlaggedLat,
    FlaggedLon,
    QCTime,
    QCPres,
    QCAlt,
    QCTdry,
    QCRH,
    QCWspd,
    QCWdir,
    QCLat,
    QCLon,
    QCGpsLat,
    QCGpsLon,
    QCDz,
    QCVVPres,
    QCVVDz,
    QCW,
    LevelsTime,
    LevelsTimeLyr,
    LevelsPres,
    LevelsPresLyr,
    LevelsTdry,
    LevelsTdryStd,
    LevelsTdrySft,
    LevelsRH,
    LevelsRHStd,
    LevelsRHSft,
    LevelsWspd,
    LevelsWspdStd,
    LevelsWspdSft,
    LevelsWspdLyr,
    LevelsWdir,
    LevelsWdirStd,
    LevelsWdirSft,
    LevelsWdirLyr,
    LevelsAlt,
};
constexpr std::size_t kColumns = static_cast<std::size_t>(Column::LevelsAlt) + 1;

/// The limits of a horizontal axis. The first nine can be set.
enum class ScaleName : std::size_t {
    Pres,
    Alt,
    Tdry,
    RH,
    Wspd,
    Wdir,
    DzDt,
    Lat,
    Lon,
    Sats,
    FlaggedWspd,
    FlaggedWdir,
};
constexpr std::size_t kSettableScales = 9;

/// The quantities of levels that have labels.
enum class Labelled : std::size_t { Tdry, RH, Wspd, Wdir, None };
constexpr std::size_t kLabelled = 4;

/// One trace of a plot type.
struct TraceRow {
    PlotTypes type;
    TraceSource source;
    Column data;
    int axis; ///< 0 the lower, 1 the upper one
    const char* title;
    const char* color;
    Trace::TraceStyle style;
    ScaleName scale;
    Labelled labelled = Labelled::None; ///< whose labels it carries
    int rawRHswitch = -1;               ///< which of the four switches of the raw RHs shows it
};

/// In the order in which they are drawn; the first one on an axis has its limits.
const std::vector<TraceRow>& traceTable();

/// The words of a plot type.
struct PlotWords {
    const char* title;
    const char* lower;
    const char* upper;
};
const PlotWords& plotWords(PlotTypes type);
