// The form of the window.

#include "SynopticWidget.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>
#include <array>

namespace {

constexpr int kSurfaceIndex = 21;
constexpr std::array<const char*, 27> kLevels{
    "1 mb",   "2 mb",   "3 mb",    "5 mb",    "7 mb",      "10 mb",    "20 mb",    "30 mb",    "50 mb",
    "70 mb",  "100 mb", "150 mb",  "200 mb",  "250 mb",    "300 mb",   "400 mb",   "500 mb",   "700 mb",
    "850 mb", "925 mb", "1000 mb", "Surface", "150m Wind", "DLM Wind", "MBL Wind", "Max Wind", "Tropopause",
};

QPushButton* makeButton(const char* name, const char* text, const char* tip, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setAutoDefault(false);
    return button;
}

QLabel* makeLabel(const char* name, const char* text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(name);
    return label;
}

} // namespace

void SynopticWidget::makeForm() {
    setObjectName("SynopticWidget");
    setWindowTitle("Synoptic Map");
    _mapFrame = new QFrame(this);
    _mapFrame->setObjectName("_mapFrame");
    _mapFrame->setFrameShape(QFrame::StyledPanel);
    _mapFrame->setAccessibleName("Synoptic map");
    auto* split = new QSplitter(this);
    split->addWidget(_mapFrame);
    split->addWidget(makeControls());
    split->setStretchFactor(0, 1);
    split->setStretchFactor(1, 0);
    split->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(split);
    resize(1200, 750);
}

QWidget* SynopticWidget::makeControls() {
    auto* side = new QWidget(this);
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* choices = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    left->addWidget(makeMouseModes());
    _reset = makeButton("_reset", "Reset", "Show the whole map", this);
    left->addWidget(_reset);
    left->addStretch();
    choices->addLayout(left);
    choices->addWidget(makeFeatures());
    layout->addLayout(choices);

    auto* level = new QHBoxLayout;
    _levelLabel = makeLabel("_levelLabel", "Station Level  ", this);
    _levelSelect = new QComboBox(this);
    _levelSelect->setObjectName("_levelSelect");
    _levelSelect->setToolTip("Select the pressure level");
    for (const char* text : kLevels) {
        _levelSelect->addItem(text);
    }
    _levelSelect->setCurrentIndex(kSurfaceIndex);
    _levelSelect->setMaxVisibleItems(static_cast<int>(kLevels.size()));
    _levelLabel->setBuddy(_levelSelect);
    level->addWidget(_levelLabel);
    level->addWidget(_levelSelect, 1);
    layout->addLayout(level);
    layout->addWidget(makeSoundings(), 1);
    return side;
}

QRadioButton* SynopticWidget::addMode(QVBoxLayout* layout, const char* name, const char* text) {
    auto* button = new QRadioButton(text, _mouseModes);
    button->setObjectName(name);
    layout->addWidget(button);
    return button;
}

QGroupBox* SynopticWidget::makeMouseModes() {
    _mouseModes = new QGroupBox("Mouse Behavior", this);
    _mouseModes->setObjectName("_mouseModes");
    _mouseModes->setToolTip(
        "You can also cycle through \nthe mouse behavior choices by \ndouble clicking on the map. \n\n"
        "Right click on the map \nto back up one zoom level.");
    auto* layout = new QVBoxLayout(_mouseModes);
    _modePan = addMode(layout, "_modePan", "Pan");
    _modeSelect = addMode(layout, "_modeSelect", "Select");
    _modeZoom = addMode(layout, "_modeZoom", "Zoom");
    _modeZoom->setChecked(true);
    return _mouseModes;
}

QCheckBox* SynopticWidget::addFeature(QVBoxLayout* layout, const char* name, const char* text,
                                      void (SynopticWidget::*slot)()) {
    auto* box = new QCheckBox(text, _features);
    box->setObjectName(name);
    box->setChecked(true);
    layout->addWidget(box);
    if (slot != nullptr) {
        connect(box, &QCheckBox::stateChanged, this, slot);
    }
    return box;
}

