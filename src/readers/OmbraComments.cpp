// The comment lines of an Ombra D file.

#include "OmbraFile.h"

#include "CommaParts.h"
#include "NumberText.h"
#include "Text.h"
#include "Words.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<const char*, 3> kDryBiasSondes{"RSS904", "RS904", "RSS921"};
constexpr const char* kBiasAlreadyCorrected = "TDDryBiasCorrApplied";
constexpr const char* kMidnight = "000000"; // also how the system writes a launch that didn't happen

std::vector<std::string> fields(const std::string& value) {
    return tokenize(value, ",");
}

std::string without(std::string text, std::string_view characters) {
    text.erase(
        std::remove_if(text.begin(), text.end(), [&](char c) { return characters.find(c) != std::string_view::npos; }),
        text.end());
    return text;
}

} // namespace

struct OmbraFile::CommentRule {
    OmbraLine type;
    int labelWords; ///< ahead of the value
    void (OmbraFile::*take)(const Comment&);
};

const OmbraFile::CommentRule* OmbraFile::findCommentRule(OmbraLine type) {
    static constexpr std::array<CommentRule, 16> kRules{{
        {OmbraLine::Project, 5, &OmbraFile::takeProject},
        {OmbraLine::Aircraft, 4, &OmbraFile::takeAircraft},
        {OmbraLine::Comments, 4, &OmbraFile::takeComments},
        {OmbraLine::SondeDynamicErr, 6, nullptr},
        {OmbraLine::DataType, 5, &OmbraFile::takeDataType},
        {OmbraLine::SysOperator, 4, &OmbraFile::takeOperator},
        {OmbraLine::PrelaunchObs, 6, &OmbraFile::takePrelaunchObs},
        {OmbraLine::TimeOffset, 2, &OmbraFile::takeTimeOffset},
        {OmbraLine::TimeOffsetText, 0, &OmbraFile::takeTimeOffsetText},
        {OmbraLine::StdComments, 4, &OmbraFile::takeStdComments},
        {OmbraLine::NameComments, 4, &OmbraFile::takeNameComments},
        {OmbraLine::IdType, 5, &OmbraFile::takeIdType},
        {OmbraLine::IdBuilt, 4, &OmbraFile::takeIdBuilt},
        {OmbraLine::IdRevision, 4, &OmbraFile::takeIdRevision},
        {OmbraLine::Sensor, 4, &OmbraFile::takeSensor},
        {OmbraLine::LaunchTime, 5, &OmbraFile::takeLaunchTime},
    }};
    const auto found =
        std::find_if(kRules.begin(), kRules.end(), [&](const CommentRule& rule) { return rule.type == type; });
    return found == kRules.end() ? nullptr : &*found;
}

void OmbraFile::takeCommentLine(std::string_view line, OmbraLine type) {
    const CommentRule* rule = findCommentRule(type);
    if (rule == nullptr) {
        return;
    }
    std::string_view words = line;
    skipWords(words, rule->labelWords);
    const Comment comment{line, std::string(trimmed(words))};
    scanForSondeType(comment.value);
    if (rule->take != nullptr) {
        (this->*rule->take)(comment);
    }
}

void OmbraFile::scanForSondeType(const std::string& text) {
    for (const char* sonde : kDryBiasSondes) {
        _dryBiasSonde = _dryBiasSonde || contains(text, sonde);
    }
    _tdDryBiasCorrPresent = _tdDryBiasCorrPresent || contains(text, kBiasAlreadyCorrected);
}

void OmbraFile::takeProject(const Comment& comment) {
    takeCommaPart(comment.value, 0, _project);
    takeCommaPart(comment.value, 1, _flight);
    _descriptionText += comment.value + " ";
}

void OmbraFile::takeAircraft(const Comment& comment) {
    takeCommaPart(comment.value, 0, _platformType);
    takeCommaPart(comment.value, 1, _platformId);
    _descriptionText += comment.value + " ";
}

void OmbraFile::takeComments(const Comment& comment) {
    _comments = comment.value;
}

void OmbraFile::takeDataType(const Comment& comment) {
    _dataType = comment.value;
    _summaryInfo.push_back("Data type: " + _dataType);
}

