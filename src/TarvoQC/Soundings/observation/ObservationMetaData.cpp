#include "Observation.h"

#include "SoundingFile.h"
#include "UtcTime.h"

namespace {

void setFromSeries(LaunchParameter& parameter, const Series& series) {
    if (!series.empty() && series.getValue(0).isObservation()) {
        parameter.set(series.data(0));
    }
}

void setFromFile(LaunchParameter& parameter, double value) {
    if (isKnown(value)) {
        parameter.set(value);
    }
}

} // namespace

SndMetaData Observation::getSndMetaData() const {
    SndMetaData meta;
    setFromSeries(meta.launchPres, *getSeries("RawPres"));
    setFromSeries(meta.launchTdry, *getSeries("RawTdry"));
    setFromSeries(meta.launchRH, *getSeries("RawRH"));
    setFromSeries(meta.launchWspd, *getSeries("RawWspd"));
    setFromSeries(meta.launchWdir, *getSeries("RawWdir"));
    setFromFile(meta.launchAlt, _file->launchAlt());
    setFromFile(meta.launchGpsAlt, _file->launchGpsAlt());
    setFromFile(meta.launchLat, _file->launchLat());
    setFromFile(meta.launchLon, _file->launchLon());
    meta.sec = _file->sec();
    meta.min = _file->min();
    meta.hour = _file->hour();
    meta.day = _file->day();
    meta.month = _file->month();
    meta.year = _file->year();
    meta.WMOequipType = _file->WMOequipType();
    meta.WMOsondeType = _file->WMOsondeType();
    meta.WMOtrackingType = _file->WMOtrackingType();
    meta.WMOradCorrection = _file->WMOradCorrection();
    meta.ascending = _file->ascending();
    meta.launchTime = utcSeconds(meta.year, meta.month, meta.day, meta.hour, meta.min, meta.sec);
    meta.platformType = _file->platformType();
    meta.platformId = _file->platformId();
    meta.sondeId = _file->sondeId();
    meta.sondeModel = _file->sondeModel();
    meta.comments = _file->comments();
    meta.project = _file->project();
    meta.flight = _file->flight();
    meta.siteId = _file->siteId();
    meta.sysOperator = _file->sysOperator();
    meta.dataType = _file->dataType();
    meta.ptuWindTimeDiff = _file->ptuWindTimeDiff();
    meta.launchObsSource = _file->launchObsSource();
    meta.launchObsTime = _file->launchObsTime();
    meta.unixLaunchObsTime = _file->unixLaunchObsTime();
    return meta;
}
