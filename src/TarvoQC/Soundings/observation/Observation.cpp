#include "Observation.h"

#include "DCapture.h"
#include "SoundingFile.h"
#include "Text.h"
#include "Wind.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kRawVersions = 100000;

struct RawSource {
    const char* name;
    Series* (SoundingFile::*series)();
    bool separateRhChannel;
    bool endsTheData; ///< whether its last time counts as data of the sounding
};

constexpr std::array<RawSource, 20> kRawSources{{
    {"RawDz", &SoundingFile::sDz, false, false},         {"RawPres", &SoundingFile::sPres, false, true},
    {"RawSats", &SoundingFile::sSats, false, false},     {"RawTdry", &SoundingFile::sTdry, false, true},
    {"RawRH", &SoundingFile::sRh0, false, true},         {"RawRH0", &SoundingFile::sRh0, true, true},
    {"RawRH1", &SoundingFile::sRh1, true, true},         {"RawRH2", &SoundingFile::sRh2, true, true},
    {"RawTime", &SoundingFile::sTime, false, false},     {"RawWdir", &SoundingFile::sWdir, false, true},
    {"RawWspd", &SoundingFile::sWspd, false, true},      {"RawAlt", &SoundingFile::sAlt, false, false},
    {"RawGpsAlt", &SoundingFile::sGpsalt, false, false}, {"RawLat", &SoundingFile::sLat, false, false},
    {"RawLon", &SoundingFile::sLon, false, false},       {"RawDp", &SoundingFile::sDp, false, true},
    {"RawMr", &SoundingFile::sMr, false, true},          {"RawVt", &SoundingFile::sVt, false, true},
    {"RawPtemp", &SoundingFile::sPtemp, false, true},    {"RawWe", &SoundingFile::sWe, false, true},
}};

struct CrcRemoval {
    const char* series;
    Value::AttributeType attribute;
    bool keepLast;
};

constexpr std::array<CrcRemoval, 12> kCrcRemovals{{
    {"QCPres", Value::CrcPtu, true},
    {"QCTdry", Value::CrcPtu, true},
    {"QCRH", Value::CrcPtu, true},
    {"QCVVPres", Value::CrcPtu, true},
    {"QCWdir", Value::CrcGps, true},
    {"QCWspd", Value::CrcGps, true},
    {"QCGpsLat", Value::CrcGps, false},
    {"QCGpsLon", Value::CrcGps, false},
    {"QCGpsAlt", Value::CrcGps, true},
    {"QCRawSats", Value::CrcGps, true},
    {"QCU", Value::CrcGps, true},
    {"QCV", Value::CrcGps, true},
}};

bool isQcName(const Id& id) {
    return contains(id.name(), "QC");
}

void captureRemoval(const Series& series, int i, Value::AttributeType attribute) {
    if (!DCapture::enabled()) {
        return;
    }
    const char* reason = attribute == Value::CrcPtu     ? "PTU error"
                         : attribute == Value::CrcGps   ? "GPS error"
                         : attribute == Value::QcIgnore ? "IGNORE"
                                                        : "";
    DCapture::dcout << reason << " removal " << series.id().name() << " " << i << " " << series.time(i) << " "
                    << series.data(i) << "\n";
}

} // namespace

const std::vector<const char*>& qcWinds() {
    static const std::vector<const char*> names{"QCWspd", "QCWdir", "QCU", "QCV"};
    return names;
}

const std::vector<const char*>& rawWinds() {
    static const std::vector<const char*> names{"RawWspd", "RawWdir"};
    return names;
}

Observation::Observation(SoundingFile* file) : _file(file) {
    addRawSeries();
    prependLaunchValues();
    cutAfterLastData();
}

Observation::Observation(const Observation& other)
    : _qcAvail(other._qcAvail), _file(other._file), _rawVersion(other._rawVersion), _qcVersion(other._qcVersion),
      _rhChannel(other._rhChannel), _qcLastDataTime(other._qcLastDataTime), _maxLastDataTime(other._maxLastDataTime) {
    for (const auto& [id, series] : other._series) {
        _series.emplace(id, std::make_unique<Series>(*series));
    }
}

