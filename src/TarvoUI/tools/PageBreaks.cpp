#include "PageBreaks.h"

#include "ManualImport.h"
#include "ManualStyle.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QTextCursor>
#include <QTextTable>

#include <algorithm>

namespace {

/// A table or piece of code up to this part of a page isn't split, and a row up to that one.
constexpr double kWholeUpTo = 0.4;
constexpr double kRowUpTo = 0.25;

const QTextTable* tableOf(const QTextBlock& block) {
    return block.isValid() ? QTextCursor(block).currentTable() : nullptr;
}

/// Whether \p block begins a table or a piece of code.
bool beginsWhole(const QTextBlock& block) {
    const QTextTable* table = tableOf(block);
    return table != nullptr ? table->firstPosition() == block.position()
                            : (manual_import::isCode(block) && !block.text().isEmpty());
}

/// The last block of the table or piece of code that \p block begins.
QTextBlock lastOfWhole(const QTextBlock& block) {
    const QTextTable* table = tableOf(block);
    return table != nullptr ? block.document()->findBlock(table->lastPosition()) : block;
}

QTextBlock textBefore(const QTextBlock& block) {
    QTextBlock before = block.previous();
    while (before.isValid() && before.text().isEmpty()) {
        before = before.previous();
    }
    return before;
}

/// Where the page breaks so that \p block isn't torn from what introduces it: the line of text before it, and a
/// heading.
QTextBlock leadOf(const QTextBlock& block) {
    QTextBlock lead = block;
    const bool isHeading = block.blockFormat().headingLevel() > 0;
    const QTextBlock before = textBefore(block);
    if (!isHeading && before.isValid() && tableOf(before) == nullptr && before.blockFormat().headingLevel() != 1) {
        lead = before;
    }
    while (textBefore(lead).blockFormat().headingLevel() > 1) {
        lead = textBefore(lead);
    }
    return lead;
}

double topOf(const QTextBlock& block) {
    return block.document()->documentLayout()->blockBoundingRect(block).top();
}

double bottomOf(const QTextBlock& block) {
    return block.document()->documentLayout()->blockBoundingRect(block).bottom();
}

double bottomOfRow(const QTextTable& table, int row) {
    double bottom = 0.0;
    for (int column = 0; column < table.columns(); ++column) {
        bottom = std::max(bottom, bottomOf(table.cellAt(row, column).lastCursorPosition().block()));
    }
    return bottom;
}

void addSpaceBelowRow(const QTextTable& table, int row, double space) {
    for (int column = 0; column < table.columns(); ++column) {
        QTextTableCell cell = table.cellAt(row, column);
        QTextTableCellFormat format = cell.format().toTableCellFormat();
        format.setBottomPadding(table.format().cellPadding() + space);
        cell.setFormat(format);
    }
}

/// Whether \p block begins something that a page should hold as a whole and doesn't: a heading with the text below it,
/// a short table or piece of code with the text above it.
bool standsApart(const QTextBlock& block) {
    const int level = block.blockFormat().headingLevel();
    if (level > 0) {
        // Two lines of text at least, where there are two.
        return level > 1 && block.next().isValid() && PageBreaks::pageOf(block) != PageBreaks::pageOf(block.next(), 1);
    }
    if (!beginsWhole(block)) {
        return false;
    }
    const QTextBlock lead = leadOf(block);
    const QTextBlock last = lastOfWhole(block);
    return PageBreaks::pageOf(lead) != PageBreaks::pageOf(last, last.layout()->lineCount()) &&
           bottomOf(last) - topOf(lead) < kWholeUpTo * block.document()->pageSize().height();
}

} // namespace

int PageBreaks::pageOf(const QTextBlock& block, int line) {
    // Where the block begins is no answer: even its first line may have gone on to the next page.
    const int lines = block.layout()->lineCount();
    const double lineTop = lines > 0 ? block.layout()->lineAt(std::min(line, lines - 1)).y() : 0.0;
    return static_cast<int>((topOf(block) + lineTop + 1.0) / block.document()->pageSize().height());
}

void PageBreaks::apply(QTextDocument& document) const {
    for (const int number : _first) {
        const QTextBlock block = document.findBlockByNumber(number);
        QTextBlockFormat format = block.blockFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(block).setBlockFormat(format);
    }
    for (auto it = _spaceAbove.begin(); it != _spaceAbove.end(); ++it) {
        const QTextBlock block = document.findBlockByNumber(it.key());
        if (const QTextTable* table = tableOf(block)) {
            addSpaceBelowRow(*table, table->cellAt(block.position()).row() - 1, it.value());
        }
    }
}

bool PageBreaks::add(const QTextDocument& document, const QPaintDevice& paper) {
    bool added = false;
    bool settled = false;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 1) {
            settled = false;
        }
        if (!settled && (keepWhole(block) || keepRow(block, paper))) {
            settled = true;
            added = true;
        }
    }
    return added;
}

bool PageBreaks::keepWhole(const QTextBlock& block) {
    if (!standsApart(block)) {
        return false;
    }
    const int lead = leadOf(block).blockNumber();
    const bool isNew = !_first.contains(lead);
    _first.insert(lead);
    return isNew;
}

bool PageBreaks::keepRow(const QTextBlock& block, const QPaintDevice& paper) {
    const QTextTable* table = tableOf(block);
    if (table == nullptr || _spaceAbove.contains(block.blockNumber())) {
        return false;
    }
    const QTextTableCell cell = table->cellAt(block.position());
    // The head and the first row below it stay together as they are.
    if (cell.column() != 0 || cell.row() < 2 || cell.firstPosition() != block.position()) {
        return false;
    }
    const double pageHeight = block.document()->pageSize().height();
    const double pageBottom = (pageOf(block) + 1) * pageHeight;
    const double bottom = bottomOfRow(*table, cell.row());
    if (bottom <= pageBottom || bottom - topOf(block) > kRowUpTo * pageHeight) {
        return false;
    }
    // A little less than the room that is left, so that the row above stays.
    constexpr double kLess = 6.0;
    const double room = (pageBottom - topOf(block)) / paper.logicalDpiY() * manual_style::kScreenDpi;
    _spaceAbove[block.blockNumber()] = std::max(0.0, room - kLess);
    return true;
}
