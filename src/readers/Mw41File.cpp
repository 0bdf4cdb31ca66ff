#include "Mw41File.h"

#include "CutText.h"
#include "NumberText.h"
#include "PassThrough.h"
#include "Text.h"
#include "UtcTime.h"
#include "Words.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <variant>

namespace {

constexpr std::string_view kTimeColumn = "Elapsed time";
constexpr double kMark = 99999.0; // missing, for every quantity

double valueOf(std::string_view cell) {
    const double number = numberOrMissing(trimmed(cell));
    return number == kMark ? kMissing : number;
}

double positionOf(const std::string& value, char negative) {
    const double degrees = valueOf(value);
    return degrees != kMissing && value.back() == negative ? -std::abs(degrees) : degrees;
}

} // namespace

/// Who takes the value, and whether the pair stays as metadata as well.
struct Mw41File::Key {
    using Text = std::string SoundingFile::*;
    using Number = double SoundingFile::*;
    struct Position {
        double SoundingFile::*field;
        char negative; // the last character of a value that is negative
    };
    using Taker = void (Mw41File::*)(const std::string& value);

    std::string_view part; ///< of the key
    std::variant<Text, Number, Position, Taker> field;

    /// Numbers are consumed.
    bool isKept() const { return std::holds_alternative<Text>(field) || std::holds_alternative<Taker>(field); }
};

const Mw41File::Key* Mw41File::findKey(std::string_view key) {
    static constexpr std::array<Key, 16> kKeys{{
        {"Release point latitude", Key::Position{&Mw41File::_launchLat, 'S'}},
        {"Release point longitude", Key::Position{&Mw41File::_launchLon, 'W'}},
        {"Release point height from sea level", &Mw41File::_launchAlt},
        {"Balloon release date and time", &Mw41File::takeDateAndTime},
        {"Balloon release time", &Mw41File::takeTime},
        {"Balloon release date", &Mw41File::takeDate},
        {"Surface pressure", &Mw41File::_launchPres},
        {"Surface temperature", &Mw41File::_launchTdry},
        {"Surface relative humidity", &Mw41File::_launchRH},
        {"Surface humidity", &Mw41File::_launchRH},
        {"Surface wind speed", &Mw41File::_launchWspd},
        {"Surface wind direction", &Mw41File::_launchWdir},
        {"Sonde type", &Mw41File::_sondeModel},
        {"Sonde serial number", &Mw41File::takeSonde},
        {"Comments", &Mw41File::_comments},
        {"Station name", &Mw41File::takeStation},
    }};
    const auto found =
        std::find_if(kKeys.begin(), kKeys.end(), [&](const Key& candidate) { return contains(key, candidate.part); });
    return found == kKeys.end() ? nullptr : &*found;
}

struct Mw41File::Column {
    std::string_view name;
    Series SoundingFile::*series;
};

const Mw41File::Column* Mw41File::findColumn(std::string_view name) {
    static constexpr std::array<Column, 12> kColumns{{
        {kTimeColumn, &Mw41File::_sTime},
        {"HeightMSL", &Mw41File::_sAlt},
        {"P", &Mw41File::_sPres},
        {"Temp", &Mw41File::_sTdry},
        {"RH", &Mw41File::_sRh0},
        {"Dewp", &Mw41File::_sDp},
        {"Dir", &Mw41File::_sWdir},
        {"Speed", &Mw41File::_sWspd},
        {"GpsHeightMSL", &Mw41File::_sGpsalt},
        {"AscRate", &Mw41File::_sDz},
        {"Lat", &Mw41File::_sLat},
        {"Lon", &Mw41File::_sLon},
    }};
    const auto found =
        std::find_if(kColumns.begin(), kColumns.end(), [&](const Column& candidate) { return candidate.name == name; });
    return found == kColumns.end() ? nullptr : &*found;
}

Mw41File::Mw41File(std::string fileName, std::vector<std::string> mw41Lines, ConfigSet& config)
    : SoundingFile(std::move(fileName), std::move(mw41Lines)) {
    _soundingType = SoundingType::Mw41;
    if (forcePassThrough(config)) {
        _errorMsg += "- Vaisala MW41 files have already been QC checked and should not be reprocessed. Setting QC mode "
                     "to pass through.\n";
    }
    scanHeader();
    readData();
}

/// Ends behind the first empty line.
void Mw41File::scanHeader() {
    if (linesLeft()) {
        nextLine();
    }
    while (linesLeft()) {
        const std::string& line = nextLine();
        if (line.empty()) {
            return;
        }
        const std::vector<std::string> pair = tokenize(line, "\t\r\n");
        if (pair.size() == 2) {
            takePair(pair[0], pair[1]);
        }
    }
}

