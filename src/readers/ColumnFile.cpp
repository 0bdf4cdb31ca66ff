#include "ColumnFile.h"

#include "CutText.h"
#include "NumberText.h"
#include "Text.h"
#include "Words.h"

ColumnFile::Words ColumnFile::wordsOf(std::string_view line) {
    Words words;
    for (std::string_view word = nextWord(line); !word.empty(); word = nextWord(line)) {
        words.push_back(word);
    }
    return words;
}

std::string_view ColumnFile::wordOf(const Words& words, int word) {
    const auto index = static_cast<std::size_t>(word - 1);
    return index < words.size() ? words[index] : std::string_view();
}

std::string ColumnFile::rest(std::string_view line, int words) {
    skipWords(line, words);
    return std::string(trimmed(line));
}

void ColumnFile::takeLaunchTime(std::string_view line) {
    skipWords(line, 4);
    for (int* field : {&_year, &_month, &_day}) {
        *field = integerOf(nextWord(line));
    }
    takeNumbers(std::string(nextWord(line)), ":", {&_hour, &_min, &_sec});
}

void ColumnFile::takeOperatorAndComments(const std::string& text, char separator) {
    const auto at = text.find(separator);
    _sysOperator = trimBoth(text.substr(0, at));
    if (at != std::string::npos) {
        _comments = trimBoth(text.substr(at + 1));
    }
}

void ColumnFile::takeRecords(const Table& table) {
    while (linesLeft()) {
        takeRecord(table, nextLine());
    }
}

bool ColumnFile::hasTime(std::string_view timeWord) {
    const bool isText = !timeWord.empty() && !beginsWithNumber(timeWord);
    if (isText) {
        warnOnce(kNoTime);
    }
    return !isText && !timeWord.empty();
}

void ColumnFile::takeRecord(const Table& table, std::string_view line) {
    const Words words = wordsOf(line);
    const std::string_view timeWord = wordOf(words, table.timeWord);
    if (!hasTime(timeWord)) {
        return;
    }
    const double time = numberOf(timeWord);
    if (time == table.timeMark || (time < 0.0 && !table.ahead)) {
        return;
    }
    _sTime.appendValue(time, time);
    for (const Column& column : table.columns) {
        if (column.series != nullptr) {
            const double number = numberOrMissing(wordOf(words, column.word));
            const bool missing = number > column.limit || number == column.mark;
            (this->*column.series).appendValue(missing ? kMissing : number, time);
        }
    }
    for (Series SoundingFile::*series : table.absent) {
        if (series != nullptr) {
            (this->*series).appendValue(kMissing, time);
        }
    }
    ++_dataPoints;
}

void ColumnFile::takeLaunchRow(const Table& table, std::string_view line) {
    const Words words = wordsOf(line);
    for (const Column& column : table.columns) {
        if (column.launch != nullptr) {
            const double number = numberOrMissing(wordOf(words, column.word));
            this->*column.launch = number == column.mark ? kMissing : number;
        }
    }
}

void ColumnFile::finish() {
    if (_dataPoints == 0 || !dated()) {
        notValid();
    } else {
        checkLaunchTime();
    }
}
