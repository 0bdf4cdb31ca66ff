#include "FileDialogKeys.h"

#include <QComboBox>
#include <QFileDialog>
#include <QLabel>

void reachFileTypesByKeys(QFileDialog& dialog) {
    auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
    auto* label = dialog.findChild<QLabel*>("fileTypeLabel");
    if (types == nullptr || label == nullptr) {
        return; // a dialog of the desktop
    }
    dialog.setLabelText(QFileDialog::FileType, "Files of &type:");
    label->setBuddy(types);
}
