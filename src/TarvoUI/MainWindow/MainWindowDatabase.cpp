// How the main window opens the databases.

#include "SoundingDBHelper.h"
#include "TarvoMainWindow.h"
#include "TarvoViewController.h"
#include "UiText.h"

#include <QMdiSubWindow>
#include <QMessageBox>

void TarvoMainWindow::openSoundingDB() {
    try {
        // The old one stays until there is a new one that all windows have.
        std::unique_ptr<SoundingDB> opened = SoundingDBHelper::getDB(this, *_configSet);
        for (const QMdiSubWindow* window : _mdiArea->subWindowList()) {
            if (TarvoViewController* view = viewOf(window)) {
                view->setSoundingDB(opened.get());
            }
        }
        _soundingDB = std::move(opened);
        qCInfo(mainWindowLog) << "Sounding database:" << toQString(_soundingDB->dbPath());
    } catch (const std::string& error) {
        showDatabaseError(toQString(error));
    }
}

void TarvoMainWindow::changeSoundingDB(const QString& path) {
    initConfigSet();
    _configSet->set("SoundingDBPath", path.toStdString());
    openSoundingDB();
    initConfigSet(); // without a path that led nowhere
}

void TarvoMainWindow::showDatabaseError(const QString& error) {
    qCWarning(mainWindowLog) << error;
    QMessageBox::critical(this, "Levels Database Error", error);
}
