#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

/// The mandatory surfaces, mb.
constexpr std::array<double, 21> kStandardPressures{1000.0, 925.0, 850.0, 700.0, 500.0, 400.0, 300.0,
                                                    250.0,  200.0, 150.0, 100.0, 70.0,  50.0,  30.0,
                                                    20.0,   10.0,  7.0,   5.0,   3.0,   2.0,   1.0};

/// What a level is. The numbers are stored in the database and stay as they are.
enum class LevelType {
    Standard = 0,
    SurfaceThermo = 1,
    SurfaceWind = 2,
    ExtrapSfcPres = 3,
    LowestThermo = 4,
    LowestWind = 5,
    HighestThermo = 6,
    HighestWind = 7,
    Mb110Thermo = 8,
    Mb110Wind = 9,
    TropopauseLevel = 10,
    InversionTop = 11,
    InversionBottom = 12,
    MissingTdryTop = 13,
    MissingTdryBottom = 14,
    MissingRHTop = 15,
    MissingRHBottom = 16,
    DoubtfulAlt = 17,
    DoubtfulTemp = 18,
    ExtrapAlt = 19,
    StationBasePres = 20,
    Freezing = 21,
    GDLTdry = 22,
    GDLRH = 23,
    GDLWspd = 24,
    GDLWdir = 25,
    MaxWind = 26,
    ShearAbove = 27,
    ShearBelow = 28,
    LastWindAlt = 29,
    Layer150m = 30,
    DeepLayer = 31,
    MeanBLWind = 32,
    SPGLocation = 33,
    RELLocation = 34,
};

/// The quantities that a level may carry. The numbers are stored in the database and stay as they are.
enum LevelFieldId {
    LFtime = 0,     ///< s in the time base of the sounding
    LFpres = 1,     ///< mb
    LFtdry = 2,     ///< deg C
    LFrh = 3,       ///< %
    LFwspd = 4,     ///< m/s
    LFwdir = 5,     ///< degrees
    LFu = 6,        ///< m/s eastward
    LFv = 7,        ///< m/s northward
    LFalt = 8,      ///< m
    LFpresTop = 9,  ///< mb
    LFpresBot = 10, ///< mb
    LFlat = 11,     ///< degrees, north positive
    LFlon = 12,     ///< degrees, east positive
    LFnone = 13,
};

/// One value of a level. A tagged one is withdrawn from coding: it stays in the level, but reads as absent.
class LevelField {
public:
    LevelField() = default;
    LevelField(LevelFieldId id, double value) : _id(id), _value(value) {}

    LevelFieldId id() const { return _id; }
    double value() const { return _value; }
    void setValue(double value) { _value = value; }
    bool tag() const { return _tag; }
    void setTag(bool tag) { _tag = tag; }

private:
    LevelFieldId _id = LFnone;
    double _value = 0.0;
    bool _tag = false;
};

/// One noteworthy point of a sounding. It holds only the fields that could be computed for it: what is absent was
/// either not asked for or not to be had, and there is no missing-value code. A tagged level is withdrawn from coding.
class Level {
public:
    explicit Level(LevelType type) : _type(type) {}

    LevelType levelType() const { return _type; }
    bool tag() const { return _tag; }
    void tag(bool tag) { _tag = tag; }

    /// The value of an untagged field. False, and \p out left alone, without one.
    bool getFieldData(LevelFieldId id, double& out) const;
    bool has(LevelFieldId id) const;
    /// The field whatever its tag; null when there is none.
    LevelField* getField(LevelFieldId id);
    const LevelField* getField(LevelFieldId id) const;
    /// Sets the value of a field, which is made when there is none and keeps its tag otherwise.
    void setField(LevelFieldId id, double value);

    /// Without any untagged temperature, RH, wind speed and direction.
    bool empty() const;

    /// The names for people; "Unknown" for a number that is none of the enumerators.
    std::string LTname() const { return LTname(_type); }
    static std::string LTname(LevelType type);
    static std::string LFname(LevelFieldId id);

    /// By pressure, smallest first; of equal ones by time, then by type. Without a pressure on both sides by time.
    bool operator<(const Level& other) const;
    /// Of the same pressure.
    bool operator==(const Level& other) const;

private:
    static bool isField(LevelFieldId id) { return id >= LFtime && id < LFnone; }

    LevelType _type;
    std::array<std::optional<LevelField>, LFnone> _fields;
    bool _tag = false;
};
