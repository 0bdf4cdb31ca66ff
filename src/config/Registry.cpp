#include "Registry.h"

namespace {
const char* const kOnlySet = "internal";
}

void Registry::getDouble(const std::string& key, double builtIn, double& current, double& defaultValue,
                         bool& immediate) {
    const auto stored = _values.find(key);
    current = stored == _values.end() ? builtIn : stored->second;
    defaultValue = builtIn;
    immediate = false;
}

void Registry::getText(const std::string& key, const std::string& builtIn, std::string& current,
                       std::string& defaultValue, bool& immediate) {
    const auto stored = _texts.find(key);
    current = stored == _texts.end() ? builtIn : stored->second;
    defaultValue = builtIn;
    immediate = false;
}

void Registry::set(const std::string& key, double value) {
    _values[key] = value;
}

void Registry::set(const std::string& key, const std::string& value) {
    _texts[key] = value;
}

void Registry::save(bool /*immediateOnly*/) {}

int Registry::status() const {
    return 0;
}

std::string Registry::getActive1SetName() const {
    return kOnlySet;
}

std::string Registry::getActive2SetName() const {
    return kOnlySet;
}

std::vector<std::string> Registry::getSetNames() const {
    return {kOnlySet};
}

void Registry::setActive1SetName(const std::string& /*name*/) {}

void Registry::setActive2SetName(const std::string& /*name*/) {}

bool Registry::cloneSet(const std::string& /*from*/, const std::string& /*to*/) {
    return true;
}

bool Registry::deleteSet(const std::string& /*name*/) {
    return true;
}

bool Registry::getOptionType(const std::string& /*key*/, Option::OPTION_TYPE& /*type*/) const {
    return false;
}
