#include "EditorControl.h"

#include "ProcessingTime.h"
#include "Text.h"
#include "UtcTime.h"

#include <array>

namespace {

struct DisabledLimit {
    const char* disablingKey;
    const char* limitKey;
};

constexpr std::array<DisabledLimit, 8> kDisabledLimits{{
    {"WindDisableQCFilter", "WindQCDev"},
    {"WindDisableOutlierCheck", "WindOutlier"},
    {"WindDisableSatsCheck", "WindSats"},
    {"WindDisableErrorCheck", "WindErrorHigh"},
    {"WindDisableErrorCheck", "WindErrorLow"},
    {"PresDisableOutlierCheck", "PresOutlier"},
    {"TdryDisableOutlierCheck", "TdryOutlier"},
    {"RHDisableOutlierCheck", "RHOutlier"},
}};

} // namespace

EditorControl::Attributes EditorControl::attributesConfig(bool onlyOutput) const {
    Attributes all;
    for (const auto& [id, item] : _config) {
        if (!onlyOutput || item->isOutputAttribute()) {
            all[id.name()] = item->isNumeric() ? trimLeft(stringFormat("%12.5g", item->value())) : item->text();
        }
    }
    for (const DisabledLimit& limit : kDisabledLimits) {
        bool disabled = false;
        _config.boolValue(limit.disablingKey, disabled);
        if (disabled) {
            all[limit.limitKey] = "999";
        }
    }
    return all;
}

EditorControl::Attributes EditorControl::attributes(bool withConfig, bool onlyOutput) const {
    Attributes all;
    all["TarvoVersion"] = _version;
    all["ProcessingTime"] = utcText(processingTime(), "%d %b %Y %H:%M UTC");
    all["SoundingDescription"] = description();
    if (withConfig) {
        all["ConfigSetName"] = _config.getSetName();
    }
    std::string disclaimer;
    _config.text("QCDisclaimer", disclaimer);
    all["QCDisclaimer"] = disclaimer;

    const SndMetaData meta = getSndMetaData(true);
    all["SondeId"] = meta.sondeId;
    all["Agency"] = meta.agency;
    all["PlatformType"] = meta.platformType;
    all["PlatformId"] = meta.platformId;
    all["Project"] = meta.project;
    all["Flight"] = meta.flight;
    all["Comment"] = meta.comments;

    for (const auto& [key, text] : attributesSnd()) {
        all[key] = text;
    }
    if (withConfig) {
        if (QCready() && numRhChan() > 1) { // the user may have chosen another than the configuration
            all["RHchoice"] = std::to_string(_sounding->qcRHchannel());
        }
        const Attributes config = attributesConfig(onlyOutput);
        all.insert(config.begin(), config.end());
    }
    return all;
}
