#pragma once

#include "AmbientPoint.h"
#include "ConfigSet.h"
#include "Observation.h"
#include "OmbraTdryTimeConstant.h"
#include "ParallelSeries.h"
#include "SensorType.h"
#include "SndMetaData.h"
#include "SoundingFile.h"
#include "StatusAgent.h"
#include "Summary.h"

#include <istream>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// One loaded sounding and the engine that runs quality control over it.
///
/// The raw series stay as the file gave them and are only marked. Every run rebuilds the QC series from them, removes
/// or alters values there, and stamps the reason on the raw series at the same time. A step that can't work appends a
/// line to the QC error text ("- ...\n") and the sequence goes on; a step that meets an empty series passes over it.
///
/// The configuration and the summary are borrowed and outlive the sounding. An invalid one has no data: only isValid()
/// and getSndfileErrorMsg() may be asked.
class Sounding {
public:
    /// Reads the file. The format is found from its first two lines.
    Sounding(const std::string& fileName, std::istream* stream, ConfigSet& config, Summary& summary);
    Sounding(const Sounding&) = delete;
    Sounding& operator=(const Sounding&) = delete;
    ~Sounding();

    bool isValid() const { return _valid; }
    std::string getSndfileErrorMsg() const { return _fileError; }

    /// Runs the whole sequence. Each step announces itself to \p agent.
    void qcProcess(StatusAgent& agent);
    /// Whether any step left a text in the QC error text, which \p text takes.
    bool qcError(std::string& text) const;

    /// The metadata with the overrides of the last run, and as the file gives it.
    SndMetaData getSndMetaData() const { return _meta; }
    SndMetaData getOrigSndMetaData() const { return _observation->getSndMetaData(); }

    Series* getSeries(const Id& id) const { return _observation->getSeries(id); }
    /// Observation::setDataAtt(); an order for RawRH goes to the RH channel in force.
    bool setDataAtt(const Id& id, double time, Value::AttributeType attribute, bool set);
    void changeRawVer() { _observation->rawVersionUp(); }

    std::string description() const { return _file->description(); }
    SoundingType soundingType() const { return _file->soundingType(); }
    int numRhChan() const { return _file->numRhChan(); }
    bool rhHeatingOn() const { return _file->rhHeatingOn(); }
    int getPtuErrNum() const { return _file->getPtuErrNum(); }
    int getGpsErrNum() const { return _file->getGpsErrNum(); }
    int getPGErrNum() const { return _file->getPGErrNum(); }
    std::string derivedSndFile() const { return _file->derivedSndFile(); }
    std::shared_ptr<const UnLevels> unLevels() const { return _file->unLevels(); }
    std::vector<std::string> getSndfileSummaryInfo() const { return _fileSummary; }
    bool QCavail() const { return _observation->QCavail(); }
    int QCversion() const { return _observation->QCversion(); }
    int RawVersion() const { return _observation->RawVersion(); }
    double QClastDataTime() const { return _observation->qcLastDataTime(); }
    double maxLastDataTime() const { return _observation->GetMaxLastDataTime(); }
    const std::string& sensorName() const { return _sensorName; }
    SensorType sensorType() const { return _sensorType; }

    /// The RH channel for the next run.
    void selectRH(int channel) { _rhChoice = channel; }
    int RHselection() const { return static_cast<int>(_rhChoice); }
    /// The one that the QC data of the last run come from.
    int qcRHchannel() const { return _qcRhChannel; }

    /// What the QC steps and the file have to say in a product, by key.
    std::map<std::string, std::string> attributes() const;

    /// The altitude of the surface, m, and always true: of a dropsonde the override or 0, of an upsonde the launch
    /// altitude (-999.0 when the file has none).
    bool getSfcAlt(double& alt) const;
    /// The pressure at the surface, mb, when QC has put one at the end of a drop that reached the surface.
    bool getRawTermPres(double& p) const;
    /// The altitude series in force; null before the first run.
    Series* getAltSeries() const;
    bool isLaunchValue(const Id& id, int index) const;
    /// Wind samples per second.
    int windRate() const;

private:
    struct Parachute {
        double area; ///< cm2
        double drag;
        double mass; ///< g, of the sonde that hangs on it
    };

