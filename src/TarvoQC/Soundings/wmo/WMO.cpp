#include "WMO.h"

#include "Levels.h"
#include "Text.h"
#include "WMOsection9.h"

#include <algorithm>

namespace {

constexpr double kTopOfPartA = 100.0;  // mb
constexpr std::size_t kLongGroup = 64; // characters, from which on a group is cut
constexpr std::size_t kPiece = 65;     // characters
constexpr int kGroupsInLine = 11;

/// Breaks the groups of one part into lines.
class LineMaker {
public:
    void add(const WMOcodeGroup& group) {
        if (group.newLine()) {
            endLine();
        }
        if (group.text().size() > kLongGroup) {
            addLong(group.text());
            return;
        }
        _line += group.text() + " ";
        if (++_count == kGroupsInLine) {
            endLine();
        }
    }
    void endLine() {
        if (!_line.empty()) {
            _lines.push_back(_line);
        }
        _line.clear();
        _count = 0;
    }
    std::vector<std::string>& lines() { return _lines; }

private:
    void addLong(const std::string& text) {
        endLine();
        std::size_t start = 0;
        for (; text.size() - start > kPiece; start += kPiece) {
            _line += text.substr(start, kPiece);
            _lines.push_back(_line);
            _line = _line.back() == ' ' ? " " : ""; // a blank at the end of a line is lost
        }
        _line += text.substr(start) + " ";
        _count = 1;
    }

    std::vector<std::string> _lines;
    std::string _line;
    int _count = 0;
};

bool reachesAbovePartA(const Levels& levels) {
    return std::any_of(levels.levels().begin(), levels.levels().end(), [](const Level& level) {
        double p = 0.0;
        return level.getFieldData(LFpres, p) && p < kTopOfPartA;
    });
}

} // namespace

WMO::WMO(const Levels& levels, TempMsgType msgType, const SndMetaData& meta, bool excludeAbrHdr,
         const std::string& icao, const std::string& abrHdrOverride)
    : _msgType(msgType) {
    std::vector<WMOpartType> types{WMOpartType::A, WMOpartType::B};
    if (reachesAbovePartA(levels)) {
        types.insert(types.end(), {WMOpartType::C, WMOpartType::D});
    }
    const WMOpartTemp::Header header{icao, abrHdrOverride};
    for (const WMOpartType type : types) {
        if (msgType == TempMsgType::TempDrop) {
            _parts.push_back(WMOpartTempdrop(levels, type, meta, !excludeAbrHdr));
        } else {
            _parts.push_back(WMOpartTemp(levels, type, msgType, meta, excludeAbrHdr ? nullptr : &header));
        }
    }
}

WMO::~WMO() = default;

std::vector<std::string> WMO::textLines() const {
    LineMaker maker;
    for (const WMOpart& part : _parts) {
        for (const auto& section : part.sections()) {
            for (const WMOcodeGroup& group : section->groups()) {
                maker.add(group);
            }
        }
        maker.endLine();
    }
    return std::move(maker.lines());
}

void WMO::saveTextFile(std::ostream& stream, bool appendNNNN) const {
    for (const std::string& line : textLines()) {
        stream << trimRight(line) << '\n';
    }
    if (appendNNNN) {
        stream << "NNNN";
    }
    stream.flush();
}

void WMO::findSection(int number, std::vector<WMOsection*>& out) const {
    for (const WMOpart& part : _parts) {
        for (const auto& section : part.sections()) {
            if (section->sectionNumber() == number) {
                out.push_back(section.get());
            }
        }
    }
}

std::size_t WMO::groupCount() const {
    std::size_t count = 0;
    for (const WMOpart& part : _parts) {
        for (const auto& section : part.sections()) {
            count += section->groups().size();
        }
    }
    return count;
}

void WMO::doubtfulHts(bool add, double p1, double p2, WMOpartType part, const Levels& levels) {
    const auto target =
        std::find_if(_parts.begin(), _parts.end(), [part](const WMOpart& other) { return other.type() == part; });
    if (target == _parts.end()) {
        return;
    }
    WMOsection9* section = nullptr;
    for (const auto& candidate : target->sections()) {
        if (auto* found = dynamic_cast<WMOsection9*>(candidate.get())) {
            section = found;
        }
    }
    if (section == nullptr && add) {
        auto made = std::make_unique<WMOsection9>(levels, part);
        section = made.get();
        target->addSection(std::move(made));
    }
    if (section == nullptr) {
        return;
    }
    if (add) {
        section->addDoubtfulHts(p1, p2);
    } else {
        section->removeDoubtfulHts();
    }
}