Observation::~Observation() = default;

void Observation::addRawSeries() {
    for (const RawSource& source : kRawSources) {
        if (!source.separateRhChannel || numRhChan() > 1) {
            addRawData(source.name, *(_file->*source.series)());
        }
    }
}

void Observation::prependLaunchValues() {
    const auto launch = [this](const Id& id, double data) {
        if (Series* series = getSeries(id)) {
            prePend(series, data, kLaunchObsTime, launchAttribute());
        }
    };
    launch("RawTime", kLaunchObsTime);
    launch("RawPres", _file->launchPres());
    launch("RawRH", _file->launchRH());
    launch("RawTdry", _file->launchTdry());
    launch("RawWdir", _file->launchWdir());
    launch("RawWspd", _file->launchWspd());
    for (const char* channel : {"RawRH0", "RawRH1", "RawRH2"}) {
        launch(channel, _file->launchRH());
    }
    launch("RawAlt", _file->launchAlt());
    launch("RawGpsAlt", _file->launchGpsAlt());
    launch("RawLat", _file->launchLat());
    launch("RawLon", _file->launchLon());
}

/// Tail frames that carry only heights, positions, rates or satellite counts don't extend the sounding.
void Observation::cutAfterLastData() {
    bool anyData = false;
    for (const RawSource& source : kRawSources) {
        const Series* series = source.endsTheData ? getSeries(source.name) : nullptr;
        if (series != nullptr && !series->empty()) {
            _maxLastDataTime = std::max(_maxLastDataTime, series->time(series->lastIndex()));
            anyData = true;
        }
    }
    if (!anyData) {
        return;
    }
    for (const auto& [id, series] : _series) {
        series->timeTrimRight(_maxLastDataTime);
    }
    _file->adjustErrStats(_maxLastDataTime);
}

Value::AttributeType Observation::launchAttribute() const {
    return _file->descending() ? Value::ObsFlight : Value::ObsSurface;
}

Series* Observation::getSeries(const Id& id) const {
    const auto found = _series.find(id);
    return found == _series.end() ? nullptr : found->second.get();
}

std::vector<std::string> Observation::findNamedSeries(const std::string& text) const {
    std::vector<std::string> names;
    for (const auto& [id, series] : _series) {
        if (contains(id.name(), text)) {
            names.push_back(id.name());
        }
    }
    return names;
}

Series& Observation::add(const Id& id) {
    return *(_series[id] = std::make_unique<Series>(id));
}

Series& Observation::addCopy(const Id& id, const Id& source) {
    return *(_series[id] = std::make_unique<Series>(*getSeries(source), id));
}

Series* Observation::addRawData(const Id& id, const Series& series) {
    Series& added = *(_series[id] = std::make_unique<Series>(series, id));
    added.removeIf([](int, const Value& value) {
        return !isKnown(value.data()) || !isKnown(value.time()) || value.time() < kLaunchObsTime;
    });
    return &added;
}

void Observation::eraseQCdata() {
    for (auto entry = _series.begin(); entry != _series.end();) {
        entry = isQcName(entry->first) ? _series.erase(entry) : std::next(entry);
    }
    _qcAvail = false;
}

void Observation::initQCdata(int rhChannel, bool discardBadCrc) {
    initQCdata(-1.0, rhChannel, discardBadCrc);
}

void Observation::initQCdata(double endTime, int rhChannel, bool discardBadCrc) {
    eraseQCdata();
    selectRhChannel(rhChannel);
    makeQcSeries();
    makeQcWinds();
    add("QCW");
    if (DCapture::enabled()) {
        for (const auto& [id, series] : _series) {
            DCapture::dcout << "Series: " << id.name() << "\n";
        }
    }
    SetQCLastDataTime(endTime);
    if (soundingType() == SoundingType::Ombra && discardBadCrc) {
        removeBadCrcFromOmbra();
    }
    ++_qcVersion;
    _qcAvail = true;
    rawVersionUp();
    _rhChannel = rhChannel;
}

