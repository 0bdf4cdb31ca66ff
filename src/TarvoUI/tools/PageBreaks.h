#pragma once

#include <QMap>
#include <QSet>
#include <QTextBlock>
#include <QTextDocument>

class QPaintDevice;

/// Where the pages of a document break so that nothing stands badly: no heading at the foot of a page, no short table
/// or piece of code in two parts, no torn row. Found from one layout and applied before the next: a document that is
/// changed after its layout loses paragraphs behind tables. Blocks are known by their numbers, which every layout has
/// the same.
class PageBreaks {
public:
    /// The page of a line of \p block, or of its last one if it has fewer.
    static int pageOf(const QTextBlock& block, int line = 0);

    void apply(QTextDocument& document) const;
    /// Looks for what stands badly in a document that is laid out for \p paper. True if another layout is needed. At
    /// most one break for each chapter is added, since what comes after it moves.
    bool add(const QTextDocument& document, const QPaintDevice& paper);

private:
    bool keepWhole(const QTextBlock& block);
    bool keepRow(const QTextBlock& block, const QPaintDevice& paper);

    /// Blocks that begin a page.
    QSet<int> _first;
    /// Space above the rows that begin with these blocks, which takes them to the next page; in pixels of the screen.
    QMap<int, double> _spaceAbove;
};
