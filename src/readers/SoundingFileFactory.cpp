#include "SoundingFileFactory.h"

#include "ConfigSet.h"
#include "CsvFile.h"
#include "FRDFile.h"
#include "MirraFile.h"
#include "Mw41File.h"
#include "OmbraFile.h"
#include "PeloFile.h"
#include "SoundingLines.h"
#include "Text.h"
#include "TroveFile.h"
#include "VestaFile.h"
#include "WMOFile.h"
#include "Words.h"
#include "ZORFile.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

using Lines = std::vector<std::string>;
using Maker = std::unique_ptr<SoundingFile> (*)(ConfigSet& config, std::string fileName, Lines lines);

std::unique_ptr<SoundingFile> makeOmbra(ConfigSet& config, std::string fileName, Lines lines) {
    return std::make_unique<OmbraFile>(std::move(fileName), std::move(lines), config.getSetName());
}

std::unique_ptr<SoundingFile> makePelo(ConfigSet& config, std::string fileName, Lines lines) {
    bool derivesDescent = false;
    config.boolValue("descendingPELO", derivesDescent);
    return std::make_unique<PeloFile>(std::move(fileName), std::move(lines), derivesDescent);
}

/// A format whose reader takes the file as it is.
template <typename File>
std::unique_ptr<SoundingFile> make(ConfigSet& /*config*/, std::string fileName, Lines lines) {
    return std::make_unique<File>(std::move(fileName), std::move(lines));
}

/// A format whose reader sets the configuration to how such files are processed.
template <typename File>
std::unique_ptr<SoundingFile> makeWithConfig(ConfigSet& config, std::string fileName, Lines lines) {
    return std::make_unique<File>(std::move(fileName), std::move(lines), config);
}

enum class Needs { Any, All };
enum class LinesAs { Text, Raw };

/// How one format shows in the lower-cased header, and who reads it.
struct Format {
    Needs needs;
    std::array<std::string_view, 16> marks; // empty ones at the end don't count
    LinesAs linesAs;
    Maker maker;
};

/// In order of precedence: a WMO group anywhere in the header makes a message of any file.
constexpr std::array<Format, 12> kFormats{{
    {Needs::Any,
     {"uuaa", "uubb", "uucc", "uudd", "ttaa", "ttbb", "ttcc", "ttdd", "iiaa", "iibb", "iicc", "iidd", "xxaa", "xxbb",
      "xxcc", "xxdd"},
     LinesAs::Text,
     make<WMOFile>},
    {Needs::All, {"fileformat", "csv"}, LinesAs::Text, make<CsvFile>},
    {Needs::All, {"data type/direction:", "zor sounding format"}, LinesAs::Text, makeWithConfig<ZORFile>},
    {Needs::All, {"data type:", "mirra"}, LinesAs::Text, make<MirraFile>},
    {Needs::Any, {"ombra-t", "acs-t"}, LinesAs::Text, makeOmbra},
    {Needs::All, {"vesta"}, LinesAs::Text, make<VestaFile>},
    {Needs::All, {"pelo-t"}, LinesAs::Text, makePelo},
    {Needs::All, {"data type/direction:", "zor"}, LinesAs::Text, makeWithConfig<ZORFile>},
    {Needs::All, {"data type", "trove"}, LinesAs::Text, make<TroveFile>},
    {Needs::All, {"dropwindsonde"}, LinesAs::Text, makeWithConfig<FRDFile>},
    {Needs::All, {"metadata"}, LinesAs::Raw, makeWithConfig<Mw41File>},
    {Needs::All, {"data type:", "project id:"}, LinesAs::Text, make<TroveFile>}, // our product doesn't name its format
}};

bool isOf(const Format& format, const std::string& header) {
    const auto end = std::find(format.marks.begin(), format.marks.end(), std::string_view());
    const auto inHeader = [&](std::string_view mark) { return contains(header, mark); };
    return format.needs == Needs::Any ? std::any_of(format.marks.begin(), end, inHeader)
                                      : std::all_of(format.marks.begin(), end, inHeader);
}

std::string lowerCaseHeader(const Lines& lines) {
    std::string header = lines.empty() ? std::string() : lines[0];
    if (lines.size() > 1) {
        header += " " + lines[1];
    }
    lowerize(header);
    return header;
}

/// Our product says of which system the sounding is in the very line where other formats name themselves; the empty
/// seventh line tells it from those.
bool isTroveProduct(const std::string& header, const Lines& lines) {
    constexpr std::size_t kEmptyLine = 6;
    return isOf(kFormats.back(), header) && lines.size() > kEmptyLine && trimmed(lines[kEmptyLine]) == "/";
}

} // namespace

std::unique_ptr<SoundingFile> SoundingFileFactory::newSoundingFile(ConfigSet& config, std::string fileName,
                                                                   std::istream* stream) {
    if (stream == nullptr) {
        return nullptr;
    }
    Lines lines = readLines(*stream);
    const std::size_t lastLine = lines.size();
    const std::string header = lowerCaseHeader(lines);
    const auto* format = isTroveProduct(header, lines)
                             ? &kFormats.back()
                             : std::find_if(kFormats.begin(), kFormats.end(),
                                            [&](const Format& candidate) { return isOf(candidate, header); });
    if (format == kFormats.end() || format->maker == nullptr) {
        return nullptr;
    }
    if (format->linesAs == LinesAs::Text) {
        lines = preprocess(std::move(lines));
    }
    auto file = format->maker(config, std::move(fileName), std::move(lines));
    if (endedByLongLine(*stream)) {
        file->tellLongLine(lastLine);
    }
    file->settleTimes();
    return file;
}
