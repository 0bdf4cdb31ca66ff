#include "WMOpart.h"

#include "AbrHeader.h"
#include "ProcessingTime.h"
#include "SignificantSections.h"
#include "Trailer.h"
#include "UtcTime.h"
#include "WMOsection1.h"
#include "WMOsection10.h"
#include "WMOsection2.h"
#include "WMOsection3.h"
#include "WMOsection4.h"
#include "WMOsection7.h"
#include "WMOsection9.h"

#include <algorithm>
#include <cstdlib>

namespace {

const char* const kEnd = "=";

int numberIn(std::int64_t time, const char* format) {
    return std::atoi(utcText(time, format).c_str());
}

} // namespace

WMOpart::WMOpart(const Levels& levels, WMOpartType type, const SndMetaData& meta) : _type(type) {
    if (type == WMOpartType::A || type == WMOpartType::C) {
        addSection(std::make_unique<WMOsection2>(levels, type));
        addSection(std::make_unique<WMOsection3>(levels, type));
        addSection(std::make_unique<WMOsection4>(levels, type));
    } else {
        addSection(std::make_unique<WMOsection5>(levels, type));
        addSection(std::make_unique<WMOsection6>(levels, type));
    }
    addSection(std::make_unique<WMOsection7>(levels, type, meta));
}

void WMOpart::addSection(std::unique_ptr<WMOsection> section) {
    const int number = section->sectionNumber();
    const auto place = std::find_if(_sections.begin(), _sections.end(),
                                    [number](const auto& other) { return other->sectionNumber() >= number; });
    _sections.insert(place, std::move(section));
}

WMOpartTemp::WMOpartTemp(const Levels& levels, WMOpartType type, TempMsgType message, const SndMetaData& meta,
                         const Header* header)
    : WMOpart(levels, type, meta) {
    if (type == WMOpartType::A && header != nullptr) {
        const bool known = meta.launchLat.avail(false) && meta.launchLon.avail(false);
        const std::int64_t now = processingTime(); // once, or midnight may come in between
        auto section = std::make_unique<AbrHeader>(levels, type);
        section->create(header->icao, "", numberIn(now, "%d"), numberIn(now, "%H"), numberIn(now, "%M"),
                        known ? meta.launchLat.value() : 0.0, known ? meta.launchLon.value() : 0.0, header->abrHdr);
        addSection(std::move(section));
    }
    addSection(std::make_unique<WMOsection1temp>(levels, type, message, meta));
    addSection(std::make_unique<Trailer>(levels, type, kEnd));
}

WMOpartTempdrop::WMOpartTempdrop(const Levels& levels, WMOpartType type, const SndMetaData& meta, bool withHeader)
    : WMOpart(levels, type, meta) {
    if (type == WMOpartType::A && withHeader) {
        addSection(std::make_unique<AbrHeader>(levels, type));
    }
    addSection(std::make_unique<WMOsection1tempdrop>(levels, type, meta));
    addSection(std::make_unique<WMOsection9>(levels, type));
    addSection(std::make_unique<WMOsection10>(levels, type));
    addSection(std::make_unique<Trailer>(levels, type, kEnd));
}
