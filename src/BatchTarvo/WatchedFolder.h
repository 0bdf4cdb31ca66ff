#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// A directory in which files arrive. It is looked through again and again, which works on every file system, those of
/// other machines included.
class WatchedFolder {
public:
    using Clock = std::chrono::steady_clock;

    /// A file counts as complete once neither its size nor its time has changed for \p settle seconds.
    WatchedFolder(std::string path, bool recursive, double settle)
        : _path(std::move(path)), _recursive(recursive), _settle(settle) {}

    /// The files that have become complete since the last call, or complete again after a change, in order of name.
    /// Hidden files and those whose names say that they are still on their way (".part", ".tmp" and the like) are left
    /// out; so is everything while the directory can't be read.
    std::vector<std::string> ready(Clock::time_point now);

private:
    struct Seen {
        std::uintmax_t size = 0;
        std::filesystem::file_time_type time;
        Clock::time_point since; // nothing has changed
        bool given = false;
        bool there = false;
    };
    void look(const std::filesystem::path& directory, Clock::time_point now);

    std::string _path;
    bool _recursive;
    double _settle;
    std::map<std::string, Seen> _files;
};
