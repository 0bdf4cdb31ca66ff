#include "GridView.h"

#include "UiText.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QVBoxLayout>

GridView::GridView(std::vector<GridColumn> columns, bool withAttributes, DocumentController* doc, QPrinter* printer,
                   QWidget* parent)
    : TarvoView(doc, printer, parent), _grid(new SeriesGrid(std::move(columns), withAttributes, this)),
      _table(new QTableView(this)), _topLabel(new QLabel(this)) {
    _topLabel->setAlignment(Qt::AlignCenter);
    _topLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    _table->setModel(_grid);
    _table->setObjectName("_grid");
    _table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    _table->setWordWrap(false);
    _table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    _table->setTabKeyNavigation(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_topLabel);
    layout->addWidget(_table);
}

void GridView::showDescription() {
    _topLabel->setText(_description);
}

void GridView::fitColumns() {
    constexpr int kRowsToLookAt = 100;
    _table->horizontalHeader()->setResizeContentsPrecision(kRowsToLookAt);
    _table->resizeColumnsToContents();
}

std::unique_ptr<QTextDocument> GridView::datalist() const {
    auto listing = makeListing();
    for (int row = 0; row < _grid->rowCount(); ++row) {
        addListingLine(*listing, _grid->listingLine(row), row);
    }
    return listing;
}

int GridView::printPreview() {
    const Words w = words();
    const auto listing = datalist();
    return previewText(listing.get(), w.listingTitle, w.listingHead, QString("Tarvo - Print Preview ") + w.title);
}

int GridView::print() {
    const Words w = words();
    const auto listing = datalist();
    return printDoc(listing.get(), w.listingTitle, w.listingHead);
}

int GridView::save() {
    const Words w = words();
    QString filter = "netCDF (*.nc)";
    const QString name = getSaveFilename(QString("Tarvo - Save ") + w.title, w.saveFilters, configText(w.saveDirItem),
                                         w.suffix, &filter);
    if (name.isEmpty()) {
        return 0;
    }
    _configSet->set(w.saveDirItem, QFileInfo(name).path().toStdString());
    saveConfig();
    if (!saveTo(name, filter)) {
        QMessageBox::critical(this, "File Save Error", "Tarvo can't save the file.");
    }
    return 0;
}
