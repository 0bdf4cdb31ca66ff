#include "ProductText.h"

#include "Missing.h"
#include "SndMetaData.h"
#include "Text.h"

EditorControl::Attributes documentedAttributes(const EditorControl& editor) {
    EditorControl::Attributes attributes = editor.filteredAttributes();
    if (attributeText(attributes, "DoQC") != "1") {
        attributes = editor.baseAttributes();
    }
    attributes.insert(editor.provenance().begin(), editor.provenance().end());
    return attributes;
}

std::string attributeText(const EditorControl::Attributes& attributes, const std::string& key) {
    const auto found = attributes.find(key);
    return found == attributes.end() ? "" : found->second;
}

std::string dryBiasRemark(const EditorControl::Attributes& attributes) {
    const std::string key = "TDDryBiasCorrApplied";
    const std::string applied = attributeText(attributes, key);
    return applied == "TRUE" || applied == "true" ? key : "";
}

std::string joinTexts(const std::vector<std::string>& texts, const std::string& separator) {
    std::string joined;
    for (const std::string& text : texts) {
        joined += (joined.empty() || text.empty() ? "" : separator) + text;
    }
    return joined;
}

std::string withDetail(const std::string& name, const std::string& detail) {
    return detail.empty() ? name : name + ", " + detail;
}

std::string launchTimeText(const SndMetaData& metaData) {
    return stringFormat("%4d, ", metaData.year) + stringFormat("%02d, ", metaData.month) +
           stringFormat("%02d, ", metaData.day) + stringFormat("%02d:", metaData.hour) +
           stringFormat("%02d:", metaData.min) + stringFormat("%02d", metaData.sec);
}

std::string fitWidth(const std::string& text, std::size_t width) {
    std::string fitted = text;
    fitted.resize(width, ' ');
    return fitted;
}

double atLeastMoist(double rh) {
    constexpr double kDriest = 0.1; // %
    return rh <= 0.0 && rh != kMissing ? kDriest : rh;
}
