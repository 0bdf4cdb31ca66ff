#include "SynopticWidget.h"

#include "Missing.h"
#include "QStationModelGraphicsItem.h"
#include "UiText.h"
#include "Wind.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QMessageBox>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

namespace {

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
    letStyleSheetsForget(*this);
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
        values.wspd *= kKnotsPerMetrePerSecond;
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
            const int id = _soundingDB->id(sounding.filename); // which may have been entered anew
            if (id < 0) {
                continue;
            }
            double lat = kMissing;
            double lon = kMissing;
            if (!_soundingDB->getLocation(id, lat, lon)) {
                ++withoutPlace;
                continue;
            }
            const StationValues values = valuesAt(id, level);
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
