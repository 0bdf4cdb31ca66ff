#include "WMOcodeGroup.h"

#include "Text.h"

void WMOcodeGroup::modify(const std::string& text) {
    _text = text;
    _modified = trimBoth(_text) != trimBoth(_original);
}

void WMOcodeGroup::revert() {
    _text = _original;
    _modified = false;
}
