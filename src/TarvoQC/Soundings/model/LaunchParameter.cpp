#include "LaunchParameter.h"

void LaunchParameter::set(double v) {
    _value = v;
    _original = v;
    _available = true;
}

void LaunchParameter::adjust(double v, bool ignore) {
    if (v == kMissing) {
        _value = _original;
        _ignored = ignore;
    } else {
        _value = v;
        _available = true;
        _ignored = false;
    }
}

bool LaunchParameter::avail(bool includeIgnored) const {
    if (_value == kMissing) {
        return false; // an override was taken back and the file has no value to return to
    }
    return includeIgnored || !_available ? _available : !_ignored;
}
