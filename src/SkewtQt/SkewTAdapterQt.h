#pragma once

#include "DisplayList.h"

#include <QPixmap>
#include <QPoint>
#include <QRubberBand>
#include <QTimer>
#include <QWidget>

#include <optional>

class QPainter;
class QPrinter;

namespace skewt {

class SkewT;

/// The diagram as a widget: a box drawn with the left button zooms, a new size is drawn once it stays, and a new sample
/// is added to what is there. It starts with lines and without marks.
class SkewTAdapterQt : public QWidget, public SkewTAdapter {
    Q_OBJECT

public:
    /// \p width and \p height in pixels; -1 is the size of the parent. \p symbolSize is the diameter of the marks,
    /// pixels. A new size is drawn when it hasn't changed for \p resizeHoldOffMs.
    SkewTAdapterQt(QWidget* parent, int width, int height, int symbolSize, int resizeHoldOffMs);
    ~SkewTAdapterQt() override = default;

    /// Who draws on it, and is asked to when zoom or size change; null for nobody. It is borrowed: whoever deletes it
    /// tells this first, or replaces it before the next event.
    void setSkewT(SkewT* skewT) { _skewT = skewT; }

    void init() override;
    void draw_finished() override;
    void addDp(double x, double y) override;
    void addTdry(double x, double y) override;
    void symbol(double x, double y, unsigned colour, SymType type) override;
    void Text(const std::string& text, double x, double y, unsigned colour) override;
    void extents(double& x1, double& x2, double& y1, double& y2) override;
    void line(double x1, double y1, double x2, double y2, unsigned colour, LineType type) override;
    void title(std::string text) override { _list.setTitle(text); }
    void subTitle(std::string text) override { _list.setSubTitle(text); }
    void markPoints(bool on) override;
    double aspectRatio() override;
    void maximize() override { window()->showMaximized(); }
    void unzoom() override;
    /// Nothing: printing goes through the tab.
    void print() override {}
    bool savePlot(std::string file, int width, int height, PlotFileType type) override;

    /// Whether the data of each trace are joined.
    void drawLines(bool on);
    bool marksPoints() const { return _marksPoints; }
    bool drawsLines() const { return _drawsLines; }

    /// Renders what isn't drawn yet into the picture of the widget, or all of it anew when not \p incremental or when
    /// the size has changed.
    void drawElements(bool incremental);
    /// Everything, on the page of \p printer.
    void drawElements(QPrinter* printer);
    /// Everything, on a page of \p size at the origin of \p painter.
    void drawElements(QPainter& painter, const QSizeF& size) const;

public slots:
    void resizeTimeout();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void redrawData();
    void sampleAdded();
    QRect box(const QPoint& to) const;

    SkewT* _skewT = nullptr;
    double _markSize;
    bool _marksPoints = false;
    bool _drawsLines = true;
    bool _finished = false; ///< the plot is complete, and what comes is drawn at once
    DisplayList _list;
    QPixmap _background; ///< all that the switches don't change
    QPixmap _picture;
    QTimer _resizeTimer;
    QRubberBand _rubberBand;
    QPoint _bandOrigin;
    std::optional<QRect> _zoomBox;
};

} // namespace skewt
