#include "SkewTAdapterQt.h"

#include "AtomicFile.h"
#include "SkewT.h"
#include "SkewTPainter.h"
#include "WaitCursor.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPrinter>

namespace skewt {

namespace {

constexpr int kSmallestBox = 21;           // pixels, of a rubber band that zooms
constexpr double kMarkShare = 1.0;         // of the symbol size, the marks of data
constexpr double kBaseShare = 0.8;         // and the bases of barbs
constexpr double kScreenResolution = 96.0; // pixels per inch
constexpr double kLabelSize = 0.0;         // as small as can be read

} // namespace

SkewTAdapterQt::SkewTAdapterQt(QWidget* parent, int width, int height, int symbolSize, int resizeHoldOffMs)
    : QWidget(parent), _markSize(symbolSize), _rubberBand(QRubberBand::Rectangle, this) {
    const QSize outer = parent != nullptr ? parent->size() : size();
    resize(width < 0 ? outer.width() : width, height < 0 ? outer.height() : height);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
    _resizeTimer.setSingleShot(true);
    _resizeTimer.setInterval(resizeHoldOffMs);
    connect(&_resizeTimer, &QTimer::timeout, this, &SkewTAdapterQt::resizeTimeout);
}

void SkewTAdapterQt::init() {
    _list.clear();
    _finished = false;
}

void SkewTAdapterQt::draw_finished() {
    _finished = true;
    drawElements(false);
}

void SkewTAdapterQt::addDp(double x, double y) {
    _list.dp.push_back({{x, y}, kBlue, kMarkShare * _markSize});
    sampleAdded();
}

void SkewTAdapterQt::addTdry(double x, double y) {
    _list.tdry.push_back({{x, y}, kRed, kMarkShare * _markSize});
    sampleAdded();
}

void SkewTAdapterQt::symbol(double x, double y, unsigned colour, SymType type) {
    _list.symbols.push_back({{x, y}, colour, (type == SymType::Base ? kBaseShare : kMarkShare) * _markSize});
    sampleAdded();
}

void SkewTAdapterQt::Text(const std::string& text, double x, double y, unsigned colour) {
    _list.addText(text, {x, y}, colour);
    sampleAdded();
}

void SkewTAdapterQt::line(double x1, double y1, double x2, double y2, unsigned colour, LineType type) {
    _list.addLine({{x1, y1}, {x2, y2}}, colour, type);
    sampleAdded();
}

void SkewTAdapterQt::sampleAdded() {
    if (_finished) {
        drawElements(true);
    }
}

void SkewTAdapterQt::extents(double& x1, double& x2, double& y1, double& y2) {
    const QRectF box = _zoomBox ? QRectF(*_zoomBox) : QRectF(rect());
    x1 = box.left() / width();
    x2 = box.right() / width();
    y1 = 1.0 - box.bottom() / height();
    y2 = 1.0 - box.top() / height();
}

double SkewTAdapterQt::aspectRatio() {
    return static_cast<double>(qMax(height(), 1)) / qMax(width(), 1);
}

void SkewTAdapterQt::markPoints(bool on) {
    _marksPoints = on;
    redrawData();
}

void SkewTAdapterQt::drawLines(bool on) {
    _drawsLines = on;
    redrawData();
}

void SkewTAdapterQt::unzoom() {
    const WaitCursor wait;
    if (_skewT != nullptr) {
        _skewT->unzoom();
    }
}

/// The traces anew, over the background that is there.
void SkewTAdapterQt::redrawData() {
    if (_background.size() != pictureSize()) {
        drawElements(false);
        return;
    }
    _list.resetDrawnData();
    _picture = _background;
    paint(_picture, [this](SkewTPainter& page) { page.drawData(_list, _marksPoints, _drawsLines); });
    _list.setDrawn();
    update();
}

void SkewTAdapterQt::drawElements(bool incremental) {
    const QSize pixels = pictureSize();
    if (pixels.isEmpty()) {
        return;
    }
    if (!incremental || _background.size() != pixels) {
        _background = QPixmap(pixels);
        _background.setDevicePixelRatio(devicePixelRatioF());
        _background.fill(Qt::white);
        _picture = _background;
        _list.resetDrawn();
    }
    const auto drawBackground = [this](SkewTPainter& page) { page.drawBackground(_list); };
    const bool isWhole = _list.polylines.drawn() == 0;
    paint(_background, drawBackground);
    if (isWhole) {
        _picture = _background;
    } else {
        paint(_picture, drawBackground);
    }
    paint(_picture, [this](SkewTPainter& page) { page.drawData(_list, _marksPoints, _drawsLines); });
    _list.setDrawn();
    update();
}

void SkewTAdapterQt::paint(QPixmap& picture, const std::function<void(SkewTPainter&)>& draw) const {
    QPainter painter(&picture);
    SkewTPainter page(painter, size(), kLabelSize);
    draw(page);
}

QSize SkewTAdapterQt::pictureSize() const {
    return size() * devicePixelRatioF();
}

void SkewTAdapterQt::drawElements(QPainter& painter, const QSizeF& size) const {
    DisplayList list = _list;
    list.resetDrawn();
    SkewTPainter page(painter, size, kLabelSize);
    page.drawBackground(list);
    page.drawData(list, _marksPoints, _drawsLines);
}

void SkewTAdapterQt::drawElements(QPrinter* printer) {
    QPainter painter;
    if (painter.begin(printer)) {
        // Sizes in pixels mean those of a screen.
        const double scale = printer->resolution() / kScreenResolution;
        painter.scale(scale, scale);
        drawElements(painter, printer->pageRect(QPrinter::DevicePixel).size() / scale);
    }
}

bool SkewTAdapterQt::savePlot(std::string file, int width, int height, PlotFileType type) {
    QPixmap picture(width, height);
    if (picture.isNull()) {
        return false;
    }
    picture.fill(Qt::white);
    {
        QPainter painter(&picture);
        drawElements(painter, picture.size());
    }
    AtomicFile output(file);
    return output.isOpen() &&
           picture.save(QString::fromStdString(output.temporaryPath()), type == PlotFileType::Jpeg ? "JPEG" : "PNG") &&
           output.commit();
}

void SkewTAdapterQt::resizeTimeout() {
    const WaitCursor wait;
    if (_skewT != nullptr) {
        _skewT->resize();
    } else {
        drawElements(false);
    }
}

void SkewTAdapterQt::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (_picture.isNull()) {
        painter.fillRect(rect(), Qt::white);
    } else { // stretched until the new size is drawn
        painter.drawPixmap(rect(), _picture);
    }
}