void OmbraFile::takeOperator(const Comment& comment) {
    _sysOperator = comment.value;
    _summaryInfo.push_back("Operator: " + _sysOperator);
}

void OmbraFile::takePrelaunchObs(const Comment& comment) {
    takeLaunchObsSource(comment.value);
}

void OmbraFile::takeTimeOffset(const Comment& comment) {
    std::string_view words = comment.value;
    _ptuWindTimeDiff = numberOf(nextWord(words));
}

/// "... PTU lags wind by 0.5 sec"
void OmbraFile::takeTimeOffsetText(const Comment& comment) {
    std::vector<std::string_view> words;
    for (std::string_view rest = comment.value; !rest.empty();) {
        words.push_back(nextWord(rest));
    }
    const auto has = [&](std::string_view word) { return std::find(words.begin(), words.end(), word) != words.end(); };
    if (words.size() > 1 && (has("lags") || has("leads"))) {
        const double offset = numberOf(words[words.size() - 2]);
        _ptuWindTimeDiff = has("leads") ? offset : -offset;
    }
}

void OmbraFile::takeStdComments(const Comment& comment) {
    addComment(comment.value);
}

void OmbraFile::takeNameComments(const Comment& comment) {
    takeNameAndComment(comment.value);
}

/// The sonde's model, as older systems write it.
void OmbraFile::takeIdType(const Comment& comment) {
    const auto parts = fields(comment.value);
    if (!parts.empty()) {
        takeSondeModel(parts[0]);
    }
}

/// "id, id$, built, version, model"
void OmbraFile::takeIdBuilt(const Comment& comment) {
    const auto parts = fields(comment.value);
    if (!parts.empty()) {
        takeCommentSondeId(parts[0]);
    }
    if (parts.size() > 4) {
        takeSondeModel(parts[4]);
    }
}

/// "id, type, revision, built, sensors"
void OmbraFile::takeIdRevision(const Comment& comment) {
    const auto parts = fields(comment.value);
    if (!parts.empty()) {
        takeCommentSondeId(parts[0]);
    }
    if (parts.size() > 2) {
        _sondeRevision = parts[2];
    }
    if (parts.size() > 4) {
        takeSondeModel(parts[4]);
        takeThermoSensor(parts[4]);
    }
}

void OmbraFile::takeSensor(const Comment& comment) {
    const auto parts = fields(comment.value);
    if (parts.size() > 3 && !contains(comment.line, "Firmware")) {
        takeThermoSensor(parts[3]);
    }
}

/// "2021-08-01, 12:00:03": counts only where no launch line did.
void OmbraFile::takeLaunchTime(const Comment& comment) {
    const auto parts = fields(comment.value);
    if (_toldLaunch || parts.size() < 2) {
        return;
    }
    std::string date = without(parts[0], "-/");
    date.erase(0, 2); // the century
    const std::string time = without(parts[1], ":");
    if (contains(date, kMidnight) || contains(time, kMidnight) || !isDateText(date) || !isTimeText(time)) {
        return;
    }
    _toldLaunch = WrittenTime::of(date, time);
    _toldLaunchIsATime = true;
}

void OmbraFile::takeCommentSondeId(const std::string& id) {
    _commentId = id;
    if (_sondeId.empty()) {
        _sondeId = id;
    }
    checkSondeIds();
}

/// The two lines come in either order.
void OmbraFile::checkSondeIds() {
    if (!_launchLineId.empty() && !_commentId.empty() && _launchLineId != _commentId) {
        _errorMsg += "- Sonde ID from LAU line (" + _launchLineId +
                     ") does not match sonde ID from COM Sonde ID line (" + _commentId +
                     "). This file may have been manually edited.\n";
    }
}

void OmbraFile::takeSondeModel(const std::string& model) {
    _sondeModel = model;
    _summaryInfo.push_back("Sonde model: " + model);
}

void OmbraFile::takeThermoSensor(const std::string& sensor) {
    _thermoSensor = sensor;
    _summaryInfo.push_back("Thermo sensor: " + sensor);
}
