#include "BatchOptions.h"

#include "RevisionInfo.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <thread>

namespace {

std::string versionText() {
    const RevisionInfo revision;
    std::string text = "tarvo-batch " + revision.text("REPO_REVISION");
    if (revision.count("REPO_HASH") != 0) {
        text += " (" + revision.text("REPO_HASH").substr(0, 12) + ", " + revision.text("REPO_DATE") + ")";
    }
    return text;
}

int processors() {
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

} // namespace

bool parseBatchOptions(int argc, char** argv, BatchOptions& options, int& status) {
    options.jobs = processors();
    bool listSets = false;
    bool listFormats = false;

    CLI::App app("Quality control of sounding files without a window: reads raw dropsonde and radiosonde files, runs\n"
                 "the QC sequence and writes the products.",
                 "tarvo-batch");
    app.footer("Exit status: 0 all files processed, 1 some failed, 2 wrong usage.\n");
    app.set_version_flag("--version", versionText(), "Print the version and exit");
    app.add_option("PATH", options.paths, "Sounding files, or directories of them");
    app.add_option("--config", options.config,
                   "The tarvo.xml to use; by default the user's own if there is one, else the one built in")
        ->type_name("FILE");
    app.add_option("--set", options.set, "The configuration set; by default the active one")->type_name("NAME");
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
    app.add_flag("--quiet", options.quiet, "Print failures only");
    app.add_flag("--list-sets", listSets, "List the configuration sets and exit");
    app.add_flag("--list-formats", listFormats, "List the products and exit");

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
    if (listSets || listFormats) {
        options.action = listSets ? BatchOptions::Action::ListSets : BatchOptions::Action::ListFormats;
    } else if (options.paths.empty()) {
        std::cerr << "tarvo-batch: no file given (--help tells the usage)\n";
        status = kUsageError;
        return false;
    }
    return true;
}
