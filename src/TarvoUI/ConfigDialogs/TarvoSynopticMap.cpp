#include "TarvoSynopticMap.h"

#include "SoundingDB.h"
#include "UiText.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

TarvoSynopticMap::TarvoSynopticMap(TarvoConfigSet* configSet, SoundingDB* soundingDB)
    : TarvoAdvConfig(configSet, "Synoptic Map", config_forms::synopticMap()), _soundingDB(soundingDB) {
    auto* line = new QHBoxLayout;
    line->addWidget(new QLabel("Clear Sounding Database:", widget()));
    auto* clear = new QPushButton("Clear", widget());
    clear->setObjectName("_clearSoundingDB");
    clear->setAutoDefault(false);
    clear->setEnabled(soundingDB != nullptr);
    connect(clear, &QPushButton::clicked, this, &TarvoSynopticMap::clearSoundingDB);
    line->addWidget(clear);
    line->addStretch();
    static_cast<QVBoxLayout*>(widget()->layout())->addLayout(line);
    begin();
}

QString TarvoSynopticMap::changeGeoDBPath(const QString& current) {
    return QFileDialog::getOpenFileName(widget(), "Tarvo - Browse for Geo Database", QFileInfo(current).path(),
                                        "SQLite Database (*.sqlite)");
}

/// A name that isn't there yet can be given too.
QString TarvoSynopticMap::changeSoundingDBPath(const QString& current) {
    QFileDialog dialog(widget(), "Tarvo - Browse for Sounding Database", QFileInfo(current).path(),
                       "SQLite Database (*.sqlite);;All Files (*.*)");
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setLabelText(QFileDialog::Accept, "OK");
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString TarvoSynopticMap::browse(const std::string& key, const QString& current) {
    return key == "GeoDBPath" ? changeGeoDBPath(current) : changeSoundingDBPath(current);
}

/// What can't be undone is asked for.
void TarvoSynopticMap::clearSoundingDB() {
    const auto answer =
        QMessageBox::question(widget(), "Configuration Management",
                              QString("Are you sure that you want to delete all soundings of the database\n'%1'?")
                                  .arg(toQString(_soundingDB->dbPath())));
    if (answer != QMessageBox::Yes) {
        return;
    }
    try {
        _soundingDB->clear();
    } catch (const std::string& error) {
        QMessageBox::critical(widget(), "ERROR", toQString(error));
    }
}
