#include "DataFileSaveBufr.h"

#include "EditorControl.h"
#include "TarvoToBUFR_BC25.h"
#include "TarvoToBUFR_BC26.h"

#include <memory>

DataFileSaveBufr::DataFileSaveBufr(const std::string& tableDir, const std::string& fileName, std::ostream& stream,
                                   int n, const SndMetaData& metaData, const EditorControl& editor,
                                   const Levels* levels, const double* time, const double* pres, const double* tdry,
                                   const double* rh, const double* wspd, const double* wdir, const double* lat,
                                   const double* lon, const double* alt)
    : DataFileSave(fileName) {
    const EditorControl::Attributes attributes = editor.attributes(true, false);
    TarvoToBUFR::set_bufr_table_dir(tableDir);
    std::unique_ptr<TarvoToBUFR> bufr;
    if (metaData.ascending) {
        bufr = std::make_unique<TarvoToBUFR_BC25>();
    } else {
        bufr = std::make_unique<TarvoToBUFR_BC26>();
    }
    const bool isProcessed =
        bufr->process(n, metaData, attributes, levels, time, pres, tdry, rh, wspd, wdir, lat, lon, alt);
    _isWhole = bufr->save(&stream) && isProcessed;
}
