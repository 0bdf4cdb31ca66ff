// Parts A and C: the surface and the standard levels, tropopauses, maximum winds; and the groups of all sections.

#include "CodeText.h"
#include "UnLevels.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::string_view kSurface = "99";
constexpr std::string_view kTropopauseStart = "88";
constexpr std::string_view kNoMaxWind = "77999";
constexpr double kMetresPerSecond = 0.5144; // in a knot; not quite the inverse of kKnotsPerMetrePerSecond
constexpr double kHundredMb = 100.0;
constexpr double kThousandMb = 1000.0;
constexpr double kTenths = 10.0;
constexpr double kTens = 10.0; // m, as heights above 500 mb are coded

/// How the three digits of a height become metres.
struct HeightRule {
    char part;
    std::string_view indicator;
    double factor;
    double added;       // m
    double addedToHigh; // m, instead, when the digits are above 500
};

constexpr int kHigh = 500;

constexpr std::array<HeightRule, 19> kHeightRules{{
    {'A', "85", 1.0, 1000.0, 1000.0},     {'A', "70", 1.0, 3000.0, 2000.0},     {'A', "50", kTens, 0.0, 0.0},
    {'A', "40", kTens, 0.0, 0.0},         {'A', "30", kTens, 10000.0, 0.0},     {'A', "25", kTens, 10000.0, 0.0},
    {'A', "20", kTens, 10000.0, 10000.0}, {'A', "15", kTens, 10000.0, 10000.0}, {'A', "10", kTens, 10000.0, 10000.0},
    {'C', "70", kTens, 10000.0, 10000.0}, {'C', "50", kTens, 20000.0, 10000.0}, {'C', "30", kTens, 20000.0, 20000.0},
    {'C', "20", kTens, 20000.0, 20000.0}, {'C', "10", kTens, 30000.0, 20000.0}, {'C', "07", kTens, 30000.0, 30000.0},
    {'C', "05", kTens, 30000.0, 30000.0}, {'C', "03", kTens, 40000.0, 30000.0}, {'C', "02", kTens, 40000.0, 30000.0},
    {'C', "01", kTens, 50000.0, 40000.0},
}};

constexpr std::size_t kFirstHighLevel = 5; // in part C, 7 mb
constexpr int kWindsToTheTop = 10;         // mb, of an Id that stands for winds up to 10 mb or higher

bool beginsMaxWind(std::string_view group) {
    return beginsWith(group, "77") || beginsWith(group, "66");
}

constexpr int kHalfScale = 50; // the code of 5.0 degrees; above it the depression is in degrees, 50 added

bool isUnusedDepression(std::optional<int> code) {
    constexpr int kLastUnused = 55;
    return code && *code > kHalfScale && *code <= kLastUnused;
}

} // namespace

UnLevels::MandatoryTable UnLevels::mandatoryTable() const {
    static constexpr std::array<MandatoryInfo, 12> kPartA{{
        {kSurface, 0.0},
        {"00", 1000.0},
        {"92", 925.0},
        {"85", 850.0},
        {"70", 700.0},
        {"50", 500.0},
        {"40", 400.0},
        {"30", 300.0},
        {"25", 250.0},
        {"20", 200.0},
        {"15", 150.0},
        {"10", 100.0},
    }};
    static constexpr std::array<MandatoryInfo, 10> kPartC{{
        {"70", 70.0},
        {"50", 50.0},
        {"30", 30.0},
        {"20", 20.0},
        {"10", 10.0},
        {"07", 7.0},
        {"05", 5.0},
        {"03", 3.0},
        {"02", 2.0},
        {"01", 1.0},
    }};
    return _part == PART_A ? MandatoryTable{kPartA.data(), kPartA.size()}
                           : MandatoryTable{kPartC.data(), kPartC.size()};
}

void UnLevels::decodeSection2() {
    const MandatoryTable table = mandatoryTable();
    const int lastWind = _part == PART_A ? _lastWindPartA : _lastWindPartC;
    std::size_t highWinds = 0;
    const auto ends = [this] { return beginsWith(_queue.token(), kTropopauseStart) || endsSection(_queue.token()); };
    for (std::size_t i = 0; i < table.size && !ends(); ++i) {
        if (_part == PART_C && i == kFirstHighLevel && lastWind == kWindsToTheTop) {
            highWinds = windsInHighLevels(table, i);
        }
        const bool highWind = i >= kFirstHighLevel && i < kFirstHighLevel + highWinds;
        const bool withWind = table.rows[i].indicator == kSurface || table.rows[i].pres >= lastWind || highWind;
        decodeMandatory(table, i, withWind);
    }
}

