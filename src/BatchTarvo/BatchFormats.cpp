#include "BatchFormats.h"

#include "AtomicFile.h"
#include "ConfigSet.h"
#include "EditorControl.h"
#include "FileSaver.h"
#include "Levels.h"
#include "LevelsCsv.h"
#include "PngPicture.h"
#include "ProductColumns.h"
#include "RevisionInfo.h"
#include "SkewTPicture.h"
#include "SummaryText.h"
#include "WMO.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace {

/// The extension of \p path, which the suffix gave it, tells the format.
bool save(const EditorControl& editor, const std::string& path, const ProductColumns& columns,
          const std::string& bufrTables = "") {
    return FileSaver::saveFile(RevisionInfo().text("REPO_REVISION"), path,
                               std::filesystem::path(path).extension().string(), editor.getSndMetaData(true), editor,
                               columns, editor.levels(), bufrTables);
}

bool writeRaw(AnalysedSounding& sounding, const std::string& path) {
    return save(sounding.editor, path, sounding.rawColumns());
}

bool writeQc(AnalysedSounding& sounding, const std::string& path) {
    return save(sounding.editor, path, sounding.qcColumns());
}

template <typename Write>
bool writeText(const std::string& path, Write write) {
    AtomicFile file(path);
    if (!file.isOpen()) {
        return false;
    }
    write(file.stream());
    return file.commit();
}

bool writeWmo(AnalysedSounding& sounding, const std::string& path) {
    bool appendNNNN = false;
    sounding.config.boolValue("TempAppendNNNN", appendNNNN);
    return writeText(path, [&](std::ostream& stream) { sounding.editor.wmo()->saveTextFile(stream, appendNNNN); });
}

bool writeLevels(AnalysedSounding& sounding, const std::string& path) {
    return writeText(path, [&](std::ostream& stream) { saveLevelsCsv(*sounding.editor.levels(), stream); });
}

bool writeSummary(AnalysedSounding& sounding, const std::string& path) {
    return writeText(path, [&](std::ostream& stream) { saveSummaryText(sounding.editor, stream); });
}

void drawSkewT(AnalysedSounding& sounding, std::ostream& svg, bool withText = true) {
    const EditorControl& editor = sounding.editor;
    writeSkewTSvg(svg, skewTData(editor, defaultSkewTSource(editor)), editor, SkewTSetup(sounding.config), withText);
}

bool writeSkewTSvgFile(AnalysedSounding& sounding, const std::string& path) {
    return writeText(path, [&](std::ostream& stream) { drawSkewT(sounding, stream); });
}

bool writeSkewTPng(AnalysedSounding& sounding, const std::string& path) {
    std::ostringstream svg;
    drawSkewT(sounding, svg, false);
    AtomicFile file(path);
    return file.isOpen() && drawAsPng(svg.str(), file.temporaryPath()) && file.commit();
}

bool writeQcBufr(AnalysedSounding& sounding, const std::string& path) {
    std::string tableDir;
    sounding.config.text(kBufrTablesItem, tableDir);
    return save(sounding.editor, path, sounding.qcColumns(), tableDir);
}

} // namespace

const ProductColumns& AnalysedSounding::rawColumns() {
    return _raw ? *_raw : _raw.emplace(ProductColumns::raw(editor));
}

const ProductColumns& AnalysedSounding::qcColumns() {
    return _qc ? *_qc : _qc.emplace(ProductColumns::qc(editor, config));
}

std::string BatchFormat::hindrance(const EditorControl& editor) const {
    if (needs != Nothing && !editor.QCready()) {
        return std::string("Without QC data (DoQC is 0) there is no product ") + name;
    }
    if (needs == LevelSet && editor.levels() == nullptr) {
        return std::string("Without levels (DoLevels is 0) there is no product ") + name;
    }
    if (needs == Message && editor.wmo() == nullptr) {
        return std::string(
                   "Without a coded message (the file is one itself, or DoLevels or DoWMO is 0) there is no product ") +
               name;
    }
    return {};
}

const std::vector<BatchFormat>& batchFormats() {
    static const std::vector<BatchFormat> formats{
        {"raw-csv", "RAW.csv", "BatchSaveRawCSV", BatchFormat::Nothing, &writeRaw},
        {"qc-csv", "QC.csv", "BatchSaveQCCSV", BatchFormat::QcData, &writeQc},
        {"raw-trv", "RAW.trv", "BatchSaveRawTRV", BatchFormat::Nothing, &writeRaw},
        {"qc-trv", "QC.trv", "BatchSaveQCTRV", BatchFormat::QcData, &writeQc},
        {"raw-zor", "RAW.zor", "BatchSaveRawZOR", BatchFormat::Nothing, &writeRaw},
        {"qc-zor", "QC.zor", "BatchSaveQCZOR", BatchFormat::QcData, &writeQc},
        {"qc-frd", "QC.frd", "BatchSaveQCFRD", BatchFormat::QcData, &writeQc},
        {"raw-nc", "RAW.nc", "BatchSaveRawCDF", BatchFormat::Nothing, &writeRaw},
        {"qc-nc", "QC.nc", "BatchSaveQCCDF", BatchFormat::QcData, &writeQc},
        {"qc-bfr", "QC.bfr", "BatchSaveQCBUFR", BatchFormat::QcData, &writeQcBufr},
        {"wmo", "WMO.txt", "BatchSaveWMO", BatchFormat::Message, &writeWmo},
        {"levels", "Levels.csv", "BatchSaveLevels", BatchFormat::LevelSet, &writeLevels},
        {"summary", "Summary.txt", nullptr, BatchFormat::Nothing, &writeSummary},
        {"skewt-svg", "skewt.svg", "BatchSaveSkewTSvg", BatchFormat::Nothing, &writeSkewTSvgFile},
        {"skewt-png", "skewt.png", "BatchSaveSkewTPng", BatchFormat::Nothing, &writeSkewTPng},
    };
    return formats;
}

const BatchFormat* findBatchFormat(const std::string& name) {
    const auto& formats = batchFormats();
    const auto found =
        std::find_if(formats.begin(), formats.end(), [&](const BatchFormat& format) { return name == format.name; });
    return found == formats.end() ? nullptr : &*found;
}
