#include "RawView.h"

#include "DataArray.h"
#include "FileSaver.h"
#include "ProductColumns.h"
#include "RevisionInfo.h"

#include <QAction>
#include <QMessageBox>
#include <algorithm>
#include <set>
#include <utility>

namespace {

constexpr int kColumns = 13;

const std::vector<GridColumn> kGridColumns{
    {"Time (s)", 2, "%7.2f", 7},       {"Pres (mb)", 1, "%6.1f", 6},   {"Tdry (C)", 1, "%6.1f", 6},
    {"RH (%)", 1, "%6.1f", 6},         {"Spd (m/s)", 1, "%6.1f", 6},   {"Dir (deg)", 1, "%6.1f", 6},
    {"Alt (m)", 1, "%7.1f", 7},        {"GPS Alt (m)", 1, "%7.1f", 7}, {"Dz/Dt (m/s)", 1, "%6.1f", 6},
    {"Lat (deg)", 4, "%9.4f", 9},      {"Lon (deg)", 4, "%9.4f", 9},   {"Sats (n)", 0, "%5.0f", 5},
    {"Wind err (m/s)", 1, "%6.1f", 6},
};

/// The series of each column, as orders name them and as they are kept.
struct SeriesName {
    const char* name;
    const char* series;
};

constexpr std::array<SeriesName, kColumns> snames{{
    {"RawTime", "RawTime"},
    {"RawPres", "RawPres"},
    {"RawTdry", "RawTdry"},
    {"RawRH", "RawRH"},
    {"RawWspd", "RawWspd"},
    {"RawWdir", "RawWdir"},
    {"RawAlt", "RawAlt"},
    {"RawGpsAlt", "RawGpsAlt"},
    {"RawDzDt", "RawDz"},
    {"RawLat", "RawLat"},
    {"RawLon", "RawLon"},
    {"RawSats", "RawSats"},
    {"RawWe", "RawWe"},
}};

constexpr std::array<int, 8> kMarkable{1, 2, 3, 4, 5, 7, 9, 10};

/// Columns that are marked together.
struct Pair {
    int first;
    int second;
};
constexpr std::array<Pair, 2> kPairs{{{4, 5}, {9, 10}}};

const char* const kIgnoreRefusal = "No launch param(s) or time field(s) can be selected;\nOnly "
                                   "Pres/Tdry/RH/Wspd/Wdir/GPSAlt/Lat/Lon field(s) can be selected";
const char* const kKeepRefusal = "No launch param(s) can be selected;\nNo time field(s) can be selected;\nOnly "
                                 "Pres/Tdry/RH/Wspd/Wdir/GPSAlt/Lat/Lon field(s) can be selected";
const char* const kSelectionError = "Selection Error";

bool isMarkable(int row, int column) {
    return row > 0 && std::find(kMarkable.begin(), kMarkable.end(), column) != kMarkable.end();
}

} // namespace

RawView::RawView(DocumentController* doc, QPrinter* printer, QWidget* parent)
    : GridView(kGridColumns, true, 0, doc, printer, parent) {
    setObjectName("RawView");
    _table->setAccessibleName("Raw data");
    int doQC = 0;
    _configSet->intValue("DoQC", doQC);
    if (doQC != 0) {
        makeContextMenu();
    }
}

void RawView::makeContextMenu() {
    const auto addAction = [this](const char* text, void (RawView::*slot)()) {
        auto* action = new QAction(text, _table);
        connect(action, &QAction::triggered, this, slot);
        _table->addAction(action);
    };
    const auto addSeparator = [this] {
        auto* separator = new QAction(_table);
        separator->setSeparator(true);
        _table->addAction(separator);
    };
    _table->setContextMenuPolicy(Qt::ActionsContextMenu);
    addAction("Set Ignore Attribute", &RawView::setIgnore);
    addAction("Clear Ignore Attribute", &RawView::clearIgnore);
    addSeparator();
    addAction("Set Keep Attribute", &RawView::setKeep);
    addAction("Clear Keep Attribute", &RawView::clearKeep);
    addSeparator();
    addAction("Set end of drop time", &RawView::setEndOfDrop);
}

