#include "SkewTView.h"

#include "AtomicFile.h"
#include "AutoSaveDirectory.h"
#include "Levels.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QTimer>
#include <QVBoxLayout>
#include <array>

namespace {

constexpr int kAsParent = -1;
constexpr int kSymbolSize = 5;      // pixels
constexpr int kResizeHoldOff = 500; // ms
constexpr double kSideMm = 20.0;
constexpr double kTopMm = 15.0;

struct Format {
    const char* filter;
    const char* extension;
    const char* autoSaveItem;
};

constexpr std::array<Format, 3> kFormats{{
    {"JPEG Image (*.jpeg)", ".jpeg", "SkewtAutoSaveFmtJpg"},
    {"PNG Image (*.png)", ".png", "SkewtAutoSaveFmtPng"},
    {"SVG Image (*.svg)", ".svg", "SkewtAutoSaveFmtSvg"},
}};

} // namespace

SkewTView::SkewTView(DocumentController* doc, QPrinter* printer, QWidget* parent) : TarvoView(doc, printer, parent) {
    setObjectName("SkewTView");
    _rawData = makeSource("_rawData", "Raw");
    _qcData = makeSource("_qcData", "QC");
    _levelsData = makeSource("_levelsData", "Levels");
    int doQC = 0;
    _configSet->intValue("DoQC", doQC);
    QRadioButton* samples = doQC != 0 ? _qcData : _rawData;
    (doQC != 0 && _editor->isMessage() ? _levelsData : samples)->setChecked(true);
    _qcData->setEnabled(doQC != 0);
    _levelsData->setEnabled(doQC != 0);
    _markPoints = new QCheckBox("Mark Points", this);
    _markPoints->setObjectName("_markPoints");
    _drawLines = new QCheckBox("Draw Lines", this);
    _drawLines->setObjectName("_drawLines");
    _unzoom = new QPushButton("UnZoom", this);
    _unzoom->setObjectName("_unzoom");
    _unzoom->setToolTip("Unzoom Skew-T plot");
    _unzoom->setAutoDefault(false);
    _skewtFrame = new QFrame(this);
    _skewtFrame->setObjectName("_skewtFrame");
    _skewtFrame->setAccessibleName("Skew-T diagram");
    _skewtFrame->setFrameShape(QFrame::StyledPanel);
    _adapter = new skewt::SkewTAdapterQt(_skewtFrame, kAsParent, kAsParent, kSymbolSize, kResizeHoldOff);
    auto* inFrame = new QVBoxLayout(_skewtFrame);
    inFrame->setContentsMargins(0, 0, 0, 0);
    inFrame->addWidget(_adapter);
    _markPoints->setChecked(_adapter->marksPoints());
    _drawLines->setChecked(_adapter->drawsLines());
    connect(_markPoints, &QCheckBox::toggled, this, [this](bool on) { _adapter->markPoints(on); });
    connect(_drawLines, &QCheckBox::toggled, this, [this](bool on) { _adapter->drawLines(on); });
    connect(_unzoom, &QPushButton::clicked, this, &SkewTView::unzoom);

    auto* controls = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{_rawData, _qcData, _levelsData}) {
        controls->addWidget(widget);
    }
    controls->addSpacing(_unzoom->sizeHint().height());
    for (QWidget* widget : std::initializer_list<QWidget*>{_markPoints, _drawLines, _unzoom}) {
        controls->addWidget(widget);
    }
    controls->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addWidget(_skewtFrame, 1);
}

SkewTView::~SkewTView() {
    _adapter->setSkewT(nullptr);
}

QRadioButton* SkewTView::makeSource(const char* name, const char* text) {
    auto* button = new QRadioButton(text, this);
    button->setObjectName(name);
    connect(button, &QRadioButton::clicked, this, &SkewTView::setData);
    return button;
}

SkewTSource SkewTView::choice() const {
    if (_qcData->isChecked()) {
        return SkewTSource::QC;
    }
    return _levelsData->isChecked() ? SkewTSource::Levels : SkewTSource::Raw;
}

int SkewTView::versionOf(SkewTSource source) const {
    switch (source) {
    case SkewTSource::QC:
        return _editor->QCversion();
    case SkewTSource::Levels:
        return _editor->levelsVersion();
    default:
        return _editor->rawVersion();
    }
}

void SkewTView::setData() {
    _version = -1;
    update();
}