QGroupBox* SynopticWidget::makeFeatures() {
    _features = new QGroupBox("Features", this);
    _features->setObjectName("_features");
    auto* layout = new QVBoxLayout(_features);
    _tdry = addFeature(layout, "_tdry", "Tdry", &SynopticWidget::tdry);
    _dp = addFeature(layout, "_dp", "DP", &SynopticWidget::dp);
    _wind = addFeature(layout, "_wind", "Wind", &SynopticWidget::wind);
    _presht = addFeature(layout, "_presht", "Sfc Pres/Ht", &SynopticWidget::presht);
    _time = addFeature(layout, "_time", "Time", &SynopticWidget::time);
    _grid = addFeature(layout, "_grid", "Grid", nullptr);
    _placeNames = addFeature(layout, "_placeNames", "Place Names", nullptr);
    _placeNames->setChecked(false);
    return _features;
}

QWidget* SynopticWidget::makeSoundings() {
    auto* box = new QWidget(this);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* labels = new QHBoxLayout;
    _soundingLabel = makeLabel("_soundingLabel", "Soundings:", this);
    _soundingLabel1 = makeLabel("_soundingLabel1", "(plotted/total)", this);
    _soundingCount = makeLabel("_soundingCount", "num", this);
    labels->addWidget(_soundingLabel);
    labels->addWidget(_soundingLabel1);
    labels->addWidget(_soundingCount);
    labels->addStretch();
    layout->addLayout(labels);
    auto* buttons = new QHBoxLayout;
    _delete = makeButton("_delete", "Delete", "Delete the checked soundings\nfrom the soundings database", this);
    _selectAll = makeButton("_selectAll", "Plot All", "Plot all soundings\non synoptic map", this);
    _changeDB = makeButton("_changeDB", "Change DB", "Change sounding\ndatabase", this);
    for (QPushButton* button : {_delete, _selectAll, _changeDB}) {
        buttons->addWidget(button);
    }
    layout->addLayout(buttons);
    _soundingView = new QTableView(this);
    _soundingView->setObjectName("_soundingView");
    _soundingView->setAccessibleName("Soundings of the database");
    _soundingView->setTabKeyNavigation(false);
    _soundingView->setSelectionMode(QAbstractItemView::MultiSelection);
    _soundingView->setContextMenuPolicy(Qt::ActionsContextMenu);
    _soundingView->setMinimumWidth(fontMetrics().averageCharWidth() * 52);
    layout->addWidget(_soundingView, 1);
    return box;
}

void SynopticWidget::connectForm() {
    for (QRadioButton* mode : {_modePan, _modeSelect, _modeZoom}) {
        connect(mode, &QRadioButton::toggled, this, &SynopticWidget::mouseModeSelect);
    }
    connect(_map, &QMicroMap::mouseMode, this, &SynopticWidget::mouseModeChange);
    connect(_levelSelect, &QComboBox::currentTextChanged, this, &SynopticWidget::levelChanged);
    connect(_placeNames, &QCheckBox::stateChanged, _map, &QMicroMap::labels);
    connect(_grid, &QCheckBox::stateChanged, _map, &QMicroMap::grid);
    connect(_reset, &QPushButton::clicked, _map, &QMicroMap::reset);
    connect(_selectAll, &QPushButton::clicked, this, &SynopticWidget::selectAllSoundings);
    connect(_delete, &QPushButton::clicked, this, &SynopticWidget::deleteSoundings);
    connect(_changeDB, &QPushButton::clicked, this, qOverload<>(&SynopticWidget::changeSoundingDB));
    auto* process = new QAction(QString::fromStdString(_processText), _soundingView);
    connect(process, &QAction::triggered, this, &SynopticWidget::setProcess);
    _soundingView->addAction(process);
}
