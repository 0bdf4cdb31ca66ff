// How the tabs come onto paper.

#include "AtomicFile.h"
#include "Listing.h"
#include "TarvoView.h"
#include "UiText.h"

#include <QAbstractTextDocumentLayout>
#include <QFileInfo>
#include <QMessageBox>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <cmath>

namespace {

// In inches, of which a printer knows its dots.
constexpr double kCm = 0.39370147;
constexpr double k07Cm = 0.275591029;
constexpr double k2Cm = 0.78740294;
constexpr double k25Cm = 0.984253675;
constexpr double k03Cm = 0.11811044100000001;

constexpr int kRuleWidth = 10;
constexpr double kTextMarginMm = 7.5; // the bands below stand in the middle of the paper with it
constexpr double kTextPoints = 9.0;
constexpr double kPointsPerInch = 72.0;
constexpr double kEdge = 2.0;           // points; lines of other pages that touch the edge aren't drawn
constexpr double kRuleBelowHead = 2.5;  // points
constexpr double kRuleAboveFoot = 1.25; // points

const char* const kHead = "<table width=\"100%\">   <tr>    <td align=\"left\"><strong>%1</strong></td>    "
                          "<td align=\"right\"><strong>%2</strong></td>   </tr></table>";
const char* const kFoot = "<table width=\"100%\">   <tr>    <td align=\"left\"><strong>%1</strong></td>    "
                          "<td align=\"right\"><strong>Page %2 of %3</strong></td>   </tr></table>";

struct Dots {
    explicit Dots(const QPrinter& printer)
        : paper(printer.paperRect(QPrinter::DevicePixel)), x(printer.physicalDpiX()), y(printer.physicalDpiY()) {}

    QRectF band(double top, double height) const {
        return {paper.x() + x * kCm, top, paper.width() - x * k25Cm - x * kCm, height};
    }
    QRectF head() const { return band(paper.y() + y * k07Cm, y * kCm); }
    QRectF subHead() const { return band(paper.y() + y * k2Cm, y * kCm); }
    QRectF foot() const { return band(paper.bottom() - y * k25Cm - y * kCm, y * kCm); }

    QRectF paper;
    double x; // to the inch
    double y;
};

void startWork(QTextDocument& work, QPainter& painter, double width, double points = kTextPoints) {
    work.setDefaultFont(Listing::font(points, QFont::Bold));
    work.documentLayout()->setPaintDevice(painter.device());
    work.setDocumentMargin(0.0);
    work.setTextWidth(width);
}

void drawAt(QPainter& painter, QTextDocument& work, const QPointF& topLeft) {
    painter.save();
    painter.translate(topLeft);
    work.drawContents(&painter);
    painter.restore();
}

} // namespace

QRectF TarvoView::textRect() const {
    const Dots dots(*_printer);
    return dots.band(dots.paper.y() + dots.y * k07Cm + dots.y * k2Cm, dots.paper.height() - dots.y * k25Cm -
                                                                          dots.y * k07Cm - dots.y * k2Cm -
                                                                          dots.y * kCm - dots.y * k03Cm);
}

bool TarvoView::printPages(QTextDocument* doc, const QString& title, const QString& subTitle) {
    _printer->setPageMargins(QMarginsF(kTextMarginMm, kTextMarginMm, kTextMarginMm, kTextMarginMm),
                             QPageLayout::Millimeter);
    const PageTexts texts{title, subTitle, Listing::fit(*doc, subTitle, _printer, textRect().width())};
    doc->documentLayout()->setPaintDevice(_printer);
    const QSizeF body = textRect().size();
    doc->setPageSize({std::floor(body.width()), std::floor(body.height())}); // a layout rounds: pages would drift
    // A printer that makes copies itself would make copies of the copies.
    const int copies = _printer->supportsMultipleCopies() ? 1 : std::max(_printer->copyCount(), 1);
    const int rounds = _printer->collateCopies() ? copies : 1;
    const int repeats = _printer->collateCopies() ? 1 : copies;
    int from = _printer->fromPage();
    int to = _printer->toPage();
    if (from == 0 && to == 0) {
        from = 1;
        to = doc->pageCount();
    }
    from = std::max(from, 1);
    to = std::min(to, doc->pageCount());
    const bool backward = _printer->pageOrder() == QPrinter::LastPageFirst;

    QPainter painter;
    if (!painter.begin(_printer)) {
        return false;
    }
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(QPen(Qt::black, kRuleWidth));
    bool firstPage = true;
    for (int round = 0; round < rounds; ++round) {
        for (int n = 0; n <= to - from; ++n) {
            for (int repeat = 0; repeat < repeats; ++repeat) {
                if (!firstPage) {
                    _printer->newPage();
                }
                firstPage = false;
                paintPage(painter, doc, texts, backward ? to - n : from + n);
            }
        }
    }
    return painter.end();
}