void SkewTView::setUpPage() {
    _printer->setPageOrientation(QPageLayout::Landscape);
    _printer->setPageMargins(QMarginsF(kSideMm, kTopMm, kSideMm, kSideMm), QPageLayout::Millimeter);
}

void SkewTView::update() {
    setUpPage();
    const SkewTSource source = choice();
    const bool missing = (source == SkewTSource::QC && !_editor->QCready()) ||
                         (source == SkewTSource::Levels && _editor->levels() == nullptr);
    const SkewTSetup setup(*_configSet);
    if (missing || (source == _shown && _version == versionOf(source) && setup == _setup)) {
        return;
    }
    _shown = source;
    _setup = setup;
    _version = versionOf(source);
    _data = skewTData(*_editor, source);
    _adapter->setSkewT(nullptr);
    _skewT = makeSkewT(*_adapter, _data, *_editor, setup);
    _adapter->setSkewT(_skewT.get());
    _skewT->brandNewPlot();
}

void SkewTView::showEvent(QShowEvent* event) {
    TarvoView::showEvent(event);
    QTimer::singleShot(0, _adapter, &skewt::SkewTAdapterQt::resizeTimeout);
}

void SkewTView::unzoom() {
    _adapter->unzoom();
}

int SkewTView::printPreview() {
    setUpPage();
    printNatively();
    QPrintPreviewDialog dialog(_printer, this);
    dialog.setWindowTitle("Tarvo - Print Preview Skew-T");
    dialog.setMinimumSize(kPreviewWidth, kPreviewHeight);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this, &SkewTView::skewTPreview);
    dialog.exec();
    return 0;
}

void SkewTView::skewTPreview(QPrinter* printer) {
    _adapter->drawElements(printer);
}

int SkewTView::print() {
    setUpPage();
    printNatively();
    QPrintDialog dialog(_printer, this);
    dialog.setWindowTitle("Tarvo - Print Skew-T");
    if (dialog.exec() == QDialog::Accepted) {
        _adapter->drawElements(_printer);
    }
    return 0;
}

int SkewTView::save() {
    QString filter = kFormats[1].filter;
    QStringList filters;
    for (const Format& format : kFormats) {
        filters << format.filter;
    }
    const QString name =
        getSaveFilename("Tarvo - Save Skew-T", filters.join(";;"), configText("SkewTPlotSaveDir"), "skewt", &filter);
    if (name.isEmpty()) {
        QMessageBox::warning(this, "File Name Error", "Empty file name");
        return 0;
    }
    _configSet->set("SkewTPlotSaveDir", QFileInfo(name).path().toStdString());
    saveConfig();
    if (!savePicture(name)) {
        QMessageBox::critical(this, "File Save Error", "Tarvo can't save the file.");
    }
    return 0;
}

/// The kind of picture shows in the extension of its name. Its size is that of the configuration, and it shows the
/// whole diagram, however the tab is zoomed.
bool SkewTView::savePicture(const QString& path) const {
    const SkewTSetup setup(*_configSet);
    if (path.endsWith(".svg", Qt::CaseInsensitive)) {
        AtomicFile file(path.toStdString());
        if (!file.isOpen()) {
            return false;
        }
        writeSkewTSvg(file.stream(), _data, *_editor, setup);
        return file.commit();
    }
    skewt::SkewTAdapterQt adapter(nullptr, setup.pixelsX, setup.pixelsY, kSymbolSize, kResizeHoldOff);
    adapter.markPoints(_markPoints->isChecked());
    adapter.drawLines(_drawLines->isChecked());
    makeSkewT(adapter, _data, *_editor, setup)->brandNewPlot();
    return adapter.savePlot(path.toStdString(), setup.pixelsX, setup.pixelsY,
                            path.endsWith(".jpeg", Qt::CaseInsensitive) ? skewt::PlotFileType::Jpeg
                                                                        : skewt::PlotFileType::Png);
}

int SkewTView::autoSave() {
    const QString directory = autoSaveDirectory(*_configSet, this);
    for (const Format& format : kFormats) {
        if (isOn(format.autoSaveItem) && !savePicture(directory + getRootFilename() + "skewt" + format.extension)) {
            QMessageBox::warning(this, "File Save Error",
                                 QString("Tarvo can't save the file to format ") + format.extension);
        }
    }
    return 0;
}
