#include "TarvoOtherOptions.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QFileInfo>

TarvoOtherOptions::TarvoOtherOptions(TarvoConfigSet* configSet, int numberOfOpenSoundings)
    : TarvoAdvConfig(configSet, "Other Options", config_forms::processing()) {
    if (numberOfOpenSoundings > 0) {
        for (QAbstractButton* button : choice("DoQC")->buttons()) {
            button->setEnabled(false);
            button->setToolTip("To change the QC processing you must close all soundings");
        }
    }
    begin();
}

void TarvoOtherOptions::connectSignals() {
    for (QAbstractButton* button : choice("DoQC")->buttons()) {
        connect(button, &QAbstractButton::clicked, this, &TarvoOtherOptions::syncQcOptions);
    }
}

void TarvoOtherOptions::updateFormFromConfig() {
    TarvoAdvConfig::updateFormFromConfig();
    emit qcMode(choice("DoQC")->checkedId());
}

void TarvoOtherOptions::syncQcOptions() {
    const int mode = choice("DoQC")->checkedId();
    if (mode == TarvoConfigSet::DOQC_NONE || mode == TarvoConfigSet::DOQC_PASS) {
        box("DoLevels")->setChecked(false);
        box("DoWMO")->setChecked(false);
    }
    emit qcMode(mode);
}

QString TarvoOtherOptions::changeDirectory(const QString& current) {
    return QFileDialog::getExistingDirectory(widget(), "Tarvo - Browse for Folder", current);
}

QString TarvoOtherOptions::changeKermitPath(const QString& current) {
    return QFileDialog::getOpenFileName(widget(), "Tarvo - Browse for Kermit Path", QFileInfo(current).path());
}

QString TarvoOtherOptions::browse(const std::string& key, const QString& current) {
    return key == "KermitPath" ? changeKermitPath(current) : changeDirectory(current);
}
