#pragma once

#include <array>

/// One quantity of the Main tab: its widgets by name, and the items of the configuration that it writes.
struct MainViewRow {
    const char* labelName; ///< null for an unnamed one
    const char* label;
    const char* overrideLabel; ///< null where one label serves the whole row
    const char* reportedName;
    const char* ignoreName; ///< null without a box
    const char* overrideName;
    const char* clearName;
    const char* quoted; ///< in the tool tips
    const char* overrideItem;
    const char* ignoreItem; ///< null without a box
};

// The mnemonics keep clear of those of the menus and of the tabs.
constexpr std::array<MainViewRow, 9> kLaunchRows{{
    {nullptr, "&End of Drop Time (s)", nullptr, "_endTime", nullptr, "_overrideEndTime", "_clearEndTimeOverride",
     "End of Drop Time", "LastDataTimeOverride", nullptr},
    {nullptr, "&Pressure (mb)", nullptr, "_pres", "_ignorePres", "_overridePres", "_clearPresOverride",
     "Launch Pressure", "LaunchPresOverride", "IgnoreLaunchPres"},
    {nullptr, "Temperat&ure (deg C)", nullptr, "_tdry", "_ignoreTdry", "_overrideTdry", "_clearTdryOverride",
     "Launch Temperature", "LaunchTdryOverride", "IgnoreLaunchTdry"},
    {nullptr, "RH (&%)", nullptr, "_rh", "_ignoreRh", "_overrideRh", "_clearRhOverride", "Launch Relative Humidity",
     "LaunchRHOverride", "IgnoreLaunchRH"},
    {nullptr, "Wi&nd Speed (m/s)", nullptr, "_wspd", "_ignoreWspd", "_overrideWspd", "_clearWspdOverride",
     "Launch Wind Speed", "LaunchWspdOverride", "IgnoreLaunchWspd"},
    {nullptr, "Wind &Direction (deg)", nullptr, "_wdir", "_ignoreWdir", "_overrideWdir", "_clearWdirOverride",
     "Launch Wind Direction", "LaunchWdirOverride", "IgnoreLaunchWdir"},
    {nullptr, "Lat&itude (deg)", nullptr, "_lat", "_ignoreLat", "_overrideLat", "_clearLatOverride", "Launch Latitude",
     "LaunchLatOverride", "IgnoreLaunchLat"},
    {nullptr, "L&ongitude (deg)", nullptr, "_lon", "_ignoreLon", "_overrideLon", "_clearLonOverride",
     "Launch Longitude", "LaunchLonOverride", "IgnoreLaunchLon"},
    {"_mainLabel_alt", "&Altitude (m)", nullptr, "_alt", "_ignoreAlt", "_overrideAlt", "_clearAltOverride",
     "Launch Altitude", "LaunchAltOverride", "IgnoreLaunchAlt"},
}};

constexpr std::array<MainViewRow, 2> kSurfaceRows{{
    {nullptr, "Extrapolated\nPres (mb)", "Override\nReported Pres (m&b)", "_dropSfcPres", nullptr, "_overrideSfcPres",
     "_clearSfcPresOverride", "Surface Pressure", "SfcPresOverride", nullptr},
    {nullptr, "Surface\nAlt (m)", "Override Alt for\nUp-Inte&gration (m)", "_dropSfcAlt", nullptr, "_overrideSfcAlt",
     "_clearSfcAltOverride", "Surface Altitude", "SfcAltOverride", nullptr},
}};
