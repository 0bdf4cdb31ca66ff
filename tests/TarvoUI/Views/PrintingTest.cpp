// Text on paper: what is in the PDF files that the tabs print.

#include "Listing.h"
#include "OpenSounding.h"
#include "QtHands.h"
#include "RawView.h"
#include "TimeLimit.h"

#include <QElapsedTimer>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QProcess>
#include <QRegularExpression>
#include <QTextBlock>
#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

class PrintedView : public RawView {
public:
    using GridView::datalist;
    using RawView::RawView;
    using TarvoView::previewText;
    using TarvoView::printPages;
    using TarvoView::saveDoc;
    using TarvoView::textRect;
};

class Printing : public testing::Test {
protected:
    Printing() : view(&sounding.doc, &sounding.printer, nullptr) {
        sounding.printer.setPageSize(QPageSize(QPageSize::A4));
        sounding.printer.setOutputFileName(file());
    }

    QString file() const { return QString::fromStdString((folder / "printed.pdf").string()); }

    static std::unique_ptr<QTextDocument> lines(int n) {
        return Listing::make(n, [](int row) { return QString("line-%1;").arg(row); });
    }

    QStringList pages() const {
        QProcess reader;
        reader.start("pdftotext", {"-layout", file(), "-"});
        EXPECT_TRUE(reader.waitForFinished());
        QStringList all = QString::fromUtf8(reader.readAllStandardOutput()).split('\f');
        all.removeLast();
        return all;
    }

    /// "2/3 1/3": what the feet of the pages say, in the order of the pages.
    std::string feet() const {
        std::string all;
        for (const QString& page : pages()) {
            const auto match = QRegularExpression("Page (\\d+) of (\\d+)").match(page);
            all += match.captured(1).toStdString() + "/" + match.captured(2).toStdString() + " ";
        }
        return all;
    }

    /// The picture of a page, one dot to the point.
    QImage picture(int page) const {
        const QString root = QString::fromStdString((folder / "page").string());
        QProcess::execute("pdftoppm", {"-r", "72", "-png", "-singlefile", "-f", QString::number(page), "-l",
                                       QString::number(page), file(), root});
        return QImage(root + ".png");
    }

    TemporaryFolder folder;
    OpenSounding sounding{OpenSounding::example(kFaulty)};
    PrintedView view;
};

/// What is dark in a picture.
QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

} // namespace

TEST_F(Printing, EachLineOnceWithHeadAndFootOnEachPage) {
    for (const int n : {1, 100, 400}) {
        ASSERT_TRUE(view.printPages(lines(n).get(), "The <title> & more", "Sub title"));
        const QStringList printed = pages();
        int row = 0;
        for (int page = 0; page < printed.size(); ++page) {
            EXPECT_TRUE(printed[page].contains("The <title> & more")) << page;
            EXPECT_TRUE(printed[page].contains("Sub title")) << page;
            EXPECT_TRUE(printed[page].contains(kFaulty)) << page;
            EXPECT_TRUE(printed[page].contains("Tarvo V")) << page;
            EXPECT_TRUE(printed[page].contains(QString("Page %1 of %2").arg(page + 1).arg(printed.size())));
            for (auto line = QRegularExpression("line-(\\d+);").globalMatch(printed[page]); line.hasNext(); ++row) {
                EXPECT_EQ(line.next().captured(1).toInt(), row);
            }
        }
        EXPECT_EQ(row, n);
        EXPECT_EQ(printed.size() == 1, n == 1);
    }
}

TEST_F(Printing, PagesCopiesAndOrder) {
    const auto printed = [&](int from, int to, int copies, bool collate, bool lastFirst) {
        QPrinter& printer = sounding.printer;
        printer.setFromTo(from, to);
        printer.setCopyCount(copies);
        printer.setCollateCopies(collate);
        printer.setPageOrder(lastFirst ? QPrinter::LastPageFirst : QPrinter::FirstPageFirst);
        EXPECT_TRUE(view.printPages(lines(150).get(), "T", "S"));
        return feet();
    };
    EXPECT_EQ(printed(0, 0, 1, true, false), "1/3 2/3 3/3 ");
    EXPECT_EQ(printed(2, 9, 1, true, false), "2/3 3/3 ");
    EXPECT_EQ(printed(1, 2, 2, true, false), "1/3 2/3 1/3 2/3 ");
    EXPECT_EQ(printed(1, 2, 2, false, false), "1/3 1/3 2/3 2/3 ");
    EXPECT_EQ(printed(2, 3, 2, false, true), "3/3 3/3 2/3 2/3 ");
    EXPECT_EQ(printed(1, 2, 2, true, true), "2/3 1/3 2/3 1/3 ");
}

