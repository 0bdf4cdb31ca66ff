// The head of a message and of its parts: who, when and where.

#include "CodeText.h"
#include "UnLevels.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct LastWind {
    char id;
    int partA; // mb
    int partC;
};

constexpr int kNoSuchId = -1;

constexpr std::array<LastWind, 10> kLastWinds{{
    {'/', 9999, 9999},
    {'0', 1000, 0},
    {'1', 100, 10},
    {'2', 200, 20},
    {'3', 300, 30},
    {'4', 400, kNoSuchId},
    {'5', 500, 50},
    {'7', 700, 70},
    {'8', 800, kNoSuchId},
    {'9', 925, kNoSuchId},
}};

constexpr double kTenths = 10.0; // of a degree, as positions are coded

/// The BBB group of a header: a correction, an amendment or a delayed bulletin, with the letter of its turn.
bool isBBB(std::string_view token) {
    return token.size() == 3 && isLetter(token[2]) &&
           (beginsWith(token, "CC") || beginsWith(token, "AA") || beginsWith(token, "RR"));
}

} // namespace

void UnLevels::decodeAbrHdr() {
    constexpr std::size_t kGroups = 3;
    constexpr std::size_t kFirstGroup = 6; // characters
    std::size_t header = freeHeaderLength();
    if (header == 0 && _queue.size() >= kGroups && _queue.token().size() == kFirstGroup) {
        header = kGroups;
    }
    for (std::size_t i = 0; i < header; ++i) {
        _abrHeader.append(i == 0 ? "" : " ").append(_queue.token());
        _queue.drop();
    }
    if (_queue.size() >= 2 && _queue.token() == "COR") {
        _abrHeader += " COR";
        _queue.drop();
        if (!isMMMM(_queue.token())) {
            _abrHeader.append(" ").append(_queue.token());
            _queue.drop();
        }
    }
    if (isBBB(_queue.token())) {
        _abrHeader.append(" ").append(_queue.token());
        _queue.drop();
    }
}

/// A header need not have three groups: the place it comes from may be left out, and the operator may have put words of
/// his own in front of the time. So all in front of the first part is the header, as long as it is short and has a time
/// in it.
std::size_t UnLevels::freeHeaderLength() const {
    constexpr std::size_t kMostGroups = 6;
    constexpr std::size_t kTimeGroup = 6; // ddhhmm
    bool hasTime = false;
    for (std::size_t i = 0; i <= kMostGroups && i < _queue.size(); ++i) {
        const std::string_view token = _queue.token(i);
        if (isMMMM(token)) {
            return hasTime ? i : 0;
        }
        hasTime = hasTime || (token.size() == kTimeGroup && isAllDigits(token));
    }
    return 0;
}

void UnLevels::decodeMMMM() {
    const std::string_view token = _queue.token();
    if (token.size() != 4) {
        _queue.throwErrorMsg("WMO type and part identifier (MMMM) must be 4 characters.");
    }
    const WMO_MESSAGE_TYPE type = messageTypeOf(token);
    if (type == NO_MESSAGE) {
        _queue.throwErrorMsg("Message type identifier (TT, UU, XX or II) was not found.");
    }
    if (_messageType != NO_MESSAGE && _messageType != type) {
        _queue.throwErrorMsg("Two different WMO message types have been found in this message.");
    }
    _messageType = type;
    _part = partOf(token);
    if (_part == NO_PART) {
        _queue.throwErrorMsg("Part identifier AA, BB, CC or DD was not found.");
    }
    _readParts.push_back(_part);
    _queue.drop();
}

void UnLevels::takeIdentity(std::string& known, const std::string& told) const {
    if (!known.empty() && !told.empty() && known != told) {
        throwTwoSoundings();
    }
    known = told.empty() ? known : told;
}

void UnLevels::takeDegrees(double& known, double told) const {
    constexpr double kSamePlace = 1.0; // degrees; a ship goes on between the parts
    constexpr double kCircle = 360.0;
    if (known != kMissing && std::abs(std::remainder(told - known, kCircle)) > kSamePlace) {
        throwTwoSoundings();
    }
    known = known == kMissing ? told : known;
}

void UnLevels::throwTwoSoundings() const {
    _queue.throwErrorMsg("Two different soundings have been found in this message.");
}

void UnLevels::decodeSection1() {
    if (_messageType == TEMP_SHIP || _messageType == TEMP_MOBIL) {
        decodeCallSign();
    }
    decodeYYGGId_YYGGa4();
    if (_messageType == TEMP) {
        decodeBSN();
        return;
    }
    decodePosition();
    _queue.SKIP_TOKENS(1); // Marsden square
    if (_messageType == TEMP_MOBIL) {
        decodeMobileElev();
    }
}

