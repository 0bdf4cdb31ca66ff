#include "FilePathDialog.h"

#include "FileDialogKeys.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int kPathWidth = 320; // pixels, at least
const char* const kFilters = "SQLite Database (*.sqlite);;All Files (*.*)";

} // namespace

FilePathDialog::FilePathDialog(const QString& title, const QString& heading, bool browses, QWidget* parent)
    : QDialog(parent), _imageLabel(new QLabel(this)), _memoLabel(new QLabel(this)), _pathEditor(new QLineEdit(this)),
      _btnBrowse(new QPushButton("&Browse...", this)) {
    setWindowTitle(title);
    _imageLabel->setObjectName("_imageLabel");
    _imageLabel->setAlignment(Qt::AlignCenter);
    _memoLabel->setObjectName("_memoLabel");
    _memoLabel->setTextFormat(Qt::PlainText);
    _pathEditor->setObjectName("_pathEditor");
    _pathEditor->setMinimumWidth(kPathWidth);
    _pathEditor->setAccessibleName(heading);
    _btnBrowse->setObjectName("_btnBrowse");
    _btnBrowse->setAutoDefault(false);
    _btnBrowse->setVisible(browses);
    auto* head = new QLabel(heading, this);
    QFont bold = head->font();
    bold.setBold(true);
    head->setFont(bold);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    _cancel = buttons->button(QDialogButtonBox::Cancel);

    auto* layout = new QGridLayout(this);
    layout->addWidget(_imageLabel, 0, 0, 3, 1);
    layout->addWidget(head, 0, 1, 1, 2);
    layout->addWidget(_memoLabel, 1, 1, 1, 2);
    layout->addWidget(_pathEditor, 2, 1);
    layout->addWidget(_btnBrowse, 2, 2);
    layout->addWidget(buttons, 3, 0, 1, 3);
    layout->setRowStretch(1, 1);
    layout->setColumnStretch(1, 1);
    _pathEditor->setFocus();

    connect(_btnBrowse, &QPushButton::clicked, this, &FilePathDialog::browse);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void FilePathDialog::setFilePath(const QString& path) {
    _pathEditor->setText(path);
}

void FilePathDialog::setSubTitle(const QString& text) {
    _memoLabel->setText(text);
}

QString FilePathDialog::getFilePath() const {
    return _pathEditor->text();
}

void FilePathDialog::showCancel(bool show) {
    _cancel->setVisible(show);
}

void FilePathDialog::setPixmap(const QPixmap& picture, int width, int height) {
    _imageLabel->setPixmap(picture.scaled(width, height, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    _imageLabel->setFixedSize(width, height);
}

/// A name that isn't there yet can be given too.
void FilePathDialog::browse() {
    const QString path = getFilePath();
    QFileDialog dialog(this, windowTitle(), path.isEmpty() ? QDir::homePath() : QFileInfo(path).path(), kFilters);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setLabelText(QFileDialog::Accept, "OK");
    reachFileTypesByKeys(dialog);
    if (dialog.exec() == QDialog::Accepted) {
        setFilePath(dialog.selectedFiles().value(0));
    }
}
