#include "BatchPlan.h"

#include "AtomicFile.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <filesystem>

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

/// The file that \p path is a descent of, by its name; empty for any other file.
std::string descentSource(const std::string& path) {
    std::error_code error;
    if (path.empty() || path.back() != 'd' || !fs::is_regular_file(path.substr(0, path.size() - 1), error)) {
        return {};
    }
    return path.substr(0, path.size() - 1);
}

std::string productStem(const std::string& input) {
    const std::string name = fs::path(input).filename().string();
    return name.substr(0, name.rfind('.')) + (descentSource(input).empty() ? "" : "_descent");
}

} // namespace

bool BatchPlan::Shard::has(const std::string& path) const {
    const std::string source = descentSource(path);
    const std::string name = fs::path(source.empty() ? path : source).filename().string();
    std::uint64_t hash = 14695981039346656037U; // FNV-1a, 64 bits
    for (const char c : name) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    }
    return (hash ^ (hash >> 32U)) % of == number - 1;
}

BatchPlan::BatchPlan(std::vector<const BatchFormat*> formats, std::string outDir, bool derivesDescents, Shard shard,
                     const Provenance* provenance)
    : _formats(std::move(formats)), _outDir(std::move(outDir)), _outPlace(placeOf(_outDir)),
      _derivesDescents(derivesDescents), _shard(shard), _provenance(provenance) {}

bool BatchPlan::isProduct(const std::string& path) const {
    return _writers.count(placeOf(path)) != 0;
}

bool BatchPlan::isInput(const std::string& path) const {
    std::error_code error;
    return std::none_of(_notInputs.begin(), _notInputs.end(),
                        [&](const std::string& other) { return fs::equivalent(path, other, error); });
}

void BatchPlan::add(const std::vector<std::string>& paths, bool recursive) {
    std::vector<BatchJob> found;
    for (const std::string& path : paths) {
        addPath(path, true, recursive, found);
    }
    if (!_notInputs.empty()) {
        found.erase(
            std::remove_if(found.begin(), found.end(), [&](const BatchJob& job) { return !isInput(job.input); }),
            found.end());
    }
    for (const BatchJob& job : found) {
        _inputs.insert(placeOf(job.input));
    }
    for (BatchJob& job : found) {
        if (!_shard.has(job.input)) {
            continue;
        }
        job.provenance = _provenance;
        const std::string source = job.refusal.empty() && _derivesDescents ? descentSource(job.input) : std::string();
        if (!source.empty() && _inputs.count(placeOf(source)) != 0) {
            if (_waiting.try_emplace(placeOf(source), job).second) {
                continue;
            }
            job.refusal = "This file is given twice";
        }
        claimProducts(job);
        _jobs.push_back(std::move(job));
    }
}

void BatchPlan::forget(const std::string& path) {
    for (auto writer = _writers.begin(); writer != _writers.end();) {
        writer = writer->second == path ? _writers.erase(writer) : std::next(writer);
    }
}

bool BatchPlan::follow(std::size_t index, const std::string& derived, ConfigSet* config, const Provenance* provenance) {
    const std::string source = _jobs[index].input;
    const auto waiting = _waiting.find(placeOf(source));
    BatchJob job;
    if (waiting != _waiting.end()) {
        job = std::move(waiting->second);
        _waiting.erase(waiting);
    } else if (derived.empty()) {
        return false;
    } else {
        job.input = derived;
    }
    if (!derived.empty()) {
        job.derivedFrom = source;
        job.config = config;
        job.provenance = provenance;
    }
    claimProducts(job);
    _jobs.push_back(std::move(job));
    return true;
}

void BatchPlan::claimProducts(BatchJob& job) {
    if (!job.refusal.empty()) {
        return;
    }
    const std::string stem = productStem(job.input);
    std::vector<std::string> places;
    for (const BatchFormat* format : _formats) {
        const std::string name = stem + format->suffix;
        places.push_back(productPlace(_outPlace, name));
        const auto earlier = _writers.find(places.back());
        if (earlier != _writers.end()) {
            job.refusal = "Its product " + name + " would overwrite that of " + earlier->second;
        } else if (_inputs.count(places.back()) != 0) {
            job.refusal = "Its product " + name + " would overwrite an input file";
        }
        job.products.push_back({format, (fs::path(_outDir) / name).string()});
    }
    if (job.refusal.empty()) {
        for (const std::string& place : places) {
            _writers.emplace(place, job.input);
        }
    }
}
