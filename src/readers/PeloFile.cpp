#include "PeloFile.h"

namespace {

constexpr char kDescentMark = 'd'; // at the end of a file name

bool namesDescent(const std::string& fileName) {
    return !fileName.empty() && fileName.back() == kDescentMark;
}

} // namespace

PeloFile::PeloFile(std::string fileName, std::vector<std::string> dLines, bool derivesDescent)
    : KeyedUpsondeFile(std::move(fileName), std::move(dLines), kLongFrame) {
    _ascending = !namesDescent(_fileName);
    if (_ascending && derivesDescent) {
        checkDescendingSnd();
    }
    readData();
    conclude(SoundingType::Pelo, "KIVU PELO");
}

void PeloFile::checkDescendingSnd() {
    PeloDescent descent(lines());
    if (descent.state() == PeloDescent::State::Malformed) {
        _errorMsg += "- The descent of this sounding has lines that are not laid out in the columns of a D-file. No "
                     "descending D-file was created.\n";
    }
    if (descent.state() != PeloDescent::State::Whole) {
        return;
    }
    const std::string path = _fileName + kDescentMark;
    const PeloDescent::Outcome outcome = descent.save(path);
    if (outcome == PeloDescent::Outcome::Foreign) {
        _errorMsg += "- The descending D-file \"" + path +
                     "\" was not created: a file that was not made from this sounding stands in its place.\n";
        return;
    }
    _derivedSndFile = path;
    if (outcome == PeloDescent::Outcome::Saved) {
        _summaryInfo.push_back("Descending D-file \"" + path + "\" created");
        _descent = std::move(descent);
    }
}

void PeloFile::updateDescendingGeoAlt(double alt) {
    if (_descent) {
        _descent->setAltitude(alt);
        _descent->save(_derivedSndFile);
    }
}

void PeloFile::readData() {
    static constexpr std::array<Taker<PeloFile, PeloLine>, 9> kTakers{{
        {PeloLine::AircraftData, kWholeLine, &PeloFile::takeAircraftLine},
        {PeloLine::Launch, kWholeLine, &PeloFile::takeLaunchLine},
        {PeloLine::SoundingData, kWholeLine, &PeloFile::takeSoundingLine},
        {PeloLine::Project, 5, &PeloFile::takeProject},
        {PeloLine::NameComments, 4, &PeloFile::takeNameAndComment},
        {PeloLine::DataType, 5, &PeloFile::takeDataType},
        {PeloLine::PrelaunchObs, 6, &PeloFile::takePrelaunchObs},
        {PeloLine::IdType, 4, &PeloFile::takeIdType},
        {PeloLine::StdComments, 4, &PeloFile::addComment},
    }};
    takeLines(*this, &peloLineType, kTakers);
    settleLaunch();
}

void PeloFile::takeSoundingLine(const std::string& line) {
    if (!launchLineFound()) {
        tellDataAheadOfLaunch();
    }
    takeRecord(line);
}

void PeloFile::takeUnknownSonde(const std::string& line) {
    setLaunch(line);
    takeAircraftLine(line);
}

void PeloFile::takeProject(const std::string& value) {
    takeCommaPart(value, 0, _project);
    takeCommaPart(value, 1, _siteId);
    _descriptionText += value + " ";
}
