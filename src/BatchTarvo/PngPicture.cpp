#include "PngPicture.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const char* const kProgram = "tarvo-skewt-png";

/// A file in memory that holds \p text, read from its start; -1 when there is none.
int fileOf(const std::string& text) {
    const int file = memfd_create(kProgram, MFD_CLOEXEC);
    for (std::size_t done = 0; file >= 0 && done < text.size();) {
        const ssize_t n = write(file, text.data() + done, text.size() - done);
        if (n < 0) {
            close(file);
            return -1;
        }
        done += static_cast<std::size_t>(n);
    }
    if (file >= 0) {
        lseek(file, 0, SEEK_SET);
    }
    return file;
}

std::string programPath() {
    std::error_code error;
    const auto own = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? kProgram : (own.parent_path() / kProgram).string();
}

bool succeeds(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            return false;
        }
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

bool drawAsPng(const std::string& svg, const std::string& path) {
    const int input = fileOf(svg);
    if (input < 0) {
        return false;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    std::string program = programPath();
    std::string output = path;
    const std::array<char*, 3> arguments{program.data(), output.data(), nullptr};
    pid_t child = 0;
    const bool started = posix_spawn(&child, program.c_str(), &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    close(input);
    return started && succeeds(child);
}
