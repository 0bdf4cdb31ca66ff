#pragma once

#include "FileReport.h"

#include <cstddef>
#include <fstream>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

struct BatchJob;

/// The report of a run: a JSON line for each file, in the order of the input, whatever the order in which the files
/// finish. Lines are on disk as soon as their turn has come.
///
/// A run that resumes keeps the lines of earlier runs and adds its own behind them, so that one that is ended at any
/// moment loses nothing. When it opens and when it closes the report, only the last line of each file is kept.
class ReportFile {
public:
    /// Starts the report \p path: "-" is standard output, and an empty one is no report. False, with the reason in
    /// error(), when it can't go there. It replaces an earlier report, but nothing else, least of all a sounding that
    /// stands where the name of the report was forgotten.
    bool open(const std::string& path, bool resume);
    const std::string& error() const { return _error; }

    /// Whether an earlier run has done this job: with the same program, set and overrides, from the same bytes, and its
    /// products are there, whole and no older than the input.
    bool isDone(const BatchJob& job) const;
    /// The sounding that an earlier run made of \p input; empty when it made none.
    std::string descentOf(const std::string& input) const;

    /// Whether an earlier run has written the file \p path.
    bool isProduct(const std::string& path) const;

    /// \p report of the job \p index. One that was skipped has its line already.
    void add(std::size_t index, const FileReport& report);
    /// Writes what waits for a line that will never come. False when the report is incomplete.
    bool close();

private:
    bool readEarlier();
    bool rewrite();

    std::string _path;
    bool _resume = false;
    std::string _error;
    std::ofstream _file;
    std::ostream* _out = nullptr; // null: no report
    std::map<std::size_t, std::string> _waiting;
    std::size_t _next = 0;
    std::vector<std::string> _order;             // files of earlier lines, in order
    std::map<std::string, FileReport> _earlier;  // by file
    std::set<std::string> _products;             // places of all that they have written
    std::map<std::string, std::string> _descent; // by the file that it was made of
};
