#include "ManualImport.h"

#include "ManualStyle.h"

#include <QColor>
#include <QTextCursor>
#include <QTextTable>

namespace manual_import {
namespace {

/// Takes an empty block out; the one that follows keeps its format.
void removeEmptyBlock(const QTextBlock& empty) {
    QTextCursor cursor(empty);
    const QTextBlockFormat followingFormat = empty.next().blockFormat();
    cursor.deleteChar();
    cursor.setBlockFormat(followingFormat);
}

/// The import leaves an empty line behind every piece of code and every table, and in the first cell of a table behind
/// code.
bool isLeftOver(const QTextBlock& block) {
    const QTextBlock next = block.next();
    if (!block.text().isEmpty() || !next.isValid()) {
        return false;
    }
    const QTextTable* table = QTextCursor(block).currentTable();
    if (table != nullptr) {
        return table->cellAt(block.position()) == table->cellAt(next.position());
    }
    const bool insideCode = isCode(block) && isCode(next);
    return !insideCode && !isRule(block) && QTextCursor(next).currentTable() == nullptr;
}

void removeLeftOvers(QTextDocument& document) {
    int position = 0;
    while (true) {
        const QTextBlock block = document.findBlock(position);
        if (!block.isValid()) {
            return;
        }
        if (isLeftOver(block)) {
            removeEmptyBlock(block);
        } else {
            position = block.position() + block.length();
        }
    }
}

/// Long lines go on behind an indent; they break at blanks only, so that no option is torn.
QString wrapped(const QString& line) {
    constexpr int kMost = 80;
    constexpr char kGoOn[] = "    ";
    QString done;
    QString rest = line;
    while (rest.size() > kMost) {
        const int blank = rest.lastIndexOf(' ', kMost);
        if (blank <= static_cast<int>(sizeof kGoOn)) {
            break;
        }
        done += rest.left(blank) + QChar(QChar::LineSeparator);
        rest = kGoOn + rest.mid(blank + 1);
    }
    return done + rest;
}

QTextFrameFormat codeFrame() {
    QTextFrameFormat format;
    format.setBackground(QColor(manual_style::kShade));
    format.setBorder(0.7);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(QColor(manual_style::kShade));
    format.setPadding(6.0);
    format.setBottomMargin(9.0 * manual_style::kPxPerPt);
    return format;
}

/// Puts the code that begins at \p first as one block into a shaded frame.
QTextFrame* frameCode(const QTextBlock& first) {
    QTextBlock last = first;
    QString text = wrapped(first.text());
    while (last.next().isValid() && isCode(last.next())) {
        last = last.next();
        text += QChar(QChar::LineSeparator) + wrapped(last.text());
    }
    while (text.endsWith(QChar::LineSeparator)) {
        text.chop(1);
    }
    const int begin = first.position();
    const QTextBlockFormat format = first.blockFormat();
    QTextCursor cursor(first);
    cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    cursor.insertText(text);
    cursor.setPosition(begin, QTextCursor::KeepAnchor);
    // The block in the frame is a new one that knows nothing of code.
    QTextFrame* frame = cursor.insertFrame(codeFrame());
    frame->firstCursorPosition().setBlockFormat(format);
    return frame;
}

void frameAllCode(QTextDocument& document) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (isCode(block)) {
            block = frameCode(block)->lastCursorPosition().block();
        }
    }
}

} // namespace

bool isCode(const QTextBlock& block) {
    // The import takes the marks of code before a table over to its first cell.
    return QTextCursor(block).currentTable() == nullptr &&
           (block.blockFormat().hasProperty(QTextFormat::BlockCodeLanguage) ||
            block.blockFormat().hasProperty(QTextFormat::BlockCodeFence));
}

bool isRule(const QTextBlock& block) {
    return block.blockFormat().hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth);
}

void repair(QTextDocument& document) {
    removeLeftOvers(document);
    frameAllCode(document);
}

} // namespace manual_import
