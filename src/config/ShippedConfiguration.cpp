#include "ShippedConfiguration.h"

#include "OptionText.h"
#include "ParameterTable.h"
#include "ShippedSetTable.h"

#include <algorithm>

namespace {

// The reader of the marker takes the rest of its line for the number, so nothing may follow it there.
constexpr std::string_view kProlog = R"(<?xml version="1.0" encoding="UTF-8"?>
<!--
  The configuration of Tarvo: named sets of options, of which active1 is the one in force
  and active2 the one for derived descending soundings.

  @version: )";

constexpr std::string_view kDtdProlog = R"(<!--
  The document type of Tarvo configuration files. It documents the format; reading a file does not enforce it.

  @version: )";

constexpr std::string_view kDtd = R"(
-->
<!ELEMENT tarvoConfig ((active|active1), active2?, set+)>
<!ELEMENT active (#PCDATA)>
<!ELEMENT active1 (#PCDATA)>
<!ELEMENT active2 (#PCDATA)>
<!ELEMENT set (option)+>
<!ATTLIST set
  name CDATA #REQUIRED>
<!ELEMENT option (current, default)>
<!ATTLIST option
  name CDATA #REQUIRED
  type (numeric|string|bool) #REQUIRED
  immediate (true|false) #IMPLIED>
<!ELEMENT current (#PCDATA)>
<!ELEMENT default (#PCDATA)>
)";

// Only "sample" has it: the store adds it to the others when it is first read.
constexpr std::string_view kOnlyInSample = "xyGraphDzDtMax";
constexpr std::string_view kRepeated = "DisableKermit";
constexpr std::string_view kActive1 = "editsonde";
constexpr std::string_view kActive2 = "descending-PELO";

struct OptionTexts {
    std::string current;
    std::string standard;
};

/// \p text in the form of the file: a number with six decimals.
std::string fileText(const Parameter& parameter, std::string_view text) {
    std::string inFile(text);
    return parameter.fileType == Option::NUMERIC && !text.empty() ? optionText(optionNumber(inFile)) : inFile;
}

std::string_view textIn(std::size_t setIndex, const SetDifference* difference, std::string_view sampleText) {
    if (setIndex == 0 || difference == nullptr || difference->texts[setIndex - 1].empty()) {
        return sampleText;
    }
    return difference->texts[setIndex - 1];
}

OptionTexts optionTexts(std::size_t setIndex, const Parameter& parameter) {
    const auto current = textIn(setIndex, currentDifference(parameter.key), parameter.shippedCurrent);
    const auto standard = setRule(setIndex).defaultsFollowCurrent
                              ? current
                              : textIn(setIndex, defaultDifference(parameter.key), parameter.shippedDefault);
    return {fileText(parameter, current), fileText(parameter, standard)};
}

std::string escaped(std::string_view text) {
    std::string safe;
    for (const char c : text) {
        switch (c) {
        case '&':
            safe += "&amp;";
            break;
        case '<':
            safe += "&lt;";
            break;
        case '>':
            safe += "&gt;";
            break;
        default:
            safe += c;
        }
    }
    return safe;
}

std::string element(std::string_view name, const std::string& text) {
    const std::string tag(name);
    return text.empty() ? "<" + tag + "/>" : "<" + tag + ">" + escaped(text) + "</" + tag + ">";
}

std::string optionElement(std::size_t setIndex, const Parameter& parameter) {
    constexpr std::string_view kTypeNames[] = {"numeric", "bool", "string"};
    const OptionTexts texts = optionTexts(setIndex, parameter);
    std::string xml = "    <option";
    if (parameter.immediate) {
        xml += " immediate=\"true\"";
    }
    xml +=
        " name=\"" + std::string(parameter.key) + "\" type=\"" + std::string(kTypeNames[parameter.fileType]) + "\">\n";
    xml += "      " + element("current", texts.current) + "\n";
    xml += "      " + element("default", texts.standard) + "\n";
    xml += "    </option>\n";
    return xml;
}

std::string setElement(std::size_t setIndex) {
    std::string xml = "  <set name=\"" + std::string(shippedSets()[setIndex].name) + "\">\n";
    for (const Parameter& parameter : parameterTable()) {
        if (!parameter.isShipped() || (setIndex != 0 && parameter.key == kOnlyInSample)) {
            continue;
        }
        const std::string option = optionElement(setIndex, parameter);
        xml += option;
        if (parameter.key == kRepeated && setRule(setIndex).repeatsDisableKermit) {
            xml += option;
        }
    }
    return xml + "  </set>\n";
}

template <typename IsWanted>
std::string configurationOf(IsWanted isWanted) {
    std::string xml(kProlog);
    xml += kConfigurationVersion;
    xml += "\n-->\n<!DOCTYPE tarvoConfig SYSTEM \"tarvo.dtd\">\n<tarvoConfig>\n  ";
    xml += element("active1", std::string(kActive1)) + "\n  " + element("active2", std::string(kActive2)) + "\n";
    for (std::size_t setIndex = 0; setIndex < kShippedSetCount; ++setIndex) {
        if (isWanted(shippedSets()[setIndex].name)) {
            xml += setElement(setIndex);
        }
    }
    return xml + "</tarvoConfig>\n";
}

} // namespace

std::string shippedConfiguration() {
    return configurationOf([](std::string_view) { return true; });
}

std::string shippedConfiguration(std::string_view setName) {
    const auto& sets = shippedSets();
    const std::string_view first = setName.empty() ? kActive1 : setName;
    if (std::none_of(sets.begin(), sets.end(), [&](const ShippedSet& set) { return set.name == first; })) {
        return shippedConfiguration();
    }
    return configurationOf([&](std::string_view name) { return name == first || name == kActive2; });
}

std::string_view tarvoDtd() {
    static const std::string dtd = std::string(kDtdProlog).append(kConfigurationVersion).append(kDtd);
    return dtd;
}
