#include "QMicroMap.h"

#include "MapLabel.h"
#include "ShapeItem.h"

#include <QGraphicsProxyWidget>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>

namespace {

constexpr int kResizePause = 50;       // ms
constexpr int kSmallestBand = 4;       // pixels; less is a click
constexpr double kSmallestView = 0.01; // degrees
constexpr double kPointRadius = 3.0;   // pixels
constexpr QPointF kLabelOffset(5.0, -7.0);

constexpr double kGridLayer = 1.0;
constexpr double kLabelLayer = 2.0;
constexpr double kAnnotationLayer = 20.0;

QPolygonF outline(const std::vector<SpatiaLiteDB::Point>& points) {
    QPolygonF polygon;
    polygon.reserve(static_cast<int>(points.size()));
    for (const SpatiaLiteDB::Point& point : points) {
        polygon.append(QPointF(point.x, point.y));
    }
    return polygon;
}

/// Between the lines of the grid, degrees, for a view of that height.
double gridStep(double height) {
    constexpr std::array<std::array<double, 2>, 5> kSteps{
        {{1.0, 1.0}, {2.0, 2.0}, {5.0, 5.0}, {10.0, 10.0}, {30.0, 15.0}}};
    const double fifth = height / 5.0;
    const auto step = std::find_if(kSteps.begin(), kSteps.end(), [&](const auto& row) { return fifth < row[0]; });
    return step == kSteps.end() ? 30.0 : (*step)[1];
}

QString degreesText(double degrees, const char* negative, const char* positive) {
    return QString::number(std::abs(degrees), 'f', 0) + (degrees < 0.0 ? negative : positive);
}

} // namespace

QMicroMap::QMicroMap(SpatiaLiteDB& db, double xmin, double ymin, double xmax, double ymax,
                     const std::string& backgroundColor, QWidget* parent)
    : QGraphicsView(parent), _db(db), _scene(new QGraphicsScene(this)),
      _extent(QPointF(xmin, ymin), QPointF(xmax, ymax)), _band(new QRubberBand(QRubberBand::Rectangle, viewport())) {
    selectFeatures();
    setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    setDragMode(QGraphicsView::NoDrag);
    setScene(_scene);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportUpdateMode(QGraphicsView::SmartViewportUpdate);
    setFocusPolicy(Qt::StrongFocus);
    QColor background;
    background.setNamedColor(QString::fromStdString(backgroundColor));
    setBackgroundBrush(background);
    setTransform(QTransform::fromScale(1.0, -1.0)); // north is up
    drawFeatures();
    _scene->setSceneRect(_extent);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    _zoomStack.push_back(_extent);
    setMouseMode(MOUSE_ZOOM);
}

QMicroMap::~QMicroMap() = default;

void QMicroMap::selectFeatures() {
    const std::vector<std::string> tables = _db.geometryTables();
    for (const Feature& feature : mapFeatures()) {
        if (std::find(tables.begin(), tables.end(), feature.table) != tables.end()) {
            _features.push_back(feature);
        } else {
            std::cerr << feature.table << " not found" << std::endl;
        }
    }
}

void QMicroMap::drawFeatures() {
    _scene->clear();
    _labels = new QGraphicsItemGroup;
    _labels->setZValue(kLabelLayer);
    for (const Feature& feature : _features) {
        _db.queryGeometry(feature.table, feature.geometryColumn, _extent.left(), _extent.top(), _extent.right(),
                          _extent.bottom(), feature.label);
        drawPoints(feature);
        drawPolygons(feature);
        drawLinestrings(feature);
    }
    _labels->setVisible(false);
    _scene->addItem(_labels);
    _grid = new QGraphicsItemGroup;
    _grid->setZValue(kGridLayer);
    _scene->addItem(_grid);
}

void QMicroMap::drawPolygons(const Feature& feature) {
    if (_db.polygons().empty()) {
        return;
    }
    if (feature.kind != Feature::Polygon) {
        std::cerr << "dynamic cast failed for polygon in " << __func__ << std::endl;
        return;
    }
    auto* item = new ShapeItem(QColor(feature.color.c_str()), QColor(feature.fill.c_str()));
    for (const SpatiaLiteDB::Polygon& polygon : _db.polygons()) {
        item->add(outline(polygon.extRing()));
    }
    _scene->addItem(item);
}

void QMicroMap::drawLinestrings(const Feature& feature) {
    if (_db.linestrings().empty()) {
        return;
    }
    if (feature.kind != Feature::Line) {
        std::cerr << "dynamic cast failed for line in " << __func__ << std::endl;
        return;
    }
    auto* item = new ShapeItem(QColor(feature.color.c_str()), Qt::NoBrush);
    for (const SpatiaLiteDB::Linestring& line : _db.linestrings()) {
        item->add(outline(line.points));
    }
    _scene->addItem(item);
}