/// The series itself stays: pointers to raw series outlive a QC run.
void Observation::selectRhChannel(int rhChannel) {
    if (numRhChan() > 1) {
        const Id channel = rhChannel == 1 ? "RawRH1" : rhChannel == 2 ? "RawRH2" : "RawRH0";
        *getSeries("RawRH") = Series(*getSeries(channel), "RawRH");
    }
}

void Observation::makeQcSeries() {
    addCopy("QCTime", "RawTime");
    addCopy("QCPres", "RawPres");
    for (const char* empty : {"QCLat", "QCLon", "QCAltUp", "QCAltDn", "QCAltMissing"}) {
        add(empty);
    }
    addCopy("QCTdry", "RawTdry");
    addCopy("QCRH", "RawRH");
    add("QCDz");
    addCopy("QCGpsAlt", "RawGpsAlt");
    addCopy("QCGpsLat", "RawLat");
    addCopy("QCGpsLon", "RawLon");
    addCopy("QCRawSats", "RawSats");
    addCopy("QCRawDp", "RawDp");
    addCopy("QCRawMr", "RawMr");
    addCopy("QCRawVt", "RawVt");
    addCopy("QCRawPtemp", "RawPtemp");
    for (const char* cleaned : {"QCPres", "QCTdry", "QCRH", "QCGpsLat", "QCGpsLon", "QCGpsAlt"}) {
        removeAttFlaggedData(getSeries(cleaned), Value::QcIgnore, true);
    }
    if (_file->descending()) {
        addCopy("QCVVPres", "QCPres");
        add("QCVVDz");
    }
    prePend(getSeries("QCLat"), _file->launchLat(), kLaunchObsTime, launchAttribute());
    prePend(getSeries("QCLon"), _file->launchLon(), kLaunchObsTime, launchAttribute());
}

void Observation::makeQcWinds() {
    auto [wspd, wdir] = getSeries("RawWspd")->matchSeries(*getSeries("RawWdir"));
    Series& qcWspd = *(_series["QCWspd"] = std::make_unique<Series>(wspd, "QCWspd"));
    Series& qcWdir = *(_series["QCWdir"] = std::make_unique<Series>(wdir, "QCWdir"));
    removeAttFlaggedData(&qcWspd, Value::QcIgnore, true);
    removeAttFlaggedData(&qcWdir, Value::QcIgnore, true);
    std::tie(wspd, wdir) = qcWspd.matchSeries(qcWdir);
    qcWspd = wspd;
    qcWdir = wdir;

    Series& u = add("QCU");
    Series& v = add("QCV");
    u.id("QCu");
    v.id("QCv");
    makeUandV(qcWspd, qcWdir, u, v);
    if (qcWspd.lastIndex() == 0) {
        for (const char* wind : qcWinds()) {
            getSeries(wind)->remove(0);
        }
    }
}

/// A flag or a Keep order on only one of the four wind quantities takes the sample out of some of them: the others lose
/// it too, also when samples share a time.
void Observation::keepWindsParallel() {
    Series& wspd = *getSeries("QCWspd");
    for (const char* wind : qcWinds()) {
        wspd = wspd.matchSeries(*getSeries(wind)).first;
    }
    for (const char* wind : qcWinds()) {
        Series& series = *getSeries(wind);
        series = series.matchSeries(wspd).first;
    }
}

void Observation::SetQCLastDataTime(double t) {
    _qcLastDataTime = t > 0.0 ? t : _maxLastDataTime;
    const double lastIn = _qcLastDataTime + kFrameTimeError;
    for (const auto& [id, series] : _series) {
        if (isQcName(id)) {
            series->timeTrimRight(lastIn);
        }
    }
    Series* times = getSeries("RawTime");
    times->clearAttribute(Value::AfterEndOfDrop);
    for (int i = 0; i <= times->lastIndex(); ++i) {
        if (times->time(i) > lastIn) {
            times->setAttribute(i, Value::AfterEndOfDrop);
        }
    }
}

