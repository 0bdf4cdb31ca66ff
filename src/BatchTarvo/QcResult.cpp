#include "QcResult.h"

#include "EditorControl.h"
#include "Levels.h"
#include "Text.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace {

struct Quantity {
    const char* name;
    const char* raw;
    const char* qc;
};

constexpr std::array<Quantity, 4> kQuantities{{
    {"pressure", "RawPres", "QCPres"},
    {"temperature", "RawTdry", "QCTdry"},
    {"RH", "RawRH", "QCRH"},
    {"wind", "RawWspd", "QCWspd"},
}};

constexpr std::string_view kTopicStart = "QC for ";
constexpr std::string_view kItemStart = "Points which failed the ";

int measured(const Series& series) {
    int n = 0;
    for (const Value& value : series) {
        n += value.isObservation() ? 0 : 1;
    }
    return n;
}

std::string keptLine(const EditorControl& editor) {
    std::string line = std::to_string(measured(*editor.getSeries("RawTime"))) + " records; kept";
    const char* separator = " ";
    for (const Quantity& quantity : kQuantities) {
        const int raw = measured(*editor.getSeries(quantity.raw));
        if (raw > 0) {
            const int kept = measured(*editor.getSeries(quantity.qc));
            line += separator + std::string(quantity.name) + stringFormat(" %.1f %%", kept * 100.0 / raw);
            separator = ", ";
        }
    }
    return line;
}

/// "Pressure: buddy check 2, limit check 1" for each topic that has something to tell.
std::string removedLine(EditorControl& editor) {
    std::string line;
    for (const std::string& topic : editor.summaryTopics()) {
        if (topic.compare(0, kTopicStart.size(), kTopicStart) != 0) {
            continue;
        }
        std::string checks;
        for (const std::string& item : editor.summaryItems(topic)) {
            const auto colon = item.find(':');
            if (item.compare(0, kItemStart.size(), kItemStart) != 0 || colon == std::string::npos) {
                continue;
            }
            const long count = std::strtol(item.c_str() + colon + 1, nullptr, 10);
            if (count > 0) {
                checks += (checks.empty() ? "" : ", ") + item.substr(kItemStart.size(), colon - kItemStart.size()) +
                          " " + std::to_string(count);
            }
        }
        if (!checks.empty()) {
            line += (line.empty() ? "" : "; ") + topic.substr(kTopicStart.size()) + ": " + checks;
        }
    }
    return line.empty() ? "" : "removed from " + line;
}

} // namespace

std::vector<std::string> qcResultLines(EditorControl& editor) {
    std::string type;
    if (editor.soundingType(type) == SoundingType::Wmo) {
        const std::size_t count = editor.levels() == nullptr ? 0 : editor.levels()->levels().size();
        return {std::to_string(count) + " levels in the message"};
    }
    std::vector<std::string> lines{keptLine(editor)};
    const std::string removed = removedLine(editor);
    if (!removed.empty()) {
        lines.push_back(removed);
    }
    double pressure = 0.0;
    if (editor.getRawTermPres(pressure)) {
        lines.push_back("surface pressure " + stringFormat("%.1f", pressure) + " mb");
    }
    return lines;
}
