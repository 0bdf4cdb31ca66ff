// Parts B and D: the significant levels; and the sections between the levels and the remarks.

#include "CodeText.h"
#include "UnLevels.h"

namespace {

constexpr std::string_view kWindSection = "21212";
constexpr std::string_view kSystemSection = "31313";
constexpr std::string_view kCloudSection = "41414";

} // namespace

void UnLevels::decodeSection5() {
    while (!_queue.empty() && _queue.token() != kWindSection && !endsSection(_queue.token())) {
        decodeSignificant(&UnLevels::decodeTTTDD);
    }
}

void UnLevels::decodeSection6() {
    if (_queue.empty() || endsSection(_queue.token())) {
        return;
    }
    if (_queue.token() != kWindSection) {
        _queue.throwErrorMsg("Section 6 must begin with 21212.");
    }
    _queue.drop();
    while (!_queue.empty() && !endsSection(_queue.token())) {
        decodeSignificant(&UnLevels::decodeDDFFF);
    }
}

/// A level of \p values, kept when it holds any of them.
void UnLevels::decodeSignificant(void (UnLevels::*values)(Level& level)) {
    _queue.NEED_TOKENS(2);
    const auto pres = significantPressure(_queue.token());
    _queue.drop();
    Level level(SIGNIFICANT);
    (this->*values)(level);
    if (level.empty()) {
        return;
    }
    if (pres) {
        level[PRES] = *pres;
    }
    add(level);
}

/// mb. Part D has no 0 mb, but 100.0 mb is coded as that.
std::optional<double> UnLevels::significantPressure(std::string_view group) const {
    constexpr double kHundredMb = 100.0;
    constexpr double kThousandMb = 1000.0;
    constexpr double kTenths = 10.0;
    const auto digits = numberAt(group, 2, 3);
    if (!digits) {
        return std::nullopt;
    }
    if (_part == PART_D) {
        return *digits == 0 ? kHundredMb : *digits / kTenths;
    }
    return *digits < kHundredMb ? *digits + kThousandMb : *digits;
}

void UnLevels::decodeSection7() {
    if (_queue.token() != kSystemSection) {
        return;
    }
    _queue.NEED_TOKENS(3);
    _queue.SKIP_TOKENS(2); // with the sounding system group
    if (!beginsWith(_queue.token(), "8")) {
        _queue.throwErrorMsg("The first character of the observation time code group in section 7 must be \"8\".");
    }
    if (const auto time = numberAt(_queue.token(), 1, 4)) {
        _obsTime = *time;
    }
    _queue.drop();
}

void UnLevels::decodeSection8() {
    if (_queue.token() == kCloudSection) {
        _queue.SKIP_TOKENS(2);
    }
}

/// What nobody reads, the extrapolated and doubtful levels of 51515 among it.
void UnLevels::decodeSection9() {
    while (!_queue.empty() && !isSectionStarter(_queue.token()) && !endsPart()) {
        _queue.drop();
    }
}
