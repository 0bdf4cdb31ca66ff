#include "LevelsView.h"

#include "AtomicFile.h"
#include "AutoSaveDirectory.h"
#include "Boxes.h"
#include "Humidity.h"
#include "Levels.h"
#include "LevelsCsv.h"
#include "LevelsDB.h"
#include "Listing.h"
#include "Missing.h"
#include "RowHeight.h"
#include "Text.h"
#include "UiText.h"
#include "Wind.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMessageBox>
#include <QVBoxLayout>
#include <array>

namespace {

constexpr int kRowMargin = 8; // pixels
constexpr int kIndexColumn = 0;
constexpr int kTypeColumn = 1;

/// A column of values: what it shows, in which unit, and which field a press on it withdraws (none of them: the level).
struct ValueColumn {
    const char* heading;
    LevelFieldId shown;
    LevelFieldId withdrawn;
    double factor;
    int decimals;
};

constexpr int kFirstValueColumn = 2;
constexpr std::array<ValueColumn, 9> kValueColumns{{
    {"Time (s)", LFtime, LFnone, 1.0, 1},
    {"Pres (mb)", LFpres, LFnone, 1.0, 1},
    {"Tdry (C)", LFtdry, LFtdry, 1.0, 1},
    {"DPdep (C)", LFnone, LFrh, 1.0, 1},
    {"RH (%)", LFrh, LFrh, 1.0, 1},
    {"Dir (deg)", LFwdir, LFwdir, 1.0, 1},
    {"Spd (m/s)", LFwspd, LFwspd, 1.0, 1},
    {"Spd (kt)", LFwspd, LFwspd, kKnotsPerMetrePerSecond, 1},
    {"Alt (m)", LFalt, LFalt, 1.0, 0},
}};
constexpr int kColumns = kFirstValueColumn + static_cast<int>(kValueColumns.size());

const char* const kTitle = "Levels";
const char* const kListingHead = "  n                           Type   Time    Pres    TDry   DPdep      RH    Wdir    "
                                 "Wspd Wspd kt     Alt";
constexpr int kNameWidth = 30; // characters

/// -999.0 for a level that lacks one of the two.
double depression(const Level& level) {
    double tdry = 0.0;
    double rh = 0.0;
    const bool have = level.getFieldData(LFtdry, tdry) && level.getFieldData(LFrh, rh) && dewPt(tdry, rh) != kMissing;
    return have ? dewPtDepression(tdry, rh) : kMissing;
}

double valueOf(const Level& level, const ValueColumn& column) {
    if (column.shown == LFnone) {
        return depression(level);
    }
    double value = 0.0;
    return level.getFieldData(column.shown, value) ? value * column.factor : kMissing;
}

bool isMain(LevelType type) {
    return type == LevelType::Standard || type == LevelType::SurfaceThermo || type == LevelType::SurfaceWind;
}

} // namespace

class LevelsView::levelItem : public QTableWidgetItem {
public:
    bool operator<(const QTableWidgetItem& other) const override {
        bool isNumber = false;
        bool otherIsNumber = false;
        const double number = text().toDouble(&isNumber);
        const double otherNumber = other.text().toDouble(&otherIsNumber);
        return isNumber && otherIsNumber ? number < otherNumber : QTableWidgetItem::operator<(other);
    }
};

LevelsView::LevelsView(DocumentController* doc, QPrinter* printer, QWidget* parent)
    : TarvoView(doc, printer, parent), _topLabel(makeTopLabel("_levels_topLabel")),
      _levelsGrid(new QTableWidget(this)) {
    setObjectName("LevelsView");
    auto* left = new QLabel("Click on a level to disable/enable it.   ", this);
    left->setObjectName("_levelsLabel_LeftLabel");
    auto* right = new QLabel("   Disabled Levels are highlighted in red.", this);
    right->setObjectName("_levelsLabel_RightLabel");
    _levelsGrid->setObjectName("_levelsGrid");
    _levelsGrid->setAccessibleName("Levels");
    _levelsGrid->setTabKeyNavigation(false);
    _levelsGrid->installEventFilter(this);
    auto* hints = new QHBoxLayout;
    hints->addStretch();
    hints->addWidget(left);
    hints->addWidget(right);
    hints->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_topLabel);
    layout->addLayout(hints);
    layout->addWidget(_levelsGrid);
    connect(_levelsGrid, &QTableWidget::cellPressed, this, &LevelsView::cellPressed);
}

