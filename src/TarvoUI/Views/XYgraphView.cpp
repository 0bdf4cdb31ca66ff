#include "XYgraphView.h"

#include "AtomicFile.h"
#include "GraphAdapterQwt.h"
#include "UiText.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QSignalBlocker>
#include <qwt_plot.h>
#include <qwt_plot_renderer.h>

#include <array>
#include <string>

namespace {

constexpr double kPageMargin = 20.0; // mm
constexpr int kNone = 0;             // of the flags menu
constexpr int kAll = 1;
constexpr int kGridX = 1;
constexpr int kGridY = 2;

/// A scale that the configuration gives, and the plot that it is read for.
struct ScaleItems {
    PlotTypes type;
    const char* quantity; ///< of the keys xyGraph...Auto, xyGraph...Min and xyGraph...Max
    void (GraphXY::*set)(bool automatic, double min, double max);
};

constexpr std::array<ScaleItems, 10> kScaleItems{{
    {PlotTdryRH, "Tdry", &GraphXY::setTdryScale},
    {PlotTdryRH, "RH", &GraphXY::setRHScale},
    {PlotWind, "Wspd", &GraphXY::setWspdScale},
    {PlotWind, "Wdir", &GraphXY::setWdirScale},
    {PlotSatsDz, "DzDt", &GraphXY::setDzDtScale},
    {PlotPresAlt, "Pres", &GraphXY::setPresScale},
    {PlotPresAlt, "Alt", &GraphXY::setAltScale},
    {PlotLatLon, "Lat", &GraphXY::setLatScale},
    {PlotLatLon, "Lon", &GraphXY::setLonScale},
    {PlotRawRHs, "RH", &GraphXY::setRHScale},
}};

struct FlagWord {
    const char* word;
    FlagTypes flag;
};

constexpr std::array<FlagWord, 19> kFlagTypes{{
    {"None", FlagNone},
    {"All", FlagAll},
    {"Flight", FlagFlight},
    {"Surface", FlagSurface},
    {"PTU", FlagPTU},
    {"GPS", FlagGPS},
    {"Ignore", FlagIgnore},
    {"Keep", FlagKeep},
    {"AmbientEquil", FlagAmbientEquil},
    {"LimitCheck", FlagLimitCheck},
    {"SatsCheck", FlagSatsCheck},
    {"BuddyCheck", FlagBuddyCheck},
    {"OutlierCheck", FlagOutlierCheck},
    {"FilterCheck", FlagFilterCheck},
    {"MpresCheck", FlagMpresCheck},
    {"VvCheck", FlagVvCheck},
    {"RHThreshold", FlagRHThreshold},
    {"RHDryBias", FlagRHDryBias},
    {"WindErrCheck", FlagWindErrCheck},
}};

struct PictureFormat {
    const char* filter;
    const char* extension;
    const char* format; ///< of the image writer; null for PDF
};

constexpr std::array<PictureFormat, 3> kPictureFormats{{
    {"JPEG Image (*.jpeg)", ".jpeg", "JPEG"},
    {"PNG Image (*.png)", ".png", "PNG"},
    {"PDF (*.pdf)", ".pdf", nullptr},
}};
const char* const kPictureFilters = "JPEG Image (*.jpeg);;PNG Image (*.png);;PDF (*.pdf)";

struct ItemScale {
    bool automatic = true;
    double min = kMissing;
    double max = kMissing;
};

ItemScale readScale(const ConfigSet& config, const char* quantity) {
    const std::string key = std::string("xyGraph") + quantity;
    ItemScale scale;
    config.boolValue(key + "Auto", scale.automatic);
    config.value(key + "Min", scale.min);
    config.value(key + "Max", scale.max);
    return scale;
}

} // namespace