void SkewTAdapterQt::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    _resizeTimer.start();
}

void SkewTAdapterQt::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    _bandOrigin = event->pos();
    _rubberBand.setGeometry(box(_bandOrigin));
    _rubberBand.show();
}

void SkewTAdapterQt::mouseMoveEvent(QMouseEvent* event) {
    if (_rubberBand.isVisible()) {
        _rubberBand.setGeometry(box(event->pos()));
    }
}

void SkewTAdapterQt::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || _rubberBand.isHidden()) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    _rubberBand.hide();
    const QRect chosen = box(event->pos());
    if (_skewT == nullptr || chosen.width() < kSmallestBox || chosen.height() < kSmallestBox) {
        return;
    }
    const WaitCursor wait;
    _zoomBox = chosen;
    _skewT->zoomin();
    _zoomBox.reset();
}

/// What the rubber band spans once it comes to \p to: as wide as the cursor has moved, and within the widget.
QRect SkewTAdapterQt::box(const QPoint& to) const {
    const QPoint topLeft(qMin(_bandOrigin.x(), to.x()), qMin(_bandOrigin.y(), to.y()));
    const QSize moved(qAbs(to.x() - _bandOrigin.x()), qAbs(to.y() - _bandOrigin.y()));
    return QRect(topLeft, moved) & rect();
}

} // namespace skewt
