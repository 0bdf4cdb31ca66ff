#include "AtomicFile.h"

#include <cstdio>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

std::string linkTarget(const std::string& path) {
    std::error_code error;
    const fs::path target = fs::canonical(path, error);
    return error ? path : target.string();
}

} // namespace

AtomicFile::AtomicFile(const std::string& path, std::ios::openmode mode)
    : _path(linkTarget(path)), _temporary(temporaryName(_path, getpid())) {
    std::error_code error;
    const fs::file_status before = fs::status(_path, error);
    if (fs::is_directory(before)) {
        return;
    }
    if (fs::exists(before) && !fs::is_regular_file(before)) {
        _temporary = _path; // a device or a pipe takes what it is given; it can't be replaced
    }
    _stream.open(_temporary, mode | std::ios::out | std::ios::trunc);
}

AtomicFile::~AtomicFile() {
    if (_stream.is_open()) {
        _stream.close();
        removeTemporary();
    }
}

bool AtomicFile::commit() {
    if (!_stream.is_open()) {
        return false;
    }
    _stream.close();
    bool written = !_stream.fail();
    if (written && _temporary != _path) {
        std::error_code error;
        const fs::file_status before = fs::status(_path, error);
        if (fs::exists(before)) {
            fs::permissions(_temporary, before.permissions(), error);
        }
        fs::rename(_temporary, _path, error);
        written = !error;
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

std::string AtomicFile::temporaryName(const std::string& path, pid_t pid) {
    const fs::path place(path);
    // The name itself is cut: a product with a name as long as the file system allows must still find a temporary one.
    const std::string stem = place.filename().string().substr(0, 200);
    return (place.parent_path() / ("." + stem + "." + std::to_string(pid) + ".part")).string();
}
