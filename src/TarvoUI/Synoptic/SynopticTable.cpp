// The table of the synoptic window, and what is chosen in it.

#include "SynopticWidget.h"

#include "FilePathDialog.h"
#include "SoundingProxyModel.h"
#include "SoundingTableModel.h"
#include "UiText.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <algorithm>
#include <set>

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

QStringList SynopticWidget::tableRow(const SoundingDB::Sounding& sounding) {
    return {"", getRelativeFileName(toQString(sounding.filename)), toQString(sounding.launchTime),
            toQString(sounding.platform), toQString(sounding.project)};
}

void SynopticWidget::showSoundings() {
    readSoundings();
    QList<QStringList> rows;
    for (const SoundingDB::Sounding& sounding : _soundings) {
        rows.append(tableRow(sounding));
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
    const auto onlyChecks = [](const QItemSelection& selection) {
        return std::all_of(selection.begin(), selection.end(),
                           [](const QItemSelectionRange& range) { return range.right() == SoundingTableModel::CHECK; });
    };
    if (onlyChecks(selected) && onlyChecks(deselected)) {
        _selecting = true;
        _soundingView->selectionModel()->select(selected, QItemSelectionModel::Deselect);
        _selecting = false;
        return;
    }
    // Whole rows at once: one by one, each would be told of again.
    const auto wholeRows = [this](const QItemSelection& selection, bool plots) {
        QItemSelection rows;
        for (const QItemSelectionRange& range : selection) {
            if (range.right() == SoundingTableModel::CHECK) {
                continue;
            }
            const int left = plots ? SoundingTableModel::NAME : SoundingTableModel::CHECK;
            rows.append(QItemSelectionRange(_proxyModel->index(range.top(), left),
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

/// Others may have entered or deleted soundings meanwhile: the table is made anew unless it lacks no more than this
/// one.
void SynopticWidget::addNewSounding(const QString& name) {
    const auto rowsOf = [](const std::vector<SoundingDB::Sounding>& soundings, const QString& without) {
        std::set<QStringList> rows;
        for (const SoundingDB::Sounding& sounding : soundings) {
            if (toQString(sounding.filename) != without) {
                rows.insert(tableRow(sounding) << toQString(sounding.filename));
            }
        }
        return rows;
    };
    const std::set<QStringList> before = rowsOf(_soundings, QString());
    readSoundings();
    if (rowsOf(_soundings, QString()) == before) {
        updateStationModel();
    } else if (rowsOf(_soundings, name) == before && _tableModel->insertRows(0, 1)) {
        const QStringList row =
            tableRow(*std::find_if(_soundings.begin(), _soundings.end(), [&](const SoundingDB::Sounding& sounding) {
                return toQString(sounding.filename) == name;
            }));
        for (int column = SoundingTableModel::NAME; column <= SoundingTableModel::PROJECT; ++column) {
            _tableModel->setData(_tableModel->index(0, column), row[column], Qt::DisplayRole);
        }
        showCount();
    } else {
        showAnew();
    }
}

void SynopticWidget::readAnew() {
    addNewSounding(QString());
}

/// The table as the database has it, with what was chosen still chosen.
void SynopticWidget::showAnew() {
    const QSet<QString> chosen = _selected;
    _selected.clear();
    showSelectAll(false);
    showSoundings();
    QItemSelection rows;
    for (int row = 0; row < _proxyModel->rowCount(); ++row) {
        if (chosen.contains(sourceName(row))) {
            const QModelIndex index = _proxyModel->index(row, SoundingTableModel::NAME);
            rows.select(index, index);
        }
    }
    if (rows.isEmpty()) {
        updateStationModel();
    } else {
        _soundingView->selectionModel()->select(rows, QItemSelectionModel::Select);
    }
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
                // The next row may be that of a copy, of the same name and time.
                _soundings.erase(_soundings.begin() + (sounding - _soundings.data()));
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
