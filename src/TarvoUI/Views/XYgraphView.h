#pragma once

#include "ChoicesButton.h"
#include "GraphXY.h"
#include "TarvoView.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <memory>

class GraphAdapterQwt;
class QFrame;
class QGroupBox;
class QVBoxLayout;
class QwtPlot;

/// Two quantities of the sounding against time, pressure or altitude: raw and QC data, levels, and what the checks
/// flagged.
class XYgraphView : public TarvoView {
    Q_OBJECT

public:
    XYgraphView(DocumentController* doc, QPrinter* printer, QWidget* parent);
    ~XYgraphView() override;

    void update() override;
    int printPreview() override;
    int print() override;
    int save() override;

public slots:
    void time();
    void pres();
    void alt();
    void raw();
    void qc();
    void levels();
    void tdryRH() { choosePlot(PlotTdryRH); }
    void spdDir() { choosePlot(PlotWind); }
    void satsDz() { choosePlot(PlotSatsDz); }
    void presAlt() { choosePlot(PlotPresAlt); }
    void latLon() { choosePlot(PlotLatLon); }
    void RHs() { choosePlot(PlotRawRHs); }
    void unZoom() { _graph->unZoom(); }
    void wspdUnit();
    void flagsChanged();
    void stylesChanged();
    void xyPreview(QPrinter* printer);

private:
    // The form.
    void makeForm();
    QWidget* makePanel();
    QGroupBox* makePlotTypes();
    QGroupBox* makeAxes();
    QGroupBox* makeData();
    QWidget* makeButtons();
    QRadioButton* addRadio(QVBoxLayout* layout, const char* name, const char* text, void (XYgraphView::*slot)());
    QCheckBox* addCheck(QVBoxLayout* layout, const char* name, const char* text, void (XYgraphView::*slot)());
    void initChoices();

    void setUpPage();
    void choosePlot(PlotTypes type);
    void setPlottype();
    void enableData();
    void setAxis(PlotAxes axis);
    void setFlag(const QString& word);
    bool writePicture(const QString& path, const QPixmap& picture);

    QRadioButton* _tdryRH = nullptr;
    QRadioButton* _time = nullptr;
    QRadioButton* _pres = nullptr;
    QRadioButton* _RHs = nullptr;
    QCheckBox* _raw = nullptr;
    QCheckBox* _qc = nullptr;
    QCheckBox* _levels = nullptr;
    ChoicesButton* _flags = nullptr;
    ChoicesButton* _styles = nullptr;
    QPushButton* _unzoom = nullptr;
    QPushButton* _wspdunit = nullptr;
    QFrame* _xygraphFrame = nullptr;
    QwtPlot* _plot = nullptr;
    QVector<ChoicesButton::Choice_t> _lastFlags;

    std::unique_ptr<GraphAdapterQwt> _adapter;
    std::unique_ptr<GraphXY> _graph;

    bool _hasQC = true;
    bool _showRaw = true;
    bool _showQC = false;
    bool _showLevels = false;
    PlotTypes _plotType = PlotTdryRH;
    PlotAxes _axisChoice = AxisTime;
    bool _autoAxis = true;
    double _axisMin = kMissing;
    double _axisMax = kMissing;
    bool _knots = false;
    int _gridType = 3;
};
