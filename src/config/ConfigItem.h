#pragma once

#include "Registry.h"

#include <string>

/// One parameter of the system: its key, current value, the value last saved, and the default. Numbers, integers and
/// booleans are numeric items (0.0 false, any other value true), the others text items.
///
/// An item bound to the store takes its value, default and immediate flag from there and writes every change through to
/// it; one that isn't lives only in memory.
class ConfigItem {
public:
    ConfigItem(std::string id, Registry& registry, double value, bool regGet, bool immediate, bool outputAttribute);
    ConfigItem(std::string id, Registry& registry, const std::string& value, bool regGet, bool immediate,
               bool outputAttribute);
    virtual ~ConfigItem() = default;

    const std::string& id() const { return _id; }
    double value() const { return _value; }
    /// The value truncated toward zero; 0 for a NaN, the nearest integer there is for a value beyond all of them.
    int intValue() const;
    bool boolValue() const { return _value != 0.0; }
    const std::string& text() const { return _text; }
    double defaultValue() const { return _defaultValue; }
    const std::string& defaultText() const { return _defaultText; }

    /// Always true. Setting the value that is in force does nothing at all.
    bool set(double value);
    bool set(const std::string& text);
    void restoreDefault();
    /// The current value is the saved one from now on.
    void hasBeenSaved();

    bool changed() const { return _changed; }
    bool isNumeric() const { return _numeric; }
    bool isImmediateSave() const { return _immediateSave; }
    /// Whether products that document the configuration list the item.
    bool isOutputAttribute() const { return _outputAttribute; }

    /// One line for diagnostics.
    std::string dump() const;

private:
    std::string _id;
    Registry& _registry;
    double _value = 0.0;
    double _savedValue = 0.0;
    double _defaultValue = 0.0;
    std::string _text;
    std::string _savedText;
    std::string _defaultText;
    bool _regGet;
    bool _changed = false;
    bool _numeric;
    bool _immediateSave;
    bool _outputAttribute;
};
