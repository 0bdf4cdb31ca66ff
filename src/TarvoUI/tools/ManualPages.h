#pragma once

#include "ManualBody.h"
#include "ManualSource.h"

#include <QString>
#include <QVector>

class QPainter;
class QPdfWriter;

/// Paints the manual: title page, contents, then the chapters with running head and page number.
class ManualPages {
public:
    ManualPages(const ManualSource& source, const QString& version, QPdfWriter& paper);

    void paint();

private:
    /// Millimetres of the page as pixels of the paper.
    double px(double mm) const;
    int frontPages(int entries) const;
    void paintTitle(QPainter& painter) const;
    void paintContents(QPainter& painter, const ManualBody& body) const;
    void paintEntry(QPainter& painter, const ManualHeading& heading, int page, double y) const;
    void paintBodyPage(QPainter& painter, const ManualBody& body, int page, int front) const;
    void paintFoot(QPainter& painter, int pageNumber) const;

    const ManualSource& _source;
    QString _version;
    QPdfWriter& _paper;
};