void QMicroMap::drawPoints(const Feature& feature) {
    if (feature.kind != Feature::Point) {
        return;
    }
    for (const SpatiaLiteDB::Point& point : _db.points()) {
        auto* spot = _scene->addEllipse(-kPointRadius, -kPointRadius, 2.0 * kPointRadius, 2.0 * kPointRadius,
                                        QColor(feature.color.c_str()),
                                        feature.fill.empty() ? QBrush(Qt::NoBrush) : QBrush(feature.fill.c_str()));
        spot->setFlag(QGraphicsItem::ItemIgnoresTransformations);
        spot->setPos(point.x, point.y);
        auto* label = new MapLabel(QString::fromStdString(point.label), "Helvetica");
        label->setOffset(kLabelOffset);
        label->setPos(point.x, point.y);
        label->setParentItem(_labels);
    }
}

void QMicroMap::grid(int on) {
    _gridOn = on != 0;
    _grid->setVisible(_gridOn);
}

void QMicroMap::labels(int on) {
    _labels->setVisible(on != 0);
}

void QMicroMap::reset() {
    _zoomStack.resize(1);
    showCurrentView();
}

void QMicroMap::showCurrentView() {
    fitInView(currentView(), Qt::KeepAspectRatio);
    drawGrid(currentView());
    drawAnnotation(currentView());
}

QRectF QMicroMap::visiblePart() const {
    return mapToScene(viewport()->rect()).boundingRect().intersected(_extent);
}

void QMicroMap::drawGrid(const QRectF& rect) {
    for (QGraphicsItem* old : _grid->childItems()) {
        delete old;
    }
    const double step = gridStep(rect.height());
    const QRectF seen = visiblePart();
    QPen pen(QColor("grey"));
    pen.setWidth(0);
    const auto addLine = [&](double x0, double y0, double x1, double y1) {
        auto* line = new QGraphicsLineItem(x0, y0, x1, y1);
        line->setPen(pen);
        line->setParentItem(_grid);
    };
    for (double x = _extent.left(); x <= _extent.right(); x += step) {
        addLine(x, _extent.top(), x, _extent.bottom());
        if (x >= seen.left() && x <= seen.right()) {
            addGridLabel(degreesText(x, "W", "E"), {x, seen.top() + seen.height() * 4.0 / 180.0});
        }
    }
    for (double y = _extent.top(); y <= _extent.bottom(); y += step) {
        addLine(_extent.left(), y, _extent.right(), y);
        if (y >= seen.top() && y <= seen.bottom()) {
            addGridLabel(degreesText(y, "S", "N"), {seen.left(), y});
        }
    }
    _grid->setVisible(_gridOn);
}

/// Right of \p place and above it, moved a little where it wouldn't stay within the view; a label that would come to
/// stand by another line isn't there.
void QMicroMap::addGridLabel(const QString& text, const QPointF& place) {
    constexpr double kGap = 2.0; // pixels
    auto* label = new MapLabel(text, "helvetica");
    const QSizeF size = label->boundingRect().size();
    const QPointF corner = mapFromScene(place);
    const double x = std::clamp(corner.x() + kGap, 0.0, std::max(0.0, viewport()->width() - size.width() - kGap));
    const double y = std::clamp(corner.y() - size.height(), 0.0, std::max(0.0, viewport()->height() - size.height()));
    if (corner.x() - x > size.width() / 2.0) {
        delete label;
        return;
    }
    label->setOffset({x - corner.x(), y - corner.y()});
    label->setPos(place);
    label->setParentItem(_grid);
}

void QMicroMap::drawAnnotation(const QRectF& /*rect*/) {
    const QRectF seen = visiblePart();
    const auto place = [&](QGraphicsProxyWidget*& item, const QString& text, double x) {
        if (item == nullptr) {
            auto* label = new QLabel;
            label->setFont(QFont("helvetica"));
            label->setStyleSheet("background: rgba(255, 255, 255, 180); color: black; padding: 2px;");
            item = _scene->addWidget(label);
            item->setFlag(QGraphicsItem::ItemIgnoresTransformations);
            item->setZValue(kAnnotationLayer);
        }
        auto* label = static_cast<QLabel*>(item->widget());
        label->setText(text);
        label->setVisible(!text.isEmpty());
        label->adjustSize();
        const double right = mapToScene(viewport()->width() - label->width() - 2, 0).x();
        item->setPos(std::min(x, right), seen.bottom() - seen.height() / 100.0);
    };
    place(_topLeftItem, _topLeft, seen.left() + seen.width() / 20.0);
    place(_topRightItem, _topRight, seen.right() - 0.125 * seen.width());
}

