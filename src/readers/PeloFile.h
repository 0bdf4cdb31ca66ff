#pragma once

#include "CommaParts.h"
#include "KeyedUpsondeFile.h"
#include "PELOLineSignature.h"
#include "PeloDescent.h"

#include <optional>
#include <string>
#include <vector>

/// The D file of the PELO radiosonde system. A radiosonde that comes down again after its balloon burst leaves ascent
/// and descent in one file, which is read whole as an upsonde; the descent can be had as a second, derived file of the
/// same format. Its name ends in "d", and a file of such a name is a descent.
///
/// The first record stands for the launch where no launch line came before it; without any such line the file is
/// invalid all the same.
class PeloFile : public KeyedUpsondeFile {
public:
    /// \p lines: without control characters and empty lines. With \p derivesDescent the descent of an ascending
    /// sounding is written beside the file, as PeloDescent::save() does it. derivedSndFile() names it, also when it
    /// couldn't be written; it names nothing when there is none to speak of, its lines aren't laid out as they must be,
    /// or what stands there isn't ours, and the latter two are told.
    PeloFile(std::string fileName, std::vector<std::string> lines, bool derivesDescent);

    /// Writes the derived file again, with \p alt for the altitude at which the descent began.
    void updateDescendingGeoAlt(double alt) override;

private:
    void checkDescendingSnd();
    void readData();
    void takeSoundingLine(const std::string& line);
    void takeUnknownSonde(const std::string& line) override;
    void takeProject(const std::string& value);
    void takeDataType(const std::string& value) { takeCommaPart(value, 0, _dataType); }
    void takeIdType(const std::string& value) { takeCommaPart(value, 2, _sondeModel); }

    std::optional<PeloDescent> _descent; // as long as it is ours to write
};
