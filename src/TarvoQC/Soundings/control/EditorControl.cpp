#include "EditorControl.h"

#include "Globe.h"
#include "Levels.h"
#include "ProcessingTime.h"
#include "Text.h"
#include "WMO.h"

#include <array>
#include <cmath>

namespace {

std::string hemisphereText(double degrees, char positive, char negative) {
    return (degrees < 0.0 ? negative : positive) + stringFormat("%.4f", std::abs(degrees));
}

struct StatisticsRow {
    const char* raw;
    const char* qc;
    const char* label;
};

constexpr std::array<StatisticsRow, 4> kStatistics{{
    {"RawPres", "QCPres", "pres "},
    {"RawTdry", "QCTdry", "tdry "},
    {"RawRH", "QCRH", "RH   "},
    {"RawWspd", "QCWspd", "winds"},
}};

const char* const kStatisticsTopic = "QC Data Recovery Statistics";

double percent(int part, int whole) {
    return whole == 0 ? 0.0 : part * 100.0 / whole;
}

int sizeOf(const Series* series) {
    return series == nullptr ? 0 : series->lastIndex() + 1;
}

} // namespace

EditorControl::EditorControl(ConfigSet& config, std::string version) : _config(config), _version(std::move(version)) {}

EditorControl::~EditorControl() = default;

/// What the summary tells of a duration since \p start, by the whole seconds of the clock.
std::string EditorControl::durationText(std::int64_t start) {
    const auto seconds = static_cast<double>(processingTime() - start);
    return " (in " + (seconds < 1.0 ? "less than 1.0" : stringFormat("%4.1f", seconds)) + "s)";
}

void EditorControl::setStatus(const std::string& text) {
    if (_agent != nullptr) {
        _agent->SetStatus(text);
    }
}

void EditorControl::changeConfigItem(const Id& /*id*/, double /*value*/) {}

void EditorControl::getSounding(const std::string& fileName, std::istream* stream) {
    setStatus("Loading Data...");
    _levels.reset();
    _wmo.reset();
    _sounding.reset();
    const std::int64_t start = processingTime();
    _sounding = std::make_unique<Sounding>(fileName, stream, _config, _summary);
    if (!_sounding->isValid()) {
        return;
    }
    setStatus("Loaded format " + SoundingTypeName(_sounding->soundingType()));
    double surfaceAltitude = 0.0;
    getSfcAlt(surfaceAltitude);
    _config.add("SfcAltitude", surfaceAltitude, false, false, true);
    _summary.addItem("Processing Steps", "Data loaded" + durationText(start));
    setStatus("Ready");
}

void EditorControl::qcProcess() {
    _qcErrorFlag = false;
    _qcErrorText.clear();
    _summary.clear();
    for (const std::string& line : _sounding->getSndfileSummaryInfo()) {
        _summary.addItem("File Processing", line);
    }
    _levels.reset();
    _wmo.reset();
    int doQC = 0;
    _config.intValue("DoQC", doQC);
    if (doQC == 0) {
        return;
    }
    setStatus("QC processing...");
    const std::int64_t start = processingTime();
    StatusAgent nobody;
    _sounding->qcProcess(_agent != nullptr ? *_agent : nobody);
    _qcErrorFlag = _sounding->qcError(_qcErrorText);
    if (_qcErrorFlag) {
        splitQcErrors();
    }
    _summary.addItem("Processing Steps", "QC processing completed" + durationText(start));
    setStatus("Ready");
    doSummaryStats();
}

void EditorControl::splitQcErrors() {
    for (std::size_t start = 0; start < _qcErrorText.size();) {
        const auto end = std::min(_qcErrorText.find('\n', start), _qcErrorText.size());
        _summary.addItem("QC Processing Errors", _qcErrorText.substr(start, end - start));
        start = end + 1;
    }
}

void EditorControl::doSummaryStats() {
    const int n = sizeOf(getSeries("RawTime"));
    if (n == 0) {
        return;
    }
    const auto item = [this](const std::string& text) { _summary.addItem(kStatisticsTopic, text); };
    item(stringFormat("%d", n) + " raw data records");
    if (_sounding->soundingType() == SoundingType::Ombra) {
        const auto errors = [&](int count, const char* what) {
            item(stringFormat("%d ", count) + stringFormat("(%4.1f", percent(count, n)) + what);
        };
        errors(_sounding->getPtuErrNum(), "%) raw data records had PTU checksum errors");
        errors(_sounding->getGpsErrNum(), "%) raw data records had GPS checksum errors");
        errors(_sounding->getPGErrNum(), "%) raw data records had both PTU and GPS checksum errors");
    }
    for (const StatisticsRow& row : kStatistics) {
        const int raw = sizeOf(getSeries(row.raw));
        const int qc = sizeOf(getSeries(row.qc));
        const double retained = percent(qc, raw);
        item(std::string(row.label) + ":\tinput file reported " + stringFormat("%5d (", raw) +
             stringFormat("%5.1f", percent(raw, n)) + "%) values, " + "\tQC retained " + stringFormat("%5d (", qc) +
             stringFormat("%5.1f", retained) + "%), \toverall rate: " + stringFormat("%5.1f", retained * raw / n) +
             "%");
    }
}

std::string EditorControl::getSndfileErrorMsg() const {
    return _sounding == nullptr ? std::string() : _sounding->getSndfileErrorMsg();
}

bool EditorControl::qcError(std::string& text) const {
    text = _qcErrorText;
    return _qcErrorFlag;
}

bool EditorControl::setDataAtt(const Id& id, double time, Value::AttributeType attribute, bool set) {
    return _sounding->setDataAtt(id, time, attribute, set);
}

SoundingType EditorControl::soundingType(std::string& name) const {
    name = SoundingTypeName(_sounding->soundingType());
    return _sounding->soundingType();
}

SndMetaData EditorControl::getSndMetaData(bool current) const {
    return current ? _sounding->getSndMetaData() : _sounding->getOrigSndMetaData();
}

std::string EditorControl::getLaunchPosString() const {
    const SndMetaData meta = getSndMetaData(true);
    const double lat = meta.launchLat.value();
    const double lon = meta.launchLon.value();
    if (!meta.launchLat.avail(false) || !meta.launchLon.avail(false) || !isOnGlobe(lat, lon)) {
        return {};
    }
    return hemisphereText(lat, 'N', 'S') + " " + hemisphereText(lon, 'E', 'W');
}

bool EditorControl::estLaunchAlt(double& out) const {
    const Series* up = getSeries("QCAltUp");
    if (up == nullptr || up->empty() || !up->testAttribute(0, Value::ObsFlight)) {
        return false;
    }
    out = up->data(0);
    return true;
}

bool EditorControl::estTermAlt(double& out) const {
    const Series* down = getSeries("QCAltDn");
    const int last = down == nullptr ? -1 : down->lastIndex();
    if (last > 1 && down->testAttribute(last, Value::ObsSurface)) {
        out = down->data(last - 1);
        return true;
    }
    if (last >= 1) {
        out = down->data(last);
        return true;
    }
    return false;
}
