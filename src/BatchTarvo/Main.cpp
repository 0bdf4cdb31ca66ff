#include "BatchConfig.h"
#include "BatchOptions.h"
#include "BatchPlan.h"
#include "BatchRun.h"
#include "Environment.h"
#include "Explanation.h"
#include "Text.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
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

/// Tells of each file in turn. A file that can't be opened or read is told on the error stream.
int explainAll(const BatchOptions& options, ConfigSet& config) {
    BatchPlan plan({}, "", false, {options.shard, options.shards});
    plan.add(options.paths, options.recursive);
    int status = kAllProcessed;
    for (const BatchJob& job : plan.jobs()) {
        std::string failure = job.refusal;
        if (failure.empty()) {
            failure = explain(job.input, config, std::cout);
        }
        if (!failure.empty()) {
            std::cerr << job.input << ": " << failure << "\n";
            status = kSomeFailed;
        }
    }
    return status;
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
    if (options.action == BatchOptions::Action::Explain) {
        return explainAll(options, config.set());
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
    BatchRun run(options, config, formats, outDir);
    return options.watch.empty() ? run.processAll() : run.watch();
}