/// One group; but a call sign may have been left empty, or be of several words, and the date group behind it is known
/// by the position that follows.
void UnLevels::decodeCallSign() {
    constexpr std::size_t kLookAhead = 5;
    std::size_t words = 1;
    for (std::size_t position = 1; position < kLookAhead; ++position) {
        if (beginsWith(_queue.token(position), "99")) {
            words = position - 1;
            break;
        }
    }
    _queue.NEED_TOKENS(words);
    std::string callSign;
    for (std::size_t i = 0; i < words; ++i) {
        callSign.append(i == 0 ? "" : " ").append(_queue.token(i));
    }
    takeIdentity(_callSign, callSign);
    _queue.SKIP_TOKENS(words);
}

void UnLevels::decodeBSN() {
    constexpr std::size_t kLength = 5;
    _bsnMissing = _bsnMissing || (_bsn.empty() && isBSNmissing());
    if (_bsnMissing) {
        return;
    }
    _queue.NEED_TOKENS(1);
    if (_queue.token().size() != kLength) {
        throw "Block and station number is incorrect: " + std::string(_queue.token());
    }
    takeIdentity(_bsn, std::string(_queue.token()));
    _queue.drop();
}

/// A station that has no number leaves the group out, and what the next section begins with stands in its place. Part D
/// gives no way to tell.
bool UnLevels::isBSNmissing() const {
    const auto begins = [this](std::size_t ahead, std::string_view start) {
        return beginsWith(_queue.token(ahead), start);
    };
    const auto beginsC = [&](std::size_t ahead) { return begins(ahead, "70") || begins(ahead, "88"); };
    const auto endsLevels = [&](std::size_t ahead) { return begins(ahead, "21212") || begins(ahead, "31313"); };
    switch (_part) {
    case PART_A:
        return begins(0, "99") && !begins(1, "99");
    case PART_B:
        // A temperature near freezing begins "00" as well, and then the level after it tells.
        return (begins(0, "00") && (!begins(1, "00") || begins(2, "11") || endsLevels(2))) ||
               (begins(0, "21212") && !begins(1, "00")) || (begins(0, "31313") && begins(2, "8"));
    case PART_C:
        return beginsC(0) && !beginsC(1);
    default:
        return false;
    }
}

void UnLevels::decodeYYGGId_YYGGa4() {
    constexpr int kKnotsMark = 50; // added to the day
    _queue.NEED_TOKENS(1);
    const std::string_view group = _queue.token();
    if (const auto day = numberAt(group, 0, 2)) {
        const bool knots = *day > kKnotsMark;
        _windsInKnots = _windsInKnots || knots;
        _dayOfMonth = knots ? *day - kKnotsMark : *day;
    }
    if (const auto hour = numberAt(group, 2, 2)) {
        _obsHour = *hour;
    }
    const std::string_view last = piece(group, 4, 1);
    if (isPartAorC()) {
        decodeId(last);
    } else if (_part == PART_D && last != "/") {
        _queue.throwErrorMsg("The last character in the third code group of Part D, section 1, should be /.");
    }
    _queue.drop();
}

void UnLevels::decodeId(std::string_view id) {
    const auto found = std::find_if(kLastWinds.begin(), kLastWinds.end(),
                                    [&](const LastWind& row) { return id == std::string_view(&row.id, 1); });
    const int lastWind = found == kLastWinds.end() ? kNoSuchId : _part == PART_A ? found->partA : found->partC;
    if (lastWind == kNoSuchId) {
        _queue.throwErrorMsg("The last wind indicator (Id) is incorrectly coded.");
    }
    (_part == PART_A ? _lastWindPartA : _lastWindPartC) = lastWind;
}

void UnLevels::decodePosition() {
    _queue.NEED_TOKENS(_messageType == TEMP_MOBIL ? 4 : 3);
    if (!beginsWith(_queue.token(), "99")) {
        _queue.throwErrorMsg("The position group must begin with 99.");
    }
    const auto lat = numberIn(piece(_queue.token(), 2));
    _queue.drop();

    const std::string_view group = _queue.token();
    const char quadrant = group.empty() ? ' ' : group[0];
    if (std::string_view("1357/").find(quadrant) == std::string_view::npos) {
        _queue.throwErrorMsg("The quadrant indicator must be 1, 3, 5, 7 or /.");
    }
    const bool south = quadrant == '3' || quadrant == '5';
    const bool west = quadrant == '5' || quadrant == '7';
    if (lat) {
        takeDegrees(_latitude, (south ? -*lat : *lat) / kTenths);
    }
    if (const auto lon = numberIn(piece(group, 1))) {
        takeDegrees(_longitude, (west ? -*lon : *lon) / kTenths);
    }
    _queue.drop();
}

void UnLevels::decodeMobileElev() {
    constexpr double kMetresPerFoot = 0.3048;
    constexpr int kLastInMetres = 4; // of the figure for unit and confidence
    _queue.NEED_TOKENS(1);
    const std::string_view group = _queue.token();
    const auto height = signedNumberIn(piece(group, 0, 4));
    const auto unit = numberAt(group, 4, 1);
    if (height) {
        _elevation = unit && *unit > kLastInMetres ? *height * kMetresPerFoot : *height;
    }
    _queue.drop();
}
