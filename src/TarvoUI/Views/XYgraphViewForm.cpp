// The form of the XY graph tab: a narrow panel beside the plot.

#include "XYgraphView.h"

#include <QEvent>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <qwt_plot.h>

namespace {

/// Takes the width of what it holds, and scrolls up and down only: large type on a small screen.
class PanelArea : public QScrollArea {
public:
    explicit PanelArea(QWidget* parent) : QScrollArea(parent) {
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    }
    QSize sizeHint() const override {
        return {widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width(), 0};
    }
    QSize minimumSizeHint() const override { return {sizeHint().width(), 0}; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == widget() && event->type() == QEvent::LayoutRequest) {
            updateGeometry();
        }
        return QScrollArea::eventFilter(watched, event);
    }
};

const char* const kFlagWords[] = {
    "Telemetry-PTU", "Telemetry-GPS", "QC-Ignore",      "QC-Keep",         "QC-AmbientEquil",
    "QC-LimitCheck", "QC-SatsCheck",  "QC-BuddyCheck",  "QC-OutlierCheck", "QC-FilterCheck",
    "QC-MpresCheck", "QC-VvCheck",    "QC-RHThreshold", "QC-RHDryBias",    "QC-WindErrCheck",
};

} // namespace

void XYgraphView::makeForm() {
    _xygraphFrame = new QFrame(this);
    _xygraphFrame->setObjectName("_xygraphFrame");
    _xygraphFrame->setAccessibleName("XY graph");
    _plot = new QwtPlot(_xygraphFrame);
    auto* frameLayout = new QVBoxLayout(_xygraphFrame);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    frameLayout->addWidget(_plot);

    auto* panel = new PanelArea(this);
    panel->setWidget(makePanel());
    panel->viewport()->setAutoFillBackground(false);
    panel->widget()->setAutoFillBackground(false);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(panel);
    layout->addWidget(_xygraphFrame, 1);
}

QWidget* XYgraphView::makePanel() {
    auto* panel = new QWidget(this);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(makePlotTypes());
    layout->addWidget(makeAxes());
    layout->addWidget(makeData());
    layout->addWidget(makeButtons());
    layout->addStretch();
    return panel;
}

QRadioButton* XYgraphView::addRadio(QVBoxLayout* layout, const char* name, const char* text,
                                    void (XYgraphView::*slot)()) {
    auto* radio = new QRadioButton(text, this);
    radio->setObjectName(name);
    connect(radio, &QRadioButton::clicked, this, slot);
    layout->addWidget(radio);
    return radio;
}

QCheckBox* XYgraphView::addCheck(QVBoxLayout* layout, const char* name, const char* text, void (XYgraphView::*slot)()) {
    auto* box = new QCheckBox(text, this);
    box->setObjectName(name);
    connect(box, &QCheckBox::clicked, this, slot);
    layout->addWidget(box);
    return box;
}

QGroupBox* XYgraphView::makePlotTypes() {
    auto* box = new QGroupBox("Plot", this);
    auto* layout = new QVBoxLayout(box);
    _tdryRH = addRadio(layout, "_tdryRH", "T-RH", &XYgraphView::tdryRH);
    addRadio(layout, "_spdDir", "Spd-Dir", &XYgraphView::spdDir);
    addRadio(layout, "_satsDz", "Sats-Dz", &XYgraphView::satsDz);
    addRadio(layout, "_presAlt", "Pres-Alt", &XYgraphView::presAlt);
    addRadio(layout, "_latLon", "Lat-Lon", &XYgraphView::latLon);
    _RHs = addRadio(layout, "_RHs", "RHs", &XYgraphView::RHs);
    _tdryRH->setChecked(true);
    return box;
}

QGroupBox* XYgraphView::makeAxes() {
    auto* box = new QGroupBox("Axis", this);
    auto* layout = new QVBoxLayout(box);
    _time = addRadio(layout, "_time", "Y-axis: Time", &XYgraphView::time);
    _pres = addRadio(layout, "_pres", "Y-axis: Pres", &XYgraphView::pres);
    addRadio(layout, "_alt", "Y-axis: Alt", &XYgraphView::alt);
    _time->setChecked(true);
    return box;
}

QGroupBox* XYgraphView::makeData() {
    auto* box = new QGroupBox("Data", this);
    auto* layout = new QVBoxLayout(box);
    _raw = addCheck(layout, "_raw", "Raw", &XYgraphView::raw);
    _qc = addCheck(layout, "_qc", "QC", &XYgraphView::qc);
    _levels = addCheck(layout, "_levels", "Levels", &XYgraphView::levels);
    _raw->setChecked(true);
    return box;
}

QWidget* XYgraphView::makeButtons() {
    auto* box = new QWidget(this);
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    _flags = new ChoicesButton("Data Flags", box);
    _flags->setObjectName("_flags");
    connect(_flags, &ChoicesButton::choicesChanged, this, &XYgraphView::flagsChanged);
    _styles = new ChoicesButton("Plot Style", box);
    _styles->setObjectName("_styles");
    connect(_styles, &ChoicesButton::choicesChanged, this, &XYgraphView::stylesChanged);
    _unzoom = new QPushButton("Unzoom", box);
    _unzoom->setObjectName("_unzoom");
    _unzoom->setToolTip("UnZm");
    connect(_unzoom, &QPushButton::clicked, this, &XYgraphView::unZoom);
    _wspdunit = new QPushButton("m/s", box);
    _wspdunit->setObjectName("_wspdunit");
    _wspdunit->setToolTip("Wind Unit (m/s vs knot)");
    connect(_wspdunit, &QPushButton::clicked, this, &XYgraphView::wspdUnit);
    for (QPushButton* button :
         {static_cast<QPushButton*>(_flags), static_cast<QPushButton*>(_styles), _unzoom, _wspdunit}) {
        layout->addWidget(button);
    }
    return box;
}

void XYgraphView::initChoices() {
    constexpr int kFirstFlag = 2; // behind "None" and "All"
    constexpr int kFirstGrid = 2;
    QVector<ChoicesButton::Choice_t> flags{{"None", false}, {"All", false}};
    flags.append({_editor->ascending() ? "Obs-Surface" : "Obs-Flight", false});
    for (const char* word : kFlagWords) {
        flags.append({word, false});
    }
    _flags->addChoices(flags);
    _flags->setSeparator(kFirstFlag);
    _lastFlags = flags;

    _styles->addChoices({{"DrawLns", true}, {"MarkPts", false}, {"X-Grid", true}, {"Y-Grid", true}});
    _styles->setSeparator(kFirstGrid);
}