void Observation::rawVersionUp() {
    _rawVersion = _rawVersion + 1 < kRawVersions ? _rawVersion + 1 : 0;
}

void Observation::removeAttFlaggedData(Series* series, Value::AttributeType attribute, bool keepLast) {
    const bool spareLast = keepLast && attribute != Value::QcIgnore;
    const auto condemned = [&](const Value& value) {
        return value.testAttribute(attribute) && !value.testAttribute(Value::QcKeep) &&
               value.time() <= _maxLastDataTime && !(spareLast && value.time() == _maxLastDataTime);
    };
    if (DCapture::enabled()) {
        for (int i = series->lastIndex(); i >= 0; --i) {
            if (condemned(series->getValue(i))) {
                captureRemoval(*series, i, attribute);
            }
        }
    }
    series->removeIf([&](int, const Value& value) { return condemned(value); });
}

void Observation::removeBadCrcFromOmbra() {
    for (const CrcRemoval& removal : kCrcRemovals) {
        if (Series* series = getSeries(removal.series)) {
            removeAttFlaggedData(series, removal.attribute, removal.keepLast);
        }
    }
    keepWindsParallel();
}

void Observation::makeUandV(const Series& wspd, const Series& wdir, Series& u, Series& v) {
    constexpr std::uint32_t kCarried =
        Value::ObsFlight | Value::ObsSurface | Value::CrcGps | Value::QcKeep | Value::QcIgnore;
    u.removeAll();
    v.removeAll();
    for (int i = 0; i <= std::min(wspd.lastIndex(), wdir.lastIndex()); ++i) {
        double east = 0.0;
        double north = 0.0;
        UandV(wspd.data(i), wdir.data(i), east, north);
        u.appendValue(east, wspd.time(i));
        v.appendValue(north, wspd.time(i));
        const auto carried = static_cast<Value::AttributeType>(wdir.attributes(i) & kCarried);
        u.setAttribute(i, carried);
        v.setAttribute(i, carried);
    }
}

void Observation::prePend(Series* series, double data, double time, Value::AttributeType attribute) {
    if (isKnown(data)) {
        series->prependValue(data, time);
        series->setAttribute(0, attribute);
    }
}

bool Observation::setDataAtt(const Id& id, double time, Value::AttributeType attribute, bool set) {
    Series* series = getSeries(id);
    if (series == nullptr) {
        return false;
    }
    const int i = series->indexNear(time, 0.01);
    if (i < 0) {
        return true;
    }
    if (!set) {
        series->clearAttribute(i, attribute);
        return true;
    }
    const Series* rh = contains(id.name(), "RawRH") ? getSeries("RawRH") : nullptr;
    const bool rhEquilibrating =
        rh != nullptr && i <= rh->lastIndex() && rh->testAttribute(i, Value::QcAmbientEquilibration);
    if (rhEquilibrating || series->testAttribute(i, Value::QcAmbientEquilibration)) {
        return false;
    }
    if (attribute == Value::QcIgnore) {
        series->clearAttribute(i, Value::QcKeep);
    } else if (attribute == Value::QcKeep) {
        series->clearAttribute(i, Value::QcIgnore);
    }
    series->setAttribute(i, attribute);
    return true;
}

SoundingType Observation::soundingType() const {
    return _file->soundingType();
}

int Observation::numRhChan() const {
    return _file->numRhChan();
}

bool Observation::rhHeatingOn() const {
    return _file->rhHeatingOn();
}

bool Observation::needsTDDryBiasCorr() const {
    return _file->needsTDDryBiasCorr();
}

bool Observation::TDDryBiasCorrPresent() const {
    return _file->TDDryBiasCorrPresent();
}
