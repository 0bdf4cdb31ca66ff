#pragma once

#include "TextSectors.h"

#include <QAction>
#include <QGraphicsItem>
#include <QObject>
#include <string>

/// One sounding on the map at one level: a meteorological station model with a wind flag and up to four texts. It is of
/// one size at every zoom. A missing value is -999.
class QStationModelGraphicsItem : public QObject, public QGraphicsItem {
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)

public:
    enum MODEL_PART { WIND = 1, TDRY = 2, DP = 4, PRESHT = 8, TIME = 0x10 };

    /// \p text, the sounding's file, goes with the signals. It stands at longitude \p x and latitude \p y. \p wspd is
    /// in knots, \p wdir in degrees, \p tdry and \p dp in deg C; \p presht is a pressure in mb when \p isPres, else an
    /// altitude in m. The staff is \p size pixels long, and \p parts are those of MODEL_PART that show. The last two
    /// are the texts of the context menu.
    QStationModelGraphicsItem(QString text, double x, double y, double wspd, double wdir, double tdry, double dp,
                              double presht, bool isPres, int hour, int minute, double size, unsigned long parts,
                              const std::string& removeText, const std::string& processText);

    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    virtual void showpart(unsigned long parts);
    virtual void hidepart(unsigned long parts);
    QRectF boundingRect() const override;
    /// The circle in the middle, which alone answers to the pointer.
    QPainterPath shape() const override;

signals:
    void process(QString file);
    void remove(QString file);

public slots:
    void contextAction(QAction* action);

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;

private:
    void drawWindFlag(QPainter& painter) const;
    void drawTextFields(QPainter& painter) const;
    QString presHtText() const;
    /// The point \p length pixels off \p point at \p angle, degrees counter-clockwise from the east.
    QPointF xyang(const QPointF& point, double angle, double length) const;

    QString _text;
    double _wspd;
    double _wdir;
    double _tdry;
    double _dp;
    double _presht;
    bool _isPres;
    int _hh;
    int _mm;
    int _size;
    unsigned long _parts;
    double _aspect = 1.0;
    bool _hover = false;
    QAction* _processAction;
    QAction* _removeAction;
};