void Mw41File::takePair(const std::string& key, const std::string& value) {
    const Key* known = findKey(key);
    if (known != nullptr) {
        if (const auto* text = std::get_if<Key::Text>(&known->field)) {
            this->** text = value;
        } else if (const auto* number = std::get_if<Key::Number>(&known->field)) {
            this->** number = valueOf(value);
        } else if (const auto* position = std::get_if<Key::Position>(&known->field)) {
            this->*position->field = positionOf(value, position->negative);
        } else {
            (this->*std::get<Key::Taker>(known->field))(value);
        }
    }
    if (known == nullptr || known->isKept()) {
        keep(key, value);
    }
}

void Mw41File::takeDateAndTime(const std::string& value) {
    _launchObsTime = value;
    takeNumbers(value, "-T:", {&_year, &_month, &_day, &_hour, &_min, &_sec});
    makeTimeTag();
}

void Mw41File::takeTime(const std::string& value) {
    _timeText = value;
    takeNumbers(value, ":", {&_hour, &_min, &_sec});
    joinDateAndTime();
}

void Mw41File::takeDate(const std::string& value) {
    constexpr int kCentury = 2000;
    int year = 0;
    _dateText = value;
    takeNumbers(value, "/", {&_day, &_month, &year});
    _year = kCentury + std::clamp(year, -kCentury, kCentury);
    joinDateAndTime();
}

void Mw41File::joinDateAndTime() {
    _launchObsTime = trimBoth(_dateText + " " + _timeText);
    makeTimeTag();
}

/// Nothing for as long as one of date and time is still to come.
void Mw41File::makeTimeTag() {
    if (dated()) {
        _unixLaunchObsTime = utcSeconds(_year, _month, _day, _hour, _min, _sec);
    }
}

void Mw41File::takeSonde(const std::string& value) {
    _sondeId = value;
    _descriptionText += " " + value;
}

void Mw41File::takeStation(const std::string& value) {
    _siteId = value;
    _descriptionText += " " + value;
}

/// "Sonde serial number" is kept as SondeSerialNumber.
void Mw41File::keep(const std::string& key, const std::string& value) {
    std::string name;
    std::string_view words = key;
    for (std::string_view word = nextWord(words); !word.empty(); word = nextWord(words)) {
        name += static_cast<char>(std::toupper(static_cast<unsigned char>(word.front())));
        name += word.substr(1);
    }
    _mw41metadata.emplace_back(name, value);
}

void Mw41File::readData() {
    const std::vector<std::string> names = linesLeft() ? tokenize(nextLine(), ",\r\n") : std::vector<std::string>();
    const auto timeColumn = std::find(names.begin(), names.end(), kTimeColumn);
    if (timeColumn == names.end()) {
        _errorMsg += "- No elapsed time column found, so no usable data.\n";
        notValid();
        return;
    }
    const Columns columns = takeColumns(names);
    if (linesLeft()) {
        nextLine(); // the units
    }
    while (linesLeft()) {
        const std::vector<std::string> cells = tokenize(nextLine(), ",");
        if (cells.size() >= columns.size()) {
            takeRecord(cells, columns, static_cast<std::size_t>(timeColumn - names.begin()));
        }
    }
    _dataPoints = _sTime.lastIndex() + 1;
    if (_dataPoints < 1) {
        _errorMsg += kNoData;
        notValid();
    } else {
        checkLaunchTime();
    }
}

/// Of two columns of the same name the first one is kept.
Mw41File::Columns Mw41File::takeColumns(const std::vector<std::string>& names) {
    Columns columns;
    for (auto name = names.begin(); name != names.end(); ++name) {
        const Column* known = findColumn(*name);
        const bool again = std::find(names.begin(), name, *name) != name;
        if (known == nullptr && !again) {
            _errorMsg +=
                "- Tarvo does not recognize column: " + *name + ". The data from this column will not be ingested.\n";
        }
        columns.push_back(known == nullptr || again ? nullptr : &(this->*known->series));
    }
    return columns;
}

/// A record without a time has no place in the sounding.
void Mw41File::takeRecord(const std::vector<std::string>& cells, const Columns& columns, std::size_t timeColumn) {
    if (!beginsWithNumber(cells[timeColumn])) {
        warnOnce(kNoTime);
        return;
    }
    const double time = valueOf(cells[timeColumn]);
    if (time == kMissing) {
        return;
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i] != nullptr) {
            columns[i]->appendValue(valueOf(cells[i]), time);
        }
    }
}
