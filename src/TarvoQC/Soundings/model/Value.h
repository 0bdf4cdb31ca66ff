#pragma once

#include <cstdint>

/// One sample of a series: a time (s from launch), a datum in the unit of the series, and the flags that tell where it
/// came from and which check condemned it.
class Value {
public:
    /// The flag vocabulary: independent bits of attributes().
    enum AttributeType : std::uint32_t {
        ObsFlight = 0x00001,              ///< launch observation of a dropsonde, taken at flight level
        ObsSurface = 0x00002,             ///< launch observation of an upsonde, or a surface value made by QC
        CrcPtu = 0x00004,                 ///< the frame failed the CRC of its PTU part
        CrcGps = 0x00008,                 ///< the frame failed the CRC of its GPS part
        QcIgnore = 0x00010,               ///< ordered out of QC by the user
        QcKeep = 0x00020,                 ///< ordered kept by the user; QC removal skips it
        QcAmbientEquilibration = 0x00040, ///< removed by the ambient equilibration step
        QcLimitCheck = 0x00080,           ///< failed the limit check
        QcSatsCheck = 0x00100,            ///< failed the satellite check
        QcBuddyCheck = 0x00200,           ///< failed the buddy check
        QcOutlierCheck = 0x00400,         ///< failed the outlier check
        QcFilterCheck = 0x00800,          ///< failed the filter check
        QcMonotonicPresCheck = 0x01000,   ///< failed the monotonic pressure check
        QcVerticalVelCheck = 0x02000,     ///< failed the vertical velocity check
        QcRHThreshold = 0x04000,          ///< touched by RH thresholding
        DryBiasCorrection = 0x08000,      ///< removed by the dry bias step
        QcWindErrorCheck = 0x10000,       ///< failed the wind error check
        AfterEndOfDrop = 0x20000,         ///< lies after the last data time in force
    };

    Value() = default;
    Value(double data, double time) : _time(time), _data(data) {}

    double time() const { return _time; }
    double data() const { return _data; }
    void setTime(double time) { _time = time; }
    void setData(double data) { _data = data; }

    std::uint32_t attributes() const { return _attributes; }
    /// Adds the given bits; it never clears one.
    void setAttributes(std::uint32_t bits) { _attributes |= bits; }
    /// Removes exactly the given bits.
    void clearAttribute(AttributeType bits) { _attributes &= ~static_cast<std::uint32_t>(bits); }
    /// True when all the given bits are set.
    bool testAttribute(AttributeType bits) const { return (_attributes & bits) == bits; }
    /// True for a launch observation or a surface value: either of the two observation flags is set.
    bool isObservation() const { return (_attributes & (ObsFlight | ObsSurface)) != 0; }

    /// By time only.
    bool operator<(const Value& other) const { return _time < other._time; }

private:
    double _time = 0.0;
    double _data = 0.0;
    std::uint32_t _attributes = 0;
};

/// A sample on its way into a row matrix, with the column it came from.
class ValueId : public Value {
public:
    ValueId(const Value& value, std::int32_t id) : Value(value), _id(id) {}
    std::int32_t id() const { return _id; }

private:
    std::int32_t _id;
};
