#pragma once

#include "ConfigItem.h"
#include "Id.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

/// All items the system knows: what every algorithm, tab and product asks for its parameters, by key, at the moment of
/// use. The store is borrowed and outlives the set.
///
/// Reads of an unknown key answer false and leave the argument as it was, so callers keep a local default. Whether a
/// key is present is itself meaningful: the overrides of one sounding are items that exist only while set.
class ConfigSet {
public:
    explicit ConfigSet(Registry* registry);
    ConfigSet(const ConfigSet&) = delete;
    ConfigSet& operator=(const ConfigSet&) = delete;
    virtual ~ConfigSet() = default;

    /// A set of the same items over the same store.
    std::unique_ptr<ConfigSet> copy() const;

    /// Registers an item, in place of one that is there under the key.
    void add(const std::string& key, double value, bool regGet, bool immediate, bool outputAttribute);
    void add(const std::string& key, const std::string& value, bool regGet, bool immediate, bool outputAttribute);
    /// A literal is a text, never a bool.
    void add(const std::string& key, const char* value, bool regGet, bool immediate, bool outputAttribute);

    /// Set the value of a registered key. An unknown key is left unknown, and false.
    bool set(const std::string& key, double value);
    bool set(const std::string& key, const std::string& value);
    bool set(const std::string& key, const char* value);

    bool value(const std::string& key, double& out) const;
    /// Truncated toward zero.
    bool intValue(const std::string& key, int& out) const;
    bool boolValue(const std::string& key, bool& out) const;
    bool text(const std::string& key, std::string& out) const;

    bool exists(const std::string& key) const;
    void remove(const std::string& key);

    /// The item of a registered key; null for an unknown one.
    ConfigItem* operator[](const Id& id) const;
    auto begin() const { return _items.begin(); }
    auto end() const { return _items.end(); }

    /// True if any item differs from what was saved.
    bool changed() const;
    void restoreDefault();
    /// Lets the store save, then marks as saved what it saved.
    void save(bool immediateOnly);

    std::string getSetName() const;
    std::vector<std::string> getSetNames() const;
    std::vector<std::string> dump() const;

protected:
    Registry& registry() const { return *_registry; }

private:
    template <typename Out, typename Read>
    bool readItem(const std::string& key, Out& out, Read read) const;
    template <typename Value>
    void addItem(const std::string& key, const Value& value, bool regGet, bool immediate, bool outputAttribute);

    std::map<Id, std::unique_ptr<ConfigItem>> _items;
    Registry* _registry;
};
