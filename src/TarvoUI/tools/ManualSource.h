#pragma once

#include <QString>
#include <QVector>

/// One chapter: a Markdown file whose only heading of the first level is its title.
struct ManualChapter {
    QString fileName;
    QString markdown;
};

/// What the manual is made of. The index file has the title as its first heading, a line of text as subtitle, and a
/// list of links to the chapters in their order.
struct ManualSource {
    QString folder;
    QString title;
    QString subtitle;
    QVector<ManualChapter> chapters;

    /// Throws std::runtime_error when the index or a chapter can't be read, or the index names no chapter.
    static ManualSource read(const QString& indexPath);
};
