#pragma once

#include <QString>
#include <QWidget>

/// One file of the user that the program carries as a read-only resource. It tells the user in a box what it does to
/// the file; the widget itself is never shown, it is the parent of those boxes.
///
/// A file is replaced under a temporary name and renamed, so that a crash leaves the old one or the new one. Where a
/// copy can't be made the program can't run: a box says why and the process ends with status 1.
class FileManager : public QWidget {
    Q_OBJECT

public:
    FileManager(const QString& userPath, const QString& resourcePath);

    /// Copies the resource to the user's file when that can't be opened; with \p warn the user is told before.
    void checkExistence(bool warn);
    /// Puts the resource in place of the user's file, which stays beside it with \p oldVersion in its name: "tarvo.xml"
    /// of version 2.08 becomes "tarvo_2.08.xml". A file of that name is replaced.
    void upgradeVersion(double oldVersion);
    /// Puts the resource in place of a user's file that is missing or has another size. The contents aren't compared.
    void updateFile();
    /// Copies \p source to \p destination, in place of a file that is there; the owner may write the copy. The folder
    /// of \p destination is made when it is missing, but not the folders above it. Doesn't return from a failure.
    void copyFile(const QString& source, const QString& destination);

private:
    QString backupPath(double version) const;
    void makeFolderOf(const QString& destination, const QString& source);
    [[noreturn]] void endProgram(const QString& message);

    QString _displayName;
    QString _userPath;
    QString _resourcePath;
};
