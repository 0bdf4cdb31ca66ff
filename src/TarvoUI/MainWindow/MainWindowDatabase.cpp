// How the main window opens the databases.

#include "SoundingDBHelper.h"
#include "SynopticWidget.h"
#include "TarvoMainWindow.h"
#include "TarvoViewController.h"
#include "UiText.h"

#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMessageBox>

void TarvoMainWindow::openSoundingDB() {
    try {
        // The old one stays until there is a new one that all windows have.
        std::unique_ptr<SoundingDB> opened = SoundingDBHelper::getDB(this, *_configSet);
        if (_synoptic != nullptr) {
            _synoptic->setSoundingDB(opened.get());
        }
        for (const QMdiSubWindow* window : _mdiArea->subWindowList()) {
            if (TarvoViewController* view = viewOf(window)) {
                view->setSoundingDB(opened.get());
            }
        }
        _soundingDB = std::move(opened);
        updateSynopticMapTitle();
        qCInfo(mainWindowLog) << "Sounding database:" << toQString(_soundingDB->dbPath());
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
