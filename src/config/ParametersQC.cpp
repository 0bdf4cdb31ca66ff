#include "ParameterRows.h"

namespace parameter_rows {

namespace {

constexpr Parameter kWinds[] = {
    number("WindSmoothWL", "10", 10, kOutput, "final smoothing wavelength of winds, seconds"),
    number("WindQCWL", "30", 10, kOutput, "filter check smoothing wavelength of winds, seconds"),
    flag("WindDynCor", "true", true, kOutput, "apply the wind dynamic adjustment"),
    number("WindDynCorWL", "10", 10, kOutput,
           "wavelength of the spline derivative of the wind dynamic adjustment, seconds"),
    number("WindBuddySlope", "10", 1.5, kOutput,
           "buddy check: slope not to be exceeded between neighbouring wind points, m/s^2"),
    number("WindQCDev", "3", 3, kOutput, "filter check deviation limit of winds"),
    flag("WindDisableQCFilter", "false", true, kPlain, "switch off the filter check of winds"),
    number("WindOutlier", "5", 5, kOutput, "outlier check threshold of winds, standard deviations"),
    flag("WindDisableOutlierCheck", "false", true, kPlain, "switch off the outlier check of winds"),
    number("WindSats", "6", 6, kOutput, "minimum number of GPS satellites"),
    flag("WindDisableSatsCheck", "false", true, kPlain, "switch off the satellite check"),
    number("WindErrorHigh", "1.5", 1.5, kOutput, "maximum wind error above 10 km or below 100 m altitude"),
    number("WindErrorLow", "1", 1, kOutput, "maximum wind error below 10 km and above 100 m altitude"),
    flag("WindDisableErrorCheck", "false", true, kPlain, "switch off the wind error check"),
    number("WindVVdelta", "2.5", 2.5, kOutput,
           "maximum difference between the GPS, theoretical and pressure fall rates in the dropsonde GPS winds check"),
    number("WindVVPresWL", "5", 5, kOutput,
           "smoothing wavelength of the pressure behind the hydrostatic fall rate of the dropsonde GPS winds check, "
           "seconds"),
    number("WindEquilTime", "10", 10, kOutput, "equilibration time of dropsonde winds, seconds"),
    number("WindDisableW", "0", 0, kOutput, "switch off the vertical wind calculation"),
};

constexpr Parameter kThermodynamics[] = {
    number("PresSmoothWL", "10", 10, kOutput, "final smoothing wavelength of pressure, seconds"),
    number("PresQCWL", "30", 30, kOutput, "filter check smoothing wavelength of pressure, seconds"),
    number("PresBuddySlope", "1.5", 1.5, kOutput, "buddy check slope of pressure, mb/s"),
    number("PresQCDev", "1.5", 1.5, kOutput, "filter check deviation limit of pressure"),
    number("PresOutlier", "4.5", 4.5, kOutput, "outlier check threshold of pressure, standard deviations"),
    flag("PresDisableOutlierCheck", "false", true, kPlain, "switch off the outlier check of pressure"),
    number("PresOffset", "0", 0, kOutput, "offset added to pressure, mb"),
    flag("PresMonoCheck", "false", true, kOutput, "enable the monotonic pressure check"),
    number("TdryQCWL", "20", 20, kOutput, "filter check smoothing wavelength of temperature, seconds"),
    flag("TdryDynCor", "true", true, kOutput, "apply the temperature dynamic adjustment"),
    number("TdryDynCorWL", "20", 20, kOutput,
           "wavelength of the spline derivative of the temperature dynamic adjustment, seconds"),
    number("TdryQCDev", "0.8", 0.8, kOutput, "filter check deviation limit of temperature"),
    number("TdryOutlier", "5", 5, kOutput, "outlier check threshold of temperature, standard deviations"),
    flag("TdryDisableOutlierCheck", "false", true, kPlain, "switch off the outlier check of temperature"),
    number("TdryOffset", "0", 0, kOutput, "offset added to temperature, degC"),
    number("TdryBuddySlope", "0.5", 0.5, kOutput, "buddy check slope of temperature, degC/s"),
    number("TdrySmoothWL", "10", 10, kOutput, "final smoothing wavelength of temperature, seconds"),
    number("RHSmoothWL", "10", 10, kOutput, "final smoothing wavelength of RH, seconds"),
    number("RHQCWL", "20", 20, kOutput, "filter check smoothing wavelength of RH, seconds"),
    number("RHBuddySlope", "3", 3, kOutput, "buddy check slope of RH, %/s"),
    number("RHQCDev", "20", 20, kOutput, "filter check deviation limit of RH"),
    number("RHOutlier", "10", 10, kOutput, "outlier check threshold of RH, standard deviations"),
    flag("RHDisableOutlierCheck", "false", true, kPlain, "switch off the outlier check of RH"),
    number("RHOffset", "0", 0, kOutput, "offset added to RH, %"),
    flag("RHThreshold", "false", false, kOutput, "enable raw RH thresholding"),
    number("GPSPosBuddySlope", "0.005", 0.001, kOutput, "buddy check slope of GPS latitude and longitude, deg/s"),
    number("GPSPosQCWL", "30", 30, kOutput, "filter check wavelength of GPS latitude and longitude, seconds"),
    number("GPSPosQCDev", "0.01", 20, kOutput, "filter check deviation limit of GPS latitude and longitude"),
    number("GPSAltBuddySlope", "50", 50, kOutput, "buddy check slope of GPS altitude"),
    number("GPSAltQCWL", "10", 30, kOutput, "filter check wavelength of GPS altitude, seconds"),
    number("GPSAltQCDev", "50", 50, kOutput, "filter check deviation limit of GPS altitude"),
    number("BlendLength", "4", 4, kOutput,
           "interval of the blending of less smoothed near-surface dropsonde data, seconds"),
};

} // namespace

Rows winds() {
    return rowsOf(kWinds);
}

Rows thermodynamics() {
    return rowsOf(kThermodynamics);
}

} // namespace parameter_rows
