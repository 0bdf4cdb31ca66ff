#pragma once

#include "ConfigSet.h"
#include "SoundingFileFactory.h"

#include <cstdio>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

/// A store whose active set has the given name.
class NamedSetRegistry : public Registry {
public:
    explicit NamedSetRegistry(std::string name) : _name(std::move(name)) {}
    std::string getActive1SetName() const override { return _name; }

private:
    std::string _name;
};

inline std::unique_ptr<SoundingFile> readText(const std::string& text, const std::string& setName = "dropsonde",
                                              const std::string& fileName = "/data/D20210801_120003.1") {
    NamedSetRegistry registry(setName);
    ConfigSet config(&registry);
    std::istringstream stream(text);
    return SoundingFileFactory::newSoundingFile(config, fileName, &stream);
}

/// When the sounding began, "2021-08-01 12:00:03".
inline std::string startOf(const SoundingFile& file) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", file.year(), file.month(), file.day(),
                  file.hour(), file.min(), file.sec());
    return text;
}

/// Tracking, radiation correction, equipment and sonde of a message.
inline std::string codesOf(const SoundingFile& file) {
    return file.WMOtrackingType() + "|" + file.WMOradCorrection() + "|" + file.WMOequipType() + "|" +
           file.WMOsondeType();
}

/// Pressure, temperature, RH, wind from and speed, longitude, latitude, altitude and GPS altitude.
inline std::vector<double> launchOf(const SoundingFile& file) {
    return {file.launchPres(), file.launchTdry(), file.launchRH(),  file.launchWdir(),  file.launchWspd(),
            file.launchLon(),  file.launchLat(),  file.launchAlt(), file.launchGpsAlt()};
}

/// The values of one record in the order of their words; -999 for a quantity that the format hasn't got.
inline std::vector<double> recordOf(SoundingFile& file, int index = 0) {
    std::vector<double> values;
    for (const Series* series :
         {file.sPres(), file.sTdry(), file.sRh0(), file.sWdir(), file.sWspd(), file.sDz(), file.sLon(), file.sLat(),
          file.sAlt(), file.sSats(), file.sRh1(), file.sRh2(), file.sWe(), file.sGpsalt()}) {
        values.push_back(series->empty() ? -999.0 : series->data(index));
    }
    return values;
}
