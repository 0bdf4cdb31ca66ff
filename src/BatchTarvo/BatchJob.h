#pragma once

#include "BatchFormats.h"
#include "FileReport.h"

#include <string>
#include <vector>

class ConfigSet;
struct Provenance;

/// One input file and the products to make of it.
struct BatchJob {
    struct Product {
        const BatchFormat* format;
        std::string path;
    };

    std::string input;
    std::vector<Product> products;
    std::string refusal;                    ///< why the file isn't processed at all; empty when it is
    std::string derivedFrom;                ///< the file that its reader made this one of; empty for any other
    ConfigSet* config = nullptr;            ///< null: the one of the run
    const Provenance* provenance = nullptr; ///< null: nothing is told of it
};

/// Reads, processes and writes one file with the configuration as it stands, and enters it in the database of soundings
/// \p database unless that is empty. Never throws.
FileReport runBatchJob(const BatchJob& job, ConfigSet& config, const std::string& database);