/// No Id stands for winds above 10 mb, and still they are coded where there are any, up to the highest level with wind.
/// So their number is what makes the groups fit; without wind is the rule, and is preferred.
std::size_t UnLevels::windsInHighLevels(MandatoryTable table, std::size_t first) const {
    const std::size_t most = table.size - first;
    for (std::size_t levels = 0; levels <= most; ++levels) {
        if (isLayout(table, first, levels, 0)) {
            return 0;
        }
    }
    for (std::size_t winds = most; winds > 0; --winds) {
        for (std::size_t levels = winds; levels <= most; ++levels) {
            if (isLayout(table, first, levels, winds)) {
                return winds;
            }
        }
    }
    return 0;
}

/// Whether the section goes on with so many levels, the lowest \p winds of them with a wind group, and ends there.
bool UnLevels::isLayout(MandatoryTable table, std::size_t first, std::size_t levels, std::size_t winds) const {
    std::size_t at = 0;
    for (std::size_t i = 0; i < levels; ++i) {
        if (!beginsWith(_queue.token(at), table.rows[first + i].indicator)) {
            return false;
        }
        at += i < winds ? 3 : 2;
    }
    return at == _queue.size() || beginsWith(_queue.token(at), kTropopauseStart) || endsSection(_queue.token(at));
}

void UnLevels::decodeMandatory(MandatoryTable table, std::size_t index, bool withWind) {
    _queue.NEED_TOKENS(2);
    const MandatoryInfo& info = table.rows[index];
    if (!beginsWith(_queue.token(), info.indicator)) {
        _queue.throwErrorMsg("The mandatory significant observation is incorrectly coded.");
    }
    Level level(MANDATORY);
    level[PRES] = info.pres;
    if (const auto digits = numberAt(_queue.token(), 2, 3)) {
        if (info.indicator == kSurface) {
            level.type(SURFACE);
            level[PRES] = *digits < kHundredMb ? *digits + kThousandMb : *digits;
        } else {
            level[HEIGHT] = mandatoryHeight(info.indicator, *digits);
        }
    }
    _queue.drop();
    decodeTTTDD(level);
    if (withWind) {
        decodeDDFFF(level);
    }
    if (level.type() == SURFACE) {
        _surface = level;
    }
    if (level.size() > 1) {
        add(level);
    }
}

double UnLevels::mandatoryHeight(std::string_view indicator, int h) const {
    const char part = _part == PART_A ? 'A' : 'C';
    if (part == 'A' && indicator == "00" && h >= kHigh) {
        return kHigh - h; // below the sea
    }
    const auto rule = std::find_if(kHeightRules.begin(), kHeightRules.end(), [&](const HeightRule& candidate) {
        return candidate.part == part && candidate.indicator == indicator;
    });
    return rule == kHeightRules.end() ? h : rule->factor * h + (h > kHigh ? rule->addedToHigh : rule->added);
}

/// A section whose maximum wind was withdrawn is followed by none of its groups, so that what follows ends it too.
void UnLevels::decodeSection3() {
    if (!beginsWith(_queue.token(), kTropopauseStart)) {
        return;
    }
    while (!_queue.empty() && !beginsMaxWind(_queue.token()) && !endsSection(_queue.token())) {
        if (_queue.token() == "88999" && !is999mbTropopause()) {
            _queue.drop();
            return;
        }
        decodeTrop();
    }
}

void UnLevels::decodeTrop() {
    if (!beginsWith(_queue.token(), kTropopauseStart)) {
        _queue.throwErrorMsg("The tropopause observation is incorrectly coded.");
    }
    Level level(TROPOPAUSE);
    if (const auto pres = highPressure(_queue.token())) {
        level[PRES] = *pres;
    }
    _queue.drop();
    _queue.NEED_TOKENS(2);
    decodeTTTDD(level);
    decodeDDFFF(level);
    add(level);
}

void UnLevels::decodeSection4() {
    while (beginsMaxWind(_queue.token())) {
        if (_queue.token() == kNoMaxWind && !is999mbMaxWind()) {
            _queue.drop();
            return;
        }
        decodeMaxWind();
    }
}

