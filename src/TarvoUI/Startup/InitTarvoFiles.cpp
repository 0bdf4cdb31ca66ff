#include "InitTarvoFiles.h"

#include <QDir>
#include <QMessageBox>
#include <QTextStream>

namespace {

constexpr char kVersionMarker[] = "@version:";

/// A settings key, and what its first value has behind the folder of the configuration.
struct Place {
    const char* key;
    const char* defaultName;
};

constexpr Place kOtherPlaces[] = {
    {TarvoSettings::kManual, "TarvoManual.pdf"},
    {TarvoSettings::kConfigLog, "TarvoConfigLog.txt"},
    {TarvoSettings::kBufrDir, ""},
};

enum class Treatment {
    Upgrade, ///< replaced by a newer version only, and kept beside it
    Refresh  ///< replaced whenever it differs in size
};

/// A resource of the program, and the user's copy of it: the value of a settings key with a name behind it.
struct UserFile {
    const char* resource;
    const char* key;
    const char* appended;
    Treatment treatment;
};

constexpr UserFile kUserFiles[] = {
    {":tarvo.xml", TarvoSettings::kXmlDir, "tarvo.xml", Treatment::Upgrade},
    {":/Docs/TarvoManual.pdf", TarvoSettings::kManual, "", Treatment::Refresh},
    {":TarvoConfigLog.txt", TarvoSettings::kConfigLog, "", Treatment::Refresh},
    {":table_b_bufr", TarvoSettings::kBufrDir, "/table_b_bufr", Treatment::Refresh},
    {":table_d_bufr", TarvoSettings::kBufrDir, "/table_d_bufr", Treatment::Refresh},
};

double versionOf(const QString& path) {
    QFile file(path);
    return InitTarvoFiles::configVersion(&file);
}

} // namespace

/// The linker drops what nobody names from a static library, and with it the resources; this names them.
static void registerResources() {
    Q_INIT_RESOURCE(TarvoFiles);
}

InitTarvoFiles::InitTarvoFiles(const QString& applicationName) : _settings(applicationName) {
    registerResources();
    settleFolder();
    upgradeConfiguration();
    settleOtherPlaces();
    refreshOtherFiles();
}

double InitTarvoFiles::configVersion(QFile* file) {
    if (!file->open(QIODevice::ReadOnly)) {
        return -1.0;
    }
    QTextStream lines(file);
    double version = -1.0;
    QString line;
    while (lines.readLineInto(&line)) {
        const int marker = line.indexOf(kVersionMarker);
        if (marker >= 0) {
            version = line.mid(marker + static_cast<int>(sizeof kVersionMarker) - 1).trimmed().toDouble();
            break;
        }
    }
    file->close();
    return version;
}

void InitTarvoFiles::settleFolder() {
    _folder = _settings.value(TarvoSettings::kXmlDir).toString();
    if (!_folder.isEmpty()) {
        return;
    }
    _folder = QDir::homePath() + "/.config/Tarvo/";
    _settings.setValue(TarvoSettings::kXmlDir, _folder);
    _settings.sync();
    // A new home lacks the folder above as well, and where the settings live elsewhere they don't make it either.
    QDir::home().mkdir(".config");
}

void InitTarvoFiles::upgradeConfiguration() {
    for (const UserFile& file : kUserFiles) {
        if (file.treatment != Treatment::Upgrade) {
            continue;
        }
        const QString path = _settings.value(file.key).toString() + file.appended;
        FileManager manager(path, file.resource);
        manager.checkExistence(true);
        const double newVersion = versionOf(file.resource);
        const double oldVersion = versionOf(path);
        if (newVersion > oldVersion) {
            announceUpgrade(manager, oldVersion, newVersion);
            manager.upgradeVersion(oldVersion);
        }
    }
}

void InitTarvoFiles::announceUpgrade(FileManager& manager, double oldVersion, double newVersion) const {
    const QString before = QString::number(oldVersion, 'f', 2);
    const QString now = QString::number(newVersion, 'f', 2);
    QMessageBox box(&manager);
    box.setText(
        QString("Your configuration file \"tarvo.xml\" has an older version of %1. Tarvo will upgrade it to the "
                "latest version of %2. Your original file will be renamed as \"tarvo_%3.xml\".")
            .arg(before, now, before));
    box.exec();
}

void InitTarvoFiles::settleOtherPlaces() {
    for (const Place& place : kOtherPlaces) {
        if (!_settings.contains(place.key)) {
            _settings.setValue(place.key, _folder + place.defaultName);
        }
    }
    _settings.sync();
}

void InitTarvoFiles::refreshOtherFiles() {
    for (const UserFile& file : kUserFiles) {
        if (file.treatment == Treatment::Refresh) {
            FileManager(_settings.value(file.key).toString() + file.appended, file.resource).updateFile();
        }
    }
}
