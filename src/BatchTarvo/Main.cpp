#include "BatchConfig.h"
#include "BatchDatabase.h"
#include "BatchOptions.h"
#include "BatchPlan.h"
#include "Environment.h"
#include "Progress.h"
#include "Text.h"
#include "WorkerPool.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

int usageError(const std::string& reason) {
    std::cerr << "tarvo-batch: " << reason << "\n";
    return kUsageError;
}

/// The formats that a comma list names. False, with the reason in \p error, for one that isn't known.
bool parseFormats(const std::string& list, std::vector<const BatchFormat*>& formats, std::string& error) {
    for (const std::string& name : tokenize(list, ",")) {
        if (name.empty()) {
            continue;
        }
        const BatchFormat* format = findBatchFormat(name);
        if (format == nullptr) {
            error = "unknown format \"" + name + "\"; the formats are:";
            for (const BatchFormat& known : batchFormats()) {
                error += std::string(" ") + known.name;
            }
            return false;
        }
        if (std::find(formats.begin(), formats.end(), format) == formats.end()) {
            formats.push_back(format);
        }
    }
    if (formats.empty()) {
        error = "--formats names no format";
        return false;
    }
    return true;
}

/// What the set asks for, or the QC data as CSV.
std::vector<const BatchFormat*> defaultFormats(BatchConfig& config) {
    const std::vector<const BatchFormat*> formats = config.defaultFormats();
    return formats.empty() ? std::vector<const BatchFormat*>{findBatchFormat("qc-csv")} : formats;
}

int listSets(const BatchConfig& config) {
    for (const std::string& name : config.setNames()) {
        std::cout << name << "\n";
    }
    return kAllProcessed;
}

int listFormats() {
    for (const BatchFormat& format : batchFormats()) {
        std::cout << format.name << std::string(11 - std::string(format.name).size(), ' ') << "NAME" << format.suffix
                  << "\n";
    }
    return kAllProcessed;
}

/// Writes report lines in the order of the input, whatever the order in which the files finish.
class OrderedReport {
public:
    explicit OrderedReport(std::ostream* out) : _out(out) {}
    void add(std::size_t index, const FileReport& report) {
        if (_out == nullptr) {
            return;
        }
        _waiting[index] = report.toJson();
        for (auto line = _waiting.find(_next); line != _waiting.end(); line = _waiting.find(_next)) {
            *_out << line->second << std::endl;
            _waiting.erase(line);
            ++_next;
        }
    }
    /// Writes what waits for a line that will never come.
    void flush() {
        for (const auto& [index, line] : _waiting) {
            *_out << line << std::endl;
        }
        _waiting.clear();
    }
    bool good() const { return _out == nullptr || _out->good(); }

private:
    std::ostream* _out;
    std::map<std::size_t, std::string> _waiting;
    std::size_t _next = 0;
};

/// Whether a report may go to \p path: it may replace an earlier report, but nothing else, least of all a sounding that
/// stands where the name of the report was forgotten.
bool mayHoldReport(const std::string& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) {
        return true;
    }
    std::ifstream file(path);
    const int first = file.get();
    return first == std::ifstream::traits_type::eof() || first == '{';
}

/// Where lines of the report go. False, with a usage error in \p status, when they can't go there.
bool openReport(const BatchOptions& options, BatchPlan& plan, std::ofstream& file, std::ostream*& stream, int& status) {
    if (options.report == "-") {
        stream = &std::cout;
    } else if (!options.report.empty()) {
        if (!mayHoldReport(options.report)) {
            status = usageError("the report would replace a file that is no report: " + options.report);
            return false;
        }
        std::error_code error;
        if (fs::is_regular_file(options.report, error)) {
            plan.leaveOut(options.report); // the report of an earlier run, in a directory that was asked for
        }
        file.open(options.report);
        if (!file) {
            status = usageError("the report can't be written: " + options.report);
            return false;
        }
        stream = &file;
    }
    return true;
}

/// What the command line says beyond the file and the set. False with an error of the configuration.
bool applyOptions(const BatchOptions& options, BatchConfig& config) {
    return std::all_of(options.overrides.begin(), options.overrides.end(),
                       [&](const std::string& assignment) { return config.applyOverride(assignment); }) &&
           config.useBufrTables(options.bufrTables);
}

