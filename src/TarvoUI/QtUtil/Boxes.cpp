#include "Boxes.h"

void Boxes::displayErrorMessage(const QString& text, bool fatal, const QString& title) {
    if (fatal) {
        QMessageBox::critical(nullptr, title, text);
    } else {
        QMessageBox::warning(nullptr, title, text);
    }
}
