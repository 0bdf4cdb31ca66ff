#pragma once

#include "SndMetaData.h"
#include "WMOpart.h"
#include "WMOsection.h"

#include <ostream>
#include <string>
#include <vector>

class Levels;

/// The coded message of a sounding, as a tree: parts hold sections, sections hold groups. It is edited in that form,
/// group by group; the text is made at the very end.
///
/// The level set is borrowed and outlives the message. No coder fails: slashes stand for what can't be coded.
class WMO {
public:
    /// Parts A and B, and C and D when any level lies above 100 mb. Of \p meta it takes date, position, call sign,
    /// station and equipment. \p icao and \p abrHdrOverride (in place of "UZ..13") go into the header of an upsonde.
    WMO(const Levels& levels, TempMsgType msgType, const SndMetaData& meta, bool excludeAbrHdr, const std::string& icao,
        const std::string& abrHdrOverride);
    WMO(const WMO&) = delete;
    WMO& operator=(const WMO&) = delete;
    virtual ~WMO();

    TempMsgType msgType() const { return _msgType; }
    const std::vector<WMOpart>& parts() const { return _parts; }

    /// The message as lines of at most eleven groups. A group of more than 64 characters is cut every 65.
    std::vector<std::string> textLines() const;
    /// Writes those lines without the blanks at their ends, and "NNNN" behind them when asked.
    void saveTextFile(std::ostream& stream, bool appendNNNN) const;

    /// Every section of that number, in the order of the parts.
    void findSection(int number, std::vector<WMOsection*>& out) const;
    std::size_t groupCount() const;

    /// Says in 51515 of a part that the heights from \p p1 to \p p2 (mb) are doubtful, or takes it back.
    void doubtfulHts(bool add, double p1, double p2, WMOpartType part, const Levels& levels);

private:
    std::vector<WMOpart> _parts;
    TempMsgType _msgType;
};