XYgraphView::XYgraphView(DocumentController* doc, QPrinter* printer, QWidget* parent)
    : TarvoView(doc, printer, parent) {
    setObjectName("XYgraphView");
    makeForm();
    initChoices();
    _adapter = std::make_unique<GraphAdapterQwt>(_plot, "helvetica", 10, "white");
    _graph = std::make_unique<GraphXY>(_adapter.get());
    int doQC = 0;
    _configSet->intValue("DoQC", doQC);
    _hasQC = doQC != 0;
    if (_editor->numRhChan() == 1) {
        _RHs->setEnabled(false);
        _RHs->hide();
    }
    if (_hasQC && _editor->isMessage()) { // whose levels have no times
        _showLevels = true;
        _axisChoice = AxisPres;
        _pres->setChecked(true);
    }
    enableData();
}

XYgraphView::~XYgraphView() = default;

void XYgraphView::setUpPage() {
    _printer->setPageOrientation(QPageLayout::Landscape);
    _printer->setPageMargins(QMarginsF(kPageMargin, kPageMargin, kPageMargin, kPageMargin), QPageLayout::Millimeter);
}

void XYgraphView::update() {
    setUpPage();
    _graph->setDirection(_editor->ascending());
    _graph->setCredit(_doc->credit());
    _graph->observedPosition(isOn("ReportObservedPos"));
    setPlottype();
    _graph->gridType(_gridType);
    setAxis(_axisChoice);
    _graph->setData(*_editor);
}

void XYgraphView::choosePlot(PlotTypes type) {
    _plotType = type;
    setPlottype();
}

void XYgraphView::setPlottype() {
    enableData();
    for (const ScaleItems& items : kScaleItems) {
        if (items.type == _plotType) {
            const ItemScale scale = readScale(*_configSet, items.quantity);
            (_graph.get()->*items.set)(scale.automatic, scale.min, scale.max);
        }
    }
    if (_plotType == PlotRawRHs) {
        _graph->plotRawRH(false, true, true, true);
    }
    _graph->plotType(_plotType);
    _graph->plotChoice(_showRaw || _plotType == PlotRawRHs, _showQC, _showLevels);
}

/// A plot of the raw RHs shows raw data only, and levels have no place on the axis of altitudes. What was chosen before
/// is there again afterwards.
void XYgraphView::enableData() {
    const bool rawOnly = !_hasQC || _plotType == PlotRawRHs;
    _raw->setEnabled(_plotType != PlotRawRHs);
    _qc->setEnabled(!rawOnly);
    _levels->setEnabled(!rawOnly && _axisChoice != AxisAlt);
    _raw->setChecked(_showRaw || _plotType == PlotRawRHs);
    _qc->setChecked(_showQC && !rawOnly);
    _levels->setChecked(_showLevels && !rawOnly);
}

void XYgraphView::setAxis(PlotAxes axis) {
    _axisChoice = axis;
    const ItemScale scale = axis == AxisTime ? ItemScale{} : readScale(*_configSet, axis == AxisPres ? "Pres" : "Alt");
    _autoAxis = scale.automatic;
    _axisMin = scale.min;
    _axisMax = scale.max;
    enableData();
    _graph->plotAxis(_axisChoice, _autoAxis, _axisMin, _axisMax);
}

void XYgraphView::time() {
    setAxis(AxisTime);
}

void XYgraphView::pres() {
    setAxis(AxisPres);
}

void XYgraphView::alt() {
    setAxis(AxisAlt);
}

void XYgraphView::raw() {
    _showRaw = _raw->isChecked();
    _graph->plotChoice(_showRaw, _showQC, _showLevels);
}

void XYgraphView::qc() {
    _showQC = _qc->isChecked();
    _graph->plotChoice(_showRaw, _showQC, _showLevels);
}

void XYgraphView::levels() {
    _showLevels = _levels->isChecked();
    _graph->plotChoice(_showRaw, _showQC, _showLevels);
}

void XYgraphView::wspdUnit() {
    _knots = !_knots;
    _wspdunit->setText(_knots ? "knot" : "m/s");
    _graph->wspdUnit(_knots);
    _graph->plot();
}

