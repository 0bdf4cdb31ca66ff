#pragma once

#include <string>
#include <vector>

/// The command line of tarvo-batch.
struct BatchOptions {
    enum class Action { Process, Explain, ListSets, ListFormats };

    Action action = Action::Process;
    std::vector<std::string> paths;
    std::string config; ///< empty for the default
    std::string set;    ///< empty for the active one
    std::string out;    ///< empty for the default
    std::string formats;
    std::vector<std::string> overrides;
    std::string bufrTables; ///< empty for the default
    std::string database;   ///< empty for none
    bool recursive = false;
    int jobs = 1;
    double timeout = 300.0;
    std::string report; ///< a path, "-" for standard output, empty for none
    bool quiet = false;
    unsigned shard = 1; ///< from 1 to shards
    unsigned shards = 1;
    bool resume = false;
    std::string watch; ///< the directory whose new files are processed; empty for none
    double settle = 2.0;
    bool provenance = false;
};

/// The exit statuses.
constexpr int kAllProcessed = 0;
constexpr int kSomeFailed = 1;
constexpr int kUsageError = 2;

/// The version of the program, and the commit that it was built from where that is known: "V3.4.8 0123456789ab".
std::string versionText();

/// Takes the command line apart. True to go on; otherwise everything has been said (help, version, what is wrong) and
/// \p status is the one to exit with.
bool parseBatchOptions(int argc, char** argv, BatchOptions& options, int& status);
