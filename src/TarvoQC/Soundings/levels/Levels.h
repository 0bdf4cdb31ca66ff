#pragma once

#include "Level.h"
#include "Series.h"
#include "StatusAgent.h"
#include "Summary.h"

#include <string>
#include <utility>
#include <vector>

/// The QC series that levels are read from: mb, deg C, %, m/s, degrees, m/s, m, degrees, and the fall rate in m/s
/// upward. They outlive the level set.
struct LevelSeries {
    const Series& pres;
    const Series& tdry;
    const Series& rh;
    const Series& wspd;
    const Series& wdir;
    const Series& u;
    const Series& v;
    const Series& alt;
    const Series& lat;
    const Series& lon;
    const Series& dz;
};

/// When a sample is a significant level.
struct LevelCriteria {
    double tdryDelta = 1.0;     ///< deg C
    double rhDelta = 10.0;      ///< %
    double wspdDelta = 10.0;    ///< knots
    double wspd850Delta = 2.5;  ///< knots, of a dropsonde below 850 mb
    double wdirDelta = 10.0;    ///< degrees
    double tropSmoothWL = 60.0; ///< s, wavelength of the temperature in the search for the tropopause
};

/// What the levels have to know of their sounding.
struct LevelSetting {
    bool ascending = false;
    double windOffset = 0.0; ///< s, by which the PTU observations lead those of the wind
    double sfcAlt = -999.0;  ///< m; -999.0 when unknown
    int windRate = 0;        ///< wind samples per second
};

/// The level set of one sounding: what the message, BUFR, the Levels tab and the map are made of. It is derived from
/// the QC series on construction; afterwards only the tags of its levels and fields change.
///
/// Unless said otherwise a quantity is read at a time across gaps of up to 60 s. A step whose input is missing makes no
/// level, or one with fewer fields, and the next steps go on.
class Levels {
public:
    /// Derives the levels. Each step announces itself to \p agent; an empty pressure series has no levels and no steps.
    Levels(StatusAgent& agent, Summary& summary, const LevelSeries& series, const LevelCriteria& criteria,
           const LevelSetting& setting);
    Levels(const Levels&) = delete;
    Levels& operator=(const Levels&) = delete;

    /// From the smallest pressure to the largest; one without a pressure stands ahead of the first that is no earlier.
    const std::vector<Level>& levels() const { return _levels; }
    std::vector<Level>& levels() { return _levels; }
    void append(const Level& level) { _levels.push_back(level); }

    /// The head line of the listing, and the line of the level \p index, which must exist.
    const std::string& header() const { return _header; }
    std::string levelString(int index) const;

    /// Copies of the levels of a type, tagged ones included.
    std::vector<Level> subsetByType(LevelType type) const;
    /// Copies of the levels of these types whose pressure is lo or more and below hi (mb); tagged ones only when asked.
    std::vector<Level> subsetByType(const std::vector<LevelType>& types, double lo, double hi,
                                    bool includeTagged) const;
    std::vector<Level> subsetByType(LevelType type, double lo, double hi, bool includeTagged) const;
    /// Copies of the levels that have a pressure, smallest first.
    std::vector<Level> sortByPres() const;

    /// Inserts into \p out the field \p id of each level of that subset that has it, at the time of the level.
    void dataFromLevels(const std::vector<LevelType>& types, double lo, double hi, bool includeTagged, Series& out,
                        LevelFieldId id) const;
    /// The pairs of two fields of all levels that have both, and a label for each ("Tropopause at 96.3 mb").
    void dataFor2Fields(LevelFieldId idX, LevelFieldId idY, bool includeTagged,
                        std::vector<std::pair<double, double>>& pairs, std::vector<std::string>& labels) const;

    /// The position at the top of the sounding, degrees. False when there is none.
    bool highestPos(double& lat, double& lon) const;
    /// The pressure (mb) at the known surface altitude of a drop that ended above it, extrapolated from its last
    /// sample, which must be at 850 mb or below.
    bool extrapSfcPres(double& out) const;
    /// How far (m) a wind stands from the PTU observation of its \p time.
    double windHeightOffset(double time) const;

private:
    struct Step;
    static const std::vector<Step>& steps();
    void sort();
    struct Point; // of a series: time, pressure and value

