#include "UnLevels.h"

#include "CodeText.h"
#include "MandatoryHeights.h"

#include <algorithm>
#include <array>

namespace {

struct MessageType {
    std::string_view letters;
    UnLevels::WMO_MESSAGE_TYPE type;
    const char* name;
};

constexpr std::array<MessageType, 4> kMessageTypes{{
    {"TT", UnLevels::TEMP, "TEMP"},
    {"UU", UnLevels::TEMP_SHIP, "TEMP SHIP"},
    {"XX", UnLevels::TEMP_DROP, "TEMP DROP"},
    {"II", UnLevels::TEMP_MOBIL, "TEMP MOBIL"},
}};

constexpr std::array<std::string_view, 4> kParts{"AA", "BB", "CC", "DD"};

constexpr std::array<std::string_view, 9> kSectionStarters{"61616", "62626", "63636", "64646", "65656",
                                                           "66666", "67676", "68686", "69696"};

template <std::size_t N>
std::string nameIn(const std::array<const char*, N>& names, int index) {
    return index >= 0 && index < static_cast<int>(N) ? names[static_cast<std::size_t>(index)] : "unknown";
}

} // namespace

std::string UnLevels::Level::name() const {
    static constexpr std::array<const char*, 13> kNames{
        "generic",          "surface",       "mandatory",  "significant",    "tropopause",   "maxwind",
        "150mlayerwind",    "deeplayerwind", "meanblwind", "lastwindheight", "releasepoint", "splashpointwindinteg",
        "splashpointrawgps"};
    return nameIn(kNames, _type);
}

std::string UnLevels::Level::fieldName(LEVEL_FIELD field) {
    static constexpr std::array<const char*, 8> kNames{"pres", "tdry", "dp", "wspd", "wdir", "height", "va", "vb"};
    return nameIn(kNames, field);
}

double UnLevels::Level::value(LEVEL_FIELD field) const {
    const auto found = find(field);
    return found == end() ? kMissing : found->second;
}

UnLevels::UnLevels(const std::string& text) : _queue(text), _tokens(_queue.texts()) {
    decodeAbrHdr();
    while (!_queue.empty() && !beginsOtherSounding()) {
        decodePart();
    }
    _unreadPart = _queue.token();
    settleMandatoryHeights();
}

/// A sounding has each part once.
bool UnLevels::beginsOtherSounding() const {
    return messageTypeOf(_queue.token()) == _messageType &&
           std::find(_readParts.begin(), _readParts.end(), partOf(_queue.token())) != _readParts.end();
}

void UnLevels::decodePart() {
    decodeMMMM();
    decodeSection1();
    if (isPartAorC()) {
        decodeSection2();
        decodeSection3();
        decodeSection4();
        decodeSection7();
    } else {
        decodeSection5();
        decodeSection6();
        decodeSection7();
        decodeSection8();
    }
    decodeSection9();
    decodeSection10();
}

UnLevels::WMO_MESSAGE_TYPE UnLevels::messageTypeOf(std::string_view token) {
    const auto found = std::find_if(kMessageTypes.begin(), kMessageTypes.end(),
                                    [&](const MessageType& type) { return beginsWith(token, type.letters); });
    return found == kMessageTypes.end() ? NO_MESSAGE : found->type;
}

UnLevels::Part UnLevels::partOf(std::string_view token) {
    const auto found = std::find(kParts.begin(), kParts.end(), piece(token, 2));
    return static_cast<Part>(found - kParts.begin());
}

bool UnLevels::isMMMM(std::string_view token) {
    return messageTypeOf(token) != NO_MESSAGE && partOf(token) != NO_PART;
}

bool UnLevels::isSectionStarter(std::string_view token) {
    return std::find(kSectionStarters.begin(), kSectionStarters.end(), token) != kSectionStarters.end();
}

/// Whether \p token can't be part of a section of levels any more. "66666" can: level 6 at 666 mb.
bool UnLevels::endsSection(std::string_view token) {
    return token == "31313" || token == "41414" || token == "51515" || isMMMM(token) ||
           (isSectionStarter(token) && token != "66666");
}

void UnLevels::addFirst(const Level& level) {
    if (!level.empty() && _levels.find(level.type()) == _levels.end()) {
        add(level);
    }
}

void UnLevels::settleMandatoryHeights() {
    std::vector<Level*> mandatory;
    const auto [first, last] = _levels.equal_range(MANDATORY);
    for (auto entry = first; entry != last; ++entry) {
        if (entry->second.value(PRES) > 0.0) {
            mandatory.push_back(&entry->second);
        }
    }
    std::stable_sort(mandatory.begin(), mandatory.end(),
                     [](const Level* a, const Level* b) { return a->value(PRES) > b->value(PRES); });
    std::vector<StandardLevel> told;
    told.reserve(mandatory.size());
    for (const Level* level : mandatory) {
        told.push_back({level->value(PRES), level->value(TDRY), level->value(DP), level->value(HEIGHT)});
    }
    settleHeights(told, seaSurface());
    for (std::size_t i = 0; i < told.size(); ++i) {
        if (mandatory[i]->has(HEIGHT)) {
            (*mandatory[i])[HEIGHT] = told[i].height;
        }
    }
}

/// The surface of a sounding over the sea.
std::optional<StandardLevel> UnLevels::seaSurface() const {
    if (!_surface.has(PRES) || (_messageType != TEMP_SHIP && _messageType != TEMP_DROP)) {
        return std::nullopt;
    }
    return StandardLevel{_surface.value(PRES), _surface.value(TDRY), _surface.value(DP), 0.0};
}

std::vector<UnLevels::Level> UnLevels::allLevels() const {
    std::vector<Level> all;
    for (const auto& [type, level] : _levels) {
        all.push_back(level);
    }
    return all;
}

std::vector<UnLevels::Level> UnLevels::levels(const std::set<LEVEL_TYPE>& types) const {
    std::vector<Level> some;
    for (const LEVEL_TYPE type : types) {
        const auto [first, last] = _levels.equal_range(type);
        for (auto entry = first; entry != last; ++entry) {
            some.push_back(entry->second);
        }
    }
    return some;
}

std::string UnLevels::wmoType() const {
    const auto found = std::find_if(kMessageTypes.begin(), kMessageTypes.end(),
                                    [&](const MessageType& type) { return type.type == _messageType; });
    return found == kMessageTypes.end() ? "UNKNOWN" : found->name;
}
