#include "AutoSaveDirectory.h"

#include "ConfigSet.h"
#include "UiText.h"

#include <QDir>
#include <QMessageBox>

QString autoSaveDirectory(ConfigSet& configSet, QWidget* parent) {
    std::string text;
    configSet.text("QCAutoSaveDir", text);
    QString directory = toQString(text);
    if (!directory.isEmpty() && !directory.endsWith('/')) {
        directory += "/";
    }
    if (!directory.isEmpty() && QDir(directory).exists()) {
        return directory;
    }
    const QString home = QDir::homePath() + "/";
    QMessageBox::information(parent, "Invalid Autosave Directory",
                             "QC Autosave - QCAutoSaveDir \"" + directory + "\" no longer exists. Tarvo " +
                                 "will use the home directory \"" + home + "\".");
    configSet.set("QCAutoSaveDir", home.toStdString());
    return home;
}