/// "None" and "All" act when they are chosen, and go when they hold no longer.
void XYgraphView::flagsChanged() {
    const QVector<ChoicesButton::Choice_t> now = _flags->status();
    const auto chosen = [&](int i) { return now[i].checked && !_lastFlags[i].checked; };
    {
        const QSignalBlocker quiet(_flags);
        if (chosen(kNone)) {
            _flags->setAllChecked(false);
            _flags->setChecked(kNone, true);
        } else if (chosen(kAll)) {
            _flags->setAllChecked(true);
            _flags->setChecked(kNone, false);
        } else {
            for (int i = kAll + 1; i < now.size(); ++i) {
                if (now[i].checked) {
                    _flags->setChecked(kNone, false);
                } else {
                    _flags->setChecked(kAll, false);
                }
            }
        }
    }
    _lastFlags = _flags->status();
    _graph->clearFlags();
    for (const ChoicesButton::Choice_t& choice : _lastFlags) {
        if (choice.checked) {
            setFlag(choice.name.section('-', -1));
        }
    }
    if (!_graph->setData(*_editor)) {
        _graph->plot();
    }
}

void XYgraphView::setFlag(const QString& word) {
    for (const FlagWord& row : kFlagTypes) {
        if (word == row.word) {
            _graph->flagType(row.flag);
        }
    }
}

void XYgraphView::stylesChanged() {
    enum { DrawLines, MarkPoints, GridX, GridY };
    const QVector<ChoicesButton::Choice_t> styles = _styles->status();
    _graph->drawLines(styles[DrawLines].checked);
    _graph->markPoints(styles[MarkPoints].checked);
    _gridType = (styles[GridX].checked ? kGridX : 0) | (styles[GridY].checked ? kGridY : 0);
    _graph->gridType(_gridType);
}

void XYgraphView::xyPreview(QPrinter* printer) {
    QwtPlotRenderer renderer;
    renderer.setDiscardFlag(QwtPlotRenderer::DiscardBackground); // paper has none
    renderer.renderTo(_plot, *printer);
}

int XYgraphView::printPreview() {
    setUpPage();
    printNatively();
    QPrintPreviewDialog dialog(_printer, this);
    dialog.setWindowTitle("Tarvo - Print Preview XY Graph");
    dialog.setMinimumSize(kPreviewWidth, kPreviewHeight);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this, &XYgraphView::xyPreview);
    dialog.exec();
    return 0;
}

int XYgraphView::print() {
    setUpPage();
    printNatively();
    QPrintDialog dialog(_printer, this);
    dialog.setWindowTitle("Tarvo - Print XY Graph");
    if (dialog.exec() == QDialog::Accepted) {
        xyPreview(_printer);
    }
    return 0;
}

int XYgraphView::save() {
    const QPixmap picture = _plot->grab();
    if (picture.isNull()) {
        qWarning("Failed to capture the plot for saving");
        return 0;
    }
    QString filter = kPictureFormats[1].filter;
    const QString name =
        getSaveFilename("Tarvo - Save XY Plot", kPictureFilters, configText("XYPlotSaveDir"), "xyplot", &filter);
    if (name.isEmpty()) {
        QMessageBox::warning(this, "File Name Error", "Empty file name");
        return 0;
    }
    _configSet->set("XYPlotSaveDir", QFileInfo(name).path().toStdString());
    saveConfig();
    if (!writePicture(name, picture)) {
        QMessageBox::critical(this, "File Save Error", "Tarvo can't save the file.");
    }
    return 0;
}

bool XYgraphView::writePicture(const QString& path, const QPixmap& picture) {
    AtomicFile file(path.toStdString());
    if (!file.isOpen()) {
        return false;
    }
    const QString temporary = toQString(file.temporaryPath());
    for (const PictureFormat& format : kPictureFormats) {
        if (path.endsWith(format.extension, Qt::CaseInsensitive) && format.format != nullptr) {
            return picture.save(temporary, format.format) && file.commit();
        }
    }
    setUpPage();
    _printer->setOutputFormat(QPrinter::PdfFormat);
    _printer->setOutputFileName(temporary);
    xyPreview(_printer);
    printNatively();
    return QFileInfo(temporary).size() > 0 && file.commit();
}
