#include "CsvFile.h"

#include "NumberText.h"
#include "Text.h"
#include "Words.h"

#include <algorithm>
#include <array>
#include <variant>

namespace {

constexpr std::string_view kDataKeyword = "data,";

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    lowerize(lower);
    return lower;
}

bool isDataLine(std::string_view line) {
    return line.size() >= kDataKeyword.size() && lowerCase(line.substr(0, kDataKeyword.size())) == kDataKeyword;
}

/// Cuts at every comma, quoted or not; a comma at the end is followed by an empty token.
void cutAtCommas(std::string_view line, std::vector<std::string_view>& tokens) {
    tokens.clear();
    for (auto comma = line.find(','); comma != std::string_view::npos; comma = line.find(',')) {
        tokens.push_back(trimmed(line.substr(0, comma)));
        line.remove_prefix(comma + 1);
    }
    tokens.push_back(trimmed(line));
}

/// Without quotes and without what isn't ASCII text.
std::string plainText(std::string_view token) {
    constexpr unsigned char kLastAscii = 127;
    std::string text(token);
    text.erase(std::remove_if(text.begin(), text.end(),
                              [](char c) {
                                  const auto byte = static_cast<unsigned char>(c);
                                  return c == '"' || byte < ' ' || byte > kLastAscii;
                              }),
               text.end());
    return text;
}

} // namespace

struct CsvFile::Keyword {
    using Text = std::string SoundingFile::*;
    using Integer = int SoundingFile::*;
    using Number = double SoundingFile::*; // an empty value leaves it alone
    using Taker = void (CsvFile::*)(const std::string& value);

    std::string_view keyword;
    std::variant<Text, Integer, Number, Taker> field;
};

const CsvFile::Keyword* CsvFile::findKeyword(const std::string& keyword) {
    static constexpr std::array<Keyword, 35> kKeywords{{
        {"year", &CsvFile::_year},
        {"month", &CsvFile::_month},
        {"day", &CsvFile::_day},
        {"hour", &CsvFile::_hour},
        {"minute", &CsvFile::_min},
        {"second", &CsvFile::_sec},
        {"latitude", &CsvFile::_launchLat},
        {"longitude", &CsvFile::_launchLon},
        {"pressure", &CsvFile::_launchPres},
        {"temperature", &CsvFile::_launchTdry},
        {"rh", &CsvFile::_launchRH},
        {"speed", &CsvFile::_launchWspd},
        {"direction", &CsvFile::_launchWdir},
        {"altitude", &CsvFile::_launchAlt},
        {"gpsaltitude", &CsvFile::_launchGpsAlt},
        {"ascending", &CsvFile::takeAscending},
        {"comments", &CsvFile::_comments},
        {"datatype", &CsvFile::_dataType},
        {"equipmenttype", &CsvFile::_wmoEquipType},
        {"platformtype", &CsvFile::_platformType},
        {"platformid", &CsvFile::_platformId},
        {"project", &CsvFile::_project},
        {"flight", &CsvFile::_flight},
        {"ptuwindtimediff", &CsvFile::takePtuWindTimeDiff},
        {"radiationcorr", &CsvFile::_wmoRadCorrection},
        {"trackingtype", &CsvFile::_wmoTrackingType},
        {"sondeid", &CsvFile::_sondeId},
        {"sondetype", &CsvFile::takeSondeType},
        {"operator", &CsvFile::_sysOperator},
        {"soundingdescription", &CsvFile::_descriptionText},
        {"launchobssource", &CsvFile::_launchObsSource},
        {"launchobstime", &CsvFile::_launchObsTime},
        {"sondemodel", &CsvFile::_sondeModel},
        {"launchsite", &CsvFile::_siteId},
        {"thermosensor", &CsvFile::_thermoSensor},
    }};
    const auto found = std::find_if(kKeywords.begin(), kKeywords.end(),
                                    [&](const Keyword& candidate) { return candidate.keyword == keyword; });
    return found == kKeywords.end() ? nullptr : &*found;
}

struct CsvFile::Column {
    static constexpr int kNoRhChannel = -1;

    std::string_view name;
    Series SoundingFile::*series;
    int rhChannel = kNoRhChannel;
};

