#pragma once

#include "Missing.h"
#include "Series.h"
#include "SoundingType.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

class UnLevels;
struct WrittenTime;

/// The base of all readers. A reader does all its work in its constructor and is a passive holder afterwards: series by
/// quantity, launch observation, date and time (UTC), metadata, and whether the file made sense.
///
/// Every series in use holds one entry for each data record, tagged with the record's time in seconds from launch; an
/// absent value is entered as -999.0. A series that a format has no data for stays empty. Units: mb, deg C, %, m/s,
/// degrees, m, s.
class SoundingFile {
public:
    SoundingFile(const SoundingFile&) = delete;
    SoundingFile& operator=(const SoundingFile&) = delete;
    virtual ~SoundingFile();

    /// Tells the reader of an ascending sounding the geopotential altitude (m) of its burst, once QC has worked it out.
    /// Only a format that derives a descending file from it listens.
    virtual void updateDescendingGeoAlt(double alt);

    bool isValid() const { return _valid; }
    std::string getErrorMsg() const { return _errorMsg; }
    /// Adds to the error text that the reading of the file ended with a line that was too long.
    void tellLongLine(std::size_t lineNumber);
    /// Puts the records of a valid file in the order of time and drops those that repeat the one before. Adds to the
    /// error text that there were such, and that the analysis leaves out those from ahead of the launch.
    void settleTimes();
    std::vector<std::string> getSummaryInfo() const { return _summaryInfo; }
    /// The file name without directories, a blank, and what the file says of itself.
    std::string description() const;

    SoundingType soundingType() const { return _soundingType; }
    int dataPoints() const { return _dataPoints; }
    bool ascending() const { return _ascending; }
    bool descending() const { return !_ascending; }

    int year() const { return _year; }
    int month() const { return _month; }
    int day() const { return _day; }
    int hour() const { return _hour; }
    int min() const { return _min; }
    int sec() const { return _sec; }

    Series* sTime() { return &_sTime; }
    Series* sPres() { return &_sPres; }
    Series* sTdry() { return &_sTdry; }
    Series* sRh0() { return &_sRh0; }
    Series* sRh1() { return &_sRh1; }
    Series* sRh2() { return &_sRh2; }
    Series* sWdir() { return &_sWdir; }
    Series* sWspd() { return &_sWspd; }
    Series* sDz() { return &_sDz; }
    Series* sLon() { return &_sLon; }
    Series* sLat() { return &_sLat; }
    Series* sAlt() { return &_sAlt; }
    Series* sGpsalt() { return &_sGpsalt; }
    Series* sSats() { return &_sSats; }
    Series* sDp() { return &_sDp; }
    Series* sMr() { return &_sMr; }
    Series* sVt() { return &_sVt; }
    Series* sPtemp() { return &_sPtemp; }
    Series* sWe() { return &_sWe; }

    double launchPres() const { return _launchPres; }
    double launchTdry() const { return _launchTdry; }
    double launchRH() const { return _launchRH; }
    double launchWspd() const { return _launchWspd; }
    double launchWdir() const { return _launchWdir; }
    double launchAlt() const { return _launchAlt; }
    double launchGpsAlt() const { return _launchGpsAlt; }
    double launchLon() const { return _launchLon; }
    double launchLat() const { return _launchLat; }

    std::string WMOequipType() const { return _wmoEquipType; }
    std::string WMOsondeType() const { return _wmoSondeType; }
    std::string WMOtrackingType() const { return _wmoTrackingType; }
    std::string WMOradCorrection() const { return _wmoRadCorrection; }
    std::string platformType() const { return _platformType; }
    std::string platformId() const { return _platformId; }
    std::string siteId() const { return _siteId; }
    std::string sondeId() const { return _sondeId; }
    std::string sondeModel() const { return _sondeModel; }
    std::string thermoSensor() const { return _thermoSensor; }
    std::string comments() const { return _comments; }
    std::string project() const { return _project; }
    std::string flight() const { return _flight; }
    std::string sysOperator() const { return _sysOperator; }
    std::string dataType() const { return _dataType; }
    double ptuWindTimeDiff() const { return _ptuWindTimeDiff; }
    std::string launchObsSource() const { return _launchObsSource; }
    std::string launchObsTime() const { return _launchObsTime; }
    /// The time of the launch observation, s since 1970, or -999 when it isn't told. Its day is the one that brings it
    /// within half a day of the launch, whatever date is told with it.
    std::int64_t unixLaunchObsTime();
    static constexpr std::int64_t kUnknownTime = -999;

    int numRhChan() const { return static_cast<int>(_rhChannels.size()); }
    bool rhHeatingOn() const { return _rhHeatingOn; }
    bool needsTDDryBiasCorr() const { return _needsTDDryBiasCorr; }
    bool TDDryBiasCorrPresent() const { return _tdDryBiasCorrPresent; }

