#include "WMOsection7.h"

#include "GroupCoders.h"

WMOsection7::WMOsection7(const Levels& levels, WMOpartType part, const SndMetaData& meta)
    : WMOsection(levels, part, 7) {
    addOnNewLine("31313");
    add(meta.WMOradCorrection + meta.WMOsondeType + meta.WMOtrackingType);
    add("8" + WMOgroup::GGgg(meta.hour, meta.min));
}
