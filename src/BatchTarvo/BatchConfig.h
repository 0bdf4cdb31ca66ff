#pragma once

#include "BatchFormats.h"
#include "ConfigSet.h"
#include "RegistryXML.h"

#include <memory>
#include <string>
#include <vector>

/// The configuration of a batch run: one set of one tarvo.xml, with the overrides of the command line. It is never
/// written.
class BatchConfig {
public:
    /// Loads \p file (empty: the user's own if there is one, else the one built in) and picks the set \p setName
    /// (empty: the active one). False when that fails; error() says why.
    bool load(const std::string& file, const std::string& setName);

    /// Applies "KEY=VALUE". False for an unknown key or a value that doesn't fit it; error() says why.
    bool applyOverride(const std::string& assignment);

    /// Takes the BUFR tables from \p directory, whatever the environment says, or from the default place when that is
    /// empty: beside the configuration file, else where they are installed with the program. False when \p directory
    /// doesn't hold them; error() says so.
    bool useBufrTables(const std::string& directory);

    const std::string& error() const { return _error; }
    ConfigSet& set() { return *_set; }
    std::vector<std::string> setNames() const;

    /// The set for soundings that a reader made of others: the second active one, or the first where the file has none.
    std::string secondSetName() const;

    /// The products that the set asks for, in their order.
    std::vector<const BatchFormat*> defaultFormats();
    /// The directory that the set names for products; empty when there is none.
    std::string saveDir();

private:
    bool fail(const std::string& reason);

    std::string _path;                      // of the configuration file; empty for the one built in
    std::unique_ptr<RegistryXML> _registry; // outlives the set
    std::unique_ptr<ConfigSet> _set;
    std::string _error;
};
