#pragma once

#include "SoundingFile.h"

#include <map>

/// A reader without a file: a test fills in what a reader would have found.
class MadeSounding : public SoundingFile {
public:
    explicit MadeSounding(bool ascending) : SoundingFile("made", {"one line"}) {
        _ascending = ascending;
        _soundingType = ascending ? SoundingType::Unknown : SoundingType::Ombra;
    }

    using SoundingFile::_crcErrors;
    using SoundingFile::_launchAlt;
    using SoundingFile::_launchLat;
    using SoundingFile::_launchLon;
    using SoundingFile::_launchPres;
    using SoundingFile::_launchRH;
    using SoundingFile::_launchTdry;
    using SoundingFile::_launchWdir;
    using SoundingFile::_launchWspd;
    using SoundingFile::_soundingType;
    using SoundingFile::registerRHchan;

    /// One value at each time of \p data.
    static void fill(Series* series, const std::map<double, double>& data) {
        for (const auto& [time, value] : data) {
            series->appendValue(value, time);
        }
    }
};