void TarvoView::paintPage(QPainter& painter, QTextDocument* doc, const PageTexts& texts, int page) {
    const Dots dots(*_printer);
    const double point = dots.y / kPointsPerInch;

    const QRectF head = dots.head();
    QTextDocument work;
    startWork(work, painter, head.width());
    work.setHtml(QString(kHead).arg(texts.title.toHtmlEscaped(), _description.toHtmlEscaped()));
    drawAt(painter, work, {head.left(), head.bottom() - work.size().height()});
    const double below = head.bottom() + kRuleBelowHead * point;
    painter.drawLine(QPointF(head.left(), below), QPointF(head.right(), below));

    const QRectF subHead = dots.subHead();
    QTextDocument subWork;
    startWork(subWork, painter, subHead.width(), texts.subTitlePoints);
    subWork.setPlainText(texts.subTitle);
    drawAt(painter, subWork, subHead.topLeft());

    const QRectF foot = dots.foot();
    QTextDocument footWork;
    startWork(footWork, painter, foot.width());
    footWork.setHtml(QString(kFoot).arg(toQString(_doc->credit()).toHtmlEscaped()).arg(page).arg(doc->pageCount()));
    drawAt(painter, footWork, foot.topLeft());
    const double above = foot.top() - kRuleAboveFoot * point;
    painter.drawLine(QPointF(foot.left(), above), QPointF(foot.right(), above));

    const QRectF body = textRect();
    const QRectF slice(QPointF(0.0, (page - 1) * doc->pageSize().height()), doc->pageSize());
    painter.save();
    painter.translate(body.left(), body.top() - slice.top());
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = slice.adjusted(0.0, kEdge * point, 0.0, -kEdge * point);
    context.palette.setColor(QPalette::Text, Qt::black);
    painter.setClipRect(slice);
    doc->documentLayout()->draw(&painter, context);
    painter.restore();
}

void TarvoView::printNatively() {
    _printer->setOutputFormat(QPrinter::NativeFormat);
    _printer->setOutputFileName(QString());
}

/// Texts stand upright, whichever tab has used the printer before.
void TarvoView::setUpText() {
    printNatively();
    _printer->setPageOrientation(QPageLayout::Portrait);
}

int TarvoView::printDoc(QTextDocument* doc, const QString& title, const QString& subTitle) {
    setUpText();
    QPrintDialog dialog(_printer, this);
    dialog.setWindowTitle("Tarvo Print Document");
    if (dialog.exec() == QDialog::Accepted) {
        printPages(doc, title, subTitle);
    }
    return 0;
}

void TarvoView::previewDoc(QTextDocument* doc, const QString& title, const QString& subTitle) {
    printPages(doc, title, subTitle);
}

int TarvoView::previewText(QTextDocument* doc, const QString& title, const QString& subTitle,
                           const QString& dialogTitle) {
    setUpText();
    _printer->setFromTo(0, 0);
    QPrintPreviewDialog dialog(_printer, this);
    dialog.setWindowTitle(dialogTitle);
    dialog.setMinimumSize(kPreviewWidth, kPreviewHeight);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this,
            [this, doc, title, subTitle] { previewDoc(doc, title, subTitle); });
    dialog.exec();
    return 0;
}

int TarvoView::saveDoc(QTextDocument* doc, const QString& title, const QString& subTitle) {
    const bool isMessage = title.contains("WMO");
    QString filter = "PDF (*.pdf)";
    const QString name =
        getSaveFilename("Tarvo - Save " + title.trimmed(), filter, isMessage ? configText("WmoSaveDir") : QString(),
                        title.toLower() + ".pdf", &filter);
    if (name.isEmpty()) {
        return 0;
    }
    if (isMessage) {
        _configSet->set("WmoSaveDir", QFileInfo(name).path().toStdString());
        saveConfig();
    }
    setUpText();
    AtomicFile file(name.toStdString());
    _printer->setOutputFormat(QPrinter::PdfFormat);
    _printer->setOutputFileName(toQString(file.temporaryPath()));
    _printer->setPrintRange(QPrinter::AllPages); // and no copies, whatever was printed before
    _printer->setFromTo(0, 0);
    _printer->setCopyCount(1);
    _printer->setPageOrder(QPrinter::FirstPageFirst);
    if (!file.isOpen() || !printPages(doc, title, subTitle) || !file.commit()) {
        QMessageBox::critical(this, "File Save Error", "Tarvo can't save the file.");
    }
    printNatively();
    return 0;
}

int TarvoView::printGrab(const QString& dialogTitle) {
    printNatively();
    QPrintDialog dialog(_printer, this);
    dialog.setWindowTitle(dialogTitle);
    if (dialog.exec() == QDialog::Accepted) {
        paintGrab(_printer);
    }
    return 0;
}

int TarvoView::previewGrab(const QString& dialogTitle) {
    printNatively();
    QPrintPreviewDialog dialog(_printer, this);
    dialog.setWindowTitle(dialogTitle);
    dialog.setMinimumSize(kPreviewWidth, kPreviewHeight);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this, &TarvoView::paintGrab);
    dialog.exec();
    return 0;
}

void TarvoView::paintGrab(QPrinter* printer) {
    const QPixmap pixmap = picture();
    QPainter painter(printer);
    const QRect viewport = painter.viewport();
    const QSize size = pixmap.size().scaled(viewport.size(), Qt::KeepAspectRatio);
    painter.setViewport(viewport.x(), viewport.y(), size.width(), size.height());
    painter.setWindow(pixmap.rect());
    painter.drawPixmap(pixmap.rect(), pixmap); // also one of a dense screen fills its place
}
