#include "BatchFormats.h"

#include "AtomicFile.h"
#include "EditorControl.h"
#include "FileSaver.h"
#include "Levels.h"
#include "LevelsCsv.h"
#include "ProductColumns.h"
#include "RevisionInfo.h"
#include "SummaryText.h"
#include "WMO.h"

#include <algorithm>

namespace {

bool save(const EditorControl& editor, const std::string& path, const char* extension, const ProductColumns& columns) {
    return FileSaver::saveFile(RevisionInfo().text("REPO_REVISION"), path, extension, editor.getSndMetaData(true),
                               editor, columns, editor.levels());
}

bool writeRawCsv(EditorControl& editor, const ConfigSet& /*config*/, const std::string& path) {
    return save(editor, path, ".csv", ProductColumns::raw(editor));
}

bool writeQcCsv(EditorControl& editor, const ConfigSet& config, const std::string& path) {
    return save(editor, path, ".csv", ProductColumns::qc(editor, config));
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
    return editor.wmo() != nullptr &&
           writeText(path, [&](std::ostream& stream) { editor.wmo()->saveTextFile(stream, appendNNNN); });
}

bool writeLevels(EditorControl& editor, const ConfigSet& /*config*/, const std::string& path) {
    return editor.levels() != nullptr &&
           writeText(path, [&](std::ostream& stream) { saveLevelsCsv(*editor.levels(), stream); });
}

bool writeSummary(EditorControl& editor, const ConfigSet& /*config*/, const std::string& path) {
    return writeText(path, [&](std::ostream& stream) { saveSummaryText(editor, stream); });
}

} // namespace

const std::vector<BatchFormat>& batchFormats() {
    static const std::vector<BatchFormat> formats{
        {"raw-csv", "RAW.csv", "BatchSaveRawCSV", false, &writeRawCsv},
        {"qc-csv", "QC.csv", "BatchSaveQCCSV", true, &writeQcCsv},
        {"raw-trv", "RAW.trv", "BatchSaveRawTRV", false, nullptr},
        {"qc-trv", "QC.trv", "BatchSaveQCTRV", true, nullptr},
        {"raw-zor", "RAW.zor", "BatchSaveRawZOR", false, nullptr},
        {"qc-zor", "QC.zor", "BatchSaveQCZOR", true, nullptr},
        {"qc-frd", "QC.frd", "BatchSaveQCFRD", true, nullptr},
        {"raw-nc", "RAW.nc", "BatchSaveRawCDF", false, nullptr},
        {"qc-nc", "QC.nc", "BatchSaveQCCDF", true, nullptr},
        {"qc-bfr", "QC.bfr", "BatchSaveQCBUFR", true, nullptr},
        {"wmo", "WMO.txt", "BatchSaveWMO", true, &writeWmo},
        {"levels", "Levels.csv", "BatchSaveLevels", true, &writeLevels},
        {"summary", "Summary.txt", nullptr, false, &writeSummary},
        {"skewt-svg", "skewt.svg", "BatchSaveSkewTSvg", false, nullptr},
        {"skewt-png", "skewt.png", "BatchSaveSkewTPng", false, nullptr},
    };
    return formats;
}

const BatchFormat* findBatchFormat(const std::string& name) {
    const auto& formats = batchFormats();
    const auto found =
        std::find_if(formats.begin(), formats.end(), [&](const BatchFormat& format) { return name == format.name; });
    return found == formats.end() ? nullptr : &*found;
}
