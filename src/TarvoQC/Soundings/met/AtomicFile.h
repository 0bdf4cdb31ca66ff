#pragma once

#include <fstream>
#include <string>
#include <sys/types.h>

/// A file that appears whole or not at all: it is written under a temporary name beside its place and renamed by
/// commit(). Without a commit nothing is left, and a file that stood there before stays as it was. Links are followed,
/// the permissions of a replaced file are kept, and one that its user may not write isn't replaced. A device or a pipe
/// is written to as it is.
class AtomicFile {
public:
    explicit AtomicFile(const std::string& path, std::ios::openmode mode = std::ios::out);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// False when the file can't be written.
    bool isOpen() const { return _stream.is_open(); }
    std::ofstream& stream() { return _stream; }
    /// Where a writer that opens its own file has to write.
    const std::string& temporaryPath() const { return _temporary; }

    /// Puts the file in its place. False, and nothing in place, when anything written was lost on the way. With
    /// \p synced it is on the disk before it takes the place of the old one, so that a power cut can't lose both.
    bool commit(bool synced = false);

    /// Where \p path leads once its links are followed, also when the last of them leads to nothing.
    static std::string linkTarget(const std::string& path);
    /// The temporary name that process \p pid uses for \p path, for whoever tidies up behind a process that was killed.
    static std::string temporaryName(const std::string& path, pid_t pid);

private:
    void removeTemporary() const;

    std::string _path;
    std::string _temporary;
    std::ofstream _stream;
};
