#pragma once

#include "CommaParts.h"
#include "KeyedUpsondeFile.h"
#include "VESTALineSignature.h"

#include <string>
#include <vector>

/// The D file of the VESTA upsonde system. Its pressures read low by 0.4 mb, and by what the file says beyond that;
/// both are added. There is no GPS altitude.
///
/// Invalid also when data stand ahead of the launch line.
class VestaFile : public KeyedUpsondeFile {
public:
    /// \p lines: without control characters and empty lines.
    VestaFile(std::string fileName, std::vector<std::string> lines);

private:
    void readData();
    void takeSoundingLine(const std::string& line);
    void takeProject(const std::string& value);
    void takeComments(const std::string& value) { _comments = value; }
    void takeOpComments(const std::string& value);
    void takeSondeDynamicErr(const std::string& value);
    void takeDataType(const std::string& value) { _dataType = value; }
    void takeSysOperator(const std::string& value) { _sysOperator = value; }
    void takePrelaunchLoc(const std::string& value);
    void takeTimeOffset(const std::string& value);
    void takeIdType(const std::string& value) { takeCommaPart(value, 4, _sondeModel); }
    void correctPressure();

    double _pressureOffset = 0.0; // mb
};
