#include "KeyedFile.h"

#include "CommaParts.h"
#include "NumberText.h"
#include "Text.h"
#include "Words.h"

double KeyedFile::FrameColumn::valueOf(std::string_view word) const {
    const double number = numberOf(word);
    return number == mark || number == secondMark ? kMissing : number;
}

void KeyedFile::takeFrame(std::string_view& words, const FrameColumn* first, const FrameColumn* last, double time) {
    bool complete = true;
    for (const FrameColumn* column = first; column != last; ++column) {
        const std::string_view word = nextWord(words);
        complete = complete && !word.empty();
        if (column->series != nullptr) {
            (this->*column->series).appendValue(word.empty() ? _absent : column->valueOf(word), time);
        }
    }
    if (!complete) {
        warnOnce(kValuesMissing);
    }
}

void KeyedFile::takeLaunchObs(std::string_view& words, const FrameColumn* first, const FrameColumn* last) {
    bool complete = true;
    for (const FrameColumn* column = first; column != last; ++column) {
        const std::string_view word = nextWord(words);
        complete = complete && !word.empty();
        if (column->launch != nullptr) {
            this->*column->launch = word.empty() ? _absent : column->valueOf(word);
        }
    }
    if (!complete) {
        warnOnce(kValuesMissing);
    }
}

bool KeyedFile::takeLaunchObsSource(const std::string& value) {
    const auto comma = value.find(',');
    _launchObsSource = value.substr(0, comma);
    if (comma == std::string::npos) {
        return false;
    }
    _launchObsTime = trimLeft(value.substr(comma + 1));
    return true;
}

void KeyedFile::addComment(const std::string& comment) {
    _comments += _comments.empty() ? comment : ", " + comment;
}

void KeyedFile::takeNameAndComment(const std::string& value) {
    takeCommaPart(value, 0, _sysOperator);
    if (const auto comment = commaPart(value, 1)) {
        addComment(*comment);
    }
}

void KeyedFile::describeSonde() {
    _descriptionText = _sondeId + " " + trimBoth(_descriptionText);
}

void KeyedFile::reserveFrames() {
    for (Series* series : {&_sTime, &_sPres, &_sTdry, &_sRh0, &_sRh1, &_sRh2, &_sWdir, &_sWspd, &_sDz, &_sLon, &_sLat,
                           &_sAlt, &_sGpsalt, &_sSats, &_sWe}) {
        series->reserve(lines().size());
    }
}

void KeyedFile::countFrom(double launch) {
    for (Series* series : recordSeries()) {
        for (int i = 0; i <= series->lastIndex(); ++i) {
            series->setTime(i, series->time(i) - launch);
        }
    }
    for (int i = 0; i <= _sTime.lastIndex(); ++i) {
        _sTime.setData(i, _sTime.time(i));
    }
}
