#include "Explanation.h"

#include "ConfigSet.h"
#include "EditorControl.h"
#include "ProductText.h"
#include "RevisionInfo.h"
#include "SummaryText.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iomanip>
#include <set>
#include <string_view>
#include <vector>

namespace {

struct Quantity {
    const char* name;
    const char* raw;
    const char* qc;
    const char* keys; ///< how its parameters begin
    const char* unit;
};

constexpr std::array<Quantity, 7> kQuantities{{
    {"Pressure", "RawPres", "QCPres", "Pres", "mb"},
    {"Temperature", "RawTdry", "QCTdry", "Tdry", "deg C"},
    {"Relative humidity", "RawRH", "QCRH", "RH", "%"},
    {"Wind speed", "RawWspd", "QCWspd", "Wind", "m/s"},
    {"Wind direction", "RawWdir", "QCWdir", "Wind", "degrees"},
    {"Latitude", "RawLat", "QCGpsLat", "GPSPos", "degrees"},
    {"GPS altitude", "RawGpsAlt", "QCGpsAlt", "GPSAlt", "m"},
}};

/// Why a value with this mark was removed. "{Key}" stands for a parameter and its value, "{*Key}" for that of the
/// quantity. In the order in which QC goes.
struct Reason {
    Value::AttributeType mark;
    const char* text;
};

constexpr std::array<Reason, 14> kReasons{{
    {Value::QcIgnore, "ordered out by the user"},
    {Value::AfterEndOfDrop, "measured after the end of the drop"},
    {Value::CrcPtu, "the checksum of the record's pressure, temperature and humidity is wrong"},
    {Value::CrcGps, "the checksum of the record's GPS part is wrong"},
    {Value::DryBiasCorrection, "can't be corrected for the dry bias of the humidity sensor"},
    {Value::QcAmbientEquilibration, "the sensor hadn't yet come to terms with the air outside"},
    {Value::QcLimitCheck, "outside of what can be in the atmosphere"},
    {Value::QcSatsCheck, "too few satellites ({WindSats})"},
    {Value::QcWindErrorCheck, "the wind error is too large ({WindErrorLow}, {WindErrorHigh})"},
    {Value::QcBuddyCheck, "changes too fast from one sample to the next ({*BuddySlope} per second)"},
    {Value::QcOutlierCheck, "too many standard deviations from the rest ({*Outlier})"},
    {Value::QcFilterCheck, "too far from the smooth curve through the samples around it ({*QCDev}, {*QCWL} s)"},
    {Value::QcMonotonicPresCheck, "the pressure goes back on itself"},
    {Value::QcVerticalVelCheck, "the fall rates by GPS, by pressure and in theory don't agree ({WindVVdelta} m/s)"},
}};

/// Topics of the summary that tell nothing of QC.
constexpr std::array<std::string_view, 4> kOtherTopics{"Description", "Processing Steps", "QC Data Recovery Statistics",
                                                       "Diagnostic Capture"};

std::string parameter(const ConfigSet& config, const std::string& key) {
    double value = 0.0;
    return key + (config.value(key, value) ? " " + stringFormat("%g", value) : "");
}

std::string withParameters(std::string text, const ConfigSet& config, const Quantity& quantity) {
    for (auto begin = text.find('{'); begin != std::string::npos; begin = text.find('{', begin)) {
        const auto end = text.find('}', begin);
        std::string key = text.substr(begin + 1, end - begin - 1);
        if (key.front() == '*') {
            key.replace(0, 1, quantity.keys);
        }
        text.replace(begin, end - begin + 1, parameter(config, key));
    }
    return text;
}

/// "12.5 s (1013.20), 20.0 to 24.5 s (10 samples)": runs of samples that follow each other in the series.
std::string places(const std::vector<const Value*>& removed) {
    constexpr std::size_t kMostRuns = 8;
    std::vector<std::string> runs;
    for (std::size_t i = 0; i < removed.size();) {
        std::size_t last = i;
        while (last + 1 < removed.size() && removed[last + 1] == removed[last] + 1) {
            ++last;
        }
        const std::string from = stringFormat("%.2f", removed[i]->time());
        runs.push_back(last == i ? from + " s (" + stringFormat("%.2f", removed[i]->data()) + ")"
                                 : from + " to " + stringFormat("%.2f", removed[last]->time()) + " s (" +
                                       std::to_string(last - i + 1) + " samples)");
        i = last + 1;
    }
    const std::size_t told = std::min(runs.size(), kMostRuns);
    std::string text = joinTexts({runs.begin(), runs.begin() + static_cast<std::ptrdiff_t>(told)}, ", ");
    return runs.size() > told ? text + ", and " + std::to_string(runs.size() - told) + " more places" : text;
}

void tellQuantity(const EditorControl& editor, const ConfigSet& config, const Quantity& quantity, std::ostream& out) {
    const Series& raw = *editor.getSeries(quantity.raw);
    std::set<double> keptTimes;
    for (const Value& value : *editor.getSeries(quantity.qc)) {
        keptTimes.insert(value.time());
    }
    std::array<std::vector<const Value*>, kReasons.size() + 1> removed; // the last: without a mark
    int measured = 0;
    int gone = 0;
    for (const Value& value : raw) {
        if (value.isObservation()) {
            continue;
        }
        ++measured;
        if (keptTimes.count(value.time()) != 0) {
            continue;
        }
        ++gone;
        const auto reason = std::find_if(kReasons.begin(), kReasons.end(),
                                         [&](const Reason& candidate) { return value.testAttribute(candidate.mark); });
        removed[static_cast<std::size_t>(reason - kReasons.begin())].push_back(&value);
    }
    if (measured == 0) {
        out << "  " << quantity.name << ": no data\n";
        return;
    }
    out << "  " << quantity.name << " (" << quantity.unit << "): " << measured - gone << " of " << measured
        << " samples kept\n";
    for (std::size_t i = 0; i < removed.size(); ++i) {
        if (!removed[i].empty()) {
            const std::string why = i < kReasons.size() ? withParameters(kReasons[i].text, config, quantity)
                                                        : "went with what else was removed of its record";
            out << std::setw(7) << removed[i].size() << "  " << why << "\n           " << places(removed[i]) << "\n";
        }
    }
}

void tellLines(const std::string& text, std::ostream& out) {
    for (const std::string& line : tokenize(text, "\n")) {
        if (!line.empty()) {
            out << "  " << line << "\n";
        }
    }
}

void tellSummary(EditorControl& editor, std::ostream& out) {
    for (const std::string& topic : editor.summaryTopics()) {
        if (std::find(kOtherTopics.begin(), kOtherTopics.end(), topic) != kOtherTopics.end()) {
            continue;
        }
        out << "  " << topic << "\n";
        for (const std::string& item : editor.summaryItems(topic)) {
            out << "      " << plainItem(item) << "\n";
        }
    }
}

} // namespace

