#include "TarvoView.h"

#include "Missing.h"
#include "Text.h"
#include "UiText.h"

#include <QDir>
#include <QFileDialog>
#include <QTextBlock>
#include <QTextCursor>

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

std::string TarvoView::convertData(double value, int width, const char* format) {
    constexpr int kWidest = 12;
    return value == kMissing ? std::string(static_cast<std::size_t>(std::min(width, kWidest) + 1), ' ')
                             : stringFormat(format, value) + " ";
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
    const QString name = _description.trimmed().section(' ', 0, 0);
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
    return QFileDialog::getSaveFileName(this, title, folder + getRootFilename() + suffix, filter, selectedFilter);
}

std::unique_ptr<QTextDocument> TarvoView::makeListing() {
    auto listing = std::make_unique<QTextDocument>();
    listing->setDefaultFont(QFont("courier", 9));
    listing->setUndoRedoEnabled(false);
    return listing;
}

void TarvoView::addListingLine(QTextDocument& listing, const QString& line, int row) {
    QTextCursor cursor(&listing);
    cursor.movePosition(QTextCursor::End);
    if (row > 0) {
        cursor.insertBlock();
    }
    QTextBlockFormat format;
    format.setBackground(QColor(row % 2 != 0 ? "#F0F0F0" : "#FFFFFF"));
    cursor.setBlockFormat(format);
    cursor.insertText(line);
}
