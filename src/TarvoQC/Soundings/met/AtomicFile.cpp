#include "AtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr int kMaxLinks = 40; // as many as the kernel follows

/// Gives the file at \p path the owner and permissions of \p old. A change of owner needs rights that most users lack.
bool copyRights(const struct stat& old, const std::string& path) {
    if (chown(path.c_str(), old.st_uid, old.st_gid) != 0 && errno != EPERM) {
        return false;
    }
    return chmod(path.c_str(), old.st_mode & 07777) == 0;
}

bool syncToDisk(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool synced = file >= 0 && fsync(file) == 0;
    if (file >= 0) {
        close(file);
    }
    return synced;
}

} // namespace

AtomicFile::AtomicFile(const std::string& path, std::ios::openmode mode)
    : _path(linkTarget(path)), _temporary(temporaryName(path, getpid())) {
    struct stat old {};
    if (stat(_path.c_str(), &old) == 0) {
        if (S_ISDIR(old.st_mode) || access(_path.c_str(), W_OK) != 0) {
            return;
        }
        if (!S_ISREG(old.st_mode)) {
            _temporary = _path; // a device or a pipe takes what it is given; it can't be replaced
        }
    }
    _stream.open(_temporary, mode | std::ios::out | std::ios::trunc);
}

AtomicFile::~AtomicFile() {
    if (_stream.is_open()) {
        _stream.close();
        removeTemporary();
    }
}

bool AtomicFile::commit(bool synced) {
    if (!_stream.is_open()) {
        return false;
    }
    _stream.close();
    bool written = !_stream.fail();
    if (written && _temporary != _path) {
        struct stat old {};
        written = (!synced || syncToDisk(_temporary)) &&
                  (stat(_path.c_str(), &old) != 0 || copyRights(old, _temporary)) &&
                  std::rename(_temporary.c_str(), _path.c_str()) == 0;
    }
    if (!written) {
        removeTemporary();
    }
    return written;
}

void AtomicFile::removeTemporary() const {
    if (_temporary != _path) {
        std::remove(_temporary.c_str());
    }
}

std::string AtomicFile::linkTarget(const std::string& name) {
    fs::path path(name);
    std::error_code error;
    for (int i = 0; i < kMaxLinks && fs::is_symlink(path, error); ++i) {
        const fs::path target = fs::read_symlink(path, error);
        if (error) {
            break;
        }
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path.string();
}

std::string AtomicFile::temporaryName(const std::string& path, pid_t pid) {
    const fs::path place(linkTarget(path));
    // The name itself is cut: a product with a name as long as the file system allows must still find a temporary one.
    const std::string stem = place.filename().string().substr(0, 200);
    return (place.parent_path() / ("." + stem + "." + std::to_string(pid) + ".part")).string();
}
