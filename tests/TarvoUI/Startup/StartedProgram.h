#pragma once

#include "ModalAnswers.h"

#include <QStringList>

#include <filesystem>
#include <vector>

/// One run of the start-up program in a home of its own.
class StartedProgram {
public:
    /// Runs to the end. \p configHome is where the desktop keeps configurations, as far as the environment tells.
    explicit StartedProgram(const std::filesystem::path& home, const QStringList& arguments = {},
                            const QString& configHome = {});

    /// -1 when the program crashed or hung.
    int exitStatus() const { return _exitStatus; }
    const std::vector<ModalAnswers::Box>& boxes() const { return _boxes; }
    QStringList boxTexts() const;

private:
    int _exitStatus = -1;
    std::vector<ModalAnswers::Box> _boxes;
};
