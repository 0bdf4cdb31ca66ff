#include "PeloDescent.h"

#include "AtomicFile.h"
#include "NumberText.h"
#include "PELOLineSignature.h"
#include "Text.h"
#include "Words.h"
#include "WrittenTime.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>

namespace fs = std::filesystem;

namespace {

/// Part of a line by its position.
struct Window {
    std::size_t at;
    std::size_t length;

    bool isIn(std::string_view line) const { return line.size() >= at + length; }
    /// Of a line that holds it.
    std::string_view of(std::string_view line) const { return line.substr(at, length); }
    void replace(std::string& line, std::string_view by) const { line.replace(at, length, by); }
};

constexpr Window kKey{9, 3};
constexpr Window kDateAndTime{23, 16};
constexpr Window kAltitude{106, 8};
constexpr const char* kAltitudeFormat = "%8.2f";
constexpr std::string_view kLaunchObsKey = "A00";
constexpr const char* kLineEnd = "\r\n";

constexpr std::size_t kLaunchLine = 5; // the first five lines tell of the sounding
constexpr std::ptrdiff_t kFewestLines = 30;
constexpr double kNoPressure = 9999.0; // mb
constexpr int kWordsAheadOfPressure = 5;
constexpr int kWordsAheadOfAltitude = 13;

std::string_view word(std::string_view line, int wordsAhead) {
    skipWords(line, wordsAhead);
    return nextWord(line);
}

/// The line of the smallest pressure, the first one at a tie.
std::optional<std::size_t> findBurst(const std::vector<std::string>& lines) {
    std::optional<std::size_t> burst;
    double smallest = kNoPressure;
    for (std::size_t i = kLaunchLine; i < lines.size(); ++i) {
        const std::string_view key = word(lines[i], 1);
        if (key != "S00" && key != "S01") {
            continue;
        }
        const double pressure = numberOf(word(lines[i], kWordsAheadOfPressure));
        if (pressure < smallest) {
            smallest = pressure;
            burst = i;
        }
    }
    return burst;
}

bool holdsTime(std::string_view line) {
    if (!kDateAndTime.isIn(line)) {
        return false;
    }
    std::string_view words = kDateAndTime.of(line);
    const std::string_view date = nextWord(words);
    return isDateText(date) && isTimeText(nextWord(words)) && nextWord(words).empty();
}

bool holdsAltitude(std::string_view line) {
    return kAltitude.isIn(line) && trimmed(kAltitude.of(line)) == word(line, kWordsAheadOfAltitude);
}

bool isLaunchObs(std::string_view line) {
    return kKey.isIn(line) && kKey.of(line) == kLaunchObsKey;
}

/// \p text with the altitude of the burst blotted out.
std::string withoutAltitude(std::string text) {
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
        const std::string_view line = std::string_view(text).substr(start, end - start);
        if (isLaunchObs(line) && kAltitude.isIn(line)) {
            text.replace(start + kAltitude.at, kAltitude.length, kAltitude.length, '-');
        }
        start = end;
    }
    return text;
}

/// What stands at \p path, as far as \p length bytes.
std::string beginningOf(const std::string& path, std::size_t length) {
    std::string text(length, '\0');
    std::ifstream file(path, std::ios::binary);
    file.read(text.data(), static_cast<std::streamsize>(length));
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

/// \p least is how much of \p text a file must hold to be ours.
bool mayReplace(const std::string& path, const std::string& text, std::size_t least) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (status.type() != fs::file_type::regular) {
        return status.type() == fs::file_type::not_found || status.type() == fs::file_type::none;
    }
    const std::string there = withoutAltitude(beginningOf(path, text.size() + 1));
    return there.size() >= least && withoutAltitude(text).compare(0, there.size(), there) == 0;
}

/// A directory that nobody may write isn't written by those either whom permissions don't stop.
bool mayWriteInto(const fs::path& directory) {
    constexpr auto kWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    std::error_code error;
    const fs::file_status status = fs::status(directory.empty() ? fs::path(".") : directory, error);
    return fs::is_directory(status) && (status.permissions() & kWrite) != fs::perms::none;
}

} // namespace

PeloDescent::PeloDescent(const std::vector<std::string>& lines) {
    const auto burst = findBurst(lines);
    const auto count = static_cast<std::ptrdiff_t>(lines.size());
    if (!burst || static_cast<std::ptrdiff_t>(*burst) > count - kFewestLines) {
        return;
    }
    _state = State::Malformed;
    std::string launch = lines[kLaunchLine];
    std::string observation = lines[*burst];
    if (peloLineType(launch) != PeloLine::Launch || !holdsTime(launch) || !holdsTime(observation)) {
        return;
    }
    kDateAndTime.replace(launch, kDateAndTime.of(observation));
    kKey.replace(observation, kLaunchObsKey);
    _lines.assign(lines.begin(), lines.begin() + kLaunchLine);
    _lines.push_back(launch);
    _lines.push_back(observation);
    _lines.insert(_lines.end(), lines.begin() + static_cast<std::ptrdiff_t>(*burst), lines.end());
    if (std::all_of(_lines.begin(), _lines.end(),
                    [](const std::string& line) { return !isLaunchObs(line) || holdsAltitude(line); })) {
        _state = State::Whole;
    }
}

void PeloDescent::setAltitude(double altitude) {
    const std::string text = stringFormat(kAltitudeFormat, altitude);
    for (std::string& line : _lines) {
        if (isLaunchObs(line) && text.size() == kAltitude.length) {
            kAltitude.replace(line, text);
        }
    }
}

std::string PeloDescent::text() const {
    std::string text;
    for (const std::string& line : _lines) {
        text += (text.empty() ? "" : kLineEnd) + line;
    }
    return text;
}

PeloDescent::Outcome PeloDescent::save(const std::string& path) const {
    const std::string content = text();
    if (!mayReplace(path, content, content.find(_lines[kLaunchLine]) + _lines[kLaunchLine].size())) {
        return Outcome::Foreign;
    }
    if (!mayWriteInto(fs::path(path).parent_path())) {
        return Outcome::Failed;
    }
    AtomicFile file(path, std::ios::binary);
    file.stream() << content;
    return file.isOpen() && file.commit() ? Outcome::Saved : Outcome::Failed;
}
