#include "Sounding.h"

#include "DropsondeFallRate.h"
#include "SoundingFileFactory.h"
#include "Text.h"

#include <array>

namespace {

struct SensorMark {
    const char* mark; ///< in the thermo sensor text of the file
    SensorType type;
    const char* name;
};

constexpr std::array<SensorMark, 2> kSensorMarks{{
    {"RSS921", SensorType::RS90, "RS90/92"},
    {"RSS421", SensorType::RS41, "RS41"},
}};

} // namespace

Sounding::Sounding(const std::string& fileName, std::istream* stream, ConfigSet& config, Summary& summary)
    : _config(config), _summary(summary), _file(SoundingFileFactory::newSoundingFile(config, fileName, stream)) {
    if (_file == nullptr) {
        _fileError = "Unrecognized file type";
        return;
    }
    _fileError = _file->getErrorMsg();
    _fileSummary = _file->getSummaryInfo();
    if (!_file->isValid()) {
        if (_fileError.empty()) {
            _fileError = "Sounding file is invalid";
        }
        _file.reset();
        return;
    }
    _valid = true;
    for (const SensorMark& sensor : kSensorMarks) {
        if (contains(_file->thermoSensor(), sensor.mark)) {
            _sensorType = sensor.type;
            _sensorName = sensor.name;
        }
    }
    _ambientPoint = std::make_unique<AmbientPoint>(_sensorType);
    _observation = std::make_unique<Observation>(_file.get());
    _meta = _observation->getSndMetaData();
    if (numRhChan() > 1 && !rhHeatingOn()) {
        _config.value("RHchoice", _rhChoice);
    }
}

Sounding::~Sounding() = default;

bool Sounding::qcError(std::string& text) const {
    text = _qcErrorText;
    return _qcErrorFlag;
}

void Sounding::addQcError(const std::string& line) {
    _qcErrorText += line;
    _qcErrorFlag = true;
}

bool Sounding::setDataAtt(const Id& id, double time, Value::AttributeType attribute, bool set) {
    if (id == "RawRH" && numRhChan() > 1) {
        const int channel = RHselection();
        return _observation->setDataAtt(channel == 1   ? "RawRH1"
                                        : channel == 2 ? "RawRH2"
                                                       : "RawRH0",
                                        time, attribute, set);
    }
    return _observation->setDataAtt(id, time, attribute, set);
}

std::map<std::string, std::string> Sounding::attributes() const {
    std::map<std::string, std::string> all = _attributes;
    for (const auto& [key, text] : _file->mw41metadata()) {
        all[key] = text;
    }
    return all;
}

bool Sounding::getSfcAlt(double& alt) const {
    if (_meta.ascending) {
        alt = _meta.launchAlt.value();
    } else {
        alt = 0.0;
        _config.value("SfcAltOverride", alt);
    }
    return true;
}

bool Sounding::getRawTermPres(double& p) const {
    const Series* pres = getSeries("QCPres");
    if (!boolOf("DropsondeHitSfc") || pres == nullptr || pres->empty() ||
        !pres->testAttribute(pres->lastIndex(), Value::ObsSurface)) {
        return false;
    }
    p = pres->data(pres->lastIndex());
    return true;
}

Series* Sounding::getAltSeries() const {
    if (boolOf("SetHtsMissing")) {
        return getSeries("QCAltMissing");
    }
    const bool downward = !_meta.ascending && (!boolOf("DropsondeHitSfc") || boolOf("SfcAltUnknown"));
    return getSeries(downward ? "QCAltDn" : "QCAltUp");
}

bool Sounding::isLaunchValue(const Id& id, int index) const {
    const Series* series = getSeries(id);
    return series != nullptr && index >= 0 && index <= series->lastIndex() && series->getValue(index).isObservation();
}

int Sounding::windRate() const {
    constexpr int kOtherWindRate = 2;
    return soundingType() == SoundingType::Ombra ? _file->ombraWindRate() : kOtherWindRate;
}

SeriesList Sounding::seriesOf(const std::vector<const char*>& names) const {
    SeriesList list;
    for (const char* name : names) {
        if (Series* series = getSeries(name)) {
            list.push_back(series);
        }
    }
    return list;
}

double Sounding::theoreticalFallRate(double pressure, double tdry) const {
    const Parachute chute = parachute();
    return DropsondeFallRate::value(pressure, tdry, chute.area, chute.drag, chute.mass);
}

Sounding::Parachute Sounding::parachute() const {
    return {valueOf("ChuteArea", 676.0), valueOf("DragCoef", 0.61), valueOf("DropSondeMass", 400.0)};
}

bool Sounding::boolOf(const std::string& key) const {
    bool value = false;
    _config.boolValue(key, value);
    return value;
}

double Sounding::valueOf(const std::string& key, double otherwise) const {
    double value = otherwise;
    _config.value(key, value);
    return value;
}

int Sounding::intOf(const std::string& key) const {
    int value = 0;
    _config.intValue(key, value);
    return value;
}

std::string Sounding::textOf(const std::string& key) const {
    std::string text;
    _config.text(key, text);
    return text;
}