void LevelsView::update() {
    _topLabel->setText(_description);
    const Levels* levels = _editor->levels();
    if (levels == nullptr) {
        _levelsGrid->setRowCount(0);
        _changed = false;
        return;
    }
    if (_editor->levelsVersion() == _levelsVersion) {
        return;
    }
    if (_levelsVersion < 0) {
        initGrid();
    }
    _levelsVersion = _editor->levelsVersion();
    _changed = false;
    updateGrid(*levels);
    updateDB(*levels);
}

void LevelsView::updateDB(const Levels& levels) {
    if (_soundingDB == nullptr) {
        return;
    }
    try {
        LevelsDB::addLevels(&levels, _soundingDB, _doc->filePath());
    } catch (const std::string& error) {
        emit databaseFailed(toQString(error));
    }
}

void LevelsView::initGrid() {
    _levelsGrid->setColumnCount(kColumns);
    QStringList headings{"n", "Type"};
    for (const ValueColumn& column : kValueColumns) {
        headings << column.heading;
    }
    _levelsGrid->setHorizontalHeaderLabels(headings);
    _levelsGrid->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    _levelsGrid->verticalHeader()->hide();
    fitRowsToFont(_levelsGrid, kRowMargin);
    _levelsGrid->setSelectionMode(QAbstractItemView::NoSelection);
    _levelsGrid->setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void LevelsView::updateGrid(const Levels& levels) {
    _levelsGrid->setSortingEnabled(false);
    _levelsGrid->setRowCount(static_cast<int>(levels.levels().size()));
    int row = 0;
    for (const Level& level : levels.levels()) {
        fillRow(row++, level);
    }
    _levelsGrid->setSortingEnabled(true);
    _levelsGrid->sortByColumn(kIndexColumn, Qt::AscendingOrder);
    for (row = 0; row < _levelsGrid->rowCount(); ++row) {
        setLevelColor(row);
    }
}

void LevelsView::fillRow(int row, const Level& level) {
    for (int column = 0; column < kColumns; ++column) {
        auto* item = new levelItem;
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        _levelsGrid->setItem(row, column, item);
    }
    setCellValue(_levelsGrid, row, kIndexColumn, row, 0);
    setCellValue(_levelsGrid, row, kTypeColumn, toQString(level.LTname()));
    int column = kFirstValueColumn;
    for (const ValueColumn& value : kValueColumns) {
        setCellValue(_levelsGrid, row, column++, valueOf(level, value), value.decimals);
    }
}

int LevelsView::levelIndex(int row) const {
    const QTableWidgetItem* item = _levelsGrid->item(row, kIndexColumn);
    return item == nullptr ? -1 : item->text().toInt();
}

Level* LevelsView::levelOf(int row) const {
    Levels* levels = _editor->levels();
    const int index = levelIndex(row);
    return levels == nullptr || index < 0 || index >= static_cast<int>(levels->levels().size())
               ? nullptr
               : &levels->levels()[static_cast<std::size_t>(index)];
}

void LevelsView::setLevelColor(int row) {
    const Level* level = levelOf(row);
    if (level == nullptr) {
        return;
    }
    const QColor red("red");
    const QColor plain(isMain(level->levelType()) ? "lightblue" : "white");
    for (int column = 0; column < kColumns; ++column) {
        bool withdrawn = level->tag();
        if (column >= kFirstValueColumn) {
            const auto& value = kValueColumns[static_cast<std::size_t>(column - kFirstValueColumn)];
            const LevelField* field = level->getField(value.withdrawn);
            withdrawn = withdrawn || (field != nullptr && field->tag());
        }
        setCellBackground(_levelsGrid, row, column, withdrawn ? red : plain);
        _levelsGrid->item(row, column)->setForeground(withdrawn ? Qt::white : Qt::black);
    }
}

void LevelsView::cellPressed(int row, int column) {
    Level* level = levelOf(row);
    if (level == nullptr) {
        return;
    }
    const LevelFieldId id = column < kFirstValueColumn
                                ? LFnone
                                : kValueColumns[static_cast<std::size_t>(column - kFirstValueColumn)].withdrawn;
    if (id == LFnone) {
        level->tag(!level->tag());
    } else if (LevelField* field = level->getField(id)) {
        field->setTag(!field->tag());
    } else {
        return;
    }
    _changed = true;
    setLevelColor(row);
}

/// The space bar does what a press does, for who has no mouse.
bool LevelsView::eventFilter(QObject* watched, QEvent* event) {
    if (watched != _levelsGrid || event->type() != QEvent::KeyPress ||
        static_cast<QKeyEvent*>(event)->key() != Qt::Key_Space) {
        return TarvoView::eventFilter(watched, event);
    }
    cellPressed(_levelsGrid->currentRow(), _levelsGrid->currentColumn());
    return true;
}

void LevelsView::leavingView() {
    if (_changed) {
        _changed = false;
        emit levelsChanged();
    }
}

std::unique_ptr<QTextDocument> LevelsView::datalist() const {
    return Listing::make(_editor->levels() == nullptr ? 0 : _levelsGrid->rowCount(), [this](int row) {
        const Level& level = *levelOf(row);
        QString line =
            toQString(convertData(levelIndex(row), 3, "%3.0f")) + toQString(level.LTname()).rightJustified(kNameWidth);
        for (const ValueColumn& column : kValueColumns) {
            line += toQString(convertData(valueOf(level, column), 7, "%7.1f"));
        }
        return line + "  ";
    });
}

int LevelsView::printPreview() {
    return previewText(datalist().get(), kTitle, kListingHead, "Tarvo - Print Preview Levels");
}

int LevelsView::print() {
    return printDoc(datalist().get(), kTitle, kListingHead);
}

bool LevelsView::saveLevelsCsvTo(const QString& name) const {
    const Levels* levels = _editor->levels();
    if (levels == nullptr) {
        return false;
    }
    std::vector<int> order;
    order.reserve(static_cast<std::size_t>(_levelsGrid->rowCount()));
    for (int row = 0; row < _levelsGrid->rowCount(); ++row) {
        order.push_back(levelIndex(row));
    }
    AtomicFile file(name.toStdString());
    if (!file.isOpen()) {
        return false;
    }
    saveLevelsCsv(*levels, order, file.stream());
    return file.commit();
}

int LevelsView::save() {
    QString filter = "Comma Separated (*.csv)";
    const QString title = "Tarvo - Save Levels";
    const QString chosen = getSaveFilename(title, filter + ";;All files(*.*)", QString(), "Levels", &filter);
    const QString name = Boxes::withExtension(this, chosen, "(*.csv)", title);
    if (name.isEmpty()) {
        return 0;
    }
    if (!saveLevelsCsvTo(name)) {
        QMessageBox::critical(this, "File Save Error", "Tarvo can't save the file.");
    }
    return 0;
}

int LevelsView::autoSave() {
    const QString directory = autoSaveDirectory(*_configSet, this);
    if (isOn("WmoAutoSaveFmtCsv") && _editor->levels() != nullptr &&
        !saveLevelsCsvTo(directory + getRootFilename() + "Levels.csv")) {
        QMessageBox::warning(this, "File Save Error", "Tarvo can't save the file to format .csv");
    }
    return 0;
}