TEST_F(Printing, ASavedFileAndAPreviewKnowNothingOfThePrintBefore) {
    ModalAnswers answers;
    answerSave(answers, "Tarvo - Save T", file());
    QPrinter& printer = sounding.printer;
    const auto print = [&printer] {
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(2, 2);
        printer.setCopyCount(2);
        printer.setPageOrder(QPrinter::LastPageFirst);
    };
    print();
    view.saveDoc(lines(150).get(), "T", "S");
    EXPECT_EQ(feet(), "1/3 2/3 3/3 ");
    print();
    int previewed = -1;
    answers.operate("Preview", [&](QDialog& dialog) {
        previewed = dialog.findChild<QPrintPreviewWidget*>()->pageCount();
        dialog.reject();
    });
    printer.setCopyCount(1);
    view.previewText(lines(150).get(), "T", "S", "Preview");
    EXPECT_EQ(previewed, 3);
}

// 4 cm of bands over and under, and the margins of the text, all from the size of A4.
TEST_F(Printing, TheBodyLiesBetweenTheBands) {
    const QRectF body = view.textRect();
    const double dotsToCm = sounding.printer.physicalDpiX() / 2.54;
    EXPECT_NEAR(body.left() / dotsToCm, 1.0, 0.01);
    EXPECT_NEAR(body.top() / dotsToCm, 2.7, 0.01);
    EXPECT_NEAR(body.width() / dotsToCm, 21.0 - 3.5, 0.05);
    EXPECT_NEAR(body.height() / dotsToCm, 29.7 - 6.5, 0.05);
}

// Another tab left the printer with the margins and the orientation that it wants.
TEST_F(Printing, StandsInTheMiddleOfThePaperWhoeverPrintedBefore) {
    sounding.printer.setPageMargins({20.0, 20.0, 20.0, 20.0}, QPageLayout::Millimeter);
    view.printPages(lines(400).get(), "T", "S");
    const QImage page = picture(2);
    const QRect ink = inkOf(page);
    EXPECT_NEAR(ink.left(), page.width() - 1 - ink.right(), 6);
    EXPECT_GT(ink.left(), 28);
    EXPECT_LT(ink.bottom(), page.height() - 28);
    EXPECT_GT(ink.top(), 28);
}

TEST_F(Printing, LongLinesAreSetSmallerAndShortOnesAreNot) {
    const auto printed = [&](int length) {
        const auto doc = Listing::make(3, [&](int) { return QString(length - 1, 'n') + "X"; });
        view.printPages(doc.get(), "T", QString(20, 'S'));
        const QString text = pages().front();
        EXPECT_EQ(text.count("nX"), 3) << length;
        const QImage page = picture(1);
        EXPECT_NEAR(inkOf(page).right(), page.width() - 1 - inkOf(page).left(), 6) << length;
        return doc->defaultFont().pointSizeF();
    };
    EXPECT_EQ(printed(60), 9.0);
    const double wide = printed(120); // 496 points of paper, and 0.6 of the size for each character
    EXPECT_GT(wide, 6.6);
    EXPECT_LE(wide, 496.1 / 120 / 0.6 + 0.05);
    EXPECT_LT(printed(160), wide);
}

TEST_F(Printing, TheListingHasARowForEachRow) {
    sounding.doc.process();
    view.update();
    const auto listing = view.datalist();
    EXPECT_EQ(listing->blockCount(), view.grid()->rowCount());
    // The launch row: no rate, no satellites and no wind error, so blanks.
    EXPECT_EQ(listing->begin().text().trimmed().toStdString(),
              "-1.00  480.0   -8.5   58.3    9.5  245.6  6162.0  6167.9          17.9000  118.3500              F");
    EXPECT_EQ(listing->begin().blockFormat().background().color(), QColor("#FFFFFF"));
    EXPECT_EQ(listing->begin().next().blockFormat().background().color(), QColor("#F0F0F0"));
}

TEST_F(Printing, TensOfThousandsOfRowsTakeSeconds) {
    constexpr int kRows = 40000;
    QElapsedTimer timer;
    timer.start();
    const auto doc = Listing::make(kRows, [](int row) { return QString("line-%1;").arg(row, 100); });
    view.printPages(doc.get(), "T", "S");
    RecordProperty("milliseconds", static_cast<int>(timer.elapsed()));
    EXPECT_LT(timer.elapsed(), timeLimit(15000));
    EXPECT_EQ(pages().join("").count("line-"), kRows);
}

TEST_F(Printing, ThePrinterIsAskedForFirst) {
    ModalAnswers answers;
    int asked = 0;
    answers.operate("Tarvo Print Document", [&](QDialog& dialog) {
        ++asked;
        EXPECT_EQ(sounding.printer.pageLayout().orientation(), QPageLayout::Portrait);
        dialog.reject();
    });
    int previewed = 0;
    answers.operate("Tarvo - Print Preview Raw", [&](QDialog& dialog) {
        ++previewed;
        EXPECT_EQ(dialog.minimumSize(), QSize(750, 600));
        EXPECT_NE(qobject_cast<QPrintPreviewDialog*>(&dialog), nullptr);
        dialog.reject();
    });
    sounding.printer.setPageOrientation(QPageLayout::Landscape);
    view.print();
    view.printPreview();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(previewed, 1);
    EXPECT_TRUE(pages().isEmpty()); // nothing was printed
}
