#include "SynopticWidget.h"

#include "FilePathDialog.h"
#include "QStationModelGraphicsItem.h"
#include "SoundingProxyModel.h"
#include "SoundingTableModel.h"
#include "UiText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFrame>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace {

constexpr double kMissing = -999.0;
constexpr double kKnots = 1.94; // to the m/s
constexpr double kStaff = 60.0; // pixels
constexpr int kTipWidth = 40;   // characters
constexpr int kHourAt = 11;     // of "2021-08-01 12:00:03"
constexpr int kMinuteAt = 14;

/// In the order in which they are looked for, so that "10 mb" isn't taken for one of "1 ".
constexpr std::array<const char*, 26> kLevelTexts{
    "1000", "925 ", "850 ", "700 ", "500 ", "400 ", "300 ", "250 ", "200 ", "150 ", "100 ", "70 ", "50 ",
    "30 ",  "20 ",  "10 ",  "7 ",   "5 ",   "3 ",   "2 ",   "1 ",   "150m", "DLM",  "MBL",  "Max", "Trop"};

} // namespace

struct SynopticWidget::StationValues {
    double pres = kMissing;
    double tdry = kMissing;
    double dp = kMissing;
    double wspd = kMissing; // knots
    double wdir = kMissing;
    double alt = kMissing;
    bool isThere = false;

    bool hasData() const {
        return pres != kMissing || tdry != kMissing || dp != kMissing || wspd != kMissing || wdir != kMissing ||
               alt != kMissing;
    }
};

SynopticWidget::SynopticWidget(SpatiaLiteDB& geoDB, SoundingDB* soundingDB, QPrinter* printer, QWidget* parent)
    : QWidget(parent), _soundingDB(soundingDB), _printer(printer) {
    setAttribute(Qt::WA_DeleteOnClose);
    makeForm();
    _map = new QMicroMap(geoDB, -180.0, -90.0, 180.0, 90.0, "lightblue", _mapFrame);
    auto* inFrame = new QVBoxLayout(_mapFrame);
    inFrame->setContentsMargins(0, 0, 0, 0);
    inFrame->addWidget(_map);
    connectForm();
    showSoundings();
    _level = stationLevel(_levelSelect->currentText());
    addStationModel(_level);
}

SynopticWidget::~SynopticWidget() = default;

// --- The mouse, the level and the parts of the models.

void SynopticWidget::mouseModeSelect(bool on) {
    if (on) {
        _map->setMouseMode(_modeSelect->isChecked() ? QMicroMap::MOUSE_NONE
                           : _modePan->isChecked()  ? QMicroMap::MOUSE_PAN
                                                    : QMicroMap::MOUSE_ZOOM);
    }
}

void SynopticWidget::mouseModeChange(QMicroMap::MOUSE_MODE mode) {
    QRadioButton* button = mode == QMicroMap::MOUSE_NONE  ? _modeSelect
                           : mode == QMicroMap::MOUSE_PAN ? _modePan
                                                          : _modeZoom;
    const QSignalBlocker quiet(button);
    button->setChecked(true);
}

SoundingDB::LEVEL_TYPE SynopticWidget::stationLevel(const QString& text) {
    const auto found = std::find_if(kLevelTexts.begin(), kLevelTexts.end(),
                                    [&](const char* level) { return text.contains(QLatin1String(level)); });
    return found == kLevelTexts.end() ? SoundingDB::SURFACE
                                      : static_cast<SoundingDB::LEVEL_TYPE>(found - kLevelTexts.begin() + 1);
}

void SynopticWidget::levelChanged(const QString& text) {
    _level = stationLevel(text);
    updateStationModel();
}

void SynopticWidget::showModelPart(unsigned long part) {
    for (QGraphicsItem* item : _stations->childItems()) {
        static_cast<QStationModelGraphicsItem*>(item)->showpart(part);
    }
}

void SynopticWidget::hideModelPart(unsigned long part) {
    for (QGraphicsItem* item : _stations->childItems()) {
        static_cast<QStationModelGraphicsItem*>(item)->hidepart(part);
    }
}

void SynopticWidget::setModelPart(const QCheckBox* box, unsigned long part) {
    if (box->isChecked()) {
        _parts |= part;
        showModelPart(part);
    } else {
        _parts &= ~part;
        hideModelPart(part);
    }
}

void SynopticWidget::time() {
    setModelPart(_time, QStationModelGraphicsItem::TIME);
}

void SynopticWidget::tdry() {
    setModelPart(_tdry, QStationModelGraphicsItem::TDRY);
}

void SynopticWidget::dp() {
    setModelPart(_dp, QStationModelGraphicsItem::DP);
}

void SynopticWidget::wind() {
    setModelPart(_wind, QStationModelGraphicsItem::WIND);
}

