#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

/// A test whose working directory is an empty folder of its own.
class InTemporaryFolder : public testing::Test {
protected:
    InTemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "tarvo-XXXXXX").string();
        folder = mkdtemp(name.data());
        std::filesystem::current_path(folder);
    }
    ~InTemporaryFolder() override {
        std::filesystem::current_path(home);
        std::filesystem::remove_all(folder);
    }

    const std::filesystem::path home = std::filesystem::current_path();
    std::filesystem::path folder;
};
