#pragma once

#include "SoundingFile.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// What the readers of keyed D files have in common: frames of fixed words with a mark for each missing quantity, frame
/// times that are absolute until the launch is known, and the comment lines of their family.
class KeyedFile : public SoundingFile {
protected:
    using SoundingFile::SoundingFile;

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

    /// Take one word for each column off \p words. Words that aren't there count as 0.0.
    void takeFrame(std::string_view& words, const FrameColumn* first, const FrameColumn* last, double time);
    void takeLaunchObs(std::string_view& words, const FrameColumn* first, const FrameColumn* last);

    /// Splits "source, time". False without a comma: all of it is the source then, and the time is left alone.
    bool takeLaunchObsSource(const std::string& value);
    void addComment(const std::string& comment);
    /// Heads the description with the sonde identifier, once all lines are read.
    void describeSonde();

    /// Makes room for as many frames as there are lines.
    void reserveFrames();
    /// The series that carry data, all of one length.
    std::vector<Series*> frameSeries();
    /// Makes the times relative: every time tag, and the data of sTime, become seconds from \p launch.
    void countFrom(double launch);

private:
    std::array<Series*, 15> allFrameSeries();
};
