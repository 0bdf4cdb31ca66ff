#pragma once

#include "FileManager.h"
#include "TarvoSettings.h"

#include <QFile>
#include <QString>

/// Sees at the start of the program to the files of the user: where they live, that they are there, and that they
/// aren't older than the program. The user is told in a box of each file that changes. To be made once, in a
/// QApplication and before the configuration is read; the work is done when the constructor returns.
///
/// A configuration file of an older version is replaced and kept under a name with its version; what the user set in it
/// isn't carried over. Places that the settings know are never changed, so that a user can move files by editing them.
class InitTarvoFiles {
public:
    /// \p applicationName is the application of the settings.
    explicit InitTarvoFiles(const QString& applicationName);

    /// The number that follows "@version:" in \p file; -1.0 when the marker isn't there or the file can't be read.
    static double configVersion(QFile* file);

private:
    void settleFolder();
    void settleOtherPlaces();
    void upgradeConfiguration();
    void refreshOtherFiles();
    void announceUpgrade(FileManager& manager, double oldVersion, double newVersion) const;

    TarvoSettings _settings;
    QString _folder;
};
