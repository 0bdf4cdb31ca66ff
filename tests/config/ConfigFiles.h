#pragma once

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <stdlib.h>
#include <string>

/// A test with a directory of its own, gone afterwards.
class InTemporaryDirectory : public ::testing::Test {
protected:
    InTemporaryDirectory() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarvo-config-XXXXXX").string();
        directory = ::mkdtemp(pattern.data());
    }
    ~InTemporaryDirectory() override {
        std::error_code ignored;
        std::filesystem::remove_all(directory, ignored);
    }

    std::string pathOf(const std::string& name) const { return (directory / name).string(); }

    std::string write(const std::string& name, const std::string& content) const {
        std::ofstream(pathOf(name), std::ios::binary) << content;
        return pathOf(name);
    }

    std::size_t fileCount() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(directory), {}));
    }

    std::filesystem::path directory;
};

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// \p text with its first \p from replaced by \p to; the test fails when there is none.
inline std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

/// Two sets with an option of each kind; "day" is active 1, "night" active 2. The attributes stand in the order in
/// which the XML library writes them.
inline const char* const kTwoSets = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- site file
     @version: 2.09
-->
<!DOCTYPE tarvoConfig SYSTEM "tarvo.dtd">
<tarvoConfig>
  <active1>
    day
  </active1>
  <active2>night</active2>
  <set name="day">
    <option name="Length" type="numeric">
      <current> 2.5 </current>
      <default>4</default>
    </option>
    <option name="Switch" type="bool">
      <current>false</current>
      <default>true</default>
    </option>
    <option immediate="true" name="Title" type="string">
      <current>one
two</current>
      <default>none</default>
    </option>
  </set>
  <set name="night">
    <option name="Length" type="numeric">
      <current>7</current>
      <default>8</default>
    </option>
  </set>
</tarvoConfig>
)";
