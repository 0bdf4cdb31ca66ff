#include "ConfigSet.h"

#include <algorithm>

ConfigSet::ConfigSet(Registry* registry) : _registry(registry) {}

std::unique_ptr<ConfigSet> ConfigSet::copy() const {
    auto other = std::make_unique<ConfigSet>(_registry);
    for (const auto& [id, item] : _items) {
        other->_items.emplace_hint(other->_items.end(), id, std::make_unique<ConfigItem>(*item));
    }
    return other;
}

template <typename Value>
void ConfigSet::addItem(const std::string& key, const Value& value, bool regGet, bool immediate, bool outputAttribute) {
    _items[Id(key)] = std::make_unique<ConfigItem>(key, *_registry, value, regGet, immediate, outputAttribute);
}

void ConfigSet::add(const std::string& key, double value, bool regGet, bool immediate, bool outputAttribute) {
    addItem(key, value, regGet, immediate, outputAttribute);
}

void ConfigSet::add(const std::string& key, const std::string& value, bool regGet, bool immediate,
                    bool outputAttribute) {
    addItem(key, value, regGet, immediate, outputAttribute);
}

void ConfigSet::add(const std::string& key, const char* value, bool regGet, bool immediate, bool outputAttribute) {
    addItem(key, std::string(value), regGet, immediate, outputAttribute);
}

bool ConfigSet::set(const std::string& key, double value) {
    ConfigItem* item = (*this)[key];
    return item != nullptr && item->set(value);
}

bool ConfigSet::set(const std::string& key, const std::string& value) {
    ConfigItem* item = (*this)[key];
    return item != nullptr && item->set(value);
}

bool ConfigSet::set(const std::string& key, const char* value) {
    return set(key, std::string(value));
}

template <typename Out, typename Read>
bool ConfigSet::readItem(const std::string& key, Out& out, Read read) const {
    const ConfigItem* item = (*this)[key];
    if (item == nullptr) {
        return false;
    }
    out = (item->*read)();
    return true;
}

bool ConfigSet::value(const std::string& key, double& out) const {
    return readItem(key, out, &ConfigItem::value);
}

bool ConfigSet::intValue(const std::string& key, int& out) const {
    return readItem(key, out, &ConfigItem::intValue);
}

bool ConfigSet::boolValue(const std::string& key, bool& out) const {
    return readItem(key, out, &ConfigItem::boolValue);
}

bool ConfigSet::text(const std::string& key, std::string& out) const {
    return readItem(key, out, &ConfigItem::text);
}

bool ConfigSet::exists(const std::string& key) const {
    return _items.count(Id(key)) != 0;
}

void ConfigSet::remove(const std::string& key) {
    _items.erase(Id(key));
}

ConfigItem* ConfigSet::operator[](const Id& id) const {
    const auto found = _items.find(id);
    return found == _items.end() ? nullptr : found->second.get();
}

bool ConfigSet::changed() const {
    return std::any_of(_items.begin(), _items.end(), [](const auto& entry) { return entry.second->changed(); });
}

void ConfigSet::restoreDefault() {
    for (const auto& [id, item] : _items) {
        item->restoreDefault();
    }
}

void ConfigSet::save(bool immediateOnly) {
    _registry->save(immediateOnly);
    for (const auto& [id, item] : _items) {
        if (!immediateOnly || item->isImmediateSave()) {
            item->hasBeenSaved();
        }
    }
}

std::string ConfigSet::getSetName() const {
    return _registry->getActive1SetName();
}

std::vector<std::string> ConfigSet::getSetNames() const {
    return _registry->getSetNames();
}

std::vector<std::string> ConfigSet::dump() const {
    std::vector<std::string> lines;
    lines.reserve(_items.size());
    for (const auto& [id, item] : _items) {
        lines.push_back(item->dump());
    }
    return lines;
}
