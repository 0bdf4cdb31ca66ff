#include "ManualStyle.h"

#include "ManualImport.h"

#include <QFontDatabase>
#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextList>
#include <QTextTable>
#include <QUrl>
#include <QVector>

#include <algorithm>
#include <stdexcept>

namespace manual_style {
namespace {

constexpr QRgb kInk = 0xff1a1a1a;
constexpr QRgb kHeadingInk = 0xff17375e;
constexpr QRgb kLinkInk = 0xff0b57a4;
constexpr QRgb kCodeInk = 0xff263238;
constexpr QRgb kRule = 0xffb4bec8;

constexpr double kCodePt = 9.0;
constexpr double kTablePt = 9.5;
constexpr double kTableCodePt = 8.5;

constexpr double kMmPerInch = 25.4;

struct HeadingStyle {
    double points;
    double above;
    double below;
};

/// By level; in points.
constexpr HeadingStyle kHeadings[] = {{20.0, 0.0, 12.0}, {14.0, 16.0, 5.0}, {11.5, 12.0, 4.0}};

enum class Kind { Heading, Code, Cell, Item, Paragraph };

Kind kindOf(const QTextBlock& block) {
    if (block.blockFormat().headingLevel() > 0) {
        return Kind::Heading;
    }
    if (QTextCursor(block).currentTable() != nullptr) {
        return Kind::Cell;
    }
    if (manual_import::isCode(block)) {
        return Kind::Code;
    }
    return block.textList() != nullptr ? Kind::Item : Kind::Paragraph;
}

const HeadingStyle& headingStyle(int level) {
    return kHeadings[std::min(level, static_cast<int>(std::size(kHeadings))) - 1];
}

QFont codeFont(double points) {
    QFont font;
    font.setFamilies({"Liberation Mono", "DejaVu Sans Mono", "monospace"});
    font.setPointSizeF(points);
    return font;
}

bool isTableHead(const QTextBlock& block) {
    const QTextCursor cursor(block);
    const QTextTable* table = cursor.currentTable();
    return table != nullptr && table->cellAt(cursor).row() == 0;
}

/// A span of code is known by the font that the import gives it.
bool isCodeSpan(const QTextCharFormat& given) {
    static const QString family = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    return given.fontFixedPitch() || given.fontFamily() == family;
}

QFont fontOf(const QTextBlock& block, Kind kind, const QTextCharFormat& given) {
    const bool code = kind == Kind::Code || isCodeSpan(given);
    const bool inTable = kind == Kind::Cell;
    if (kind == Kind::Heading) {
        return headingFont(headingStyle(block.blockFormat().headingLevel()).points);
    }
    QFont font = code ? codeFont(inTable ? kTableCodePt : kCodePt) : bodyFont(inTable ? kTablePt : kBodyPt);
    font.setBold(given.fontWeight() > QFont::Normal || isTableHead(block));
    font.setItalic(given.fontItalic());
    return font;
}

/// The format of a run of text: what it means stays, what the import made of its looks goes.
QTextCharFormat textFormat(const QTextBlock& block, Kind kind, const QTextCharFormat& given) {
    QTextCharFormat format;
    format.setFont(fontOf(block, kind, given));
    format.setForeground(QColor(kind == Kind::Heading ? kHeadingInk : isCodeSpan(given) ? kCodeInk : kInk));
    if (given.isAnchor() && !given.anchorHref().isEmpty()) {
        format.setAnchor(true);
        format.setAnchorHref(given.anchorHref());
        format.setForeground(QColor(kLinkInk));
        format.setFontUnderline(true);
    }
    return format;
}

/// An image is shown in its own size, or as large as the page has room for; an icon about as high as a line.
QTextImageFormat imageFormat(const QTextDocument& document, QTextImageFormat format) {
    const QString path = document.baseUrl().resolved(QUrl(format.name())).toLocalFile();
    const QImage image(path);
    if (image.isNull()) {
        throw std::runtime_error("can't read the image " + path.toStdString());
    }
    const double pxPerMm = kScreenDpi / kMmPerInch;
    const QSizeF room(kTextWidthMm * pxPerMm, kTextHeightMm * 0.6 * pxPerMm);
    const QSizeF size = image.size();
    constexpr double kIconPx = 64.0;
    constexpr double kIconHeightPt = 15.0;
    const bool isIcon = size.width() <= kIconPx && size.height() <= kIconPx;
    const double scale = isIcon ? kIconHeightPt * kPxPerPt / size.height()
                                : std::min({1.0, room.width() / size.width(), room.height() / size.height()});
    format.setWidth(size.width() * scale);
    format.setHeight(size.height() * scale);
    return format;
}

struct Run {
    int position;
    int length;
    QTextCharFormat format;
};

void styleText(QTextDocument& document, const QTextBlock& block, Kind kind) {
    QVector<Run> runs;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat given = fragment.charFormat();
        runs.append({fragment.position(), fragment.length(),
                     given.isImageFormat() ? QTextCharFormat(imageFormat(document, given.toImageFormat()))
                                           : textFormat(block, kind, given)});
    }
    QTextCursor cursor(&document);
    for (const Run& run : runs) {
        cursor.setPosition(run.position);
        cursor.setPosition(run.position + run.length, QTextCursor::KeepAnchor);
        cursor.setCharFormat(run.format);
    }
    QTextCursor(block).setBlockCharFormat(textFormat(block, kind, block.charFormat()));
}

void setSpace(QTextBlockFormat& format, double abovePt, double belowPt, double lineHeightPercent) {
    format.setTopMargin(abovePt * kPxPerPt);
    format.setBottomMargin(belowPt * kPxPerPt);
    format.setLineHeight(lineHeightPercent, QTextBlockFormat::ProportionalHeight);
}

bool endsList(const QTextBlock& block) {
    return !block.next().isValid() || block.next().textList() != block.textList();
}

bool hasImage(const QTextBlock& block) {
    return block.text().contains(QChar::ObjectReplacementCharacter);
}

void styleBlock(const QTextBlock& block, Kind kind) {
    QTextBlockFormat format = block.blockFormat();
    if (block.text().isEmpty() && kind != Kind::Cell && !manual_import::isRule(block)) {
        // Around code, and between two tables, something has to stand.
        format.clearBackground();
        format.setLineHeight(1.0, QTextBlockFormat::FixedHeight);
        QTextCursor(block).setBlockFormat(format);
        return;
    }
    switch (kind) {
    case Kind::Heading: {
        const HeadingStyle& style = headingStyle(format.headingLevel());
        setSpace(format, style.above, style.below, 100.0);
        if (format.headingLevel() == 1 && block.position() > 0) {
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        }
        break;
    }
    case Kind::Code:
        setSpace(format, 0.0, 0.0, 120.0);
        format.setNonBreakableLines(false);
        format.setIndent(0);
        break;
    case Kind::Cell:
        setSpace(format, 0.0, 0.0, 115.0);
        format.setAlignment(Qt::AlignLeft);
        break;
    case Kind::Item:
        setSpace(format, 0.0, endsList(block) ? 8.0 : 3.0, 125.0);
        break;
    case Kind::Paragraph:
        setSpace(format, 0.0, 7.0, 125.0);
        break;
    }
    if (hasImage(block)) {
        format.setLineHeight(0.0, QTextBlockFormat::SingleHeight);
    }
    QTextCursor(block).setBlockFormat(format);
}

/// Columns share the width by their longest text, but none gets less than its longest word or a twelfth.
QVector<QTextLength> columnWidths(const QTextTable& table) {
    QVector<double> wanted;
    double sum = 0.0;
    for (int column = 0; column < table.columns(); ++column) {
        int longest = 1;
        int longestWord = 1;
        for (int row = 0; row < table.rows(); ++row) {
            const QTextTableCell cell = table.cellAt(row, column);
            QTextCursor cursor = cell.firstCursorPosition();
            cursor.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
            const QString text = cursor.selectedText();
            longest = std::max(longest, text.size());
            for (const QString& word : text.split(' ')) {
                longestWord = std::max(longestWord, word.size());
            }
        }
        constexpr double kLineCharacters = 60.0;
        wanted.append(std::max({std::min<double>(longest, kLineCharacters), longestWord * 1.25, 8.0}));
        sum += wanted.last();
    }
    QVector<QTextLength> widths;
    for (const double want : wanted) {
        widths.append(QTextLength(QTextLength::PercentageLength, 100.0 * want / sum));
    }
    return widths;
}

void styleCell(QTextTableCell cell, bool head) {
    QTextTableCellFormat format = cell.format().toTableCellFormat();
    format.setBorder(0.7);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(QColor(kRule));
    if (head) {
        format.setBackground(QColor(kShade));
    }
    cell.setFormat(format);
}

void styleTable(QTextTable& table) {
    QTextTableFormat format = table.format();
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100.0));
    format.setColumnWidthConstraints(columnWidths(table));
    format.setBorderCollapse(true);
    format.setBorder(0.0);
    format.setCellPadding(4.0);
    format.setCellSpacing(0.0);
    format.setTopMargin(3.0 * kPxPerPt);
    format.setBottomMargin(10.0 * kPxPerPt);
    format.setHeaderRowCount(1);
    format.setAlignment(Qt::AlignLeft);
    table.setFormat(format);
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns(); ++column) {
            styleCell(table.cellAt(row, column), row == 0);
        }
    }
}

} // namespace

QFont bodyFont(double points) {
    QFont font;
    font.setFamilies({"Liberation Sans", "DejaVu Sans", "sans-serif"});
    font.setPointSizeF(points);
    return font;
}

QFont headingFont(double points) {
    QFont font = bodyFont(points);
    font.setBold(true);
    return font;
}

void apply(QTextDocument& document) {
    manual_import::repair(document);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const Kind kind = kindOf(block);
        styleText(document, block, kind);
        styleBlock(block, kind);
    }
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            styleTable(*table);
        }
    }
}

} // namespace manual_style
