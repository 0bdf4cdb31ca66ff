#pragma once

#include "TemporaryFolder.h"
#include "TextEdits.h"

/// A test with a folder of its own.
class InTemporaryDirectory : public ::testing::Test {
protected:
    std::string pathOf(const std::string& name) const { return (folder / name).string(); }

    std::string write(const std::string& name, const std::string& content) const {
        writeFile(folder / name, content);
        return pathOf(name);
    }

    TemporaryFolder folder;
};

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
