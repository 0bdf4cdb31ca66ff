#pragma once

#include <QMessageBox>

class SQLiteDB;

/// What this program is, and which build of it.
class AboutMsgBox : public QMessageBox {
    Q_OBJECT

public:
    /// A database that isn't open is null.
    AboutMsgBox(const QString& image, const SQLiteDB* soundingDB, const SQLiteDB* geoDB, QWidget* parent);
};
