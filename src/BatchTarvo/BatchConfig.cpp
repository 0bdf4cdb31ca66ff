#include "BatchConfig.h"

#include "Environment.h"
#include "ParameterTable.h"
#include "ShippedConfiguration.h"
#include "TarvoConfigSet.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

const char* const kFileName = "tarvo.xml";

/// The user's own configuration file, or an empty text when there is none.
std::string userFile() {
    std::error_code error;
    if (const char* folder = std::getenv("TARVOCONFIG")) {
        const fs::path path = fs::path(folder) / kFileName;
        if (fs::exists(path, error)) {
            return path.string();
        }
    }
    if (const char* home = std::getenv("HOME")) {
        const fs::path path = fs::path(home) / ".config/Tarvo" / kFileName;
        if (fs::exists(path, error)) {
            return path.string();
        }
    }
    return {};
}

std::unique_ptr<RegistryXML> openRegistry(const std::string& path, const std::string& setName) {
    return path.empty() ? RegistryXML::fromText(shippedConfiguration(setName), setName)
                        : std::make_unique<RegistryXML>(path, setName);
}

/// Sorted by name, as a store tells them.
std::vector<std::string> shippedNames() {
    std::vector<std::string> names;
    for (const ShippedSet& set : shippedSets()) {
        names.emplace_back(set.name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool hasBufrTables(const fs::path& folder) {
    std::error_code error;
    return fs::is_regular_file(folder / "table_b_bufr", error) && fs::is_regular_file(folder / "table_d_bufr", error);
}

/// Where the tables are installed with this program, or made ready beside a program that isn't installed.
fs::path installedBufrTables() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path().parent_path() / "share/tarvo";
}

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

/// The whole of \p text as a finite number.
bool parseNumber(const std::string& text, double& number) {
    char* end = nullptr;
    number = std::strtod(text.c_str(), &end);
    return !text.empty() && *end == '\0' && std::isfinite(number);
}

/// A number, or of a flag also "true" or "false".
bool parseValue(const Parameter& parameter, const std::string& text, double& number) {
    if (parameter.kind != ParameterKind::Flag) {
        return parseNumber(text, number);
    }
    number = text == "true" ? 1.0 : 0.0;
    return text == "true" || text == "false" || (parseNumber(text, number) && (number == 0.0 || number == 1.0));
}

} // namespace

bool BatchConfig::fail(const std::string& reason) {
    _error = reason;
    return false;
}

bool BatchConfig::load(const std::string& file, const std::string& setName) {
    const std::string path = file.empty() ? userFile() : file;
    _path = path;
    _registry = openRegistry(path, setName);
    if (_registry->status() != RegistryXML::LOADED && !setName.empty()) {
        // The file may be good and the name not: without the name it tells its sets.
        const auto names = path.empty() ? shippedNames() : openRegistry(path, "")->getSetNames();
        if (!names.empty() && std::find(names.begin(), names.end(), setName) == names.end()) {
            std::string list;
            for (const std::string& name : names) {
                list += " " + name;
            }
            return fail("there is no configuration set " + quoted(setName) + "; the sets are:" + list);
        }
    }
    if (_registry->status() != RegistryXML::LOADED) {
        return fail("the configuration " + path + " can't be used: " + _registry->statusText());
    }
    _set = std::make_unique<TarvoConfigSet>(_registry.get());
    for (const Parameter& parameter : parameterTable()) {
        if (parameter.scope != ParameterScope::Batch) {
            continue;
        }
        const std::string key(parameter.key);
        if (parameter.isNumeric()) {
            _set->add(key, parameter.builtInNumber, true, parameter.immediate, false);
        } else {
            _set->add(key, std::string(parameter.builtInText), true, parameter.immediate, false);
        }
    }
    return true;
}

std::vector<std::string> BatchConfig::setNames() const {
    return _path.empty() ? shippedNames() : _registry->getSetNames();
}

bool BatchConfig::applyOverride(const std::string& assignment) {
    const auto equals = assignment.find('=');
    if (equals == std::string::npos) {
        return fail("--override takes KEY=VALUE, not " + quoted(assignment));
    }
    const std::string key = assignment.substr(0, equals);
    const std::string text = assignment.substr(equals + 1);
    const Parameter* parameter = findParameter(key);
    if (parameter == nullptr) {
        return fail("--override names an unknown parameter: " + quoted(key));
    }
    if (!parameter->isNumeric()) {
        _set->set(key, text);
        return true;
    }
    double number = 0.0;
    if (!parseValue(*parameter, text, number)) {
        return fail("--override " + key + " takes a " +
                    (parameter->kind == ParameterKind::Flag ? "flag (true or false)" : "number") + ", not " +
                    quoted(text));
    }
    if (parameter->scope == ParameterScope::OnDemand) {
        _set->add(key, number, false, false, true);
    } else {
        _set->set(key, number);
    }
    return true;
}

bool BatchConfig::useBufrTables(const std::string& directory) {
    if (!directory.empty()) {
        if (!hasBufrTables(directory)) {
            return fail("there are no table_b_bufr and table_d_bufr in " + directory);
        }
        setBufrTables(directory);
    }
    fs::path folder = fs::path(_path).parent_path();
    if (_path.empty() || !hasBufrTables(folder)) {
        folder = installedBufrTables();
    }
    _set->add(kBufrTablesItem, folder.string(), false, false, false);
    return true;
}

std::string BatchConfig::secondSetName() const {
    const auto names = setNames();
    const std::string second = _registry->getActive2SetName();
    return std::find(names.begin(), names.end(), second) == names.end() ? _registry->getActive1SetName() : second;
}

std::vector<const BatchFormat*> BatchConfig::defaultFormats() {
    std::vector<const BatchFormat*> formats;
    for (const BatchFormat& format : batchFormats()) {
        bool wanted = false;
        if (format.item != nullptr && _set->boolValue(format.item, wanted) && wanted) {
            formats.push_back(&format);
        }
    }
    return formats;
}

std::string BatchConfig::saveDir() {
    std::string directory;
    _set->text("BatchSaveDir", directory);
    return directory;
}
