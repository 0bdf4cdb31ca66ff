#include "ProductColumns.h"

#include "ConfigSet.h"
#include "EditorControl.h"
#include "Missing.h"

ProductColumns ProductColumns::raw(const EditorControl& editor) {
    const auto series = [&](const char* name) { return editor.getSeries(name); };
    return ProductColumns({series("RawTime"), series("RawPres"), series("RawTdry"), series("RawRH"), series("RawWspd"),
                           series("RawWdir"), nullptr, nullptr, nullptr, series("RawLat"), series("RawLon"),
                           series("RawAlt"), series("RawGpsAlt"), series("RawDz"), series("RawSats"), series("RawDp"),
                           series("RawMr"), series("RawVt"), series("RawPtemp")});
}

ProductColumns ProductColumns::qc(const EditorControl& editor, const ConfigSet& config) {
    const auto series = [&](const char* name) { return editor.getSeries(name); };
    bool observedPosition = false;
    config.boolValue("ReportObservedPos", observedPosition);
    return ProductColumns({series("QCTime"), series("QCPres"), series("QCTdry"), series("QCRH"), series("QCWspd"),
                           series("QCWdir"), series("QCU"), series("QCV"), series("QCW"),
                           series(observedPosition ? "QCGpsLat" : "QCLat"),
                           series(observedPosition ? "QCGpsLon" : "QCLon"), editor.getAltitudeSeries(),
                           series("QCGpsAlt"), series("QCDz"), series("QCRawSats"), series("QCRawDp"),
                           series("QCRawMr"), series("QCRawVt"), series("QCRawPtemp")});
}

ProductColumns::ProductColumns(const Sources& sources) {
    for (const Series* series : sources) {
        if (series != nullptr) {
            _rows.addSeries(series);
        }
    }
    _rows.generate();
    _missing.assign(static_cast<std::size_t>(_rows.nRows()), kMissing);
    int next = 0;
    for (std::size_t column = 0; column < sources.size(); ++column) {
        const Series* series = sources[column];
        _columns[column] = series != nullptr ? _rows.getColumn(next++) : _missing.data();
        if (column >= DewPoint && (series == nullptr || series->lastIndex() < 0)) {
            _columns[column] = nullptr;
        }
    }
}
