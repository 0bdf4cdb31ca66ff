#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

/// Asks for a path or a name, with a picture, a heading and a text that tells what it is for.
class FilePathDialog : public QDialog {
    Q_OBJECT

public:
    /// With \p browses a button looks for a database file, which needn't exist.
    FilePathDialog(const QString& title, const QString& heading, bool browses, QWidget* parent);

    void setFilePath(const QString& path);
    void setSubTitle(const QString& text);
    QString getFilePath() const;
    void showCancel(bool show);
    /// \p width and \p height in pixels are those of the place that the picture fills.
    void setPixmap(const QPixmap& picture, int width, int height);

private:
    void browse();

    QLabel* _imageLabel;
    QLabel* _memoLabel;
    QLineEdit* _pathEditor;
    QPushButton* _btnBrowse;
    QPushButton* _cancel;
};
