#pragma once

#include "EditorControl.h"

#include <string>
#include <vector>

/// What a product is made with, beside its input: the same for all files of a run but for descents, which have a set of
/// their own.
struct Provenance {
    std::string version;                ///< of the program, with its commit
    std::string set;                    ///< of the configuration
    std::vector<std::string> overrides; ///< KEY=VALUE, as they were given
    bool withHashes = false;            ///< whether the report tells the SHA-256 of input and products
    bool inProducts = false;            ///< whether CSV and netCDF tell it too

    /// As pairs for a product of \p input.
    EditorControl::Attributes attributes(const std::string& input) const;
};
