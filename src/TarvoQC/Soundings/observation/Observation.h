#pragma once

#include "Series.h"
#include "SndMetaData.h"
#include "SoundingType.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

class SoundingFile;

/// Frame times are off by less than this, s: the frame that was chosen as the end of the data is not after it.
constexpr double kFrameTimeError = 1e-5;

/// The series of a wind, which have a value together or not at all: of the QC set, and of the raw set.
const std::vector<const char*>& qcWinds();
const std::vector<const char*>& rawWinds();

/// The owner of all series of one sounding, by name: the raw set ("RawPres", ...), taken once from the reader, and the
/// QC set ("QCPres", ...), rebuilt from the raw set at the start of every QC run and worked on by QC. Raw values never
/// change; the raw set is only flagged. Units: mb, deg C, %, m/s, degrees, m, s from launch.
///
/// The reader is borrowed and outlives the observation. Pointers to QC series don't survive initQCdata().
class Observation {
public:
    explicit Observation(SoundingFile* file);
    Observation(const Observation& other);
    Observation& operator=(const Observation&) = delete;
    virtual ~Observation();

    /// The series of that name, or null.
    Series* getSeries(const Id& id) const;
    /// The names of all series whose name contains \p text, in order.
    std::vector<std::string> findNamedSeries(const std::string& text) const;

    /// Rebuilds the QC set. \p endTime is the last data time in force, none when 0 or less; \p rhChannel chooses among
    /// separate RH channels; \p discardBadCrc takes out what a bad CRC condemned, of an Ombra sounding.
    void initQCdata(double endTime, int rhChannel, bool discardBadCrc);
    void initQCdata(int rhChannel, bool discardBadCrc);
    void eraseQCdata();

    /// Ends the QC set at \p t, or at the end of the data when \p t is 0 or less, and flags the raw times after it.
    void SetQCLastDataTime(double t);
    /// The end of the data in force in the QC set, s; -1 before there is one.
    double qcLastDataTime() const { return _qcLastDataTime; }
    /// The last time of data in the file, s; -1 for a file without data.
    double GetMaxLastDataTime() const { return _maxLastDataTime; }
    bool QCavail() const { return _qcAvail; }

    /// Counters of the changes of the two sets. The raw one starts again at 0 after 99,999.
    int QCversion() const { return _qcVersion; }
    int RawVersion() const { return _rawVersion; }
    void rawVersionUp();

    SoundingType soundingType() const;
    int numRhChan() const;
    bool rhHeatingOn() const;
    bool needsTDDryBiasCorr() const;
    bool TDDryBiasCorrPresent() const;

    /// Adds a copy of \p series under \p id, less the values whose data or time is missing or no finite number, and
    /// those ahead of the launch observation.
    Series* addRawData(const Id& id, const Series& series);

    /// Removes the values flagged \p attribute, but for those with QcKeep, those after the end of the data, and with
    /// \p keepLast the one exactly there (QcIgnore spares none).
    void removeAttFlaggedData(Series* series, Value::AttributeType attribute, bool keepLast);
    /// removeAttFlaggedData() for the series that a bad PTU or GPS CRC condemns.
    void removeBadCrcFromOmbra();

    /// The wind components of parallel speed and direction series. The observation, CRC, keep and ignore flags of the
    /// direction are carried over to both.
    static void makeUandV(const Series& wspd, const Series& wdir, Series& u, Series& v);
    /// Puts a value in front, flagged; nothing when \p data is missing.
    static void prePend(Series* series, double data, double time, Value::AttributeType attribute);

    /// Sets or clears a flag on the first value less than 0.01 s before \p time or later. False when the change is
    /// refused: nothing can be set where the ambient equilibration took the value. QcIgnore and QcKeep exclude each
    /// other. It takes effect in the next initQCdata().
    bool setDataAtt(const Id& id, double time, Value::AttributeType attribute, bool set);

    /// What the file says of the sounding, without any override.
    SndMetaData getSndMetaData() const;

private:
    Value::AttributeType launchAttribute() const;
    Series& add(const Id& id);
    Series& addCopy(const Id& id, const Id& source);
    void addRawSeries();
    void prependLaunchValues();
    void cutAfterLastData();
    void selectRhChannel(int rhChannel);
    void makeQcSeries();
    void makeQcWinds();
    void keepWindsParallel();

    bool _qcAvail = false;
    SoundingFile* _file;
    std::map<Id, std::unique_ptr<Series>> _series;
    int _rawVersion = 0;
    int _qcVersion = 0;
    int _rhChannel = 0;
    double _qcLastDataTime = -1.0;
    double _maxLastDataTime = -1.0;
};