void SynopticWidget::presht() {
    setModelPart(_presht, QStationModelGraphicsItem::PRESHT);
}

// --- The table.

QString SynopticWidget::getRelativeFileName(const QString& path) {
    return QFileInfo(path).fileName();
}

/// An error of the database is told, and leaves the list empty.
void SynopticWidget::readSoundings() {
    _soundings.clear();
    try {
        _soundings = _soundingDB->getSoundings();
    } catch (const std::string& error) {
        QMessageBox::critical(this, "Levels Database Error", toQString(error));
    }
}

void SynopticWidget::showSoundings() {
    readSoundings();
    QList<QStringList> rows;
    for (const SoundingDB::Sounding& sounding : _soundings) {
        rows.append({"", getRelativeFileName(toQString(sounding.filename)), toQString(sounding.launchTime),
                     toQString(sounding.platform), toQString(sounding.project)});
    }
    QAbstractItemModel* const oldTable = _tableModel;
    QAbstractItemModel* const oldProxy = _proxyModel;
    QItemSelectionModel* const oldSelection = _soundingView->selectionModel();
    _tableModel = new SoundingTableModel(rows, this);
    _proxyModel = new SoundingProxyModel(this);
    _proxyModel->setSourceModel(_tableModel);
    _soundingView->setModel(_proxyModel);
    delete oldSelection;
    delete oldProxy;
    delete oldTable;
    _soundingView->setSortingEnabled(true);
    _soundingView->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    _soundingView->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    _soundingView->sortByColumn(SoundingTableModel::NAME, Qt::AscendingOrder);
    connect(_soundingView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SynopticWidget::selectedSoundings);
    showCount();
}

void SynopticWidget::showCount() {
    _soundingCount->setText(QString("(%1/%2)").arg(_selected.size()).arg(_soundings.size()));
}

void SynopticWidget::showSelectAll(bool clears) {
    _selectAll->setText(clears ? "Clear Plot" : "Plot All");
    _selectAll->setToolTip(clears ? "Clear all soundings\non synoptic map" : "Plot all soundings\non synoptic map");
}

QString SynopticWidget::sourceName(int proxyRow) const {
    return _proxyModel->index(proxyRow, SoundingTableModel::NAME).data().toString();
}

int SynopticWidget::proxyRowOf(const QString& relativeName) const {
    for (int row = 0; row < _proxyModel->rowCount(); ++row) {
        if (sourceName(row) == relativeName) {
            return row;
        }
    }
    return -1;
}

const SoundingDB::Sounding* SynopticWidget::find(const QString& relativeName, const QString& launchTime) const {
    const auto found = std::find_if(_soundings.begin(), _soundings.end(), [&](const SoundingDB::Sounding& sounding) {
        return getRelativeFileName(toQString(sounding.filename)) == relativeName &&
               toQString(sounding.launchTime) == launchTime;
    });
    return found == _soundings.end() ? nullptr : &*found;
}