void UnLevels::decodeMaxWind() {
    _queue.NEED_TOKENS(2);
    if (!beginsMaxWind(_queue.token())) {
        _queue.throwErrorMsg("The max wind observation is incorrectly coded.");
    }
    Level level(MAXWIND);
    if (const auto pres = highPressure(_queue.token())) {
        level[PRES] = *pres;
    }
    _queue.drop();
    decodeDDFFF(level);
    if (beginsWith(_queue.token(), "4")) {
        decodeShear(level);
    }
    add(level);
}

void UnLevels::decodeShear(Level& level) {
    if (const auto below = numberAt(_queue.token(), 1, 2)) {
        level[VA] = speed(*below);
    }
    if (const auto above = numberAt(_queue.token(), 3, 2)) {
        level[VB] = speed(*above);
    }
    _queue.drop();
}

/// In part C "88999" is also a tropopause at 99.9 mb: then its two groups follow, and the section goes on or ends.
/// Where the first of them may be the pressure of a maximum wind as well, what is said of the maximum after it decides:
/// that there is none, or the shear about the only one.
bool UnLevels::is999mbTropopause() const {
    constexpr std::size_t kGroup = 5;
    const std::string_view second = _queue.token(1);
    const std::string_view behind = _queue.token(3);
    if (_part != PART_C || _queue.size() < 3 || second.size() != kGroup || endsSection(second) ||
        _queue.token(2).size() != kGroup) {
        return false;
    }
    if (beginsMaxWind(second)) {
        const auto tenths = numberAt(second, 0, 3);
        const bool cold = tenths && *tenths % 2 != 0;
        const bool onlyMaximum = beginsMaxWind(behind) && _queue.token(4).size() == kGroup &&
                                 beginsWith(_queue.token(5), "4") && !endsSection(_queue.token(5));
        return cold && !isUnusedDepression(numberAt(second, 3, 2)) && (behind == kNoMaxWind || onlyMaximum);
    }
    return _queue.size() == 3 || beginsWith(behind, kTropopauseStart) || beginsMaxWind(behind) || endsSection(behind);
}

/// So is "77999" a maximum wind there.
bool UnLevels::is999mbMaxWind() const {
    constexpr std::size_t kGroup = 5;
    const std::string_view wind = _queue.token(1);
    const std::string_view behind = _queue.token(2);
    return _part == PART_C && wind.size() == kGroup && isAllDigits(wind) && !beginsMaxWind(wind) &&
           !endsSection(wind) &&
           (_queue.size() == 2 || beginsMaxWind(behind) || beginsWith(behind, "4") || endsSection(behind));
}

/// The pressure, mb, of a tropopause or a maximum wind. There is none at 0 mb, but 100.0 mb is coded as that.
std::optional<double> UnLevels::highPressure(std::string_view group) const {
    const auto digits = numberAt(group, 2, 3);
    if (!digits) {
        return std::nullopt;
    }
    return *digits == 0 ? kHundredMb : _part == PART_C ? *digits / kTenths : *digits;
}

void UnLevels::decodeTTTDD(Level& level) {
    _queue.NEED_TOKENS(1);
    const std::string_view group = _queue.token();
    if (const auto tenths = numberAt(group, 0, 3)) {
        const double t = (*tenths % 2 == 0 ? *tenths : -*tenths) / kTenths;
        level[TDRY] = t;
        if (const auto depression = numberAt(group, 3, 2)) {
            if (isUnusedDepression(depression)) {
                _queue.throwErrorMsg("Dewpoint depression code may not be between 51 to 56.");
            }
            level[DP] = t - (*depression <= kHalfScale ? *depression / kTenths : *depression - kHalfScale);
        }
    }
    _queue.drop();
}

void UnLevels::decodeDDFFF(Level& level) {
    constexpr int kHalfStep = 500; // added to the speed for 5 degrees more
    constexpr int kNorth = 36;     // tens of degrees; what is above it is garbled
    _queue.NEED_TOKENS(1);
    const auto tens = numberAt(_queue.token(), 0, 2);
    const auto coded = numberAt(_queue.token(), 2, 3);
    if (tens && coded && *tens <= kNorth) {
        const bool half = *coded >= kHalfStep;
        level[WDIR] = (half ? *tens % kNorth : *tens) * 10.0 + (half ? 5.0 : 0.0);
        level[WSPD] = speed(half ? *coded - kHalfStep : *coded);
    }
    _queue.drop();
}

/// m/s from the unit of the message.
double UnLevels::speed(int coded) const {
    return _windsInKnots ? coded * kMetresPerSecond : coded;
}
