#include "GridView.h"

#include "FontWatch.h"
#include "Listing.h"
#include "RowHeight.h"
#include "UiText.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QFontMetrics>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int kRowsToLookAt = 100; // for the width of a column

} // namespace

GridView::GridView(std::vector<GridColumn> columns, bool withAttributes, int rowMargin, DocumentController* doc,
                   QPrinter* printer, QWidget* parent)
    : TarvoView(doc, printer, parent), _grid(new SeriesGrid(std::move(columns), withAttributes, this)),
      _table(new QTableView(this)), _topLabel(makeTopLabel("_topLabel")) {
    _topLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    _table->setModel(_grid);
    _table->setObjectName("_grid");
    _table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    _table->setWordWrap(false);
    _table->horizontalHeader()->setResizeContentsPrecision(kRowsToLookAt);
    _table->setTabKeyNavigation(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_topLabel);
    layout->addWidget(_table);
    fitRowsToFont(_table, rowMargin);
    fitToFont();
    for (QWidget* typed : {static_cast<QWidget*>(_table), static_cast<QWidget*>(_table->horizontalHeader())}) {
        new FontWatch(typed, [this] { fitToFont(); });
    }
    _table->installEventFilter(this);
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == _table && event->type() == QEvent::ContextMenu && !_table->actions().isEmpty()) {
        showMenu(*static_cast<QContextMenuEvent*>(event));
        return true;
    }
    return TarvoView::eventFilter(watched, event);
}

/// One menu for all times: of entries that stood in a menu before, a screen reader hears nothing in a second one. Asked
/// for by a key it stands below the cell that it is for.
void GridView::showMenu(const QContextMenuEvent& request) {
    if (_menu == nullptr) {
        _menu = new QMenu(_table);
        _menu->addActions(_table->actions());
    }
    QPoint place = request.globalPos();
    if (request.reason() == QContextMenuEvent::Keyboard) {
        const QModelIndex cell = _table->currentIndex();
        _table->scrollTo(cell);
        place = _table->viewport()->mapToGlobal(_table->visualRect(cell).bottomLeft());
    }
    _menu->exec(place);
}

void GridView::fitToFont() {
    const int height = QFontMetrics(_table->font()).height();
    _table->setIconSize({height, height});
    for (int column = 0; column < _grid->columnCount(); ++column) {
        _table->setColumnWidth(column, wantedWidth(column));
    }
}

void GridView::setUpPage() {
    _printer->setPageOrientation(QPageLayout::Portrait);
}

void GridView::showDescription() {
    _topLabel->setText(_description);
}

int GridView::wantedWidth(int column) const {
    return std::max(static_cast<const QAbstractItemView*>(_table)->sizeHintForColumn(column),
                    _table->horizontalHeader()->sectionSizeHint(column));
}

void GridView::widenColumns() {
    for (int column = 0; column < _grid->columnCount(); ++column) {
        _table->setColumnWidth(column, std::max(_table->columnWidth(column), wantedWidth(column)));
    }
}

std::unique_ptr<QTextDocument> GridView::datalist() const {
    return Listing::make(_grid->rowCount(), [this](int row) { return _grid->listingLine(row); });
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
