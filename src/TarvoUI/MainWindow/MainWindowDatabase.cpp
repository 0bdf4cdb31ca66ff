// How the main window opens the databases.

#include "SoundingDBHelper.h"
#include "SynopticWidget.h"
#include "TarvoMainWindow.h"
#include "TarvoViewController.h"
#include "UiText.h"

#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <utility>

void TarvoMainWindow::openSoundingDB() {
    try {
        std::unique_ptr<SoundingDB> old = SoundingDBHelper::getDB(this, *_configSet);
        std::swap(old, _soundingDB); // it stays until all windows have the new one
        qCInfo(mainWindowLog) << "Sounding database:" << toQString(_soundingDB->dbPath());
        for (const QMdiSubWindow* window : _mdiArea->subWindowList()) {
            if (TarvoViewController* view = viewOf(window)) {
                view->setSoundingDB(_soundingDB.get());
            }
        }
        if (_synoptic != nullptr) {
            _synoptic->setSoundingDB(_soundingDB.get()); // reads it, which may fail
        }
        updateSynopticMapTitle();
    } catch (const std::string& error) {
        showDatabaseError(toQString(error));
    }
}

void TarvoMainWindow::changeSoundingDB(const QString& path) {
    initConfigSet();
    if (!QFileInfo(path).isFile()) { // a new one was named
        try {
            SoundingDB::openOrCreate(path.toStdString());
        } catch (const std::string& error) {
            showDatabaseError(toQString(error));
            return;
        }
    }
    _configSet->set("SoundingDBPath", path.toStdString());
    openSoundingDB();
    initConfigSet(); // without a path that led nowhere
}

void TarvoMainWindow::showDatabaseError(const QString& error) {
    qCWarning(mainWindowLog) << error;
    QMessageBox::critical(this, "Levels Database Error", error);
}
