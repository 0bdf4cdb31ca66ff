#include "Boxes.h"

#include <QFileInfo>

void Boxes::displayErrorMessage(const QString& text, bool fatal, const QString& title) {
    if (fatal) {
        QMessageBox::critical(nullptr, title, text);
    } else {
        QMessageBox::warning(nullptr, title, text);
    }
}

QString Boxes::withExtension(QWidget* parent, const QString& name, const QString& filter, const QString& title) {
    const QString extension = filter.section("(*", 1).section(')', 0, 0);
    if (name.isEmpty() || extension.isEmpty() || extension.contains('*') ||
        name.endsWith(extension, Qt::CaseInsensitive)) {
        return name;
    }
    const QString whole = name + extension;
    const bool keep =
        QFileInfo::exists(whole) &&
        QMessageBox::question(parent, title, "\"" + whole + "\" already exists.\nDo you want to replace it?",
                              QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes;
    return keep ? QString() : whole;
}
