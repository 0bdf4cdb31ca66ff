#include "FileManager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QRegularExpression>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr char kUpdateTitle[] = "Tarvo File Update";

bool isReadable(const QString& path) {
    return QFile(path).open(QIODevice::ReadOnly);
}

/// Copies under a name of this process only, and gives the whole copy its name at the end.
bool copyWhole(const QString& source, const QString& destination) {
    const QString unfinished = destination + "." + QString::number(QCoreApplication::applicationPid()) + ".new";
    QFile::remove(unfinished);
    // A copy of a resource is read-only at first, as the resource is.
    const bool done =
        QFile::copy(source, unfinished) &&
        QFile::setPermissions(unfinished, QFile::permissions(unfinished) | QFile::WriteOwner) &&
        std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(destination).constData()) == 0;
    if (!done) {
        QFile::remove(unfinished);
    }
    return done;
}

} // namespace

FileManager::FileManager(const QString& userPath, const QString& resourcePath)
    : _displayName(QFileInfo(userPath).fileName()), _userPath(userPath), _resourcePath(resourcePath) {}

void FileManager::checkExistence(bool warn) {
    if (isReadable(_userPath)) {
        return;
    }
    if (warn) {
        QMessageBox::warning(
            this, "Tarvo File Open",
            QString("Unable to open file: \"%1\"\nTarvo will create a copy for you.").arg(_displayName));
    }
    copyFile(_resourcePath, _userPath);
}

void FileManager::upgradeVersion(double oldVersion) {
    copyFile(_userPath, backupPath(oldVersion));
    if (QFile::exists(_resourcePath)) {
        copyFile(_resourcePath, _userPath);
    }
}

void FileManager::updateFile() {
    if (!isReadable(_resourcePath)) {
        QMessageBox::warning(this, kUpdateTitle, "Unable to access the resource " + _resourcePath);
        return;
    }
    const QFileInfo user(_userPath);
    if (user.exists() && user.size() == QFileInfo(_resourcePath).size()) {
        return;
    }
    QMessageBox::warning(this, kUpdateTitle,
                         "Your " + _displayName + " appears to be out of date. Tarvo will update it.");
    copyFile(_resourcePath, _userPath);
}

void FileManager::copyFile(const QString& source, const QString& destination) {
    if (!QFileInfo(source).isReadable()) {
        endProgram("Tarvo is unable to read the file " + source + ".");
    }
    makeFolderOf(destination, source);
    if (!copyWhole(source, destination)) {
        endProgram("Tarvo is unable to create the file " + destination + ".");
    }
}

QString FileManager::backupPath(double version) const {
    static const QRegularExpression extension("\\.\\w+$");
    const QRegularExpressionMatch match = extension.match(_userPath);
    QString path = _userPath;
    path.insert(match.hasMatch() ? match.capturedStart() : path.size(), "_" + QString::number(version, 'g', 6));
    return path;
}

void FileManager::makeFolderOf(const QString& destination, const QString& source) {
    const QString folder = QFileInfo(destination).path();
    if (!QFileInfo(folder).isReadable() && !QDir().mkdir(folder)) {
        endProgram("Tarvo is unable to create the directory " + folder + " for " + source + ".");
    }
}

void FileManager::endProgram(const QString& message) {
    QMessageBox::critical(this, "Tarvo Fatal Error",
                          "Fatal: " + message + " \nHint: check your directory permissions.");
    std::exit(EXIT_FAILURE);
}
