#include "ManualPages.h"

#include "ManualStyle.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>

using namespace manual_style;

namespace {

constexpr double kMmPerInch = 25.4;
constexpr QRgb kInk = 0xff1a1a1a;
constexpr QRgb kQuietInk = 0xff5f6b76;
constexpr QRgb kTitleInk = 0xff17375e;

constexpr double kContentsTopMm = 18.0;
constexpr double kEntryMm = 6.4;
constexpr int kEntriesOnPage = static_cast<int>((kTextHeightMm - kContentsTopMm) / kEntryMm);

} // namespace

ManualPages::ManualPages(const ManualSource& source, const QString& version, QPdfWriter& paper)
    : _source(source), _version(version), _paper(paper) {}

void ManualPages::paint() {
    // How long the contents are is known only when the chapters are laid out; how many headings they have, at once.
    const int front = frontPages(ManualBody(_source, _paper, 0).headings().size());
    const ManualBody body(_source, _paper, front);
    QPainter painter(&_paper);
    paintTitle(painter);
    paintContents(painter, body);
    for (int page = 0; page < body.pageCount(); ++page) {
        _paper.newPage();
        paintBodyPage(painter, body, page, front);
    }
}

double ManualPages::px(double mm) const {
    return mm / kMmPerInch * _paper.logicalDpiY();
}

int ManualPages::frontPages(int entries) const {
    return 1 + (entries + kEntriesOnPage - 1) / kEntriesOnPage;
}

void ManualPages::paintTitle(QPainter& painter) const {
    const double width = px(kTextWidthMm);
    const auto line = [&](double topMm, const QFont& font, QRgb ink, const QString& text) {
        painter.setFont(font);
        painter.setPen(QColor(ink));
        painter.drawText(QRectF(px(kSideMm), px(topMm), width, px(25.0)), Qt::AlignLeft | Qt::AlignVCenter, text);
    };
    line(85.0, headingFont(44.0), kTitleInk, _source.title);
    painter.fillRect(QRectF(px(kSideMm), px(112.0), px(40.0), px(1.2)), QColor(kTitleInk));
    line(112.0, bodyFont(15.0), kInk, _source.subtitle);
    line(235.0, bodyFont(12.0), kInk, "Manual");
    line(242.0, bodyFont(12.0), kQuietInk, "Version " + _version);
}

void ManualPages::paintContents(QPainter& painter, const ManualBody& body) const {
    const int front = frontPages(body.headings().size());
    for (int i = 0; i < body.headings().size(); ++i) {
        const int onPage = i % kEntriesOnPage;
        if (onPage == 0) {
            _paper.newPage();
            paintFoot(painter, 2 + i / kEntriesOnPage);
            painter.setFont(headingFont(20.0));
            painter.setPen(QColor(kTitleInk));
            painter.drawText(QRectF(px(kSideMm), px(kTopMm), px(kTextWidthMm), px(10.0)), Qt::AlignLeft | Qt::AlignTop,
                             i == 0 ? "Contents" : "Contents, continued");
        }
        const ManualHeading& heading = body.headings()[i];
        paintEntry(painter, heading, front + heading.page + 1, kTopMm + kContentsTopMm + onPage * kEntryMm);
    }
}

void ManualPages::paintEntry(QPainter& painter, const ManualHeading& heading, int page, double y) const {
    const bool chapter = heading.level == 1;
    const QFont font = chapter ? headingFont(kBodyPt) : bodyFont(kBodyPt);
    const QFontMetricsF metrics(font, &_paper);
    const double left = px(kSideMm + (chapter ? 0.0 : 6.0));
    const double right = px(kSideMm + kTextWidthMm);
    const QRectF room(left, px(y), right - left, px(kEntryMm));
    const QString number = QString::number(page);
    painter.setFont(font);
    painter.setPen(QColor(kInk));
    const double numberRoom = metrics.horizontalAdvance("0000");
    const QString text = metrics.elidedText(heading.text, Qt::ElideRight, room.width() - numberRoom);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, text);
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, number);
    if (chapter) {
        return;
    }
    // Leaders stand on a grid of the page, so that they are below each other.
    const double step = px(2.0);
    const double end = right - metrics.horizontalAdvance(number) - px(1.5);
    painter.setPen(QColor(kQuietInk));
    for (double x = right - numberRoom; x > left + metrics.horizontalAdvance(text) + px(1.5); x -= step) {
        if (x < end) {
            painter.drawText(QRectF(x, room.top(), step, room.height()), Qt::AlignLeft | Qt::AlignVCenter, ".");
        }
    }
}

void ManualPages::paintBodyPage(QPainter& painter, const ManualBody& body, int page, int front) const {
    const double height = px(kTextHeightMm);
    painter.save();
    painter.translate(px(kSideMm), px(kTopMm) - page * height);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF(0.0, page * height, px(kTextWidthMm), height);
    context.palette.setColor(QPalette::Text, QColor(kInk));
    // The borders of tables stand half outside.
    painter.setClipRect(context.clip.adjusted(-px(1.0), 0.0, px(1.0), 0.0));
    body.document().documentLayout()->draw(&painter, context);
    painter.restore();

    if (!body.opensChapter(page)) {
        const QRectF head(px(kSideMm), px(14.0), px(kTextWidthMm), px(6.0));
        painter.setFont(bodyFont(kSmallPt));
        painter.setPen(QColor(kQuietInk));
        painter.drawText(head, Qt::AlignLeft | Qt::AlignVCenter, _source.title + " " + _version);
        painter.drawText(head, Qt::AlignRight | Qt::AlignVCenter, body.chapterOn(page));
        painter.fillRect(QRectF(head.left(), head.bottom() + px(0.8), head.width(), px(0.2)), QColor(kQuietInk));
    }
    paintFoot(painter, front + page + 1);
}

void ManualPages::paintFoot(QPainter& painter, int pageNumber) const {
    painter.setFont(bodyFont(kSmallPt));
    painter.setPen(QColor(kQuietInk));
    painter.drawText(QRectF(px(kSideMm), px(kPageHeightMm - 17.0), px(kTextWidthMm), px(6.0)),
                     Qt::AlignHCenter | Qt::AlignVCenter, QString::number(pageNumber));
}
