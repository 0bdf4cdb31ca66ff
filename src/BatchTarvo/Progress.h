#pragma once

#include "FileReport.h"

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <string>

/// What the user sees while a batch runs: a bar with rate and remaining time on a terminal, and a line for each file
/// where the lines don't go to one. A file that failed is told on the error stream in any case.
class Progress {
public:
    /// \p onErrorStream keeps standard output free for the report.
    Progress(std::size_t total, bool quiet, bool onErrorStream);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// There is one file more than was told.
    void expectMore() { ++_total; }
    void fileDone(const FileReport& report);
    /// The last line: how many of how many, and how long it took.
    void finish();

    std::size_t failed() const { return _failed; }

private:
    void clearBar() const;
    void drawBar() const;
    double elapsed() const;

    std::size_t _total;
    std::size_t _done = 0;
    std::size_t _failed = 0;
    std::size_t _skipped = 0;
    bool _quiet;
    bool _bar = false;
    bool _listsFiles = false;
    std::FILE* _lines;
    std::chrono::steady_clock::time_point _start;
};