void QMicroMap::setTopLeftAnnotation(const QString& text) {
    _topLeft = text;
    drawGrid(currentView());
    drawAnnotation(currentView());
}

void QMicroMap::setTopRightAnnotation(const QString& text) {
    _topRight = text;
    drawGrid(currentView());
    drawAnnotation(currentView());
}

void QMicroMap::resizeEvent(QResizeEvent* event) {
    QGraphicsView::resizeEvent(event);
    if (_resizeTimer != -1) {
        killTimer(_resizeTimer);
    }
    _resizeTimer = startTimer(kResizePause);
}

void QMicroMap::timerEvent(QTimerEvent* event) {
    if (event->timerId() != _resizeTimer) {
        QGraphicsView::timerEvent(event);
        return;
    }
    killTimer(_resizeTimer);
    _resizeTimer = -1;
    showCurrentView();
}

void QMicroMap::scrollContentsBy(int dx, int dy) {
    QGraphicsView::scrollContentsBy(dx, dy);
    if (_mouseMode == MOUSE_PAN && _grid != nullptr && !_zoomStack.empty()) {
        drawGrid(currentView()); // whose labels stay in view while the map moves
        drawAnnotation(currentView());
    }
}

void QMicroMap::setMouseMode(MOUSE_MODE mode) {
    _mouseMode = mode;
    setDragMode(mode == MOUSE_PAN ? QGraphicsView::ScrollHandDrag : QGraphicsView::NoDrag);
    viewport()->setCursor(mode == MOUSE_PAN    ? Qt::OpenHandCursor
                          : mode == MOUSE_ZOOM ? Qt::CrossCursor
                                               : Qt::ArrowCursor);
    emit mouseMode(mode);
}

void QMicroMap::mousePressEvent(QMouseEvent* event) {
    _press = event->pos();
    if (_mouseMode != MOUSE_ZOOM) {
        QGraphicsView::mousePressEvent(event);
    } else if (event->button() == Qt::LeftButton) {
        _band->setGeometry(QRect(_press, QSize()));
        _band->show();
    }
}

void QMicroMap::mouseMoveEvent(QMouseEvent* event) {
    if (_band->isVisible()) {
        _band->setGeometry(QRect(_press, event->pos()).normalized());
    } else {
        QGraphicsView::mouseMoveEvent(event); // stations feel the pointer in every mode
    }
}

void QMicroMap::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        _band->hide();
        stepBack();
        return;
    }
    if (_mouseMode != MOUSE_ZOOM) {
        QGraphicsView::mouseReleaseEvent(event);
        if (_mouseMode == MOUSE_PAN && event->button() == Qt::LeftButton && event->pos() != _press) {
            _zoomStack.push_back(mapToScene(viewport()->rect()).boundingRect());
            drawGrid(currentView());
            drawAnnotation(currentView());
        }
    } else if (event->button() == Qt::LeftButton && _band->isVisible()) {
        _band->hide();
        zoomTo(QRect(_press, event->pos()).normalized());
    }
}

/// The smaller side of the band is widened, about its middle, until it has the shape of the window.
void QMicroMap::zoomTo(QRect band) {
    if (band.width() < kSmallestBand && band.height() < kSmallestBand) {
        return;
    }
    const QSizeF shape = QSizeF(viewport()->size()).scaled(band.size(), Qt::KeepAspectRatioByExpanding);
    const QPointF middle = QRectF(band).center();
    const QPointF half(shape.width() / 2.0, shape.height() / 2.0);
    const QTransform toScene = viewportTransform().inverted();
    QRectF view = QRectF(toScene.map(middle - half), toScene.map(middle + half)).normalized();
    if (view.height() < kSmallestView || view.width() < kSmallestView) {
        return;
    }
    showView(view);
}

void QMicroMap::showView(const QRectF& view) {
    _zoomStack.push_back(view);
    showCurrentView();
}

void QMicroMap::stepBack() {
    if (_zoomStack.size() > 1) {
        _zoomStack.pop_back();
        showCurrentView();
    }
}

void QMicroMap::mouseDoubleClickEvent(QMouseEvent* /*event*/) {
    _band->hide();
    setMouseMode(_mouseMode == MOUSE_PAN ? MOUSE_ZOOM : _mouseMode == MOUSE_ZOOM ? MOUSE_PAN : _mouseMode);
}
