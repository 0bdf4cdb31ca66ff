// The remarks behind the levels: positions and winds in words and figures.

#include "CodeText.h"
#include "UnLevels.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace {

constexpr std::string_view kRemarks = "62626";
constexpr std::size_t kWindGroup = 5; // characters
constexpr double kHundredMb = 100.0;
constexpr double kThousandMb = 1000.0;

double fractionalDegrees(std::string_view hundredths) {
    constexpr double kHundredths = 100.0;
    return numberIn(hundredths).value_or(0) / kHundredths;
}

/// Takes the digits at the start of \p text off it.
std::string_view takeDigits(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

/// The same for one letter.
std::string_view takeLetter(std::string_view& text) {
    const std::string_view letter = text.substr(0, !text.empty() && isLetter(text[0]) ? 1 : 0);
    text.remove_prefix(letter.size());
    return letter;
}

std::optional<double> layerPressure(std::string_view digits) {
    const auto pres = numberIn(digits);
    return pres ? std::optional<double>(*pres < kHundredMb ? *pres + kThousandMb : *pres) : std::nullopt;
}

} // namespace

/// A word that opens a remark, the word that must follow it (a number when there is none), and who reads it.
struct UnLevels::Remark {
    std::string_view word;
    std::string_view next;
    void (UnLevels::*decode)();
};

const UnLevels::Remark* UnLevels::findRemark(std::string_view word) {
    static constexpr std::array<Remark, 12> kKnown{{
        {"WL", "", &UnLevels::decodeWL},
        {"REL", "", &UnLevels::decodeRELSPGSPL},
        {"SPG", "", &UnLevels::decodeRELSPGSPL},
        {"SPL", "", &UnLevels::decodeRELSPGSPL},
        {"AEV", "", &UnLevels::decodeAEV},
        {"WL150", "", &UnLevels::decodeWL150},
        {"DLM", "WND", &UnLevels::decodeDLMWND},
        {"MBL", "WND", &UnLevels::decodeMBLWND},
        {"LST", "WND", &UnLevels::decodeLSTWND},
        {"LAST", "REPORT", &UnLevels::decodeLAST},
        {"EYE", "", &UnLevels::decodeEYE},
        {"EYEWALL", "", &UnLevels::decodeEYEWALL},
    }};
    const auto found =
        std::find_if(kKnown.begin(), kKnown.end(), [&](const Remark& remark) { return remark.word == word; });
    return found == kKnown.end() ? nullptr : &*found;
}

void UnLevels::decodeSection10() {
    while (!_queue.empty() && !endsPart()) {
        _queue.joinCutWord([](std::string_view word) { return word == kRemarks; });
        if (_queue.token() == kRemarks) {
            decode62626();
        } else {
            _queue.drop();
        }
    }
}

void UnLevels::decode62626() {
    _queue.drop();
    while (!_queue.empty() && !endsPart()) {
        _queue.joinCutWord([](std::string_view word) { return findRemark(word) != nullptr; });
        const Remark* remark = findRemark(_queue.token());
        if (remark != nullptr && !isHalfWord(*remark)) {
            (this->*remark->decode)();
        } else {
            _queue.drop();
        }
    }
}

/// Whether the front only looks like \p remark: a line break has cut it off a longer word, as "REL" off "RELEASED".
bool UnLevels::isHalfWord(const Remark& remark) const {
    const std::string_view rest = _queue.token(1);
    return _queue.mayContinue() && isLetter(rest[0]) && (remark.next.empty() || !beginsWith(remark.next, rest));
}

/// Takes \p word, which may be cut in two.
void UnLevels::takeWord(std::string_view word, const char* error) {
    _queue.joinCutWord([&](std::string_view joined) { return joined == word; });
    if (_queue.token() != word) {
        _queue.throwErrorMsg(error);
    }
    _queue.drop();
}

void UnLevels::decodeWL() {
    _queue.NEED_TOKEN_OF_LENGTH(5);
    decodeWL150();
}

/// A splash whose time isn't known is coded without one: the next remark, the next part or nothing stands in its place.
void UnLevels::decodeRELSPGSPL() {
    constexpr std::size_t kPosition = 11;
    constexpr std::size_t kToTheSecond = 6;
    constexpr std::size_t kToTheMinute = 4;
    const std::string_view word = _queue.token();
    _queue.NEED_TOKENS(word == "SPL" ? 2 : 3);
    Level level(word == "REL" ? RELEASEPOINT : word == "SPG" ? SPLASHPOINTRAWGPS : SPLASHPOINTWINDINTEG);
    _queue.drop();
    _queue.NEED_TOKEN_OF_LENGTH(kPosition);
    decodeRelSpgSplLatLon(_queue.token(), level);
    _queue.drop();
    const bool isRemark = !_queue.empty() && std::isalpha(static_cast<unsigned char>(_queue.token().front())) != 0;
    if (!_queue.empty() && !endsPart() && !(word == "SPL" && isRemark)) {
        _queue.NEED_TOKEN_OF_LENGTH(level.type() == SPLASHPOINTWINDINTEG ? kToTheMinute : kToTheSecond);
        if (const auto clock = numberIn(_queue.token())) {
            level[CLOCK] = *clock;
        }
        _queue.drop();
    }
    addFirst(level);
}

