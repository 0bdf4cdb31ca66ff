#pragma once

#include "BatchJob.h"

#include <map>
#include <set>
#include <string>
#include <vector>

/// The jobs of a run: files as they are, directories with their direct files in order of name (hidden ones left out),
/// and those below on request. What can't be a job is one with a refusal: a path that isn't there or is no regular
/// file, and an input whose product would overwrite that of an earlier input, or an input.
///
/// A file that a reader made out of another is named like that one with a "d" behind it, which the name of a product
/// wouldn't show; its products are named "..._descent". Where readers make such files (\p derivesDescents), one among
/// the inputs waits until the one that it was made of is done, since that may make it anew.
///
/// With a shard only the files that belong to it become jobs, by their names alone: the shards of a run see to every
/// file once, whatever comes into the directories while they run. A descent belongs where the file belongs that it is
/// made of.
class BatchPlan {
public:
    struct Shard {
        unsigned number; ///< from 1 to of
        unsigned of;

        bool has(const std::string& path) const;
    };

    BatchPlan(std::vector<const BatchFormat*> formats, std::string outDir, bool derivesDescents, Shard shard = {1, 1},
              const Provenance* provenance = nullptr);

    /// Leaves out an input that is the file \p path. To be said before it is added.
    void leaveOut(const std::string& path) { _notInputs.push_back(path); }
    void add(const std::vector<std::string>& paths, bool recursive);
    /// The file may be added again.
    void forget(const std::string& path);

    /// Grows at its end.
    const std::vector<BatchJob>& jobs() const { return _jobs; }

    /// Adds the job that follows from that of \p index: the file \p derived that its reader made (empty: none), with
    /// the configuration \p config; or a file that waited in vain. True when there is one.
    bool follow(std::size_t index, const std::string& derived, ConfigSet* config,
                const Provenance* provenance = nullptr);
    /// Whether a job of this run makes the file \p path.
    bool isProduct(const std::string& path) const;

private:
    /// Names the products, or refuses the job.
    void claimProducts(BatchJob& job);
    bool isInput(const std::string& path) const;

    std::vector<const BatchFormat*> _formats;
    std::string _outDir;
    std::string _outPlace;
    bool _derivesDescents;
    Shard _shard;
    const Provenance* _provenance;
    std::vector<std::string> _notInputs;
    std::vector<BatchJob> _jobs;
    std::map<std::string, BatchJob> _waiting;    // by the place of the input that it waits for
    std::set<std::string> _inputs;               // places
    std::map<std::string, std::string> _writers; // place of a product to the input that makes it
};
