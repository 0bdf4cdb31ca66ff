#include "DocumentController.h"

#include "Credit.h"
#include "DCapture.h"
#include "RevisionInfo.h"

#include <fstream>

DocumentController::DocumentController(std::string path, TarvoConfigSet* configSet)
    : _filePath(std::move(path)), _fileName(_filePath.substr(_filePath.find_last_of("/\\") + 1)),
      _configSet(configSet) {}

bool DocumentController::initializeDocument(StatusAgent& agent, std::string& error) {
    _editor = std::make_unique<EditorControl>(*_configSet, programText());
    _editor->setStatusAgent(&agent);
    bool diagnostics = false;
    _configSet->boolValue("QcDiagFile", diagnostics);
    if (diagnostics) {
        DCapture::enable(true);
    }
    std::ifstream stream(_filePath);
    _editor->getSounding(_filePath, &stream);
    error = _editor->getSndfileErrorMsg();
    if (_editor->isValid()) {
        return true;
    }
    error = "This file is not in an acceptable format for Tarvo. File opening errors are:\n\n" + error;
    return false;
}

std::string DocumentController::process() {
    _editor->qcProcess();
    _editor->doLevels();
    _editor->doWMO();
    std::string text;
    return _editor->qcError(text) ? "\"" + _fileName + "\":\n\n" + text : std::string();
}

void DocumentController::summaryAddItem(const std::string& topic, const std::string& text) {
    _editor->summaryAddItem(topic, text);
}

std::string DocumentController::credit() const {
    return creditText();
}