void RawView::update() {
    setUpPage();
    showDescription();
    if (_editor->rawVersion() == _version) {
        return;
    }
    _version = _editor->rawVersion();
    DataArray rows;
    std::vector<const Series*> series;
    for (const SeriesName& name : snames) {
        series.push_back(_editor->getSeries(name.series));
        rows.addSeries(series.back());
    }
    rows.generate();
    std::vector<const double*> columns;
    for (int column = 0; column < kColumns; ++column) {
        columns.push_back(rows.getColumn(column));
    }
    _grid->setRows(rows.nRows(), columns, series);
    widenColumns();
}

bool RawView::hasSelection() {
    if (_table->selectionModel()->hasSelection()) {
        return true;
    }
    QMessageBox::warning(this, kSelectionError, "No data field(s) selected");
    return false;
}

void RawView::setIgnoreAtt(bool on) {
    markSelection(Value::QcIgnore, on, kIgnoreRefusal);
}

void RawView::setKeepAtt(bool on) {
    markSelection(Value::QcKeep, on, kKeepRefusal);
}

void RawView::markSelection(std::uint32_t bit, bool on, const char* refusal) {
    if (!hasSelection()) {
        return;
    }
    std::set<std::pair<int, int>> cells; // column and row: a series is walked from its start to its end
    bool refused = false;
    for (const QModelIndex& cell : _table->selectionModel()->selectedIndexes()) {
        if (!isMarkable(cell.row(), cell.column())) {
            refused = true;
            continue;
        }
        cells.emplace(cell.column(), cell.row());
        for (const Pair& pair : kPairs) {
            if (cell.column() == pair.first || cell.column() == pair.second) {
                cells.emplace(cell.column() == pair.first ? pair.second : pair.first, cell.row());
            }
        }
    }
    bool marked = false;
    for (const auto& [column, row] : cells) {
        marked = mark(row, column, bit, on) || marked;
    }
    _grid->showMarks();
    if (refused) {
        QMessageBox::warning(this, kSelectionError, refusal);
    }
    if (marked) {
        emit processRequest(true);
    }
}

/// An empty cell can't be marked: the order would go to the next sample of the series.
bool RawView::mark(int row, int column, std::uint32_t bit, bool on) {
    if (!_grid->hasValue(row, column) || !_grid->hasValue(row, 0) ||
        !_editor->setDataAtt(snames[static_cast<std::size_t>(column)].name, _grid->value(row, 0),
                             static_cast<Value::AttributeType>(bit), on)) {
        return false;
    }
    _grid->markCell(row, column, bit, on);
    return true;
}

void RawView::setEndOfDrop() {
    if (!hasSelection()) {
        return;
    }
    const QModelIndexList cells = _table->selectionModel()->selectedIndexes();
    const int row = cells.front().row();
    if (!std::all_of(cells.begin(), cells.end(), [row](const QModelIndex& cell) { return cell.row() == row; })) {
        QMessageBox::warning(this, kSelectionError, "A single row must be selected to set end of drop time");
        return;
    }
    const double time = _grid->data(_grid->index(row, 0), Qt::DisplayRole).toString().toDouble();
    _configSet->add("LastDataTimeOverride", time, false, false, true);
    emit processRequest(true);
}

GridView::Words RawView::words() const {
    return {"Raw",
            "TROVE (*.trv);;netCDF (*.nc);;Comma Separated (*.csv);;KIVU ZOR (*.zor)",
            "RawSaveDir",
            "RAW",
            "Raw Data " + _description,
            "   Time   Pres   TDry     RH   Wspd   Wdir     Alt  GPSAlt     DZ       Lat       Lon  Sats WndErr  Atts"};
}

bool RawView::saveTo(const QString& path, const QString& filter) const {
    return FileSaver::saveFile(RevisionInfo().text("REPO_REVISION"), path.toStdString(), filter.toStdString(),
                               _editor->getSndMetaData(true), *_editor, ProductColumns::raw(*_editor), nullptr);
}
