#pragma once

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

/// A test whose working directory is an empty folder of its own.
class InTemporaryFolder : public testing::Test {
protected:
    InTemporaryFolder() { std::filesystem::current_path(folder.path()); }
    ~InTemporaryFolder() override { std::filesystem::current_path(home); }

    const std::filesystem::path home = std::filesystem::current_path();
    const TemporaryFolder folder;
};
