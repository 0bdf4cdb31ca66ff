#include "BatchRun.h"

#include "BatchDatabase.h"
#include "Progress.h"
#include "WatchedFolder.h"
#include "WorkerPool.h"

#include <algorithm>
#include <csignal>
#include <iostream>
#include <thread>

bool applyOptions(const BatchOptions& options, BatchConfig& config) {
    return std::all_of(options.overrides.begin(), options.overrides.end(),
                       [&](const std::string& assignment) { return config.applyOverride(assignment); }) &&
           config.useBufrTables(options.bufrTables);
}

namespace {

bool derivesDescents(BatchConfig& config) {
    bool derives = false;
    config.set().boolValue("descendingPELO", derives);
    return derives;
}

} // namespace

BatchRun::BatchRun(const BatchOptions& options, BatchConfig& config, std::vector<const BatchFormat*> formats,
                   const std::string& outDir)
    : _options(options), _config(config), _derivesDescents(derivesDescents(config)),
      _provenance(provenanceOf(config.set().getSetName())),
      _plan(std::move(formats), outDir, _derivesDescents, {options.shard, options.shards}, &_provenance) {}

Provenance BatchRun::provenanceOf(std::string set) const {
    return {versionText(), std::move(set), _options.overrides, !_options.report.empty(), _options.provenance};
}

/// Everything that may refuse the run. False with the reason in \p error.
bool BatchRun::prepare(std::string& error) {
    if (_derivesDescents) {
        _secondName = _config.secondSetName();
        _secondProvenance = provenanceOf(_secondName);
        if (!_second.load(_options.config, _secondName) || !applyOptions(_options, _second)) {
            error = _second.error();
            return false;
        }
    }
    if (!_report.open(_options.report, _options.resume || !_options.watch.empty())) {
        error = _report.error();
        return false;
    }
    _plan.leaveOut(_options.report);
    if (!_options.database.empty()) {
        error = BatchDatabase::prepare(_options.database);
        for (const char* suffix :
             {"", "-wal", "-shm", "-journal"}) { // no soundings, what SQLite keeps beside it neither
            _plan.leaveOut(_options.database + suffix);
        }
    }
    return error.empty();
}

int BatchRun::runNewJobs(WorkerPool& pool, Progress& progress) {
    const int signal = pool.run(
        _plan.jobs(),
        [&](std::size_t index, FileReport done) {
            done.derivedFrom = _plan.jobs()[index].derivedFrom;
            const Provenance& provenance = done.derivedFrom.empty() ? _provenance : _secondProvenance;
            done.version = provenance.version;
            done.set = provenance.set;
            done.overrides = provenance.overrides;
            const std::string derived = done.skipped ? _report.descentOf(done.file) : done.derived;
            if (_derivesDescents && _plan.follow(index, derived, &_second.set(), &_secondProvenance)) {
                progress.expectMore();
            }
            progress.fileDone(done);
            _report.add(index, done);
        },
        _next);
    _next = _plan.jobs().size();
    return signal;
}

int BatchRun::finish(int signal, Progress& progress) {
    const bool reported = _report.close();
    progress.finish();
    if (signal != 0) {
        // Nothing is half written; what asked for the end shall see that it got it.
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
    if (!reported) {
        std::cerr << "tarvo-batch: the report is incomplete: " << _options.report << "\n";
        return kSomeFailed;
    }
    return progress.failed() == 0 ? kAllProcessed : kSomeFailed;
}

int BatchRun::processAll() {
    std::string error;
    if (!prepare(error)) {
        std::cerr << "tarvo-batch: " << error << "\n";
        return kUsageError;
    }
    _plan.add(_options.paths, _options.recursive);
    Progress progress(_plan.jobs().size(), _options.quiet, _options.report == "-");
    WorkerPool pool({_options.jobs, _options.timeout}, _config.set(), _options.database);
    if (_options.resume) {
        pool.skip([this](const BatchJob& job) { return _report.isDone(job); });
    }
    return finish(runNewJobs(pool, progress), progress);
}

int BatchRun::watch() {
    std::string error;
    if (!prepare(error)) {
        std::cerr << "tarvo-batch: " << error << "\n";
        return kUsageError;
    }
    constexpr std::chrono::milliseconds kPause(500);
    WatchedFolder folder(_options.watch, _options.recursive, _options.settle);
    Progress progress(0, _options.quiet, false);
    WorkerPool pool({_options.jobs, _options.timeout}, _config.set(), _options.database);
    pool.skip([this](const BatchJob& job) { return _report.isDone(job); });
    while (true) {
        for (const std::string& path : folder.ready(WatchedFolder::Clock::now())) {
            if (!_plan.isProduct(path) && !_report.isProduct(path)) {
                _plan.forget(path);
                _plan.add({path}, false);
            }
        }
        for (std::size_t i = _next; i < _plan.jobs().size(); ++i) {
            progress.expectMore();
        }
        const int signal = runNewJobs(pool, progress);
        if (signal != 0) {
            return finish(signal, progress);
        }
        std::this_thread::sleep_for(kPause);
    }
}
