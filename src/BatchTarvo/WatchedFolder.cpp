#include "WatchedFolder.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 6> kOnTheWay{".part", ".partial", ".filepart", ".tmp", ".crdownload", "~"};

bool isOnTheWay(const std::string& name) {
    return name.front() == '.' || std::any_of(kOnTheWay.begin(), kOnTheWay.end(), [&](std::string_view ending) {
               return name.size() > ending.size() &&
                      name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
           });
}

} // namespace

void WatchedFolder::look(const fs::path& directory, Clock::time_point now) {
    std::error_code error;
    for (auto entry = fs::directory_iterator(directory, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        std::error_code gone; // what vanishes while it is looked at isn't there
        if (isOnTheWay(entry->path().filename().string())) {
            continue;
        }
        if (entry->is_directory(gone) && _recursive && !entry->is_symlink(gone)) {
            look(entry->path(), now);
        }
        const std::uintmax_t size = entry->is_regular_file(gone) ? entry->file_size(gone) : 0;
        const fs::file_time_type time = entry->last_write_time(gone);
        if (gone || !entry->is_regular_file(gone)) {
            continue;
        }
        Seen& seen = _files[entry->path().string()];
        if (seen.since == Clock::time_point() || seen.size != size || seen.time != time) {
            seen = {size, time, now, false, true};
        }
        seen.there = true;
    }
}

std::vector<std::string> WatchedFolder::ready(Clock::time_point now) {
    for (auto& [path, seen] : _files) {
        seen.there = false;
    }
    look(_path, now);
    std::vector<std::string> complete;
    for (auto file = _files.begin(); file != _files.end();) {
        Seen& seen = file->second;
        if (!seen.there) {
            file = _files.erase(file);
            continue;
        }
        if (!seen.given && std::chrono::duration<double>(now - seen.since).count() >= _settle) {
            seen.given = true;
            complete.push_back(file->first);
        }
        ++file;
    }
    return complete;
}
