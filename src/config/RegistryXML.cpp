#include "RegistryXML.h"

#include "OptionText.h"
#include "RegistryXMLStore.h"

namespace {

const std::string& currentOrDefault(const Option& option) {
    return option.currentText.empty() ? option.defaultText : option.currentText;
}

double numberOf(const Option& option, const std::string& text) {
    if (option.type == Option::BOOL) {
        return text == "true" ? 1.0 : 0.0;
    }
    return optionNumber(text);
}

} // namespace

RegistryXML::RegistryXML(const std::string& path, const std::string& activeOverride)
    : _store(std::make_unique<Store>(path)) {
    _store->load(activeOverride);
}

RegistryXML::RegistryXML(std::unique_ptr<Store> store) : _store(std::move(store)) {}

RegistryXML::~RegistryXML() = default;

std::unique_ptr<RegistryXML> RegistryXML::fromText(const std::string& xml, const std::string& activeOverride) {
    auto store = std::make_unique<Store>("");
    store->loadText(xml, activeOverride);
    return std::unique_ptr<RegistryXML>(new RegistryXML(std::move(store)));
}

int RegistryXML::status() const {
    return _store->status();
}

std::string RegistryXML::statusText() const {
    return _store->statusText();
}

void RegistryXML::getDouble(const std::string& key, double builtIn, double& current, double& defaultValue,
                            bool& immediate) {
    const Store::Entry* entry = _store->find(key);
    if (entry == nullptr) {
        const std::string text = optionText(builtIn);
        _store->addOption(key, Option::NUMERIC, text);
        current = optionNumber(text);
        defaultValue = current;
        immediate = false;
        return;
    }
    current = numberOf(entry->option, currentOrDefault(entry->option));
    defaultValue = numberOf(entry->option, entry->option.defaultText);
    immediate = entry->option.immediate;
}

void RegistryXML::getText(const std::string& key, const std::string& builtIn, std::string& current,
                          std::string& defaultValue, bool& immediate) {
    const Store::Entry* entry = _store->find(key);
    if (entry == nullptr) {
        _store->addOption(key, Option::STRING, builtIn);
        current = builtIn;
        defaultValue = builtIn;
        immediate = false;
        return;
    }
    current = currentOrDefault(entry->option);
    defaultValue = entry->option.defaultText;
    immediate = entry->option.immediate;
}

void RegistryXML::set(const std::string& key, double value) {
    Store::Entry* entry = _store->find(key);
    if (entry == nullptr) {
        return;
    }
    if (entry->option.type == Option::BOOL) {
        _store->setText(*entry, value == 0.0 ? "false" : "true");
    } else {
        _store->setText(*entry, optionText(value));
    }
}

void RegistryXML::set(const std::string& key, const std::string& value) {
    if (Store::Entry* entry = _store->find(key)) {
        _store->setText(*entry, value);
    }
}

void RegistryXML::save(bool immediateOnly) {
    _store->save(immediateOnly);
}

std::string RegistryXML::getActive1SetName() const {
    return _store->active1Name;
}

std::string RegistryXML::getActive2SetName() const {
    return _store->active2Name;
}

std::vector<std::string> RegistryXML::getSetNames() const {
    std::vector<std::string> names;
    for (const auto& [name, options] : _store->sets()) {
        names.push_back(name);
    }
    return names;
}

void RegistryXML::setActive1SetName(const std::string& name) {
    _store->active1Name = name;
}

void RegistryXML::setActive2SetName(const std::string& name) {
    _store->active2Name = name;
}

bool RegistryXML::cloneSet(const std::string& from, const std::string& to) {
    return _store->cloneSet(from, to);
}

bool RegistryXML::deleteSet(const std::string& name) {
    return _store->deleteSet(name);
}

bool RegistryXML::getOptionType(const std::string& key, Option::OPTION_TYPE& type) const {
    const Store::Entry* entry = _store->find(key);
    if (entry == nullptr) {
        return false;
    }
    type = entry->option.type;
    return true;
}
