#pragma once

#include "SoundingFile.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// What the readers of column files have in common: a header whose lines come in a fixed order, each with a text that
/// it must contain, then one line for each record, of blank-separated words.
///
/// A header that ends early or lacks a text, a launch time that isn't told whole, or a file without a record is
/// invalid; there is no text for that. A word that isn't there is a missing value, a line without a time no record.
class ColumnFile : public SoundingFile {
protected:
    using SoundingFile::SoundingFile;

    /// A line of the header: what it must contain, and who takes something from it (null: nobody).
    template <typename File>
    struct HeaderLine {
        std::array<std::string_view, 2> required; // empty ones are contained in every line
        void (File::*take)(std::string_view line);
    };
    /// Takes the header and describes the file; false, and no description, when it isn't the header of this format.
    template <typename File, std::size_t N>
    bool takeHeader(const std::array<HeaderLine<File>, N>& header) {
        const bool taken = takeHeaderLines(header);
        if (!taken) {
            _descriptionText.clear();
        }
        return taken;
    }

    static constexpr double kNoLimit = 1e300;
    /// A word of a record (counted from 1), the series it goes to, and the launch field it goes to in the row of the
    /// launch observation (null: none). Missing is a sample above \p limit, and \p mark wherever it stands.
    struct Column {
        int word = 0;
        Series SoundingFile::*series = nullptr;
        double SoundingFile::*launch = nullptr;
        double limit = kNoLimit;
        double mark = kMissing;
    };
    struct Table {
        int timeWord;
        double timeMark; // a record of this time has none
        bool ahead;      // whether records of negative time count
        std::array<Column, 10> columns;
        std::array<Series SoundingFile::*, 2> absent; // -999.0 in every record; null: none
    };
    using Words = std::vector<std::string_view>;

    /// Takes all lines that are left.
    void takeRecords(const Table& table);
    void takeRecord(const Table& table, std::string_view line);
    /// False for a record whose word for the time is none; a text in its place is told.
    bool hasTime(std::string_view timeWord);
    /// Launch values aren't held to the limits.
    void takeLaunchRow(const Table& table, std::string_view line);
    /// Invalid without a record or without the whole of the launch time.
    void finish();

    static std::string_view wordOf(const Words& words, int word);
    static Words wordsOf(std::string_view line);
    /// What follows so many words, without the blanks around it.
    static std::string rest(std::string_view line, int words);
    /// "2021, 08, 01, 12:00:03" behind a label of four words.
    void takeLaunchTime(std::string_view line);
    /// "operator, comments", cut at the first \p separator; without one all of it is the operator.
    void takeOperatorAndComments(const std::string& text, char separator);

private:
    template <typename File, std::size_t N>
    bool takeHeaderLines(const std::array<HeaderLine<File>, N>& header);
};

template <typename File, std::size_t N>
bool ColumnFile::takeHeaderLines(const std::array<HeaderLine<File>, N>& header) {
    for (const HeaderLine<File>& expected : header) {
        if (!linesLeft()) {
            return false;
        }
        const std::string_view line = nextLine();
        for (const std::string_view text : expected.required) {
            if (line.find(text) == std::string_view::npos) {
                return false;
            }
        }
        if (expected.take != nullptr) {
            (static_cast<File*>(this)->*expected.take)(line);
        }
    }
    return true;
}
