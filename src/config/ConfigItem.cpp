#include "ConfigItem.h"

#include <cmath>
#include <limits>
#include <sstream>

ConfigItem::ConfigItem(std::string id, Registry& registry, double value, bool regGet, bool immediate,
                       bool outputAttribute)
    : _id(std::move(id)), _registry(registry), _value(value), _defaultValue(value), _regGet(regGet), _numeric(true),
      _immediateSave(immediate), _outputAttribute(outputAttribute) {
    if (_regGet) {
        _registry.getDouble(_id, value, _value, _defaultValue, _immediateSave);
    }
    _savedValue = _value;
}

ConfigItem::ConfigItem(std::string id, Registry& registry, const std::string& value, bool regGet, bool immediate,
                       bool outputAttribute)
    : _id(std::move(id)), _registry(registry), _text(value), _defaultText(value), _regGet(regGet), _numeric(false),
      _immediateSave(immediate), _outputAttribute(outputAttribute) {
    if (_regGet) {
        _registry.getText(_id, value, _text, _defaultText, _immediateSave);
    }
    _savedText = _text;
}

int ConfigItem::intValue() const {
    using Limits = std::numeric_limits<int>;
    if (std::isnan(_value)) {
        return 0;
    }
    if (_value >= Limits::max()) {
        return Limits::max();
    }
    return _value <= Limits::min() ? Limits::min() : static_cast<int>(_value);
}

bool ConfigItem::set(double value) {
    if (value == _value) {
        return true;
    }
    _value = value;
    if (_regGet) {
        _registry.set(_id, value);
    }
    _changed = value != _savedValue;
    return true;
}

bool ConfigItem::set(const std::string& text) {
    if (text == _text) {
        return true;
    }
    _text = text;
    if (_regGet) {
        _registry.set(_id, text);
    }
    _changed = text != _savedText;
    return true;
}

void ConfigItem::restoreDefault() {
    if (_numeric) {
        set(_defaultValue);
    } else {
        set(_defaultText);
    }
}

void ConfigItem::hasBeenSaved() {
    _savedValue = _value;
    _savedText = _text;
    _changed = false;
}

std::string ConfigItem::dump() const {
    std::ostringstream line;
    line << "Config Item " << _id << "  val:";
    if (_numeric) {
        line << _value;
    } else {
        line << _text;
    }
    line << " regGet: " << _regGet << " regSave: " << _immediateSave;
    return line.str();
}