const CsvFile::Column* CsvFile::findColumn(const std::string& name) {
    static constexpr std::array<Column, 15> kColumns{{
        {"time", &CsvFile::_sTime},
        {"pressure", &CsvFile::_sPres},
        {"temperature", &CsvFile::_sTdry},
        {"rh", &CsvFile::_sRh0, 0},
        {"rh1", &CsvFile::_sRh1, 1},
        {"rh2", &CsvFile::_sRh2},
        {"speed", &CsvFile::_sWspd},
        {"direction", &CsvFile::_sWdir},
        {"latitude", &CsvFile::_sLat},
        {"longitude", &CsvFile::_sLon},
        {"altitude", &CsvFile::_sAlt},
        {"ascent", &CsvFile::_sDz},
        {"sats", &CsvFile::_sSats},
        {"gpsalt", &CsvFile::_sGpsalt},
        {"gps altitude", &CsvFile::_sGpsalt}, // as the CSV product heads it
    }};
    const auto found =
        std::find_if(kColumns.begin(), kColumns.end(), [&](const Column& candidate) { return candidate.name == name; });
    return found == kColumns.end() ? nullptr : &*found;
}

CsvFile::CsvFile(std::string fileName, std::vector<std::string> csvLines)
    : SoundingFile(std::move(fileName), std::move(csvLines)) {
    readLines();
    _dataPoints = _sTime.lastIndex() + 1;
    if (dated() && _dataPoints > 0) {
        valid();
        checkLaunchTime();
    } else {
        notValid();
    }
    fillEmptySeries();
}

void CsvFile::readLines() {
    Tokens tokens;
    while (linesLeft()) {
        const std::string_view line = trimmed(nextLine());
        cutAtCommas(line, tokens);
        if (isDataLine(line)) {
            takeData(tokens);
        } else if (tokens.size() > 1) {
            takeParameter(tokens);
        }
    }
}

/// A data line has a token behind its keyword, so one that fits has a column as well.
void CsvFile::takeData(const Tokens& tokens) {
    if (tokens.size() != _columns.size() + 1) {
        return;
    }
    const double time = beginsWithNumber(tokens[1]) ? numberOf(tokens[1]) : kMissing;
    if (time == kMissing) {
        warnOnce(kNoTime);
    }
    for (std::size_t i = 0; i < _columns.size(); ++i) {
        if (_columns[i] != nullptr) {
            _columns[i]->appendValue(numberOrMissing(tokens[i + 1]), time);
        }
    }
}

void CsvFile::takeParameter(const Tokens& tokens) {
    const std::string keyword = lowerCase(plainText(tokens[0]));
    if (keyword == "fields") {
        takeFields(tokens);
        return;
    }
    const Keyword* known = findKeyword(keyword);
    if (known == nullptr) {
        return;
    }
    const std::string value = plainText(tokens[1]);
    if (const auto* text = std::get_if<Keyword::Text>(&known->field)) {
        this->** text = value;
    } else if (const auto* integer = std::get_if<Keyword::Integer>(&known->field)) {
        this->** integer = integerOf(value);
    } else if (const auto* taker = std::get_if<Keyword::Taker>(&known->field)) {
        (this->**taker)(value);
    } else if (!value.empty()) {
        this->*std::get<Keyword::Number>(known->field) = numberOf(value);
    }
}

void CsvFile::takeFields(const Tokens& tokens) {
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        const Column* column = findColumn(lowerCase(tokens[i]));
        _columns.push_back(column == nullptr ? nullptr : &(this->*column->series));
        if (column != nullptr && column->rhChannel != Column::kNoRhChannel) {
            registerRHchan(column->rhChannel);
        }
    }
}

void CsvFile::takeAscending(const std::string& value) {
    _ascending = lowerCase(value) != "false";
    _soundingType = _ascending ? SoundingType::Unknown : SoundingType::Ombra;
}

void CsvFile::takePtuWindTimeDiff(const std::string& value) {
    _ptuWindTimeDiff = numberOf(value);
}

/// Code figures of a message, one to three digits or "//". Other systems have the name of the sonde under the keyword.
void CsvFile::takeSondeType(const std::string& value) {
    constexpr std::size_t kMostDigits = 3;
    const bool number =
        !value.empty() && value.size() <= kMostDigits && value.find_first_not_of("0123456789") == std::string::npos;
    if (number || value == "//") {
        _wmoSondeType = value;
    }
}

/// Every quantity that readers of a sounding ask for gets one entry for each record.
void CsvFile::fillEmptySeries() {
    for (Series* series : {&_sDz, &_sPres, &_sSats, &_sTdry, &_sRh0, &_sRh1, &_sRh2, &_sWdir, &_sWspd, &_sAlt,
                           &_sGpsalt, &_sLat, &_sLon}) {
        if (series->empty()) {
            for (const Value& record : _sTime) {
                series->appendValue(kMissing, record.time());
            }
        }
    }
}
