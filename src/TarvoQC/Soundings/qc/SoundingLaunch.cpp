#include "Sounding.h"

#include "Globe.h"
#include "Wind.h"

#include <array>

namespace {

struct LaunchField {
    const char* name; ///< as in the keys Launch<name>Override and IgnoreLaunch<name>
    LaunchParameter SndMetaData::*parameter;
};

constexpr std::array<LaunchField, 8> kLaunchFields{{
    {"Pres", &SndMetaData::launchPres},
    {"Tdry", &SndMetaData::launchTdry},
    {"RH", &SndMetaData::launchRH},
    {"Wspd", &SndMetaData::launchWspd},
    {"Wdir", &SndMetaData::launchWdir},
    {"Lat", &SndMetaData::launchLat},
    {"Lon", &SndMetaData::launchLon},
    {"Alt", &SndMetaData::launchAlt},
}};

struct LaunchSeries {
    const char* series;
    LaunchParameter SndMetaData::*parameter;
};

constexpr std::array<LaunchSeries, 10> kLaunchSeries{{
    {"QCPres", &SndMetaData::launchPres},
    {"QCTdry", &SndMetaData::launchTdry},
    {"QCRH", &SndMetaData::launchRH},
    {"QCWspd", &SndMetaData::launchWspd},
    {"QCWdir", &SndMetaData::launchWdir},
    {"QCLat", &SndMetaData::launchLat},
    {"QCLon", &SndMetaData::launchLon},
    {"QCGpsLat", &SndMetaData::launchLat},
    {"QCGpsLon", &SndMetaData::launchLon},
    {"QCVVPres", &SndMetaData::launchPres}, // of a descending sounding only: elsewhere there is no such series
}};

struct MetaOverride {
    const char* key;
    std::string SndMetaData::*field;
};

constexpr std::array<MetaOverride, 4> kMetaOverrides{{
    {"PlatformType", &SndMetaData::platformType},
    {"PlatformId", &SndMetaData::platformId},
    {"Project", &SndMetaData::project},
    {"Flight", &SndMetaData::flight},
}};

} // namespace

void Sounding::updateSndMetaData(bool withLaunch) {
    if (withLaunch) {
        for (const LaunchField& field : kLaunchFields) {
            lpIgnoreAndOverride(field.name, _meta.*field.parameter);
        }
    }
    _meta.callSign = textOf("CallSign");
    _meta.agency = textOf("Agency");
    const SndMetaData file = _observation->getSndMetaData();
    for (const MetaOverride& item : kMetaOverrides) {
        const std::string text = textOf(item.key);
        _meta.*item.field = text.empty() ? file.*item.field : text;
    }
}

void Sounding::lpIgnoreAndOverride(const std::string& name, LaunchParameter& parameter) {
    double value = kMissing;
    _config.value("Launch" + name + "Override", value);
    parameter.adjust(value, boolOf("IgnoreLaunch" + name));
}

void Sounding::applyLaunchParam(const Id& id, bool available, double value, Value::AttributeType attribute,
                                double time) {
    Series* series = getSeries(id);
    if (series == nullptr || series->empty()) {
        return;
    }
    const bool present = isLaunchValue(id, 0);
    if (!available) {
        if (present) {
            series->remove(0);
        }
        return;
    }
    if (present) {
        series->setData(0, value);
    } else {
        series->prependValue(value, time);
    }
    series->setAttribute(0, attribute);
}

void Sounding::applySndMetaData() {
    const auto attribute = _meta.ascending ? Value::ObsSurface : Value::ObsFlight;
    for (const LaunchSeries& target : kLaunchSeries) {
        const LaunchParameter& parameter = _meta.*target.parameter;
        applyLaunchParam(target.series, parameter.avail(false), parameter.value(), attribute);
    }
    Series& wspd = *getSeries("QCWspd");
    Series& wdir = *getSeries("QCWdir");
    Series& qcU = *getSeries("QCU");
    Series& qcV = *getSeries("QCV");
    const bool launchWind = _meta.launchWspd.avail(false);
    if (!wspd.empty()) {
        double u = 0.0;
        double v = 0.0;
        if (launchWind) {
            UandV(_meta.launchWspd.value(), _meta.launchWdir.value(), u, v);
        }
        applyLaunchParam("QCU", launchWind, u, attribute);
        applyLaunchParam("QCV", launchWind, v, attribute);
    }
    checkLaunchPair("QCLat", "QCLon");
    checkLaunchPair("QCWspd", "QCWdir");
    // The limit check judges positions by GPS; one to go on from by the winds has to be one as well.
    Series& lat = *getSeries("QCLat");
    Series& lon = *getSeries("QCLon");
    if (!lat.empty() && !lon.empty() && !isOnGlobe(lat.data(0), lon.data(0))) {
        lat.removeAll();
        lon.removeAll();
    }
    // Also when nothing is left of the speed: the four wind series stay of one length.
    if (!isLaunchValue("QCWspd", 0) && isLaunchValue("QCU", 0)) {
        qcU.remove(0);
        qcV.remove(0);
    }
    if (!wspd.empty() && !wdir.empty() && !qcU.empty() && !qcV.empty()) {
        double u = 0.0;
        double v = 0.0;
        UandV(wspd.data(0), wdir.data(0), u, v);
        qcU.setData(0, u);
        qcV.setData(0, v);
    }
    // A file may know one of a pair without the other.
    makeParallel(seriesOf({"QCGpsLat", "QCGpsLon"}));
    makeParallel(seriesOf(qcWinds()));
}

void Sounding::checkLaunchPair(const Id& a, const Id& b) {
    const bool inA = isLaunchValue(a, 0);
    const bool inB = isLaunchValue(b, 0);
    if (inA != inB) {
        getSeries(inA ? a : b)->remove(0);
    }
}
