#pragma once

#include "KeyedFile.h"
#include "Words.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// What the readers of upsondes with keyed lines have in common: a launch line, a line of the launch observation, and a
/// line for each record, whose times count from the launch line.
///
/// Invalid, with a text for each: no launch line, a launch date or time that is none, no data. A record whose date or
/// time is none is left out, what is absent at the end of one is missing; each is told of once, with its first line.
class KeyedUpsondeFile : public KeyedFile {
protected:
    /// \p frameWords: how many words a line has behind its time, see frameColumns().
    KeyedUpsondeFile(std::string fileName, std::vector<std::string> lines, std::size_t frameWords)
        : KeyedFile(std::move(fileName), std::move(lines), kMissing), _frameWords(frameWords) {}

    /// Who takes the lines of one type, and how many words are dropped ahead of the value.
    template <typename Reader, typename Line>
    struct Taker {
        Line type;
        int labelWords;
        void (Reader::*take)(const std::string& value);
    };
    static constexpr int kWholeLine = 0;

    /// Takes all lines; one of a type that nobody takes is passed over.
    template <typename Reader, typename Line, std::size_t N>
    void takeLines(Reader& reader, Line (*typeOf)(std::string_view), const std::array<Taker<Reader, Line>, N>& takers) {
        reserveFrames();
        while (linesLeft()) {
            const std::string& line = nextLine();
            const Line type = typeOf(line);
            for (const Taker<Reader, Line>& taker : takers) {
                if (taker.type == type) {
                    std::string_view value = line;
                    skipWords(value, taker.labelWords);
                    (reader.*taker.take)(std::string(trimmed(value)));
                }
            }
        }
    }

    void takeAircraftLine(const std::string& line);
    void takeLaunchLine(const std::string& line);
    void takeRecord(const std::string& line);
    void takePrelaunchObs(const std::string& value);

    /// The warning of records ahead of the launch line, given once.
    void tellDataAheadOfLaunch();
    bool launchLineFound() const { return _launchLineFound; }
    /// The first record of a file without a sonde so far. A system may take it for the launch.
    virtual void takeUnknownSonde(const std::string& line);
    /// The launch that words 3 to 5 of \p line tell: sonde, date and time.
    void setLaunch(std::string_view line);

    /// Once all lines are read: description, times from the launch, and whether there was one.
    void settleLaunch();
    /// The last of all: the codes of messages, the kind of sounding, and whether there are data.
    void conclude(SoundingType type, const char* platform);

private:
    std::size_t _frameWords;
    double _launchTag = 0.0; // s since 1970
    bool _launchInRange = true;
    bool _launchLineFound = false;
};
