#pragma once

#include "SoundingFile.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What the readers of keyed D files have in common: frames of fixed words with a mark for each missing quantity, frame
/// times that are absolute until the launch is known, and the comment lines of their family.
class KeyedFile : public SoundingFile {
protected:
    /// \p absent is what a word counts as that a line is too short for.
    KeyedFile(std::string fileName, std::vector<std::string> lines, double absent)
        : SoundingFile(std::move(fileName), std::move(lines)), _absent(absent) {}

    /// One word of a data line, behind identifier, key word, sonde, date and time: the series it goes to, the launch
    /// field it goes to in the line of the launch observation (null: not kept), and the number that marks it missing.
    struct FrameColumn {
        Series SoundingFile::*series;
        double SoundingFile::*launch;
        double mark;
        double secondMark = kMissing;

        double valueOf(std::string_view word) const;
    };
    static constexpr int kWordsAheadOfColumns = 5;
    static constexpr std::size_t kShortFrame = 12;
    static constexpr std::size_t kLongFrame = 15;

    /// The columns of the family, words 6 to 20; older lines end with the twelfth. Systems differ in what marks a
    /// missing vertical speed beside 999, and in what they keep of the column ahead of the GPS altitude (null:
    /// nothing).
    static constexpr std::array<FrameColumn, kLongFrame> frameColumns(double secondDzMark,
                                                                      Series SoundingFile::*windError) {
        return {{
            {&KeyedFile::_sPres, &KeyedFile::_launchPres, 9999.0},
            {&KeyedFile::_sTdry, &KeyedFile::_launchTdry, 99.0},
            {&KeyedFile::_sRh0, &KeyedFile::_launchRH, 999.0},
            {&KeyedFile::_sWdir, &KeyedFile::_launchWdir, 999.0},
            {&KeyedFile::_sWspd, &KeyedFile::_launchWspd, 999.0},
            {&KeyedFile::_sDz, nullptr, 999.0, secondDzMark},
            {&KeyedFile::_sLon, &KeyedFile::_launchLon, 999.0},
            {&KeyedFile::_sLat, &KeyedFile::_launchLat, 99.0},
            {&KeyedFile::_sAlt, &KeyedFile::_launchAlt, 99999.0},
            {&KeyedFile::_sSats, nullptr, 99.0},
            {&KeyedFile::_sRh1, nullptr, 999.0},
            {&KeyedFile::_sRh2, nullptr, 999.0},
            {nullptr, nullptr, kMissing},
            {windError, nullptr, 99.0},
            {&KeyedFile::_sGpsalt, &KeyedFile::_launchGpsAlt, 99999.0},
        }};
    }

    /// Take one word for each column off \p words; a warning when there are fewer.
    void takeFrame(std::string_view& words, const FrameColumn* first, const FrameColumn* last, double time);
    void takeLaunchObs(std::string_view& words, const FrameColumn* first, const FrameColumn* last);

    /// Splits "source, time". False without a comma: all of it is the source then, and the time is left alone.
    bool takeLaunchObsSource(const std::string& value);
    void addComment(const std::string& comment);
    /// Splits "operator, comment".
    void takeNameAndComment(const std::string& value);
    /// Heads the description with the sonde identifier, once all lines are read.
    void describeSonde();

    /// Makes room for as many frames as there are lines.
    void reserveFrames();
    /// Makes the times relative: every time tag, and the data of sTime, become seconds from \p launch.
    void countFrom(double launch);

private:
    double _absent;
};
