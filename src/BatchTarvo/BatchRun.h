#pragma once

#include "BatchConfig.h"
#include "BatchOptions.h"
#include "BatchPlan.h"
#include "Provenance.h"
#include "ReportFile.h"

#include <string>
#include <vector>

class Progress;
class WorkerPool;

/// Applies what the command line says beyond the file and the set. False with an error of the configuration.
bool applyOptions(const BatchOptions& options, BatchConfig& config);

/// One run of the batch tool: the files of the command line, or those that arrive in a directory. Everything borrowed
/// outlives it.
class BatchRun {
public:
    BatchRun(const BatchOptions& options, BatchConfig& config, std::vector<const BatchFormat*> formats,
             const std::string& outDir);

    /// Both return the exit status of the program, and end it by the signal when one stops the run.
    int processAll();
    int watch();

private:
    bool prepare(std::string& error);
    Provenance provenanceOf(std::string set) const;
    /// Runs the jobs that are new since the last time. Returns the signal that ended it, or 0.
    int runNewJobs(WorkerPool& pool, Progress& progress);
    int finish(int signal, Progress& progress);

    const BatchOptions& _options;
    BatchConfig& _config;
    bool _derivesDescents = false;
    std::string _secondName; // of the set for soundings that readers make of others
    BatchConfig _second;     // loaded only when they do
    Provenance _provenance;
    Provenance _secondProvenance;
    BatchPlan _plan;
    ReportFile _report;
    std::size_t _next = 0; // of the jobs
};
