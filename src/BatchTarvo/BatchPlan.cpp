#include "BatchPlan.h"

#include "AtomicFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>

namespace fs = std::filesystem;

namespace {

BatchJob refused(const std::string& input, const std::string& reason) {
    BatchJob job;
    job.input = input;
    job.refusal = reason;
    return job;
}

void addPath(const fs::path& path, bool isArgument, bool recursive, std::vector<BatchJob>& jobs);

void addDirectory(const fs::path& directory, bool recursive, std::vector<BatchJob>& jobs) {
    std::error_code error;
    std::vector<fs::path> entries;
    for (auto entry = fs::directory_iterator(directory, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        if (entry->path().filename().string().front() != '.') {
            entries.push_back(entry->path());
        }
    }
    if (error) {
        jobs.push_back(refused(directory.string(), "The directory can't be read: " + error.message()));
        return;
    }
    std::sort(entries.begin(), entries.end());
    for (const fs::path& entry : entries) {
        addPath(entry, false, recursive, jobs);
    }
}

void addPath(const fs::path& path, bool isArgument, bool recursive, std::vector<BatchJob>& jobs) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status)) {
        // A linked directory below the one asked for may lead back up.
        if (isArgument || (recursive && !fs::is_symlink(path, error))) {
            addDirectory(path, recursive, jobs);
        }
    } else if (fs::is_regular_file(status)) {
        jobs.push_back(refused(path.string(), ""));
    } else {
        jobs.push_back(refused(path.string(), fs::exists(status) ? "This is no regular file"
                                              : error            ? "The file can't be opened: " + error.message()
                                                                 : "There is no such file"));
    }
}

std::string placeOf(const std::string& path) {
    std::error_code error;
    const fs::path place = fs::weakly_canonical(path, error);
    return error ? path : place.string();
}

/// Where a product of that name in \p directory ends up: one that stands there as a link is written where it leads.
std::string productPlace(const fs::path& directory, const std::string& name) {
    std::error_code error;
    const fs::path path = directory / name;
    return fs::is_symlink(path, error) ? placeOf(AtomicFile::linkTarget(path.string())) : path.string();
}

std::string productStem(const std::string& input) {
    const std::string name = fs::path(input).filename().string();
    return name.substr(0, name.rfind('.'));
}

} // namespace

std::vector<BatchJob> planBatch(const std::vector<std::string>& paths, bool recursive,
                                const std::vector<const BatchFormat*>& formats, const std::string& outDir) {
    std::vector<BatchJob> jobs;
    for (const std::string& path : paths) {
        addPath(path, true, recursive, jobs);
    }
    std::set<std::string> inputs;
    for (const BatchJob& job : jobs) {
        inputs.insert(placeOf(job.input));
    }
    const fs::path out = placeOf(outDir);
    std::map<std::string, std::string> writers; // place of a product to the input that makes it
    for (BatchJob& job : jobs) {
        if (!job.refusal.empty()) {
            continue;
        }
        const std::string stem = productStem(job.input);
        std::vector<std::string> places;
        for (const BatchFormat* format : formats) {
            const std::string name = stem + format->suffix;
            places.push_back(productPlace(out, name));
            const auto earlier = writers.find(places.back());
            if (earlier != writers.end()) {
                job.refusal = "Its product " + name + " would overwrite that of " + earlier->second;
            } else if (inputs.count(places.back()) != 0) {
                job.refusal = "Its product " + name + " would overwrite an input file";
            }
            job.products.push_back({format, (fs::path(outDir) / name).string()});
        }
        if (job.refusal.empty()) {
            for (const std::string& place : places) {
                writers.emplace(place, job.input);
            }
        }
    }
    return jobs;
}
