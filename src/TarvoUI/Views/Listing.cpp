#include "Listing.h"

#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace {

constexpr double kPoints = 9.0;
constexpr double kStep = 0.1; // of a point

bool isListing(const QTextDocument& doc) {
    return doc.defaultTextOption().wrapMode() == QTextOption::NoWrap;
}

double widestLine(const QTextDocument& doc, const QString& head, QPaintDevice* device) {
    QString longest;
    for (QTextBlock block = doc.begin(); block.isValid(); block = block.next()) {
        if (block.length() > longest.size()) {
            longest = block.text();
        }
    }
    return std::max(QFontMetricsF(Listing::font(kPoints), device).horizontalAdvance(longest),
                    QFontMetricsF(Listing::font(kPoints, QFont::Bold), device).horizontalAdvance(head));
}

} // namespace

QFont Listing::font(double points, int weight) {
    QFont made("courier");
    made.setStyleHint(QFont::TypeWriter);
    made.setFixedPitch(true);
    made.setPointSizeF(points);
    made.setWeight(weight);
    return made;
}

std::unique_ptr<QTextDocument> Listing::make(int rows, const std::function<QString(int row)>& line) {
    auto listing = std::make_unique<QTextDocument>();
    listing->setUndoRedoEnabled(false);
    listing->setDefaultFont(font(kPoints));
    listing->setDocumentMargin(0.0); // the columns stand under their head
    QTextOption option = listing->defaultTextOption();
    option.setWrapMode(QTextOption::NoWrap);
    listing->setDefaultTextOption(option);

    QTextBlockFormat format;
    QTextCursor cursor(listing.get());
    cursor.beginEditBlock();
    for (int row = 0; row < rows; ++row) {
        format.setBackground(QColor(row % 2 != 0 ? "#F0F0F0" : "#FFFFFF"));
        row == 0 ? cursor.setBlockFormat(format) : cursor.insertBlock(format);
        cursor.insertText(line(row));
    }
    cursor.endEditBlock();
    return listing;
}

double Listing::fit(QTextDocument& doc, const QString& head, QPaintDevice* device, double width) {
    if (!isListing(doc)) {
        return kPoints;
    }
    const double room = width / widestLine(doc, head, device);
    const double points = room < 1.0 ? std::floor(kPoints * room / kStep) * kStep : kPoints;
    doc.setDefaultFont(font(points));
    return points;
}
