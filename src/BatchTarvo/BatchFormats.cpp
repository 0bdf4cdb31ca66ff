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

bool save(const EditorControl& editor, const std::string& path, const char* extension, const ProductColumns& columns) {
    return FileSaver::saveFile(RevisionInfo().text("REPO_REVISION"), path, extension, editor.getSndMetaData(true),
                               editor, columns, editor.levels());
}

/// The extension of \p path, which the suffix gave it, tells the format.
std::string extension(const std::string& path) {
    return std::filesystem::path(path).extension().string();
}

bool writeRaw(EditorControl& editor, const ConfigSet& /*config*/, const std::string& path) {
    return save(editor, path, extension(path).c_str(), ProductColumns::raw(editor));
}

bool writeQc(EditorControl& editor, const ConfigSet& config, const std::string& path) {
    return save(editor, path, extension(path).c_str(), ProductColumns::qc(editor, config));
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

bool writeWmo(EditorControl& editor, const ConfigSet& config, const std::string& path) {
    bool appendNNNN = false;
    config.boolValue("TempAppendNNNN", appendNNNN);
    return writeText(path, [&](std::ostream& stream) { editor.wmo()->saveTextFile(stream, appendNNNN); });
}

bool writeLevels(EditorControl& editor, const ConfigSet& /*config*/, const std::string& path) {
    return writeText(path, [&](std::ostream& stream) { saveLevelsCsv(*editor.levels(), stream); });
}

bool writeSummary(EditorControl& editor, const ConfigSet& /*config*/, const std::string& path) {
    return writeText(path, [&](std::ostream& stream) { saveSummaryText(editor, stream); });
}

bool writeSkewTSvgFile(EditorControl& editor, const ConfigSet& config, const std::string& path) {
    return writeText(path, [&](std::ostream& stream) {
        writeSkewTSvg(stream, skewTData(editor, defaultSkewTSource(editor)), editor, SkewTSetup(config));
    });
}

bool writeSkewTPng(EditorControl& editor, const ConfigSet& config, const std::string& path) {
    std::ostringstream svg;
    writeSkewTSvg(svg, skewTData(editor, defaultSkewTSource(editor)), editor, SkewTSetup(config), false);
    AtomicFile file(path);
    return file.isOpen() && drawAsPng(svg.str(), file.temporaryPath()) && file.commit();
}

bool writeQcBufr(EditorControl& editor, const ConfigSet& config, const std::string& path) {
    std::string tableDir;
    config.text(kBufrTablesItem, tableDir);
    return FileSaver::saveFile(RevisionInfo().text("REPO_REVISION"), path, ".bfr", editor.getSndMetaData(true), editor,
                               ProductColumns::qc(editor, config), editor.levels(), tableDir);
}

} // namespace

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
