#pragma once

#include "TemporaryFolder.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace fs = std::filesystem;

inline const fs::path kExamples = fs::path(TARVO_SOURCE_DIR) / "examples/data";

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

inline std::vector<nlohmann::json> reportLines(const std::string& text) {
    std::vector<nlohmann::json> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(nlohmann::json::parse(line));
    }
    return lines;
}