void SynopticWidget::selectRow(int proxyRow, bool select) {
    const QItemSelection row(_proxyModel->index(proxyRow, SoundingTableModel::NAME),
                             _proxyModel->index(proxyRow, SoundingTableModel::PROJECT));
    _soundingView->selectionModel()->select(row, select ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

void SynopticWidget::selectedSoundings(const QItemSelection& selected, const QItemSelection& deselected) {
    if (_selecting) {
        return;
    }
    const QModelIndex current = _soundingView->selectionModel()->currentIndex();
    if (current.isValid() && current.column() == SoundingTableModel::CHECK && selected.contains(current)) {
        _selecting = true;
        _soundingView->selectionModel()->select(current, QItemSelectionModel::Deselect);
        _selecting = false;
        return;
    }
    // Whole rows at once: one by one, each would be told of again.
    const auto wholeRows = [this](const QItemSelection& selection, bool plots) {
        QItemSelection rows;
        for (const QItemSelectionRange& range : selection) {
            if (range.right() < SoundingTableModel::NAME) {
                continue;
            }
            rows.append(QItemSelectionRange(_proxyModel->index(range.top(), SoundingTableModel::NAME),
                                            _proxyModel->index(range.bottom(), SoundingTableModel::PROJECT)));
            for (int row = range.top(); row <= range.bottom(); ++row) {
                plots ? (void)_selected.insert(sourceName(row)) : (void)_selected.remove(sourceName(row));
            }
        }
        return rows;
    };
    const QItemSelection whole = wholeRows(selected, true);
    const QItemSelection cleared = wholeRows(deselected, false);
    _selecting = true;
    _soundingView->selectionModel()->select(whole, QItemSelectionModel::Select);
    _soundingView->selectionModel()->select(cleared, QItemSelectionModel::Deselect);
    _selecting = false;
    if (_selected.isEmpty()) {
        showSelectAll(false);
    } else if (_selected.size() == _tableModel->rowCount()) {
        showSelectAll(true);
    }
    updateStationModel();
}

void SynopticWidget::selectAllSoundings() {
    const bool plots = _selectAll->text().startsWith("Plot");
    if (_proxyModel->rowCount() > 0) {
        _soundingView->selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
        _soundingView->selectionModel()->select(
            QItemSelection(_proxyModel->index(0, SoundingTableModel::NAME),
                           _proxyModel->index(_proxyModel->rowCount() - 1, SoundingTableModel::NAME)),
            plots ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
    }
    showSelectAll(plots);
}

void SynopticWidget::processSounding(const QString& name) {
    if (QFileInfo::exists(name)) {
        emit openSounding(name);
        return;
    }
    QMessageBox::warning(this, "File Open Error",
                         QString("Tarvo cannot open sounding\n\"%1\"\nFile not found!").arg(name));
}

void SynopticWidget::setProcess() {
    const int row = _soundingView->currentIndex().row();
    if (row < 0) {
        return;
    }
    const SoundingDB::Sounding* sounding =
        find(sourceName(row), _proxyModel->index(row, SoundingTableModel::TIME).data().toString());
    if (sounding != nullptr) {
        processSounding(toQString(sounding->filename));
    }
}

void SynopticWidget::removeStationModel(const QString& name) {
    const QString relative = getRelativeFileName(name);
    const int row = _selected.contains(relative) ? proxyRowOf(relative) : -1;
    if (row >= 0) {
        _soundingView->selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
        selectRow(row, false);
    }
}

void SynopticWidget::addNewSounding(const QString& name) {
    const auto knows = [&](const SoundingDB::Sounding& sounding) {
        return toQString(sounding.filename).contains(name);
    };
    if (std::any_of(_soundings.begin(), _soundings.end(), knows)) {
        updateStationModel();
        return;
    }
    readSoundings();
    const auto added = std::find_if(_soundings.begin(), _soundings.end(), knows);
    if (added != _soundings.end() && _tableModel->insertRows(0, 1)) {
        const std::array<QString, 4> texts{getRelativeFileName(toQString(added->filename)),
                                           toQString(added->launchTime), toQString(added->platform),
                                           toQString(added->project)};
        for (int i = 0; i < 4; ++i) {
            _tableModel->setData(_tableModel->index(0, SoundingTableModel::NAME + i),
                                 texts[static_cast<std::size_t>(i)], Qt::DisplayRole);
        }
    }
    showCount();
}

void SynopticWidget::deleteSoundings() {
    int checked = 0;
    for (int row = 0; row < _tableModel->rowCount(); ++row) {
        checked += _tableModel->index(row, SoundingTableModel::CHECK).data(Qt::CheckStateRole) == Qt::Checked ? 1 : 0;
    }
    if (checked == 0) {
        QMessageBox::information(
            this, "Delete Sounding",
            "No sounding is selected.  \nCheck the checkbox to select the sounding to be deleted.");
        return;
    }
    const QString question = QString("Are you sure you want to delete the %1 selected sounding(s) from database?");
    if (QMessageBox::warning(this, "Delete Sounding", question.arg(checked), QMessageBox::Yes | QMessageBox::Cancel,
                             QMessageBox::Cancel) != QMessageBox::Yes) {
        return;
    }
    for (int row = 0; row < _tableModel->rowCount();) {
        if (_tableModel->index(row, SoundingTableModel::CHECK).data(Qt::CheckStateRole) != Qt::Checked) {
            ++row;
            continue;
        }
        const QString name = _tableModel->index(row, SoundingTableModel::NAME).data().toString();
        const SoundingDB::Sounding* sounding =
            find(name, _tableModel->index(row, SoundingTableModel::TIME).data().toString());
        QString failure = sounding == nullptr ? "Sounding not found in database!" : "";
        const QString file = sounding == nullptr ? name : toQString(sounding->filename);
        try {
            if (sounding != nullptr && _soundingDB->id(sounding->filename) < 0) {
                failure = "Sounding not found in database!";
            } else if (sounding != nullptr) {
                _soundingDB->deleteSounding(sounding->filename);
            }
        } catch (const std::string& error) {
            failure = toQString(error);
        }
        if (!failure.isEmpty()) {
            QMessageBox::warning(this, "Sounding Delete Error",
                                 QString("Cannot delete sounding\n\"%1\"\n%2").arg(file, failure));
            ++row;
            continue;
        }
        removeStationModel(name);
        _tableModel->removeRows(row, 1);
    }
    readSoundings();
    showCount();
}

/// A directory stands for the database of the usual name in it.
void SynopticWidget::changeSoundingDB() {
    FilePathDialog dialog("Tarvo - Browse for Sounding Database", "Locate Sounding Database", true, this);
    dialog.setFilePath(toQString(_soundingDB->dbPath()));
    const QString answer = dialog.exec() == QDialog::Accepted ? dialog.getFilePath().trimmed() : QString();
    if (answer.isEmpty()) {
        return;
    }
    const QFileInfo chosen(answer);
    emit changeSoundingDB(chosen.isDir() ? QDir(chosen.absoluteFilePath()).filePath("soundings.sqlite")
                                         : chosen.absoluteFilePath());
}

void SynopticWidget::setSoundingDB(SoundingDB* soundingDB) {
    removeStations();
    _selected.clear();
    showSelectAll(false);
    _soundingDB = soundingDB;
    showSoundings();
    addStationModel(_level);
}

// --- The map.

void SynopticWidget::removeStations() {
    if (_stations == nullptr) {
        return;
    }
    for (QGraphicsItem* item : _stations->childItems()) {
        _stations->removeFromGroup(item);
        if (item->scene() != nullptr) {
            item->scene()->removeItem(item);
        }
        static_cast<QStationModelGraphicsItem*>(item)->deleteLater(); // its own menu may have asked for it
    }
    _map->scene()->destroyItemGroup(_stations);
    _stations = nullptr;
}

void SynopticWidget::updateStationModel() {
    removeStations();
    addStationModel(_level);
}

SynopticWidget::StationValues SynopticWidget::valuesAt(int id, SoundingDB::LEVEL_TYPE level) {
    StationValues values;
    for (const SoundingDB::StoredLevel& stored : _soundingDB->getLevels(id)) {
        if (stored.type != level) {
            continue;
        }
        values.isThere = true;
        for (const auto& [field, value] : stored.fields) {
            double& slot = field == SoundingDB::PRES   ? values.pres
                           : field == SoundingDB::TDRY ? values.tdry
                           : field == SoundingDB::DP   ? values.dp
                           : field == SoundingDB::WSPD ? values.wspd
                           : field == SoundingDB::WDIR ? values.wdir
                                                       : values.alt;
            slot = value;
        }
    }
    if (values.wspd != kMissing) {
        values.wspd *= kKnots;
    }
    return values;
}

QString SynopticWidget::toolTipOf(const SoundingDB::Sounding& sounding) {
    QString tip = getRelativeFileName(toQString(sounding.filename));
    for (const QString& line : toQString(sounding.comments).split('\n')) {
        for (int at = 0; at < line.size(); at += kTipWidth) {
            tip += '\n' + line.mid(at, kTipWidth);
        }
    }
    return tip;
}

void SynopticWidget::addStationModel(SoundingDB::LEVEL_TYPE level) {
    showCount();
    QList<QGraphicsItem*> items;
    int withoutPlace = 0;
    try {
        for (const SoundingDB::Sounding& sounding : _soundings) {
            if (!_selected.contains(getRelativeFileName(toQString(sounding.filename)))) {
                continue;
            }
            double lat = kMissing;
            double lon = kMissing;
            if (!_soundingDB->getLocation(sounding.id, lat, lon)) {
                ++withoutPlace;
                continue;
            }
            const StationValues values = valuesAt(sounding.id, level);
            _levelHasData = _levelHasData || values.hasData();
            const bool isPres = values.isThere && (level == SoundingDB::SURFACE || level == SoundingDB::DEEP_LAYER ||
                                                   level == SoundingDB::MEAN_BL);
            const QString time = toQString(sounding.launchTime);
            auto* item = new QStationModelGraphicsItem(
                toQString(sounding.filename), lon, lat, values.wspd, values.wdir, values.tdry, values.dp,
                isPres ? values.pres : values.alt, isPres, time.mid(kHourAt, 2).toInt(), time.mid(kMinuteAt, 2).toInt(),
                kStaff, _parts, _removeText, _processText);
            item->setToolTip(toolTipOf(sounding));
            connect(item, &QStationModelGraphicsItem::process, this, &SynopticWidget::processSounding);
            connect(item, &QStationModelGraphicsItem::remove, this, &SynopticWidget::removeStationModel);
            items.append(item);
        }
    } catch (const std::string& error) {
        QMessageBox::critical(this, "Levels Database Error", toQString(error));
    }
    for (QGraphicsItem* item : items) {
        _map->scene()->addItem(item);
    }
    _stations = _map->scene()->createItemGroup(items);
    _stations->setHandlesChildEvents(false);
    _stations->setZValue(QMicroMap::kUserLayer);
    _soundingCount->setToolTip(withoutPlace == 0
                                   ? QString()
                                   : QString("%1 of them without a position, and so not on the map").arg(withoutPlace));
    _map->setTopRightAnnotation(_levelSelect->currentText());
}

void SynopticWidget::setMapTitle(const std::string& title) {
    _map->setTopLeftAnnotation(toQString(title + (title.empty() ? "" : "\n") + _soundingDB->dbPath()));
}
