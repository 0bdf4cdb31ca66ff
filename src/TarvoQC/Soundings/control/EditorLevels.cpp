// The levels and the message of a sounding.

#include "EditorControl.h"
#include "Levels.h"
#include "Missing.h"
#include "ProcessingTime.h"
#include "WMO.h"

namespace {

const Series kNoSeries;

const Series& orEmpty(const Series* series) {
    return series == nullptr ? kNoSeries : *series;
}

} // namespace

double EditorControl::number(const std::string& key) const {
    double value = 0.0;
    _config.value(key, value);
    return value;
}

bool EditorControl::isOn(const std::string& key) const {
    bool on = false;
    _config.boolValue(key, on);
    return on;
}

std::string EditorControl::text(const std::string& key) const {
    std::string value;
    _config.text(key, value);
    return value;
}

LevelSeries EditorControl::levelSeries() const {
    const auto series = [this](const char* name) -> const Series& { return orEmpty(getSeries(name)); };
    const bool observed = isOn("ReportObservedPos");
    return {series("QCPres"),
            series("QCTdry"),
            series("QCRH"),
            series("QCWspd"),
            series("QCWdir"),
            series("QCU"),
            series("QCV"),
            orEmpty(getAltitudeSeries()),
            series(observed ? "QCGpsLat" : "QCLat"),
            series(observed ? "QCGpsLon" : "QCLon"),
            series("QCDz")};
}

/// The altitude of the surface, m, as far as it is known; -999.0 otherwise.
double EditorControl::levelSurfaceAltitude() const {
    double altitude = 0.0;
    if (_config.value("SfcAltOverride", altitude)) {
        return altitude;
    }
    double unknown = 0.0;
    const bool known = _config.value("SfcAltUnknown", unknown) && unknown == 0.0;
    return known && _config.value("SfcAltitude", altitude) ? altitude : kMissing;
}

/// QC data may be left of a run before the QC mode became 0: nothing is made of them.
bool EditorControl::isWanted(const std::string& key) const {
    int wanted = 0;
    int doQC = 0;
    _config.intValue(key, wanted);
    _config.intValue("DoQC", doQC);
    return wanted != 0 && doQC != 0 && QCready();
}

void EditorControl::doLevels() {
    if (!isWanted("DoLevels")) {
        return;
    }
    _wmo.reset();
    _levels.reset();
    const std::int64_t start = processingTime();
    const SndMetaData meta = getSndMetaData(true);
    setStatus("calculating levels...");
    const LevelCriteria criteria{number("TdryLevelDelta"),    number("RHLevelDelta"),   number("WspdLevelDelta"),
                                 number("Wspd850LevelDelta"), number("WdirLevelDelta"), number("TropSmoothWL")};
    const LevelSetting setting{meta.ascending, meta.ptuWindTimeDiff, levelSurfaceAltitude(), windRate()};
    StatusAgent nobody;
    _levels =
        std::make_unique<Levels>(_agent != nullptr ? *_agent : nobody, _summary, levelSeries(), criteria, setting);
    ++_levelsVersion;
    if (_sounding->soundingType() == SoundingType::Wmo) {
        addWMOLevels();
    } else {
        _summary.addItem("Processing Steps", "Levels created" + durationText(start));
    }
    setStatus("Ready");
}

void EditorControl::doWMO() {
    if (!isWanted("DoWMO") || isMessage()) {
        return;
    }
    setStatus("Creating WMO message...");
    _wmo.reset();
    if (_levels == nullptr) {
        return;
    }
    const std::int64_t start = processingTime();
    SndMetaData meta = getSndMetaData(true);
    TempMsgType type = TempMsgType::TempDrop;
    std::string icao;
    std::string abrHdr;
    if (meta.ascending) {
        const auto chosen = static_cast<int>(number("TempMsgType"));
        type = chosen >= 0 && chosen <= 2 ? static_cast<TempMsgType>(chosen) : TempMsgType::Temp;
        meta.callSign = text("CallSign");
        meta.BSN = text("BSN");
        icao = text("UpsondeICAO");
        abrHdr = text("UpsondeAbrHdr");
    }
    _wmo = std::make_unique<WMO>(*_levels, type, meta, isOn("ExcludeAbrHdr"), icao, abrHdr);
    ++_wmoVersion;
    _origWMOgroupCount = static_cast<int>(_wmo->groupCount());
    _summary.addItem("Processing Steps", "WMO message coded" + durationText(start));
    setStatus("Ready");
}

void EditorControl::addField(Level& level, LevelFieldId id, bool have, double value) {
    if (have) {
        level.setField(id, value);
    }
}

void EditorControl::addField(Level& first, Level& second, LevelFieldId id, bool have, double value) {
    addField(first, id, have, value);
    addField(second, id, have, value);
}
