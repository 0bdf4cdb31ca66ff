#include "ParameterRows.h"

namespace parameter_rows {

namespace {

constexpr Parameter kProcessing[] = {
    flag("DiscardBadCrcData", "true", true, kOutput, "discard data frames with CRC errors"),
    flag("ReportObservedPos", "false", true, kOutput,
         "report the observed position instead of the position integrated from the winds"),
    number("DoQC", "1", 1, kOutput, "QC mode, see TarvoConfigSet::DOQC_CHOICES"),
    flag("descendingPELO", "false", false, kPlain, "enable detection and creation of a descending PELO sounding"),
    number("ChuteArea", "900", 676, kOutput, "dropsonde parachute cross-section area, cm^2"),
    flag("UseTheoryVentRate", "true", false, kOutput,
         "use the theoretical instead of the observed fall rate as sensor ventilation rate"),
    number("DragCoef", "0.61", 0.61, kOutput, "parachute coefficient of drag"),
    number("DropSondeMass", "320", 400, kOutput, "dropsonde mass, grams"),
    number("CabinTemp", "25", 25, kOutput,
           "temperature before launch, which drives the temperature equilibration, degC"),
    number("PosInterpSpan", "60", 60, kOutput,
           "maximum interval over which winds are interpolated for the position, seconds"),
    number("AltInterpSpan", "60", 60, kOutput, "maximum interval of the geopotential altitude interpolation, seconds"),
    number("RHchoice", "0", 0, kOutput, "RH channel: 0 the channel selected by the sonde, 1 channel 1, 2 channel 2"),
    text("QCDisclaimer", "", "", kImmediate | kOutput, "QC comment: disclaimer added to ZOR product files"),
    flag("IgnoreLaunchPres", "false", false, kImmediate | kOutput, "ignore the launch observation of pressure"),
    flag("IgnoreLaunchTdry", "false", false, kImmediate | kOutput, "ignore the launch observation of temperature"),
    flag("IgnoreLaunchRH", "false", false, kImmediate | kOutput, "ignore the launch observation of RH"),
    flag("IgnoreLaunchWspd", "false", false, kImmediate | kOutput, "ignore the launch observation of wind speed"),
    flag("IgnoreLaunchWdir", "false", false, kImmediate | kOutput, "ignore the launch observation of wind direction"),
    flag("IgnoreLaunchLat", "false", false, kImmediate | kOutput, "ignore the launch observation of latitude"),
    flag("IgnoreLaunchLon", "false", false, kImmediate | kOutput, "ignore the launch observation of longitude"),
    flag("IgnoreLaunchAlt", "false", false, kImmediate | kOutput, "ignore the launch observation of altitude"),
    flag("UseIgnoredLaunch", "true", true, kOutput,
         "use launch data in the geopotential height and equilibration time calculations even when ignored"),
};

constexpr Parameter kMetadata[] = {
    text("Agency", "", "", kPlain, "metadata override: agency which performed the sounding"),
    text("PlatformType", "", "", kPlain, "metadata override: platform or aircraft used"),
    text("PlatformId", "", "", kPlain, "metadata override: platform or aircraft identifier"),
    text("Project", "", "", kPlain, "metadata override: project or mission"),
    text("Flight", "", "", kPlain, "metadata override: flight or IOP"),
    text("DatasetDOI", "", "", kOutput, "metadata override: Digital Object Identifier of the dataset"),
};

constexpr Parameter kLevels[] = {
    flag("DoLevels", "true", true, kPlain, "enable levels generation"),
    number("TdryLevelDelta", "1", 1, kPlain, "significant level threshold of temperature, degC"),
    number("RHLevelDelta", "10", 10, kPlain, "significant level threshold of RH, %"),
    number("WspdLevelDelta", "10", 10, kPlain, "significant level threshold of wind speed, kts"),
    number("Wspd850LevelDelta", "2.5", 2.5, kPlain,
           "significant level threshold of wind speed for dropsondes below 850 mb, kts"),
    number("WdirLevelDelta", "10", 10, kPlain, "significant level threshold of wind direction, deg"),
    number("TropSmoothWL", "60", 60, kPlain, "temperature smoothing wavelength for tropopause detection, seconds"),
};

constexpr Parameter kPerSounding[] = {
    soundingFlag("SfcAltUnknown", false, "surface altitude is unknown (prevents upward altitude integration)"),
    soundingFlag("SetHtsMissing", false, "set all heights as missing"),
    soundingFlag("DropsondeHitSfc", true, "the dropsonde hit the surface (required for upward altitude integration)"),
    soundingNumber("TdryEquilTimeOverride", 0, "overrides the automatic temperature equilibration time, seconds"),
    soundingNumber("PresEquilTimeOverride", 0, "overrides the automatic pressure equilibration time, seconds"),
    soundingNumber("RHEquilTimeOverride", 0, "overrides the automatic RH equilibration time, seconds"),
    observationNumber("ObsNum", 99, "observation number of the message (Comm tab)"),
    onDemand("LaunchPresOverride", "value replacing the launch observation of pressure, mb"),
    onDemand("LaunchTdryOverride", "value replacing the launch observation of temperature, degC"),
    onDemand("LaunchRHOverride", "value replacing the launch observation of RH, %"),
    onDemand("LaunchWspdOverride", "value replacing the launch observation of wind speed, m/s"),
    onDemand("LaunchWdirOverride", "value replacing the launch observation of wind direction, deg"),
    onDemand("LaunchLatOverride", "value replacing the launch observation of latitude, deg"),
    onDemand("LaunchLonOverride", "value replacing the launch observation of longitude, deg"),
    onDemand("LaunchAltOverride", "value replacing the launch observation of altitude, m"),
    onDemand("SfcAltOverride", "surface altitude given by the user, m"),
    onDemand("SfcPresOverride", "surface pressure given by the user, mb"),
    onDemand("LastDataTimeOverride", "time after which data are ignored, seconds"),
    onDemand("SfcAltitude", "surface altitude that the sounding reports, for display and products, m"),
};

} // namespace

Rows processing() {
    return rowsOf(kProcessing);
}

Rows metadata() {
    return rowsOf(kMetadata);
}

Rows levels() {
    return rowsOf(kLevels);
}

Rows perSounding() {
    return rowsOf(kPerSounding);
}

} // namespace parameter_rows
