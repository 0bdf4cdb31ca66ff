#pragma once

#include <QMessageBox>

/// What this program is, and which build of it.
class AboutMsgBox : public QMessageBox {
    Q_OBJECT

public:
    AboutMsgBox(const QString& image, QWidget* parent);
};
