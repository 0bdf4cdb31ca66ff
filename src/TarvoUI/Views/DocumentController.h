#pragma once

#include "EditorControl.h"
#include "TarvoConfigSet.h"

#include <ctime>
#include <memory>
#include <string>

/// The sounding behind one window: its file and its analysis. The configuration is borrowed and outlives it.
class DocumentController {
public:
    DocumentController(std::string path, TarvoConfigSet* configSet);

    /// Reads the file. False when it is no sounding; \p error tells why, or what its reader warns of.
    bool initializeDocument(StatusAgent& agent, std::string& error);
    /// QC, levels and message. What QC found wrong, with the name of the file; empty when all went well.
    std::string process();

    EditorControl* editor() const { return _editor.get(); }
    TarvoConfigSet* configSet() const { return _configSet; }
    const std::string& filePath() const { return _filePath; }
    /// What follows the last "/" or "\".
    const std::string& fileName() const { return _fileName; }

    /// That of the message: two minutes after the sounding was opened.
    std::time_t nominalTime() const { return _nominalTime; }

    void summaryAddItem(const std::string& topic, const std::string& text);
    /// What stands at the foot of a printed page: program, version and time.
    std::string credit() const;

private:
    std::string _filePath;
    std::string _fileName;
    std::unique_ptr<EditorControl> _editor;
    TarvoConfigSet* _configSet;
    std::time_t _nominalTime = std::time(nullptr) + 120; // s
};