    // The sequence, in the order of the table in SoundingSequence.cpp.
    struct Step;
    static const std::vector<Step>& steps();
    bool prepare(StatusAgent& agent);
    void tellDescent();
    void describe();
    void rebuildQcData();
    void passThrough();
    void clearQcAtt();

    // Launch values and metadata.
    void updateSndMetaData(bool withLaunch);
    void lpIgnoreAndOverride(const std::string& name, LaunchParameter& parameter);
    void applySndMetaData();
    void applyLaunchParam(const Id& id, bool available, double value, Value::AttributeType attribute,
                          double time = kLaunchObsTime);
    void checkLaunchPair(const Id& a, const Id& b);

    // Scalar steps.
    void offsets();
    void postSplashCheck();
    std::string postSplashReason() const;
    void rhThresholding();
    void RHThreshold();

    // Sensor equilibration and time constants.
    void ambient();
    double ambientTemperature();
    void ambientRH();
    void ambientPressure(double temperatureTime);
    void ambientWinds();
    void trimHead(const SeriesList& series, const SeriesList& flagSeries, double time);
    void updateTimeConstants();

    // Checks that remove.
    void limitCheck();
    void satsCheck();
    void checkAndRemoveSats(const SeriesList& series, const SeriesList& flagSeries, int minSats,
                            const std::string& topic);
    void weCheck();
    bool windErrorIsTooLarge(double time, double error) const;
    void presMonoCheck();
    void buddyCheck();
    void outlierCheck();
    void filterCheck();
    void vvCheck();
    bool fallRatesDisagree(double time, double limit) const;
    void fastFallCheck();

    // Adjustments that change values.
    void TDDryBiasCorrect();
    void TdryDynAdjust();
    void WindDynAdjust();
    void adjustPressures();
    void adjustPres(Series* series);
    void pressureSmoothing();
    void smoothUpPres();
    void smoothDropPres();
    void smooth();
    void smoothUpWinds();
    void smoothDropWinds();
    bool smoothed(Series* series, double wavelength, const std::string& errorText);
    void windsFromComponents();

    // Vertical motion, surface, heights and position.
    void verticalVelocityForTimeConstants();
    void verticalVelocityFinal();
    void verticalVelocity(const std::string& title);
    void verticalWind();
    void createSfcObs();
    bool splashTime(double& time) const;
    bool fallDistance(double splash, double& distance) const;
    bool extrapolate(const Series* series, int index, double wavelength, double time, double& out) const;
    bool extrapolateAtEnd(const Series* series, double time, double& out) const;
    bool createSfcValue(Series* series, double time, double data);
    void altitudes();
    void dropAltitudes(double span, double start);
    void upAltitudes(double span, double start);
    void integrate(const Id& target, double span, double start, bool backward);
    void position();

    /// The series of those names; one that doesn't exist is left out, so that a list may begin with none.
    SeriesList seriesOf(const std::vector<const char*>& names) const;
    bool isRS41() const { return _sensorType == SensorType::RS41; }
    double theoreticalFallRate(double pressure, double tdry) const;

    void addQcError(const std::string& line);
    bool boolOf(const std::string& key) const;
    double valueOf(const std::string& key, double otherwise = 0.0) const;
    Parachute parachute() const;
    int intOf(const std::string& key) const;
    std::string textOf(const std::string& key) const;

    ConfigSet& _config;
    bool _qcErrorFlag = false;
    Summary& _summary;
    std::unique_ptr<SoundingFile> _file;
    std::unique_ptr<Observation> _observation;
    std::unique_ptr<AmbientPoint> _ambientPoint;
    bool _valid = false;
    std::string _fileError;
    SensorType _sensorType = SensorType::RS80;
    std::string _sensorName = "RS80";
    SndMetaData _meta;
    std::string _qcErrorText;
    std::vector<std::string> _fileSummary;
    double _rhChoice = 0.0;
    int _qcRhChannel = 0;
    bool _dryBiasApplied = false;
    OmbraTdryTimeConstant _tdryTimeConstant{SensorType::RS80}; // of the run under way
    std::map<std::string, std::string> _attributes;
};
