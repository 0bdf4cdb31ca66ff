#include "SoundingDBHelper.h"

#include "ConfigSet.h"
#include "FilePathDialog.h"
#include "UiText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>

namespace {

constexpr int kPictureSize = 160; // pixels
const char* const kPathItem = "SoundingDBPath";
const char* const kDefaultName = "soundings.sqlite";

QString storedPath(const ConfigSet& configSet) {
    std::string path;
    configSet.text(kPathItem, path);
    return toQString(path);
}

QString askForPath(QWidget* parent) {
    FilePathDialog dialog("Tarvo - Browse for Sounding Database", "Locate Sounding Database", true, parent);
    dialog.setPixmap(QPixmap(":/Images/Skewt.png"), kPictureSize, kPictureSize);
    dialog.setSubTitle("Select the sounding database. You can:\n"
                       "  - Browse to an existing file.\n"
                       "  - Browse to a directory, then enter the name of the database file to create.\n"
                       "  - Just hit OK, to use/create the default database file (soundings.sqlite)");
    dialog.showCancel(false);
    const QString answer = dialog.exec() == QDialog::Accepted ? dialog.getFilePath() : QString();
    const QFileInfo chosen(answer);
    if (!answer.trimmed().isEmpty() && !chosen.isDir()) {
        return chosen.absoluteFilePath();
    }
    const QDir directory(answer.trimmed().isEmpty() ? QDir::homePath() : chosen.absoluteFilePath());
    QString path = directory.filePath(kDefaultName);
    QMessageBox::information(parent, "Tarvo Sounding Database Create",
                             QString("A valid sounding database was not specified.\n"
                                     "Tarvo will create a database at: \n   \"%1\".")
                                 .arg(path));
    return path;
}

/// The one that stands beside a file that is none.
QString pathBeside(QWidget* parent, const QString& invalid) {
    QString path = QFileInfo(invalid).absoluteDir().filePath(kDefaultName);
    if (QFileInfo(path) == QFileInfo(invalid)) {
        throw "The file " + invalid.toStdString() + " is not a sounding database.";
    }
    QMessageBox::warning(parent, "Invalid Database",
                         QString("The database file: \n   \"%1\" \nis not a valid sounding database.  Tarvo will "
                                 "create the default database for your session at: \n   \"%2\" ")
                             .arg(invalid, path));
    return path;
}

void setAside(QWidget* parent, std::unique_ptr<SoundingDB> old, const QString& path) {
    const int version = old->user_version();
    const QString name = QString("soundings_%1.sqlite").arg(version);
    QMessageBox::information(
        parent, "Tarvo Database Upgrade",
        QString("Your sounding database has an older version %1, which is incompatible with the current version %2 "
                "used by Tarvo. It will be renamed to \"%3\" and Tarvo will create an empty database for your session.")
            .arg(version)
            .arg(soundingsSchemaVersion())
            .arg(name));
    // All of it has to be in this one file. Fails as long as another program has it open.
    old->execWhenFree("pragma journal_mode = delete");
    old.reset();
    const QString place = QFileInfo(path).absoluteDir().filePath(name);
    if (!QFile::rename(path, place)) {
        throw "The sounding database " + path.toStdString() + " can't be renamed to " + place.toStdString() +
            (QFile::exists(place) ? ", which is there already." : ".");
    }
}

} // namespace

std::unique_ptr<SoundingDB> SoundingDBHelper::getDB(QWidget* parent, ConfigSet& configSet) {
    QString path = storedPath(configSet);
    if (!QFileInfo(path).isFile()) {
        path = askForPath(parent);
    }
    auto db = SoundingDB::openOrCreate(path.toStdString());
    while (!db->validate()) {
        db.reset();
        path = pathBeside(parent, path);
        db = SoundingDB::openOrCreate(path.toStdString());
    }
    if (db->user_version() != soundingsSchemaVersion()) {
        setAside(parent, std::move(db), path);
        db = SoundingDB::openOrCreate(path.toStdString());
    }
    configSet.set(kPathItem, path.toStdString());
    if (configSet.changed()) {
        configSet.save(false);
    }
    return db;
}
