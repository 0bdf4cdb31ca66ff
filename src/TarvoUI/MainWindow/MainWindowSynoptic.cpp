// How the main window opens and serves the synoptic map.

#include "GeoDBHelper.h"
#include "SynopticWidget.h"
#include "TarvoMainWindow.h"

#include <QMdiSubWindow>
#include <QMessageBox>

SynopticWidget* TarvoMainWindow::activeSynoptic() const {
    const QMdiSubWindow* window = _mdiArea->currentSubWindow();
    return window == nullptr ? nullptr : qobject_cast<SynopticWidget*>(window->widget());
}

void TarvoMainWindow::synoptic() {
    if (_busy > 0) {
        return;
    }
    if (_synoptic != nullptr) {
        raiseWindow(qobject_cast<QMdiSubWindow*>(_synoptic->parentWidget()));
        return;
    }
    initConfigSet();
    if (_soundingDB == nullptr) {
        openSoundingDB();
    }
    std::unique_ptr<SpatiaLiteDB> geoDB = GeoDBHelper::getDB(this, *_configSet);
    if (geoDB == nullptr || _soundingDB == nullptr) {
        return;
    }
    if (_printer == nullptr) {
        _printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    }
    try {
        _synoptic = new SynopticWidget(*geoDB, _soundingDB.get(), _printer.get(), this);
    } catch (const std::string& error) {
        showDatabaseError(QString::fromStdString(error));
        return;
    }
    _geoDB = std::move(geoDB);
    connect(this, &TarvoMainWindow::updateSounding, _synoptic, &SynopticWidget::addNewSounding);
    connect(_synoptic, &SynopticWidget::openSounding, this, &TarvoMainWindow::processFile);
    connect(_synoptic, qOverload<QString>(&SynopticWidget::changeSoundingDB), this, &TarvoMainWindow::changeSoundingDB);
    connect(_synoptic, &QObject::destroyed, this, &TarvoMainWindow::synopticDestroyed);
    QMdiSubWindow* window = _mdiArea->addSubWindow(_synoptic);
    _synoptic->show();
    window->showMaximized();
    updateSynopticMapTitle();
    updateMenus();
}

void TarvoMainWindow::synopticDestroyed() {
    _synoptic = nullptr;
    _geoDB.reset();
    updateMenus();
}

void TarvoMainWindow::updateSynopticMapTitle() {
    if (_synoptic != nullptr) {
        initConfigSet();
        _synoptic->setMapTitle(configText("SynopticMapTitle").toStdString());
    }
}

/// The options have a button that clears the database.
void TarvoMainWindow::readSynopticAnew() {
    if (_synoptic != nullptr) {
        _synoptic->readAnew();
    }
}

void TarvoMainWindow::saveAll() {
    if (SynopticWidget* map = activeSynoptic()) {
        const Busy busy(_busy);
        map->saveAll();
    }
}

/// Commands that have other texts, or are there at all, while the map is the active window.
void TarvoMainWindow::updateSynopticCommands() {
    const bool active = activeSynoptic() != nullptr;
    QAction* saves = action("_actionSave");
    saves->setText(active ? "&Save Current Synoptic Level..." : "&Save...");
    saves->setStatusTip(active ? "Save current synoptic level" : "Save the active document");
    QAction* closes = action("_actionClose");
    closes->setText(active ? "&Close Synoptic Plot" : "&Close...");
    closes->setStatusTip(active ? "Close synoptic plot" : "Close the active sounding file");
    action("_actionSaveAll")->setVisible(active);
    if (active) {
        for (const char* name : {"_actionSave", "_actionClose", "_actionPrint", "_actionPrintPreview"}) {
            action(name)->setEnabled(true);
        }
    }
}
