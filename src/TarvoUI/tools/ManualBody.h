#pragma once

#include "ManualSource.h"
#include "PageBreaks.h"

#include <QMap>
#include <QString>
#include <QTextDocument>
#include <QVector>

#include <memory>

class QPaintDevice;

/// A heading and the page it stands on, counted from 0 at the first page of the body.
struct ManualHeading {
    QString text;
    int level;
    int page;
};

/// The chapters, laid out for the pages of one paint device.
class ManualBody {
public:
    /// Lays the chapters out. \p frontPages is how many pages come before them; references to a chapter tell its page.
    ManualBody(const ManualSource& source, QPaintDevice& paper, int frontPages);

    int pageCount() const { return _document->pageCount(); }
    /// The first two levels.
    const QVector<ManualHeading>& headings() const { return _headings; }
    /// The title of the chapter that \p page belongs to, and whether it begins there.
    QString chapterOn(int page) const;
    bool opensChapter(int page) const;
    const QTextDocument& document() const { return *_document; }

private:
    void layOut(const ManualSource& source, QPaintDevice& paper, int frontPages);
    void turnReferencesIntoPages(const ManualSource& source, int frontPages);
    void findHeadings();

    std::unique_ptr<QTextDocument> _document;
    QVector<ManualHeading> _headings;
    /// Pages by file name of the chapter, as of the last layout.
    QMap<QString, int> _chapterPages;
    PageBreaks _breaks;
};
