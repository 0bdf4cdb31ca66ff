#include "BatchOptions.h"

#include "RevisionInfo.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <iostream>
#include <thread>

namespace {

int processors() {
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

/// Takes "I/N". False when it isn't that, or I lies outside 1 to N.
bool parseShard(const std::string& text, BatchOptions& options) {
    const auto slash = text.find('/');
    const auto number = [](const std::string& digits, unsigned& value) {
        const char* const end = digits.data() + digits.size();
        const auto parsed = std::from_chars(digits.data(), end, value);
        return parsed.ec == std::errc() && parsed.ptr == end;
    };
    return slash != std::string::npos && number(text.substr(0, slash), options.shard) &&
           number(text.substr(slash + 1), options.shards) && options.shard >= 1 && options.shard <= options.shards;
}

/// Why the options don't go together; empty when they do. Takes the shard.
std::string contradiction(BatchOptions& options, const std::string& shard) {
    const bool watches = !options.watch.empty();
    const bool hasReportFile = !options.report.empty() && options.report != "-";
    if (options.paths.empty() && !watches) {
        return "no file given (--help tells the usage)";
    }
    if (watches && (!options.paths.empty() || options.action == BatchOptions::Action::Explain)) {
        return "--watch looks after its directory alone";
    }
    if (watches && !hasReportFile) {
        return "--watch needs --report FILE, which tells after a restart what is done";
    }
    if (options.resume && !hasReportFile) {
        return "--resume needs --report FILE, the one of the run to resume";
    }
    if (!shard.empty() && !parseShard(shard, options)) {
        return "--shard is I/N, with I from 1 to N: " + shard;
    }
    return {};
}

/// What the command line holds besides the options themselves.
struct Requests {
    bool listSets = false;
    bool listFormats = false;
    bool explain = false;
    std::string shard;
};

void addInput(CLI::App& app, BatchOptions& options) {
    app.add_option("PATH", options.paths, "Sounding files, or directories of them");
    app.add_option("--config", options.config,
                   "The tarvo.xml to use; by default the user's own if there is one, else the one built in")
        ->type_name("FILE");
    app.add_option("--set", options.set, "The configuration set; by default the active one")->type_name("NAME");
}

void addOutput(CLI::App& app, BatchOptions& options) {
    app.add_option("--out", options.out,
                   "Where products go, made when missing; by default BatchSaveDir if that is there, else here")
        ->type_name("DIR");
    app.add_option("--formats", options.formats,
                   "Products to write, separated by commas; by default those that the set asks for, else qc-csv")
        ->type_name("LIST");
    app.add_option("--override", options.overrides, "Set a parameter for this run only; may be repeated")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    app.add_option("--bufr-tables", options.bufrTables,
                   "Where table_b_bufr and table_d_bufr are; by default beside the configuration file if they are\n"
                   "there, else those that came with the program")
        ->type_name("DIR");
    app.add_option("--db", options.database,
                   "Enter each sounding with its levels in this sounding database, made when missing")
        ->type_name("FILE")
        ->check([](const std::string& path) { return path.empty() ? "no file is named" : ""; });
}

void addCampaign(CLI::App& app, BatchOptions& options, Requests& requests) {
    app.add_flag("--recursive", options.recursive, "Descend into directories");
    app.add_option("--jobs", options.jobs, "Files at once")
        ->type_name("N")
        ->check(CLI::Range(1, 1024))
        ->capture_default_str();
    app.add_option("--timeout", options.timeout, "Time for one file, seconds")
        ->type_name("SECONDS")
        ->check(CLI::Range(1.0, 1e6))
        ->capture_default_str();
    app.add_option("--report", options.report, "Write a JSON line for each file; - is standard output")
        ->type_name("FILE");
    app.add_option("--shard", requests.shard, "Process the files of one shard of N only, for the jobs of an array")
        ->type_name("I/N");
    app.add_flag("--resume", options.resume,
                 "Leave out what an earlier run has done, by its --report FILE, to which this run adds");
    app.add_option("--watch", options.watch,
                   "Process each new file of the directory once it is complete, until stopped; the report is needed")
        ->type_name("DIR")
        ->check(CLI::ExistingDirectory);
    app.add_option("--settle", options.settle, "Time without a change after which a watched file is complete, seconds")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.0, 3600.0))
        ->capture_default_str();
}

void addReports(CLI::App& app, BatchOptions& options, Requests& requests) {
    app.add_flag("--provenance", options.provenance,
                 "Tell program, set, overrides and the hash of the input in CSV and netCDF products too");
    app.add_flag("--explain", requests.explain, "Tell what QC removed from each file and why, and write no products");
    app.add_flag("--quiet", options.quiet, "Print failures only");
    app.add_flag("--list-sets", requests.listSets, "List the configuration sets and exit");
    app.add_flag("--list-formats", requests.listFormats, "List the products and exit");
}

} // namespace

std::string versionText() {
    constexpr std::size_t kEnoughOfHash = 12;
    const RevisionInfo revision;
    const std::string hash = revision.count("REPO_HASH") != 0 ? revision.text("REPO_HASH") : "";
    return revision.text("REPO_REVISION") + (hash.empty() ? "" : " " + hash.substr(0, kEnoughOfHash));
}

bool parseBatchOptions(int argc, char** argv, BatchOptions& options, int& status) {
    options.jobs = processors();
    Requests requests;

    CLI::App app("Quality control of sounding files without a window: reads raw dropsonde and radiosonde files, runs\n"
                 "the QC sequence and writes the products.",
                 "tarvo-batch");
    app.footer("Exit status: 0 all files processed, 1 some failed, 2 wrong usage.\n");
    app.set_version_flag("--version", "tarvo-batch " + versionText(), "Print the version and exit");
    addInput(app, options);
    addOutput(app, options);
    addCampaign(app, options, requests);
    addReports(app, options, requests);

    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        app.exit(success);
        status = kAllProcessed;
        return false;
    } catch (const CLI::ParseError& error) {
        app.exit(error);
        status = kUsageError;
        return false;
    }
    if (requests.listSets || requests.listFormats) {
        options.action = requests.listSets ? BatchOptions::Action::ListSets : BatchOptions::Action::ListFormats;
        return true;
    }
    if (requests.explain) {
        options.action = BatchOptions::Action::Explain;
    }
    const std::string wrong = contradiction(options, requests.shard);
    if (!wrong.empty()) {
        std::cerr << "tarvo-batch: " << wrong << "\n";
        status = kUsageError;
    }
    return wrong.empty();
}
