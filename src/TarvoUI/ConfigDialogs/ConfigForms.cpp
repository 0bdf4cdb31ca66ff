#include "ConfigForms.h"

#include <utility>

namespace {

OptionField choice(const char* group, const char* label, const char* key, std::vector<const char*> choices) {
    OptionField field{group, label, key, OptionField::Choice};
    field.choices = std::move(choices);
    return field;
}

} // namespace

namespace config_forms {

const std::vector<OptionField>& qualityControl() {
    static const std::vector<OptionField> fields{
        {"Pressure", "Equilibration time override (s)", "PresEquilTimeOverride", OptionField::Double, 0.0, 100.0,
         "pressure dropsonde equilibration time override"},
        {"Pressure", "Disable outlier check", "PresDisableOutlierCheck", OptionField::Flag},
        {"Pressure", "Outlier check (standard deviations)", "PresOutlier", OptionField::Double, 0.1, 20.0,
         "pressure outlier check"},
        {"Pressure", "Offset to add (mb)", "PresOffset", OptionField::Double, -20.0, 20.0, "pressure offset to add"},
        {"Pressure", "Buddy check slope (mb/s)", "PresBuddySlope", OptionField::Double, 0.1, 10.0,
         "pressure buddy check slope"},
        {"Pressure", "QC filter wavelength (s)", "PresQCWL", OptionField::Double, 1.0, 600.0,
         "pressure QC filter wavelength"},
        {"Pressure", "QC filter deviation limit", "PresQCDev", OptionField::Double, 0.1, 20.0,
         "pressure QC filter deviation limit"},
        {"Pressure", "Smoothing wavelength (s)", "PresSmoothWL", OptionField::Double, 1.0, 600.0,
         "pressure final QC smoothing wavelength"},
        {"Pressure", "Monotonic check", "PresMonoCheck", OptionField::Flag},
        {"Temperature", "Equilibration time override (s)", "TdryEquilTimeOverride", OptionField::Double, 0.0, 100.0,
         "temperature dropsonde equilibration time override"},
        {"Temperature", "Dynamic adjustment", "TdryDynCor", OptionField::Flag},
        {"Temperature", "Dynamic adjustment wavelength (s)", "TdryDynCorWL", OptionField::Double, 0.1, 30.0,
         "temperature dynamic correction wavelength"},
        {"Temperature", "Disable outlier check", "TdryDisableOutlierCheck", OptionField::Flag},
        {"Temperature", "Outlier check (standard deviations)", "TdryOutlier", OptionField::Double, -20.0, 20.0,
         "temperature outlier check"},
        {"Temperature", "Offset to add (deg C)", "TdryOffset", OptionField::Double, -100.0, 100.0,
         "temperature offset to add"},
        {"Temperature", "Buddy check slope (deg C/s)", "TdryBuddySlope", OptionField::Double, 0.1, 5.0,
         "temperature buddy check slope"},
        {"Temperature", "QC filter wavelength (s)", "TdryQCWL", OptionField::Double, 1.0, 600.0,
         "temperature QC filter wavelength"},
        {"Temperature", "QC filter deviation limit", "TdryQCDev", OptionField::Double, 0.1, 5.0,
         "temperature QC filter deviation limit"},
        {"Temperature", "Smoothing wavelength (s)", "TdrySmoothWL", OptionField::Double, 1.0, 600.0,
         "temperature final QC smoothing wavelength"},
        {"RH", "Equilibration time override (s)", "RHEquilTimeOverride", OptionField::Double, 0.0, 100.0,
         "RH dropsonde equilibration time override"},
        {"RH", "Disable outlier check", "RHDisableOutlierCheck", OptionField::Flag},
        {"RH", "Outlier check (standard deviations)", "RHOutlier", OptionField::Double, 0.1, 100.0, "RH outlier check"},
        {"RH", "Offset to add (%)", "RHOffset", OptionField::Double, -100.0, 100.0, "RH offset to add"},
        {"RH", "Buddy check slope (%/s)", "RHBuddySlope", OptionField::Double, 0.1, 50.0, "RH buddy check slope"},
        {"RH", "QC filter wavelength (s)", "RHQCWL", OptionField::Double, 1.0, 600.0, "RH QC filter wavelength"},
        {"RH", "QC filter deviation limit", "RHQCDev", OptionField::Double, 0.1, 100.0, "RH QC filter deviation limit"},
        {"RH", "Smoothing wavelength (s)", "RHSmoothWL", OptionField::Double, 1.0, 600.0,
         "RH final QC smoothing wavelength"},
        {"RH", "RH thresholding", "RHThreshold", OptionField::Flag},
        {"Winds", "Equilibration time (s)", "WindEquilTime", OptionField::Double, 0.1, 100.0,
         "winds dropsonde equilibration time"},
        {"Winds", "Dynamic adjustment", "WindDynCor", OptionField::Flag},
        {"Winds", "Dynamic adjustment wavelength (s)", "WindDynCorWL", OptionField::Double, 0.1, 100.0,
         "winds dynamic correction wavelength"},
        {"Winds", "Disable outlier check", "WindDisableOutlierCheck", OptionField::Flag},
        {"Winds", "Outlier check (standard deviations)", "WindOutlier", OptionField::Double, 0.1, 100.0,
         "winds outlier check"},
        {"Winds", "Buddy check slope (m/s^2)", "WindBuddySlope", OptionField::Double, 0.1, 20.0,
         "winds buddy check slope"},
        {"Winds", "Disable QC filter", "WindDisableQCFilter", OptionField::Flag},
        {"Winds", "QC filter wavelength (s)", "WindQCWL", OptionField::Double, 2.0, 120.0,
         "winds QC filter wavelength"},
        {"Winds", "QC filter deviation limit", "WindQCDev", OptionField::Double, 0.1, 20.0,
         "winds QC filter deviation limit"},
        {"Winds", "Smoothing wavelength (s)", "WindSmoothWL", OptionField::Double, 1.0, 600.0,
         "winds final QC smoothing wavelength"},
        {"Winds", "Disable satellites check", "WindDisableSatsCheck", OptionField::Flag},
        {"Winds", "Number of satellites limit", "WindSats", OptionField::Int, 0.0, 24.0,
         "winds number of satellites limit"},
        {"Winds", "Disable wind error check", "WindDisableErrorCheck", OptionField::Flag},
        {"Winds", "Wind error limit (above 10 km)", "WindErrorHigh", OptionField::Double, 0.0, 10.0,
         "winds wind error limit (above 10km)"},
        {"Winds", "Wind error limit (below 10 km)", "WindErrorLow", OptionField::Double, 0.0, 10.0,
         "winds wind error limit (below 10km)"},
        {"Winds", "Vertical velocity pressure smoothing (s)", "WindVVPresWL", OptionField::Double, 0.1, 100.0,
         "winds vertical velocity pressure smoothing wavelength"},
        {"Winds", "Vertical velocity difference limit (m/s)", "WindVVdelta", OptionField::Double, 0.0, 100.0,
         "winds vertical velocity difference limit"},
        {"Winds", "Disable vertical winds", "WindDisableW", OptionField::Flag},
        {"GPS Lat/Lon", "Buddy check slope (deg/s)", "GPSPosBuddySlope", OptionField::Double},
        {"GPS Lat/Lon", "QC filter wavelength (s)", "GPSPosQCWL", OptionField::Double},
        {"GPS Lat/Lon", "QC filter deviation limit", "GPSPosQCDev", OptionField::Double},
        {"GPS Alt", "Buddy check slope (m/s)", "GPSAltBuddySlope", OptionField::Double},
        {"GPS Alt", "QC filter wavelength (s)", "GPSAltQCWL", OptionField::Double},
        {"GPS Alt", "QC filter deviation limit", "GPSAltQCDev", OptionField::Double},
    };
    return fields;
}

const std::vector<OptionField>& processing() {
    static const std::vector<OptionField> fields{
        choice("QC Processing", "", "DoQC", {"None", "Normal", "Pass through", "TD dry bias only"}),
        {"QC Processing", "Levels", "DoLevels", OptionField::Flag},
        {"QC Processing", "WMO message", "DoWMO", OptionField::Flag},
        {"QC Processing", "Use ignored launch values", "UseIgnoredLaunch", OptionField::Flag},
        {"QC Processing", "Discard data of bad CRC", "DiscardBadCrcData", OptionField::Flag},
        {"QC Processing", "Theoretical ventilation rate", "UseTheoryVentRate", OptionField::Flag},
        {"QC Processing", "Diagnostics file", "QcDiagFile", OptionField::Flag},
        {"QC Processing", "Disclaimer", "QCDisclaimer", OptionField::Text},
        {"Significant Levels", "Temperature (deg C)", "TdryLevelDelta", OptionField::Double, 0.001, 100.0,
         "temperature level difference"},
        {"Significant Levels", "RH (%)", "RHLevelDelta", OptionField::Double, 0.001, 100.0, "RH level difference"},
        {"Significant Levels", "Wind speed (kt)", "WspdLevelDelta", OptionField::Double, 0.001, 100.0,
         "wind speed level difference"},
        {"Significant Levels", "Wind speed below 850 mb (kt)", "Wspd850LevelDelta", OptionField::Double, 0.001, 100.0,
         "wind speed below 850 mb level difference"},
        {"Significant Levels", "Wind direction (deg)", "WdirLevelDelta", OptionField::Double, 0.001, 100.0,
         "wind direction level difference"},
        {"Significant Levels", "Tropopause smoothing (s)", "TropSmoothWL", OptionField::Double, 1.0, 1000.0,
         "tropopause smoothing wavelength"},
        choice("Sonde", "RH channel", "RHchoice", {"OMBRA Selected", "Channel 1", "Channel 2"}),
        {"Sonde", "Mass (g)", "DropSondeMass", OptionField::Double, 1.0, 10000.0, "dropsonde mass"},
        {"Sonde", "Parachute area (cm^2)", "ChuteArea", OptionField::Double, 1.0, 1000000.0, "parachute area"},
        {"Sonde", "Drag coefficient", "DragCoef", OptionField::Double, 0.0, 1.0, "drag coefficient"},
        {"Sonde", "Cabin temperature (deg C)", "CabinTemp", OptionField::Double, -100.0, 100.0, "cabin temperature"},
        {"Sonde", "Blend length (s)", "BlendLength", OptionField::Double, 1.0, 1000.0, "blend length"},
        {"Sonde", "Span of position interpolation (s)", "PosInterpSpan", OptionField::Double, 1.0, 10000.0,
         "position interpolation span"},
        {"Sonde", "Span of altitude interpolation (s)", "AltInterpSpan", OptionField::Double, 1.0, 10000.0,
         "altitude interpolation span"},
        {"Sonde", "Dropsonde hit the surface", "DropsondeHitSfc", OptionField::Flag},
        {"Sonde", "Surface altitude unknown", "SfcAltUnknown", OptionField::Flag},
        {"Sonde", "Set heights missing", "SetHtsMissing", OptionField::Flag},
        {"Sonde", "Report observed positions", "ReportObservedPos", OptionField::Flag},
        {"Sonde", "Process descending PELO soundings", "descendingPELO", OptionField::Flag},
        {"Program", "Open maximized", "OpenMaximized", OptionField::Flag},
        {"Program", "Ask for a file at the start", "AutoFile", OptionField::Flag},
        {"Program", "Fixed source folder", "FixedSrcEnabled", OptionField::Flag},
        {"Program", "Folder", "FixedSrcDir", OptionField::Path},
        {"Program", "Disable Kermit", "DisableKermit", OptionField::Flag},
        {"Program", "Kermit path", "KermitPath", OptionField::Path},
        {"Metadata", "Agency", "Agency", OptionField::Text},
        {"Metadata", "Platform type", "PlatformType", OptionField::Text},
        {"Metadata", "Platform id", "PlatformId", OptionField::Text},
        {"Metadata", "Project", "Project", OptionField::Text},
        {"Metadata", "Flight", "Flight", OptionField::Text},
        {"Metadata", "Dataset DOI", "DatasetDOI", OptionField::Text},
    };
    return fields;
}

const std::vector<OptionField>& wmo() {
    static const std::vector<OptionField> fields{
        choice("TEMP Message", "", "TempMsgType", {"TEMP", "SHIP", "MOBIL"}),
        {"TEMP Message", "Block station number", "BSN", OptionField::Pattern, 0.0, 0.0, "block station number",
         "[a-zA-Z0-9]{,5}", "99999; "},
        {"TEMP Message", "Call sign", "CallSign", OptionField::Pattern, 0.0, 0.0, "call sign", "[a-zA-Z0-9]{,5}",
         ">nnnnnnnnnn; "},
        {"TEMP Message", "Abbreviated header", "UpsondeAbrHdr", OptionField::Pattern, 0.0, 0.0, "abbreviated header",
         "[a-zA-Z0-9]{,6}", ">NNNNNN; "},
        {"TEMP Message", "ICAO code", "UpsondeICAO", OptionField::Pattern, 0.0, 0.0, "ICAO code", "[a-zA-Z0-9]{,4}",
         ">NNNN; "},
        {"TEMP Message", "Append NNNN", "TempAppendNNNN", OptionField::Flag},
        {"TEMP Message", "Exclude abbreviated header", "ExcludeAbrHdr", OptionField::Flag},
        {"TEMP Message", "Email address", "TempEmailAddress", OptionField::Pattern, 0.0, 0.0, "email address",
         "[a-zA-Z0-9._-]{1,31}@[a-zA-Z0-9.-]{1,30}\\.[a-zA-Z]{2,4}"},
        {"BUFR Message", "Originating center", "BufrOrigCenter", OptionField::Double},
        {"BUFR Message", "Add abbreviated header", "BufrAddAbrHdr", OptionField::Flag},
        {"BUFR Message", "ICAO code of the center", "BufrOrigCenterICAO", OptionField::Text},
        {"BUFR Message", "Abbreviated header", "BufrAbrHdr", OptionField::Text},
    };
    return fields;
}

const std::vector<OptionField>& autoSave() {
    static const std::vector<OptionField> fields{
        {"Auto Save", "Save products after each processing", "QCAutoSaveEnable", OptionField::Flag},
        {"Auto Save", "Folder", "QCAutoSaveDir", OptionField::Path},
        {"QC Data", "ZOR", "QCAutoSaveFmtZor", OptionField::Flag},
        {"QC Data", "FRD", "QCAutoSaveFmtFrd", OptionField::Flag},
        {"QC Data", "TROVE", "QCAutoSaveFmtTrv", OptionField::Flag},
        {"QC Data", "netCDF", "QCAutoSaveFmtNc", OptionField::Flag},
        {"QC Data", "CSV", "QCAutoSaveFmtCsv", OptionField::Flag},
        {"QC Data", "BUFR", "QCAutoSaveFmtBufr", OptionField::Flag},
        {"Skew-T", "PNG", "SkewtAutoSaveFmtPng", OptionField::Flag},
        {"Skew-T", "JPEG", "SkewtAutoSaveFmtJpg", OptionField::Flag},
        {"Skew-T", "SVG", "SkewtAutoSaveFmtSvg", OptionField::Flag},
        {"WMO and Levels", "Message as text", "WmoAutoSaveFmtTxt", OptionField::Flag},
        {"WMO and Levels", "Levels as CSV", "WmoAutoSaveFmtCsv", OptionField::Flag},
        {"Summary", "Text", "SumAutoSaveFmtTxt", OptionField::Flag},
    };
    return fields;
}

const std::vector<OptionField>& synopticMap() {
    static const std::vector<OptionField> fields{
        {"Synoptic Map", "Geographic database", "GeoDBPath", OptionField::Path},
        {"Synoptic Map", "Sounding database", "SoundingDBPath", OptionField::Path},
        {"Synoptic Map", "Title of the map", "SynopticMapTitle", OptionField::Text},
    };
    return fields;
}

const std::vector<OptionField>& visual() {
    static const std::vector<OptionField> fields{
        {"XY Graph", "Pres min", "xyGraphPresMin", OptionField::Double, 10.0, 1100.0, "XY graph Pres min"},
        {"XY Graph", "Pres max", "xyGraphPresMax", OptionField::Double, 10.0, 1100.0, "XY graph Pres max"},
        {"XY Graph", "AutoScale", "xyGraphPresAuto", OptionField::Flag},
        {"XY Graph", "Alt min", "xyGraphAltMin", OptionField::Double, -100.0, 20000.0, "XY graph Alt min"},
        {"XY Graph", "Alt max", "xyGraphAltMax", OptionField::Double, -100.0, 20000.0, "XY graph Alt max"},
        {"XY Graph", "AutoScale", "xyGraphAltAuto", OptionField::Flag},
        {"XY Graph", "Tdry min", "xyGraphTdryMin", OptionField::Double, -1000.0, 1000.0, "XY graph Tdry min"},
        {"XY Graph", "Tdry max", "xyGraphTdryMax", OptionField::Double, -1000.0, 1000.0, "XY graph Tdry max"},
        {"XY Graph", "AutoScale", "xyGraphTdryAuto", OptionField::Flag},
        {"XY Graph", "RH min", "xyGraphRHMin", OptionField::Double, -1.0, 110.0, "XY graph RH min"},
        {"XY Graph", "RH max", "xyGraphRHMax", OptionField::Double, -1.0, 110.0, "XY graph RH max"},
        {"XY Graph", "AutoScale", "xyGraphRHAuto", OptionField::Flag},
        {"XY Graph", "Wspd min", "xyGraphWspdMin", OptionField::Double, -500.0, 500.0, "XY graph Wspd min"},
        {"XY Graph", "Wspd max", "xyGraphWspdMax", OptionField::Double, -500.0, 500.0, "XY graph Wspd max"},
        {"XY Graph", "AutoScale", "xyGraphWspdAuto", OptionField::Flag},
        {"XY Graph", "Wdir min", "xyGraphWdirMin", OptionField::Double, 0.0, 360.0, "XY graph Wdir min"},
        {"XY Graph", "Wdir max", "xyGraphWdirMax", OptionField::Double, 0.0, 360.0, "XY graph Wdir max"},
        {"XY Graph", "AutoScale", "xyGraphWdirAuto", OptionField::Flag},
        {"XY Graph", "DzDt min", "xyGraphDzDtMin", OptionField::Double, -500.0, 500.0, "XY graph DzDt min"},
        {"XY Graph", "DzDt max", "xyGraphDzDtMax", OptionField::Double, -500.0, 500.0, "XY graph DzDt max"},
        {"XY Graph", "AutoScale", "xyGraphDzDtAuto", OptionField::Flag},
        {"XY Graph", "Lat min", "xyGraphLatMin", OptionField::Double, -90.0, 90.0, "XY graph Lat min"},
        {"XY Graph", "Lat max", "xyGraphLatMax", OptionField::Double, -90.0, 90.0, "XY graph Lat max"},
        {"XY Graph", "AutoScale", "xyGraphLatAuto", OptionField::Flag},
        {"XY Graph", "Lon min", "xyGraphLonMin", OptionField::Double, -180.0, 180.0, "XY graph Lon min"},
        {"XY Graph", "Lon max", "xyGraphLonMax", OptionField::Double, -180.0, 180.0, "XY graph Lon max"},
        {"XY Graph", "AutoScale", "xyGraphLonAuto", OptionField::Flag},
        {"Skew-T", "Dimension X", "PlotPixelsX", OptionField::Int, 32.0, 2000.0, "Skew-T dimension X"},
        {"Skew-T", "Dimension Y", "PlotPixelsY", OptionField::Int, 32.0, 2000.0, "Skew-T dimension Y"},
        {"Skew-T", "Temp min", "SkewTtmin", OptionField::Double, -1000.0, 1000.0, "Skew-T Temp min"},
        {"Skew-T", "Temp max", "SkewTtmax", OptionField::Double, -1000.0, 1000.0, "Skew-T Temp max"},
        {"Skew-T", "Pres min", "SkewTpmin", OptionField::Double, 1.0, 2000.0, "Skew-T Pres min"},
        {"Skew-T", "Pres max", "SkewTpmax", OptionField::Double, 1.0, 2000.0, "Skew-T Pres max"},
        {"Skew-T", "Wind barbs", "NumberSkewTWinds", OptionField::Int, 0.0, 500.0, "Skew-T Wind Bards"},
        {"Text Characteristics", "Text size (pt)", "TextSizePt", OptionField::Int, 5.0, 61.0, "Text size (pt)"},
        {"Text Characteristics", "Font", "FontFamily", OptionField::Font},
    };
    return fields;
}

} // namespace config_forms