void UnLevels::decodeRelSpgSplLatLon(std::string_view text, Level& level) const {
    const std::string_view latDigits = takeDigits(text);
    const std::string_view latLetter = takeLetter(text);
    const std::string_view lonDigits = takeDigits(text);
    const std::string_view lonLetter = takeLetter(text);
    const bool incomplete = latDigits.empty() || latLetter.empty() || lonDigits.empty() || lonLetter.empty();
    const bool northSouth = latLetter == "N" || latLetter == "S";
    const bool eastWest = lonLetter == "E" || lonLetter == "W";
    if (incomplete || (!northSouth && !eastWest)) {
        _queue.throwErrorMsg("REL and SPG position must be coded as 3233N06956W.");
    }
    level[LAT] = fractionalDegrees(latDigits) * (latLetter == "N" ? 1.0 : -1.0);
    level[LON] = fractionalDegrees(lonDigits) * (lonLetter == "E" ? 1.0 : -1.0);
}

/// Version 10 of the program or a later one takes more than the five characters.
void UnLevels::decodeAEV() {
    constexpr std::size_t kLength = 5;
    const auto isVersion = [](std::string_view digits) { return isAllDigits(digits) && digits.size() >= kLength; };
    _queue.drop();
    _queue.joinCutWord(isVersion);
    if (!isVersion(_queue.token())) {
        _queue.NEED_TOKEN_OF_LENGTH(kLength);
    }
    _queue.drop();
}

void UnLevels::decodeWL150() {
    _queue.NEED_TOKENS(3);
    _queue.drop();
    _queue.NEED_TOKEN_OF_LENGTH(kWindGroup);
    Level level(LAYER150M);
    decodeDDFFF(level);
    const bool hasWind = !level.empty();
    if (const auto height = takeRemarkHeight()) {
        level[HEIGHT] = *height;
    }
    if (hasWind) {
        addFirst(level);
    }
}

void UnLevels::decodeDLMWND() {
    _queue.NEED_TOKENS(4);
    _queue.drop();
    takeWord("WND", "DLM must be followed by WND.");
    _queue.NEED_TOKEN_OF_LENGTH(kWindGroup);
    Level level(DEEPLAYER);
    decodeDDFFF(level);
    _queue.NEED_TOKEN_OF_LENGTH(6);
    if (const auto bottom = layerPressure(piece(_queue.token(), 0, 3))) {
        level[PRES] = *bottom;
    }
    if (const auto top = layerPressure(piece(_queue.token(), 3))) {
        level[PRES2] = *top;
    }
    _queue.drop();
    addFirst(level);
}

void UnLevels::decodeMBLWND() {
    _queue.NEED_TOKENS(3);
    _queue.drop();
    takeWord("WND", "MBL must be followed by WND.");
    _queue.NEED_TOKEN_OF_LENGTH(kWindGroup);
    Level level(MEANBLWIND);
    decodeDDFFF(level);
    addFirst(level);
}

void UnLevels::decodeLSTWND() {
    _queue.NEED_TOKENS(3);
    _queue.drop();
    takeWord("WND", "LST must be followed by WND.");
    Level level(LASTWINDHEIGHT);
    if (const auto height = takeRemarkHeight()) {
        level[HEIGHT] = *height;
    }
    addFirst(level);
}

/// Three digits as a rule; but a height has a sign below the sea, and more digits from 1000 m up.
std::optional<int> UnLevels::takeRemarkHeight() {
    constexpr std::size_t kUsual = 3;
    const auto isSigned = [this] { return signedNumberIn(_queue.token()).has_value(); };
    const auto isSign = [this] { return _queue.token() == "-" || _queue.token() == "+"; };
    const bool digitsFollow = isAllDigits(_queue.token(1));
    const bool makesUsual = _queue.token().size() + _queue.token(1).size() == kUsual;
    if (digitsFollow &&
        ((_queue.mayContinue() && (isSigned() || isSign())) || (_queue.token().size() < kUsual && makesUsual))) {
        _queue.joinFirstTwo();
    }
    if (!isSigned()) {
        _queue.NEED_TOKEN_OF_LENGTH(kUsual);
    }
    const auto height = signedNumberIn(_queue.token());
    _queue.drop();
    return height;
}

void UnLevels::decodeLAST() {
    constexpr std::string_view kReport = "REPORT";
    _queue.drop();
    if (std::string(_queue.token()).append(_queue.token(1)) == kReport && _queue.size() > 1) {
        _queue.joinFirstTwo();
    }
    if (_queue.token() != kReport) {
        throw "LAST must be followed by REPORT. Error detected near " + _queue.whereAreWe(6) + " ...";
    }
    _queue.drop();
}

void UnLevels::decodeEYE() {
    _queue.drop();
}

/// With the sector of the eye wall.
void UnLevels::decodeEYEWALL() {
    _queue.drop();
    if (!endsPart()) {
        _queue.drop();
    }
}
