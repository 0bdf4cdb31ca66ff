#include "TraceTable.h"

#include <array>

namespace {

constexpr auto kLine = Trace::Line;
constexpr auto kTriangles = Trace::LargeTriangles;
constexpr auto kInverted = Trace::InvertedTriangles;
constexpr auto kCircles = Trace::OpenCircles;
constexpr auto kRaw = TraceSource::Raw;
constexpr auto kFlagged = TraceSource::Flagged;
constexpr auto kQC = TraceSource::QC;
constexpr auto kLevels = TraceSource::Levels;
using C = Column;
using S = ScaleName;
using L = Labelled;

constexpr std::array<PlotWords, kPlotTypes> kWords{{
    {"Wind Speed and Wind Direction ", "Wind Direction", "Wind Speed (m/s)"},
    {"Temperature and Relative Humidity ", "Temperature (C)", "Relative Humidity (%)"},
    {"Number of satellites and dz/dt ", "Number of satellites", "dz/dt (m/s)"},
    {"Pressure and Altitude ", "Pressure (mb)", "Altitude (m)"},
    {"Latitude and Longitude ", "Latitude", "Longitude"},
    {"Raw RHs ", "", "Relative Humidity (%)"},
}};

} // namespace

const std::vector<TraceRow>& traceTable() {
    static const std::vector<TraceRow> rows{
        {PlotWind, kRaw, C::RawWdir, 0, "Raw Wdir", "red", kLine, S::Wdir},
        {PlotWind, kFlagged, C::FlaggedWdir, 0, "Flagged Raw Wdir", "cyan", kTriangles, S::FlaggedWdir},
        {PlotWind, kRaw, C::RawWspd, 1, "Raw Wspd", "blue", kLine, S::Wspd},
        {PlotWind, kFlagged, C::FlaggedWspd, 1, "Flagged Raw Wspd", "yellow", kTriangles, S::FlaggedWspd},
        {PlotWind, kQC, C::QCWdir, 0, "QC Wdir", "green", kLine, S::Wdir},
        {PlotWind, kQC, C::QCWspd, 1, "QC Wspd", "orange", kLine, S::Wspd},
        {PlotWind, kLevels, C::LevelsWdir, 0, "Levels Wdir", "purple", kLine, S::Wdir, L::Wdir},
        {PlotWind, kLevels, C::LevelsWdirStd, 0, "Levels WdirStd", "purple", kInverted, S::Wdir},
        {PlotWind, kLevels, C::LevelsWdirSft, 0, "Levels WdirSft", "purple", kCircles, S::Wdir},
        {PlotWind, kLevels, C::LevelsWdirLyr, 0, "Levels WdirLyr", "purple", kCircles, S::Wdir},
        {PlotWind, kLevels, C::LevelsWspd, 1, "Levels Wspd", "darkcyan", kLine, S::Wspd, L::Wspd},
        {PlotWind, kLevels, C::LevelsWspdStd, 1, "Levels WspdStd", "darkcyan", kInverted, S::Wspd},
        {PlotWind, kLevels, C::LevelsWspdSft, 1, "Levels WspdSft", "darkcyan", kCircles, S::Wspd},
        {PlotWind, kLevels, C::LevelsWspdLyr, 1, "Levels WspdLyr", "darkcyan", kCircles, S::Wspd},

        {PlotTdryRH, kRaw, C::RawTdry, 0, "Raw Tdry", "red", kLine, S::Tdry},
        {PlotTdryRH, kFlagged, C::FlaggedTdry, 0, "Flagged Raw Tdry", "cyan", kTriangles, S::Tdry},
        {PlotTdryRH, kRaw, C::RawRH, 1, "Raw RH", "blue", kLine, S::RH},
        {PlotTdryRH, kFlagged, C::FlaggedRH, 1, "Flagged Raw RH", "yellow", kTriangles, S::RH},
        {PlotTdryRH, kQC, C::QCTdry, 0, "QC Tdry", "green", kLine, S::Tdry},
        {PlotTdryRH, kQC, C::QCRH, 1, "QC RH", "orange", kLine, S::RH},
        {PlotTdryRH, kLevels, C::LevelsTdry, 0, "Levels Tdry", "purple", kLine, S::Tdry, L::Tdry},
        {PlotTdryRH, kLevels, C::LevelsTdryStd, 0, "Levels TdryStd", "purple", kInverted, S::Tdry},
        {PlotTdryRH, kLevels, C::LevelsTdrySft, 0, "Levels TdrySft", "purple", kCircles, S::Tdry},
        {PlotTdryRH, kLevels, C::LevelsRH, 1, "Levels RH", "darkcyan", kLine, S::RH, L::RH},
        {PlotTdryRH, kLevels, C::LevelsRHStd, 1, "Levels RHStd", "darkcyan", kInverted, S::RH},
        {PlotTdryRH, kLevels, C::LevelsRHSft, 1, "Levels RHSft", "darkcyan", kCircles, S::RH},

        {PlotSatsDz, kRaw, C::RawSats, 0, "Sats", "red", Trace::Crosses, S::Sats},
        {PlotSatsDz, kRaw, C::RawDz, 1, "GPS dz/dt", "blue", kLine, S::DzDt},
        {PlotSatsDz, kQC, C::QCVVDz, 1, "VVcheck dz/dt", "green", kLine, S::DzDt},
        {PlotSatsDz, kQC, C::QCDz, 1, "Hydrostatic dz/dt", "orange", kLine, S::DzDt},
        {PlotSatsDz, kQC, C::QCW, 1, "Vertical wind", "plum", kLine, S::DzDt},

        {PlotPresAlt, kRaw, C::RawPres, 0, "Raw Pres", "red", kLine, S::Pres},
        {PlotPresAlt, kFlagged, C::FlaggedPres, 0, "Flagged Raw Pres", "cyan", kTriangles, S::Pres},
        {PlotPresAlt, kRaw, C::RawAlt, 1, "Raw Alt", "blue", kLine, S::Alt},
        {PlotPresAlt, kQC, C::QCVVPres, 0, "VVcheck Pres", "plum", kLine, S::Pres},
        {PlotPresAlt, kQC, C::QCPres, 0, "QC Pres", "green", kLine, S::Pres},
        {PlotPresAlt, kQC, C::QCAlt, 1, "QC alt", "orange", kLine, S::Alt},

        {PlotLatLon, kRaw, C::RawLat, 0, "Raw Lat", "red", kLine, S::Lat},
        {PlotLatLon, kFlagged, C::FlaggedLat, 0, "Flagged Raw Lat", "cyan", kTriangles, S::Lat},
        {PlotLatLon, kRaw, C::RawLon, 1, "Raw Lon", "blue", kLine, S::Lon},
        {PlotLatLon, kFlagged, C::FlaggedLon, 1, "Flagged Raw Lon", "yellow", kTriangles, S::Lon},
        {PlotLatLon, kQC, C::QCLat, 0, "QC Lat", "green", kLine, S::Lat},
        {PlotLatLon, kQC, C::QCLon, 1, "QC Lon", "orange", kLine, S::Lon},

        {PlotRawRHs, kRaw, C::RawRH0, 1, "RH0 (OMBRA Selected)", "cyan", kLine, S::RH, L::None, 0},
        {PlotRawRHs, kRaw, C::RawRH1, 1, "RH1", "blue", kLine, S::RH, L::None, 1},
        {PlotRawRHs, kRaw, C::RawRH2, 1, "RH2", "green", kLine, S::RH, L::None, 2},
        {PlotRawRHs, kFlagged, C::FlaggedRH, 1, "Flagged RH", "yellow", kTriangles, S::RH},
        {PlotRawRHs, kRaw, C::RawRH, 1, "QC-Used RH", "red", kLine, S::RH, L::None, 3},
    };
    return rows;
}

const PlotWords& plotWords(PlotTypes type) {
    return kWords[static_cast<std::size_t>(type)];
}
