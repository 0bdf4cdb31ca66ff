#include "GeoDBHelper.h"

#include "ConfigSet.h"
#include "FilePathDialog.h"
#include "UiText.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMessageBox>

namespace {

constexpr int kPictureSize = 160; // pixels
const char* const kPathItem = "GeoDBPath";

QString askForPath(QWidget* parent, const QString& missing) {
    FilePathDialog dialog("Tarvo - Browse for Geographic Database", "Locate Geographic Database", true, parent);
    dialog.setPixmap(QPixmap(":/Images/World.png"), kPictureSize, kPictureSize);
    dialog.setSubTitle(QString("Tarvo synoptic tool requires a geographic database. Tarvo \n"
                               "cannot open the database currently specified at: \n\"%1\".\n\n"
                               "Please locate the geographic database that comes with Tarvo \n"
                               "installation. The database is named \"ne1to50m.sqlite\" and \n"
                               "it is normally found in the directory \"\\Geodata\" under the \n"
                               "main Tarvo installation directory on your computer.")
                           .arg(missing));
    const QString path = dialog.exec() == QDialog::Accepted ? dialog.getFilePath() : QString();
    return path.trimmed().isEmpty() ? QString() : QFileInfo(path).absoluteFilePath();
}

/// The one that is installed with the program.
QString installedPath() {
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../share/tarvo/ne1to50m.sqlite");
}

std::unique_ptr<SpatiaLiteDB> openValid(const QString& path) {
    try {
        auto db = std::make_unique<SpatiaLiteDB>(path.toStdString());
        if (GeoDBHelper::validDB(db.get())) {
            return db;
        }
    } catch (const std::string& error) {
        qWarning("%s", error.c_str());
    }
    return nullptr;
}

void tellThereIsNone(QWidget* parent, const QString& reason, const QString& path) {
    QMessageBox::information(parent, "Tarvo Geographic Database Error",
                             reason.arg(path) + "\nThe Tarvo synoptic tool is not available.\n"
                                                "(Use the configuration editor to specify the correct database.)");
}

} // namespace

bool GeoDBHelper::validDB(SpatiaLiteDB* db) {
    return db != nullptr && !db->geometryTables().empty();
}

std::unique_ptr<SpatiaLiteDB> GeoDBHelper::getDB(QWidget* parent, ConfigSet& configSet) {
    std::string stored;
    configSet.text(kPathItem, stored);
    QString path = toQString(stored);
    if (!QFileInfo(path).isFile()) {
        const QString installed = installedPath();
        const QString chosen = QFileInfo(installed).isFile() ? installed : askForPath(parent, path);
        if (!chosen.isEmpty()) {
            path = chosen;
            configSet.set(kPathItem, path.toStdString());
            configSet.save(false);
        }
    }
    if (!QFileInfo(path).isFile()) {
        tellThereIsNone(parent, "A valid geographic database was not specified at %1. ", path);
        return nullptr;
    }
    auto db = openValid(path);
    if (db == nullptr) {
        tellThereIsNone(parent, "The file at %1 does not contain a valid Tarvo geographic database.", path);
    }
    return db;
}
