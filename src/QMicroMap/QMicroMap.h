#pragma once

#include "Feature.h"
#include "SpatiaLiteDB.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QRubberBand>
#include <deque>
#include <string>
#include <vector>

/// A small geographic map in degrees of longitude and latitude, without a projection: one unit of its scene is one
/// degree. It draws the background from a geographic database, a grid with labels and two annotations; what else
/// stands in its scene comes from its user. It pans and zooms by mouse.
class QMicroMap : public QGraphicsView {
    Q_OBJECT

public:
    enum MOUSE_MODE { MOUSE_NONE = 0, MOUSE_PAN = 1, MOUSE_ZOOM = 2 };
    Q_ENUM(MOUSE_MODE)
    /// Where items of the user stand, above all that the map draws but its annotations.
    static constexpr double kUserLayer = 10.0;

    /// The map of the extent, degrees. \p backgroundColor, a name that QColor knows, is that of the sea. A table that
    /// \p db lacks is told on the error stream and left out. Throws a std::string when the database can't be read.
    QMicroMap(SpatiaLiteDB& db, double xmin, double ymin, double xmax, double ymax, const std::string& backgroundColor,
              QWidget* parent);
    ~QMicroMap() override;

    /// Texts in the upper corners of what is in view.
    void setTopLeftAnnotation(const QString& text);
    void setTopRightAnnotation(const QString& text);

    /// Goes to a part of the map, one step further.
    void showView(const QRectF& view);
    /// What is in view now, as it was asked for.
    QRectF currentView() const { return _zoomStack.back(); }

signals:
    void mouseMode(QMicroMap::MOUSE_MODE mode);

public slots:
    /// Shows the grid, or the names of places, unless the argument is 0.
    void grid(int on);
    void labels(int on);
    /// Back to the whole extent.
    void reset();
    void setMouseMode(QMicroMap::MOUSE_MODE mode);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void selectFeatures();
    void drawFeatures();
    void drawPolygons(const Feature& feature);
    void drawLinestrings(const Feature& feature);
    void drawPoints(const Feature& feature);

    /// Brings the current view into the window, with its grid and annotations.
    void showCurrentView();
    void zoomTo(QRect band);
    void stepBack();
    QRectF visiblePart() const;
    void drawGrid(const QRectF& rect);
    void addGridLabel(const QString& text, const QPointF& place);
    void drawAnnotation(const QRectF& rect);

    SpatiaLiteDB& _db;
    QGraphicsScene* _scene;
    QRectF _extent;
    std::deque<QRectF> _zoomStack; // the last is the current view
    std::vector<Feature> _features;
    QGraphicsItemGroup* _labels = nullptr;
    QGraphicsItemGroup* _grid = nullptr;
    bool _gridOn = true;
    MOUSE_MODE _mouseMode = MOUSE_NONE;
    QRubberBand* _band;
    QPoint _press;
    int _resizeTimer = -1;
    QString _topLeft;
    QString _topRight;
    QGraphicsProxyWidget* _topLeftItem = nullptr;
    QGraphicsProxyWidget* _topRightItem = nullptr;
};
