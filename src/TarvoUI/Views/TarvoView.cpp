#include "TarvoView.h"

#include "Boxes.h"
#include "FileDialogKeys.h"
#include "UiText.h"

#include <QDir>
#include <QFileDialog>
#include <algorithm>

TarvoView::TarvoView(DocumentController* doc, QPrinter* printer, QWidget* parent)
    : QWidget(parent), _configSet(doc->configSet()), _doc(doc), _editor(doc->editor()),
      _description(toQString(_editor->description())), _printer(printer) {}

void TarvoView::saveConfig() {
    _configSet->save(true);
}

bool TarvoView::isOn(const char* key) const {
    bool on = false;
    _configSet->boolValue(key, on);
    return on;
}

QString TarvoView::configText(const char* key) const {
    std::string text;
    _configSet->text(key, text);
    return toQString(text);
}

QLabel* TarvoView::makeTopLabel(const char* name) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}

void TarvoView::setCellValue(QTableWidget* table, int row, int column, double value, int precision) {
    setCellValue(table, row, column, numberText(value, precision));
    table->item(row, column)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void TarvoView::setCellValue(QTableWidget* table, int row, int column, const QString& text) {
    if (table->item(row, column) == nullptr) {
        createCell(table, row, column, false);
    }
    table->item(row, column)->setText(text);
}

void TarvoView::setCellBackground(QTableWidget* table, int row, int column, const QColor& color) {
    if (QTableWidgetItem* item = table->item(row, column)) {
        item->setBackground(color);
    }
}

void TarvoView::setEditValue(QLineEdit* edit, double value, int precision, bool missing) {
    edit->setText(missing ? QString() : QString::number(value, 'f', precision));
}

QTableWidgetItem* TarvoView::createCell(QTableWidget* table, int row, int column, bool editable) {
    auto* item = new QTableWidgetItem;
    if (!editable) {
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    }
    table->setItem(row, column, item);
    return item;
}

void TarvoView::resetGrid(QTableWidget* table) {
    table->clear();
    table->setRowCount(0);
    table->setColumnCount(0);
}

QString TarvoView::straightLine(int n) {
    return QString(std::max(n, 0), '_');
}

QString TarvoView::getRootFilename() const {
    const QString name = toQString(_doc->filePath()).section('/', -1);
    const int dot = name.lastIndexOf('.');
    return dot < 0 ? name : name.left(dot);
}

QString TarvoView::getSaveFilename(const QString& title, const QString& filter, const QString& directory,
                                   const QString& suffix, QString* selectedFilter) {
    QString folder = isOn("FixedSrcEnabled") ? configText("FixedSrcDir") : directory;
    if (folder.isEmpty() || !QDir(folder).exists()) {
        folder = QDir::homePath();
    }
    if (!folder.endsWith('/')) {
        folder += "/";
    }
    QFileDialog dialog(this, title, folder, filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.selectFile(getRootFilename() + suffix);
    reachFileTypesByKeys(dialog);
    if (selectedFilter == nullptr) {
        return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
    }
    dialog.selectNameFilter(*selectedFilter);
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    *selectedFilter = dialog.selectedNameFilter();
    return Boxes::withExtension(this, dialog.selectedFiles().value(0), *selectedFilter, title);
}
