#pragma once

#include "Value.h"

#include <array>

/// How one flag is shown: its abbreviation in the attributes column (a blank follows it) and its line of hover text.
struct AttributeText {
    Value::AttributeType attribute;
    const char* abbreviation;
    const char* tip;
};

/// Every flag, from the lowest bit to the highest.
inline constexpr std::array<AttributeText, 18> kAttributeTexts{{
    {Value::ObsFlight, "F", "F: Obs-Flight"},
    {Value::ObsSurface, "S", "S: Obs-Surface"},
    {Value::CrcPtu, "P", "P: CRC-PTU"},
    {Value::CrcGps, "G", "G: CRC-GPS"},
    {Value::QcIgnore, "Ig", "Ig: QC-Ignore"},
    {Value::QcKeep, "Kp", "Kp: QC-Keep"},
    {Value::QcAmbientEquilibration, "Ae", "Ae: QC-AmbientEquilibration"},
    {Value::QcLimitCheck, "Lc", "Lc: QC-LimitCheck"},
    {Value::QcSatsCheck, "Sc", "Sc: QC-SatsCheck"},
    {Value::QcBuddyCheck, "Bc", "Bc: QC-BuddyCheck"},
    {Value::QcOutlierCheck, "Oc", "Oc: QC-OutlierCheck"},
    {Value::QcFilterCheck, "Fc", "Fc: QC-FilterCheck"},
    {Value::QcMonotonicPresCheck, "Pc", "Pc: QC-MonotonicPresCheck"},
    {Value::QcVerticalVelCheck, "Vc", "Vc: QC-VerticalVelCheck"},
    {Value::QcRHThreshold, "Rh", "Rh: QC-RHThreshold"},
    {Value::DryBiasCorrection, "Bias", "Bias: Dry bias correction"},
    {Value::QcWindErrorCheck, "We", "We: QC-WindErrorCheck"},
    {Value::AfterEndOfDrop, "EoD", "EoD: After end-of-drop time"},
}};