/// The configuration for soundings that readers make of others; loaded only when they do.
struct SecondConfig {
    bool wanted = false;
    std::string name;
    BatchConfig config;

    /// False when there should be one and can't be.
    bool load(const BatchOptions& options, BatchConfig& first) {
        first.set().boolValue("descendingPELO", wanted);
        if (!wanted) {
            return true;
        }
        name = first.secondSetName();
        return config.load(options.config, name) && applyOptions(options, config);
    }
};

/// The database is no sounding, nor is what SQLite keeps beside it.
void leaveOutDatabase(const std::string& path, BatchPlan& plan) {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        plan.leaveOut(path + suffix);
    }
}

int processAll(const BatchOptions& options, BatchConfig& config, const std::vector<const BatchFormat*>& formats,
               const std::string& outDir) {
    SecondConfig second;
    if (!second.load(options, config)) {
        return usageError(second.config.error());
    }
    const std::string hindrance = options.database.empty() ? "" : BatchDatabase::prepare(options.database);
    if (!hindrance.empty()) {
        return usageError(hindrance);
    }
    BatchPlan plan(options.paths, options.recursive, formats, outDir, second.wanted);
    if (!options.database.empty()) {
        leaveOutDatabase(options.database, plan);
    }
    std::ofstream reportFile;
    std::ostream* reportStream = nullptr;
    int status = kUsageError;
    if (!openReport(options, plan, reportFile, reportStream, status)) {
        return status;
    }
    Progress progress(plan.jobs().size(), options.quiet, options.report == "-");
    OrderedReport report(reportStream);
    WorkerPool pool({options.jobs, options.timeout}, config.set(), options.database);
    const int signal = pool.run(plan.jobs(), [&](std::size_t index, FileReport done) {
        done.derivedFrom = plan.jobs()[index].derivedFrom;
        done.set = done.derivedFrom.empty() ? std::string() : second.name;
        if (second.wanted && plan.follow(index, done.derived, &second.config.set())) {
            progress.expectMore();
        }
        progress.fileDone(done);
        report.add(index, done);
    });
    report.flush();
    progress.finish();
    if (signal != 0) {
        // Nothing is half written; what asked for the end shall see that it got it.
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
    if (!report.good()) {
        std::cerr << "tarvo-batch: the report is incomplete: " << options.report << "\n";
        return kSomeFailed;
    }
    return progress.failed() == 0 ? kAllProcessed : kSomeFailed;
}

/// A standard stream that the caller has closed would lend its number to the next file that is opened, and what is
/// printed would end up there. As streams that can't be written, they fail instead.
void occupyStandardStreams() {
    while (true) {
        const int file = open("/dev/null", O_RDONLY);
        if (file > STDERR_FILENO) {
            close(file);
        }
        if (file < 0 || file > STDERR_FILENO) {
            return;
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    occupyStandardStreams();
    setTimeZone("TZ=GMT0");
    keepFreedMemory();
    BatchOptions options;
    int status = kUsageError;
    if (!parseBatchOptions(argc, argv, options, status)) {
        return status;
    }
    if (options.action == BatchOptions::Action::ListFormats) {
        return listFormats();
    }
    BatchConfig config;
    if (!config.load(options.config, options.set)) {
        return usageError(config.error());
    }
    if (options.action == BatchOptions::Action::ListSets) {
        return listSets(config);
    }
    if (!applyOptions(options, config)) {
        return usageError(config.error());
    }
    std::vector<const BatchFormat*> formats;
    std::string error;
    if (options.formats.empty()) {
        formats = defaultFormats(config);
    } else if (!parseFormats(options.formats, formats, error)) {
        return usageError(error);
    }
    std::error_code failure;
    std::string outDir = options.out;
    if (outDir.empty()) {
        const std::string saveDir = config.saveDir();
        outDir = fs::is_directory(saveDir, failure) ? saveDir : ".";
    }
    fs::create_directories(outDir, failure);
    std::error_code ignored;
    if (!fs::is_directory(outDir, ignored)) {
        return usageError("the directory for products can't be made: " + outDir + ": " + failure.message());
    }
    return processAll(options, config, formats, outDir);
}
