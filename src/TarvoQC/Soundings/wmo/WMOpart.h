#pragma once

#include "SndMetaData.h"
#include "WMOsection.h"

#include <memory>
#include <string>
#include <vector>

/// One part of a message: its sections, in the order of their numbers.
class WMOpart {
public:
    WMOpart(WMOpart&&) = default;
    WMOpart& operator=(WMOpart&&) = default;
    virtual ~WMOpart() = default;

    WMOpartType type() const { return _type; }
    const std::vector<std::unique_ptr<WMOsection>>& sections() const { return _sections; }
    /// Puts a section ahead of the first whose number is at or above its own.
    void addSection(std::unique_ptr<WMOsection> section);

protected:
    /// The sections that all code forms share.
    WMOpart(const Levels& levels, WMOpartType type, const SndMetaData& meta);

private:
    std::vector<std::unique_ptr<WMOsection>> _sections;
    WMOpartType _type;
};

/// Of TEMP, TEMP SHIP and TEMP MOBIL.
class WMOpartTemp : public WMOpart {
public:
    /// What goes into the abbreviated header of part A; null for none.
    struct Header {
        std::string icao;
        std::string abrHdr; ///< in place of "UZ..13"
    };

    WMOpartTemp(const Levels& levels, WMOpartType type, TempMsgType message, const SndMetaData& meta,
                const Header* header);
};

/// Of TEMP DROP.
class WMOpartTempdrop : public WMOpart {
public:
    WMOpartTempdrop(const Levels& levels, WMOpartType type, const SndMetaData& meta, bool withHeader);
};