    /// Frames from the launch on whose CRC failed: in the PTU part, in the GPS part, in both.
    int getPtuErrNum() const { return _crcErrors.ptu - _crcErrorsAfterEnd.ptu; }
    int getGpsErrNum() const { return _crcErrors.gps - _crcErrorsAfterEnd.gps; }
    int getPGErrNum() const { return _crcErrors.both - _crcErrorsAfterEnd.both; }
    /// From now on those counts leave out the frames after \p endTime (s from launch). The end can be moved again, in
    /// either direction.
    void adjustErrStats(double endTime);
    /// GPS wind samples per second.
    int ombraWindRate() const { return _ombraWindRate; }

    /// The path of a second sounding that the reader made out of this file; empty without one.
    std::string derivedSndFile() const { return _derivedSndFile; }
    /// The levels that a format carries itself; null without them.
    std::shared_ptr<const UnLevels> unLevels() const { return _unLevels; }
    std::vector<std::pair<std::string, std::string>> mw41metadata() const { return _mw41metadata; }

protected:
    struct CrcErrors {
        int ptu = 0;
        int gps = 0;
        int both = 0;
    };

    // What several readers have to say of a file.
    static constexpr const char* kNoData = "- No sounding data found in file.\n";
    static constexpr const char* kLaunchInvalid = "- Launch date or time is invalid.\n";
    static constexpr const char* kNoTime = "- There is no time in line ";
    static constexpr const char* kValuesMissing = "- Values are missing at the end of line ";

    /// Valid when there is any line at all.
    SoundingFile(std::string fileName, std::vector<std::string> lines);

    void valid() { _valid = true; }
    void notValid() { _valid = false; }

    /// Whether the whole of date and time has been told.
    bool dated() const;

    /// All lines, consumed or not.
    const std::vector<std::string>& lines() const { return _lines; }
    bool linesLeft() const { return _nextLine < _lines.size(); }
    /// The next line, which must exist; it counts as consumed.
    const std::string& nextLine() { return _lines[_nextLine++]; }
    /// The number of the line consumed last, from 1.
    std::size_t lineNumber() const { return _nextLine; }
    /// Adds \p warning, completed by the number of the current line, unless the same was said of an earlier line.
    void warnOnce(const std::string& warning);
    /// Sets the codes that messages describe the system with; most systems differ in \p sondeType only.
    void takeWmoCodes(const char* sondeType);
    void takeLaunch(const WrittenTime& launch);
    /// The series that carry data, as a rule all of one length.
    std::vector<Series*> recordSeries();
    /// Adds to the error text that the calendar has no such launch time; for formats that take any.
    void checkLaunchTime();
    void registerRHchan(int channel) { _rhChannels.insert(channel); }

    std::string _fileName;
    SoundingType _soundingType = SoundingType::Unknown;
    int _sec = -999;
    int _min = -999;
    int _hour = -999;
    int _day = -999;
    int _month = -999;
    int _year = -999;
    int _dataPoints = 0;

    Series _sTime, _sPres, _sTdry, _sRh0, _sRh1, _sRh2, _sWdir, _sWspd, _sDz, _sLon, _sLat, _sAlt, _sGpsalt, _sSats,
        _sDp, _sMr, _sVt, _sPtemp, _sWe;
    bool _ascending = true;

    double _launchPres = kMissing;
    double _launchTdry = kMissing;
    double _launchRH = kMissing;
    double _launchWspd = kMissing;
    double _launchWdir = kMissing;
    double _launchAlt = kMissing;
    double _launchGpsAlt = kMissing;
    double _launchLon = kMissing;
    double _launchLat = kMissing;

    std::string _descriptionText;
    std::string _wmoEquipType = "0";
    std::string _wmoRadCorrection = "0";
    std::string _wmoSondeType = "90";
    std::string _wmoTrackingType = "19";
    std::string _platformType, _platformId, _siteId, _sondeId, _sondeModel, _thermoSensor, _comments, _sysOperator,
        _dataType;
    double _ptuWindTimeDiff = 0.0;
    std::string _project, _flight;
    std::string _errorMsg;
    std::vector<std::string> _summaryInfo;
    std::string _launchObsSource = "unknown";
    std::string _launchObsTime = "unknown";
    /// What unixLaunchObsTime() answers, for a format that tells it outright; otherwise worked out on demand.
    std::int64_t _unixLaunchObsTime = kUnknownTime;

    CrcErrors _crcErrors;
    int _ombraWindRate = 0;
    std::string _derivedSndFile;
    std::shared_ptr<const UnLevels> _unLevels;
    bool _needsTDDryBiasCorr = false;
    bool _tdDryBiasCorrPresent = false;
    bool _rhHeatingOn = false;
    std::vector<std::pair<std::string, std::string>> _mw41metadata;

private:
    std::int64_t nearLaunch(std::int64_t time) const;
    void dropRepeated();

    bool _valid;
    std::vector<std::string> _lines;
    std::size_t _nextLine = 0;
    CrcErrors _crcErrorsAfterEnd;
    std::set<int> _rhChannels{0};
};
