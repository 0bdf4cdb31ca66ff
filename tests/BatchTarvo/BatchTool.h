#pragma once

#include "TemporaryFolder.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

inline const fs::path kExamples = fs::path(TARVO_SOURCE_DIR) / "examples/data";

/// The path of an example for a command line.
inline std::string example(const std::string& name) {
    return "'" + (kExamples / name).string() + "'";
}

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

/// Runs the tool in \p folder, with a home of its own and the shipped configuration.
inline Outcome tool(const TemporaryFolder& folder, const std::string& arguments, const std::string& environment = "") {
    const fs::path streams = folder / ".streams";
    fs::create_directories(streams);
    const std::string command = "cd '" + folder.path().string() + "' && env -u TARVOCONFIG HOME='" +
                                folder.path().string() + "' " + environment + " '" TARVO_BATCH_PROGRAM "' " +
                                arguments + " >.streams/out 2>.streams/err </dev/null";
    const int status = std::system(command.c_str());
    Outcome outcome{WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(streams / "out"), readFile(streams / "err")};
    fs::remove_all(streams);
    return outcome;
}

/// The tool as a process that goes on beside the test.
class RunningTool {
public:
    RunningTool(const TemporaryFolder& folder, std::vector<std::string> arguments) : _pid(fork()) {
        if (_pid != 0) {
            return;
        }
        if (chdir(folder.path().c_str()) != 0) {
            _exit(1);
        }
        setenv("HOME", folder.path().c_str(), 1);
        const int nowhere = open("/dev/null", O_RDWR);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        arguments.insert(arguments.begin(), TARVO_BATCH_PROGRAM);
        std::vector<char*> words;
        for (std::string& argument : arguments) {
            words.push_back(argument.data());
        }
        words.push_back(nullptr);
        execv(TARVO_BATCH_PROGRAM, words.data());
        _exit(1);
    }
    RunningTool(const RunningTool&) = delete;
    RunningTool& operator=(const RunningTool&) = delete;
    ~RunningTool() { end(SIGKILL); }

    /// How it ended: the signal, or 0 when it ended by itself.
    int end(int signal) {
        int status = 0;
        if (_pid > 0) {
            kill(_pid, signal);
            waitpid(_pid, &status, 0);
            _pid = 0;
        }
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    pid_t _pid;
};

inline std::vector<nlohmann::json> reportLines(const std::string& text) {
    std::vector<nlohmann::json> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(nlohmann::json::parse(line));
    }
    return lines;
}
