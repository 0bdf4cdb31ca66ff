#include "FileReplace.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t kNewFileMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
constexpr mode_t kPermissionBits = 07777;
constexpr int kMaxLinks = 40; // as many as the kernel follows

/// Where \p path leads once its links are followed, also when the last of them leads to nothing.
std::filesystem::path linkTarget(std::filesystem::path path) {
    std::error_code error;
    for (int i = 0; i < kMaxLinks && std::filesystem::is_symlink(path, error); ++i) {
        const auto target = std::filesystem::read_symlink(path, error);
        if (error) {
            break;
        }
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

bool writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Gives the new file what the old one had. A change of owner needs rights that most users lack, and may fail.
bool copyRights(const struct stat& old, int file) {
    if (::fchown(file, old.st_uid, old.st_gid) != 0 && errno != EPERM) {
        return false;
    }
    return ::fchmod(file, old.st_mode & kPermissionBits) == 0;
}

} // namespace

bool replaceFile(const std::string& path, std::string_view text) {
    const std::filesystem::path target = linkTarget(path);
    struct stat old = {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && (!S_ISREG(old.st_mode) || ::access(target.c_str(), W_OK) != 0)) {
        return false;
    }
    const std::filesystem::path pattern = target.parent_path() / ("." + target.filename().string() + ".XXXXXX");
    std::string temporary = pattern.string();
    const int file = ::mkstemp(temporary.data());
    if (file < 0) {
        return false;
    }
    bool done = writeAll(file, text) && ::fsync(file) == 0;
    done = done && (exists ? copyRights(old, file) : ::fchmod(file, kNewFileMode) == 0);
    done = ::close(file) == 0 && done;
    done = done && ::rename(temporary.c_str(), target.c_str()) == 0;
    if (!done) {
        ::unlink(temporary.c_str());
    }
    return done;
}
