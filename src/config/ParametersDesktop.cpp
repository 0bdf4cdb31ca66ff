#include "ParameterRows.h"

namespace parameter_rows {

namespace {

constexpr Parameter kUserSetup[] = {
    text("DataDir", "C:/", "C:\\", kImmediate, "directory last used for opening data files"),
    text("WmoSaveDir", "C:/", "C:\\", kImmediate, "directory last used for WMO messages"),
    text("QCSaveDir", "C:/", "C:\\", kImmediate, "directory last used for QC data products"),
    text("RawSaveDir", "C:/", "C:\\", kImmediate, "directory last used for raw data products"),
    text("XYPlotSaveDir", "C:/", "C:\\", kImmediate, "directory last used for XY graphs"),
    text("SkewTPlotSaveDir", "C:/", "C:\\", kImmediate, "directory last used for Skew-T graphs"),
    flag("FixedSrcEnabled", "false", false, kImmediate, "use a preset directory for data source and output files"),
    text("FixedSrcDir", "C:\\", "", kImmediate, "preset directory for data source and output files")
        .withShippedDefault(""),
    flag("QcDiagFile", "false", false, kPlain, "generate the QC diagnostics file; takes effect at the next start"),
    text("GeoDBPath", "C:\\ne1to50m.sqlite", "C:\\ne1to50m.sqlite", kPlain, "geographic database of the synoptic map"),
    text("SoundingDBPath", "C:\\soundings.sqlite", "C:\\soundings.sqlite", kPlain, "sounding database"),
    text("SynopticMapTitle", "", "", kPlain, "title of the synoptic map"),
    text("OpenFileSeleFilter", "OMBRA D files (D*.?)", "OMBRA D files (D*.?)", kPlain,
         "file filter selected in the file chooser"),
    flag("AutoFile", "true", true, kPlain, "open the file browser at start-up"),
    flag("OpenMaximized", "true", true, kPlain, "maximise the application at start-up"),
};

constexpr Parameter kVisual[] = {
    number("PlotPixelsX", "1000", 1000, kPlain, "width of saved graph images, pixels"),
    number("PlotPixelsY", "700", 700, kPlain, "height of saved graph images, pixels"),
    number("NumberSkewTWinds", "20", 20, kPlain, "number of wind barbs on the Skew-T"),
    number("SkewTtmin", "-40", -40, kPlain, "Skew-T minimum temperature, degC"),
    number("SkewTtmax", "40", 40, kPlain, "Skew-T maximum temperature, degC"),
    number("SkewTpmin", "100", 100, kPlain, "Skew-T minimum pressure, mb"),
    number("SkewTpmax", "1050", 1050, kPlain, "Skew-T maximum pressure, mb"),
    number("TextSizePt", "12", 12, kPlain, "font size of the displays, points"),
    text("FontFamily", "Arial", "Arial", kPlain, "font family of the displays"),
    flag("xyGraphPresAuto", "true", true, kPlain, "XY graph: scale pressure automatically"),
    number("xyGraphPresMin", "50", 50, kPlain, "XY graph: minimum of pressure").withShippedDefault("500"),
    number("xyGraphPresMax", "1050", 1050, kPlain, "XY graph: maximum of pressure"),
    flag("xyGraphAltAuto", "true", true, kPlain, "XY graph: scale altitude automatically"),
    number("xyGraphAltMin", "0", 0, kPlain, "XY graph: minimum of altitude"),
    number("xyGraphAltMax", "17000", 17000, kPlain, "XY graph: maximum of altitude"),
    flag("xyGraphTdryAuto", "true", true, kPlain, "XY graph: scale temperature automatically"),
    number("xyGraphTdryMin", "-60", -60, kPlain, "XY graph: minimum of temperature"),
    number("xyGraphTdryMax", "40", 40, kPlain, "XY graph: maximum of temperature"),
    flag("xyGraphRHAuto", "true", true, kPlain, "XY graph: scale RH automatically"),
    number("xyGraphRHMin", "0", 0, kPlain, "XY graph: minimum of RH"),
    number("xyGraphRHMax", "100", 100, kPlain, "XY graph: maximum of RH"),
    flag("xyGraphWspdAuto", "true", true, kPlain, "XY graph: scale wind speed automatically"),
    number("xyGraphWspdMin", "-20", -20, kPlain, "XY graph: minimum of wind speed"),
    number("xyGraphWspdMax", "100", 100, kPlain, "XY graph: maximum of wind speed"),
    flag("xyGraphWdirAuto", "true", true, kPlain, "XY graph: scale wind direction automatically"),
    number("xyGraphWdirMin", "0", 0, kPlain, "XY graph: minimum of wind direction"),
    number("xyGraphWdirMax", "360", 360, kPlain, "XY graph: maximum of wind direction"),
    flag("xyGraphDzDtAuto", "true", true, kPlain, "XY graph: scale ascent rate automatically"),
    number("xyGraphDzDtMin", "-100", -100, kPlain, "XY graph: minimum of ascent rate"),
    number("xyGraphDzDtMax", "100", 100, kPlain, "XY graph: maximum of ascent rate"),
    flag("xyGraphLatAuto", "true", true, kPlain, "XY graph: scale latitude automatically"),
    number("xyGraphLatMin", "-90", -90, kPlain, "XY graph: minimum of latitude"),
    number("xyGraphLatMax", "90", 90, kPlain, "XY graph: maximum of latitude"),
    flag("xyGraphLonAuto", "true", true, kPlain, "XY graph: scale longitude automatically"),
    number("xyGraphLonMin", "-180", -180, kPlain, "XY graph: minimum of longitude"),
    number("xyGraphLonMax", "180", 180, kPlain, "XY graph: maximum of longitude"),
};

constexpr Parameter kAutosave[] = {
    flag("QCAutoSaveEnable", "false", true, kImmediate, "save products automatically after processing"),
    text("QCAutoSaveDir", "C:\\", "C:\\", kImmediate, "directory of automatically saved products")
        .withShippedDefault(""),
    flag("QCAutoSaveFmtZor", "false", true, kImmediate, "auto save: QC data in ZOR format"),
    flag("QCAutoSaveFmtFrd", "false", true, kImmediate, "auto save: QC data in FRD format"),
    flag("QCAutoSaveFmtTrv", "false", true, kImmediate, "auto save: QC data in TROVE format"),
    flag("QCAutoSaveFmtNc", "false", true, kImmediate, "auto save: QC data in netCDF"),
    flag("QCAutoSaveFmtCsv", "false", true, kImmediate, "auto save: QC data in CSV"),
    flag("QCAutoSaveFmtBufr", "false", true, kImmediate, "auto save: QC data in BUFR"),
    flag("SkewtAutoSaveFmtPng", "false", true, kImmediate, "auto save: Skew-T as PNG"),
    flag("SkewtAutoSaveFmtJpg", "false", true, kImmediate, "auto save: Skew-T as JPG"),
    flag("SkewtAutoSaveFmtSvg", "false", true, kImmediate, "auto save: Skew-T as SVG"),
    flag("WmoAutoSaveFmtTxt", "false", true, kImmediate, "auto save: WMO message as text"),
    flag("WmoAutoSaveFmtCsv", "false", true, kImmediate, "auto save: levels as CSV"),
    flag("SumAutoSaveFmtTxt", "false", true, kImmediate, "auto save: summary as text"),
};

constexpr Parameter kBatch[] = {
    batchText("BatchSaveDir", "C:/", "destination directory of the batch tool"),
    batchFlag("BatchSaveRawTRV", "product of the batch tool: raw TROVE"),
    batchFlag("BatchSaveQCTRV", "product of the batch tool: QC TROVE"),
    batchFlag("BatchSaveRawZOR", "product of the batch tool: raw ZOR"),
    batchFlag("BatchSaveQCZOR", "product of the batch tool: QC ZOR"),
    batchFlag("BatchSaveQCFRD", "product of the batch tool: QC FRD"),
    batchFlag("BatchSaveQCBUFR", "product of the batch tool: QC BUFR"),
    batchFlag("BatchSaveRawCDF", "product of the batch tool: raw netCDF"),
    batchFlag("BatchSaveQCCDF", "product of the batch tool: QC netCDF"),
    batchFlag("BatchSaveRawCSV", "product of the batch tool: raw CSV"),
    batchFlag("BatchSaveQCCSV", "product of the batch tool: QC CSV"),
    batchFlag("BatchSaveWMO", "product of the batch tool: WMO message"),
    batchFlag("BatchSaveSkewTSvg", "product of the batch tool: Skew-T SVG"),
    batchFlag("BatchSaveSkewTPng", "product of the batch tool: Skew-T PNG"),
    batchFlag("BatchSaveLevels", "product of the batch tool: levels"),
};

} // namespace

Rows userSetup() {
    return rowsOf(kUserSetup);
}

Rows visual() {
    return rowsOf(kVisual);
}

Rows autosave() {
    return rowsOf(kAutosave);
}

Rows batch() {
    return rowsOf(kBatch);
}

} // namespace parameter_rows