    // Fixed by rule: the surface and the ends of the data.
    void surfaceThermo();
    void surfaceWinds();
    void surfaceWindsUp();
    void surfaceWindsDrop();
    bool surfaceWindAt(double height, double& time, double& u, double& v) const;
    bool surfaceWindOfLast(double& time, double& height, double& u, double& v) const;
    void lastWindAltitude();
    void lowestThermo() { endThermo(LevelType::LowestThermo, true); }
    void highestThermo() { endThermo(LevelType::HighestThermo, false); }
    void endThermo(LevelType type, bool lowest);
    void lowestW() { endWind(LevelType::LowestWind, true); }
    void highestW() { endWind(LevelType::HighestWind, false); }
    void endWind(LevelType type, bool lowest);
    bool extrapTdry(double p1, double t1, double p2, double& out) const;
    void setSurfacePosition(Level& level) const;

    // Fixed by rule: gaps, fixed pressures and extrapolations.
    void missingTdry();
    void missingRH();
    void missing(const Series& series, LevelFieldId field, LevelType top, LevelType bottom);
    bool mb110(const Series& series, Point& point) const;
    void mb110T();
    void mb110W();
    void basePressure();
    void extrapMandGA();
    void extrapAlt(double time, double pressure, double standardPressure);
    void standard();
    void standardBelowGround(double pressure);
    void launchWindOfHighestStandard();
    void placesOfStandard();

    // Found by analysis: points of significant change.
    struct GDLPass;
    struct GDLSpan;
    void inversion();
    void addInversion(const Value& start, const Value& end, double next);
    void GDLThermo();
    void GDLWinds();
    void GDLWindSpeedsOfDrop();
    void gdlWspd850mb();
    void GDLoneSeries(const Series& s, LevelType type, LevelFieldId field, double threshold);
    void GDLDirections(const Series& s, const Series& s2, LevelType type, LevelFieldId field, LevelFieldId field2,
                       double threshold);
    void GDLoneSeries(GDLPass& pass);
    void GDL(const GDLPass& pass, const Level& a, const Level& b, int first, int last);

    // Found by analysis: extremes.
    void tropopause();
    void maxWind();
    void shear(LevelType type, double altitude);

    // Layer means and places for the remarks of a dropsonde message.
    struct LayerWinds;
    void make62626();
    void meanBLWind(const LayerWinds& winds);
    void deepLayer(const LayerWinds& winds);
    void layer150m(const LayerWinds& winds);
    void location(LevelType type, bool lowest);
    bool layerAveragedWindByAlt(const LayerWinds& winds, int first, int last, int minCount, double& uMean,
                                double& vMean, double& midAlt) const;
    bool layerAveragedWindByPres(const LayerWinds& winds, int first, int last, int minCount, double& uMean,
                                 double& vMean) const;
    bool wl150(const LayerWinds& winds, double& t, double& midAlt, double& uMean, double& vMean) const;

    // What the steps share.
    bool pressureAt(double time, double& out) const;
    double fallRateAt(double time) const;
    void setIfReadable(Level& level, LevelFieldId field, const Series& series, double time) const;
    void setWindIfReadable(Level& level, double time) const;
    void addField(LevelType type, const Series& series, LevelFieldId field);
    bool highest(const Series& series, Point& point, bool lowest) const;
    bool highestPair(const Series& first, const Series& second, Point& point, double& value2, bool lowest) const;
    /// The first level of a type, or null; good until a level is added.
    const Level* firstOf(LevelType type) const;

    std::vector<Level> _levels;
    Summary& _summary;
    LevelSeries _series;
    Series _lnPres;
    LevelCriteria _criteria;
    bool _ascending = false;
    bool _surfaceFound = false;
    double _surfaceTime = -999.0;
    std::string _header;
    double _sfcAlt = -999.0;
    bool _sfcAltKnown = false;
    double _windOffset = 0.0;
    int _windRate = 0;
};