std::string explain(const std::string& path, ConfigSet& config, std::ostream& out) {
    errno = 0;
    std::ifstream stream(path);
    if (!stream) {
        return std::string("The file can't be opened: ") + std::strerror(errno);
    }
    EditorControl editor(config, programText());
    editor.getSounding(path, &stream);
    if (!editor.isValid()) {
        const std::string why = editor.getSndfileErrorMsg();
        return why.empty() ? "The file is no sounding" : why;
    }
    editor.qcProcess();
    std::string type;
    const bool isMessage = editor.soundingType(type) == SoundingType::Wmo;
    const SndMetaData meta = editor.getSndMetaData(true);
    out << path << "\n"
        << type << ", " << (meta.ascending ? "ascending" : "descending") << ", launch " << launchTimeText(meta)
        << " UTC, configuration set " << config.getSetName() << "\n";
    if (!editor.getSndfileErrorMsg().empty()) {
        out << "The file:\n";
        tellLines(editor.getSndfileErrorMsg(), out);
    }
    if (isMessage || !editor.QCready()) {
        out << (isMessage ? "A message has levels and no samples: there is nothing to remove.\n\n"
                          : "QC is off: nothing was removed.\n\n");
        return {};
    }
    out << "What QC removed:\n";
    for (const Quantity& quantity : kQuantities) {
        tellQuantity(editor, config, quantity, out);
    }
    std::string failed;
    if (editor.qcError(failed)) {
        out << "What QC couldn't do:\n";
        tellLines(failed, out);
    }
    out << "Step by step:\n";
    tellSummary(editor, out);
    out << "\n";
    return {};
}
