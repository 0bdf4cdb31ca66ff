#pragma once

#include "BatchJob.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

class ConfigSet;

/// Runs batch jobs in processes of their own, so that a crash or a hang costs one file. A process takes one file after
/// the other, each with the configuration as the run began with it: starting one for every file would cost as much as
/// reading the file.
class WorkerPool {
public:
    struct Limits {
        int jobs = 1;           ///< processes at once
        double timeout = 300.0; ///< s for one file
    };
    /// Hears of every report, in the order in which the files finish, with the job's index. It may add jobs at the end
    /// of the list.
    using Listener = std::function<void(std::size_t index, const FileReport& report)>;

    /// \p database is the one of soundings that they are entered in; empty for none.
    WorkerPool(Limits limits, ConfigSet& config, std::string database = {})
        : _limits(limits), _config(config), _database(std::move(database)) {}

    /// Jobs for which this answers true are reported as skipped, and not run.
    void skip(std::function<bool(const BatchJob&)> isDone) { _isDone = std::move(isDone); }

    /// Runs the jobs from \p first on. SIGINT, SIGTERM, SIGHUP and SIGPIPE, unless they are ignored, stop the workers
    /// and remove what they were writing. Returns the signal that ended the run early, or 0.
    int run(const std::vector<BatchJob>& jobs, const Listener& listener, std::size_t first = 0);

private:
    class StopSignals;
    struct Worker;

    using Workers = std::vector<Worker>;

    bool start(const std::vector<BatchJob>& jobs, Workers& workers, const std::function<void()>& inWorker);
    [[noreturn]] void serve(const std::vector<BatchJob>& jobs, int socket);
    bool assign(const std::vector<BatchJob>& jobs, std::size_t index, Workers& workers,
                const std::function<void()>& inWorker);
    bool await(Workers& workers, const StopSignals& signals, double wait) const;
    void hear(const std::vector<BatchJob>& jobs, Workers& workers, const Listener& listener);
    FileReport loss(const BatchJob& job, Worker& worker) const;

    Limits _limits;
    ConfigSet& _config;
    std::string _database;
    std::function<bool(const BatchJob&)> _isDone;
};
