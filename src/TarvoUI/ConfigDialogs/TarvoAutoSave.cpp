#include "TarvoAutoSave.h"

#include <QFileDialog>

TarvoAutoSave::TarvoAutoSave(TarvoConfigSet* configSet)
    : TarvoAdvConfig(configSet, "Auto Save", config_forms::autoSave()) {
    begin();
}

void TarvoAutoSave::enAutoSave(int mode) {
    QCheckBox* enable = box("QCAutoSaveEnable");
    if (mode == TarvoConfigSet::DOQC_NONE) {
        enable->setChecked(false);
    }
    enable->setEnabled(mode != TarvoConfigSet::DOQC_NONE);
}

QString TarvoAutoSave::browse(const std::string& /*key*/, const QString& current) {
    return QFileDialog::getExistingDirectory(widget(), "Tarvo - Browse for Folder", current);
}
