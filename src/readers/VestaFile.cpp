#include "VestaFile.h"

#include "NumberText.h"
#include "Text.h"

namespace {

constexpr double kPressureCorrection = 0.4; // mb, of every sonde of the system

} // namespace

VestaFile::VestaFile(std::string fileName, std::vector<std::string> dLines)
    : KeyedUpsondeFile(std::move(fileName), std::move(dLines), kShortFrame) {
    readData();
    conclude(SoundingType::Ombra, "KIVU VESTA");
}

void VestaFile::readData() {
    static constexpr std::array<Taker<VestaFile, VestaLine>, 13> kTakers{{
        {VestaLine::AircraftData, kWholeLine, &VestaFile::takeAircraftLine},
        {VestaLine::Launch, kWholeLine, &VestaFile::takeLaunchLine},
        {VestaLine::SoundingData, kWholeLine, &VestaFile::takeSoundingLine},
        {VestaLine::Project, 5, &VestaFile::takeProject},
        {VestaLine::Comments, 4, &VestaFile::takeComments},
        {VestaLine::OpComments, 4, &VestaFile::takeOpComments},
        {VestaLine::SondeDynamicErr, 6, &VestaFile::takeSondeDynamicErr},
        {VestaLine::DataType, 5, &VestaFile::takeDataType},
        {VestaLine::SysOperator, 4, &VestaFile::takeSysOperator},
        {VestaLine::PrelaunchLoc, 5, &VestaFile::takePrelaunchLoc},
        {VestaLine::PrelaunchObs, 6, &VestaFile::takePrelaunchObs},
        {VestaLine::TimeOffset, 2, &VestaFile::takeTimeOffset},
        {VestaLine::IdType, 4, &VestaFile::takeIdType},
    }};
    takeLines(*this, &vestaLineType, kTakers);
    settleLaunch();
    correctPressure();
}

void VestaFile::takeSoundingLine(const std::string& line) {
    if (!launchLineFound()) {
        tellDataAheadOfLaunch();
        notValid();
    }
    takeRecord(line);
}

void VestaFile::takeProject(const std::string& value) {
    takeCommaPart(value, 0, _project);
    takeCommaPart(value, 1, _siteId);
    takeCommaPart(value, 1, _flight);
    _descriptionText += value + " ";
}

void VestaFile::takeOpComments(const std::string& value) {
    const auto comma = value.find(',');
    _sysOperator = value.substr(0, comma);
    _comments = comma == std::string::npos ? std::string() : trimLeft(value.substr(comma + 1));
}

void VestaFile::takeSondeDynamicErr(const std::string& value) {
    _pressureOffset = numberOf(value);
}

/// "-105.2 deg, 40.1 deg, 1640 m": every second word is a unit.
void VestaFile::takePrelaunchLoc(const std::string& value) {
    static constexpr std::array<FrameColumn, 3> kColumns{{
        {nullptr, &VestaFile::_launchLon, 999.0},
        {nullptr, &VestaFile::_launchLat, 99.0},
        {nullptr, &VestaFile::_launchAlt, 99999.0},
    }};
    std::string_view words = value;
    for (const FrameColumn& column : kColumns) {
        const std::string_view word = nextWord(words);
        this->*column.launch = word.empty() ? kMissing : column.valueOf(word);
        skipWords(words, 1);
    }
}

void VestaFile::takeTimeOffset(const std::string& value) {
    _ptuWindTimeDiff = numberOf(value);
}

void VestaFile::correctPressure() {
    for (int i = 0; i <= _sPres.lastIndex(); ++i) {
        if (_sPres.data(i) != kMissing) {
            _sPres.setData(i, _sPres.data(i) + _pressureOffset + kPressureCorrection);
        }
    }
}
