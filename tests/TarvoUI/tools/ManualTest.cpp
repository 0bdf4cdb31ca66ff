#include "ManualBody.h"
#include "ManualSource.h"
#include "PageBreaks.h"
#include "QtText.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QImage>
#include <QPdfWriter>
#include <QProcess>
#include <QTextCursor>
#include <QTextTable>

#include <stdexcept>

using testing::HasSubstr;

namespace {

constexpr char kIndex[] = "# Tarvo\n\nOf soundings\n\n- [One](one.md)\n- [Two](two.md)\n";

/// A manual of two chapters in a folder, laid out for A4.
class ManualTest : public testing::Test {
protected:
    ManualTest() : _paper(&_buffer) {
        _buffer.open(QIODevice::WriteOnly);
        _paper.setResolution(600);
        write("index.md", kIndex);
        write("two.md", "# Two\n\nThe end.\n");
    }

    void write(const std::string& name, const std::string& text) { writeFile(_folder / name, text); }

    QString path(const std::string& name) const { return QString::fromStdString((_folder / name).string()); }

    ManualBody bodyOf(const std::string& chapterOne) {
        write("one.md", chapterOne);
        return {ManualSource::read(path("index.md")), _paper, 2};
    }

    TemporaryFolder _folder;
    QBuffer _buffer;
    QPdfWriter _paper;
};

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

TEST_F(ManualTest, IndexTellsTitleSubtitleAndOrder) {
    write("one.md", "# One\n");
    const ManualSource source = ManualSource::read(path("index.md"));
    EXPECT_EQ(source.title, "Tarvo");
    EXPECT_EQ(source.subtitle, "Of soundings");
    ASSERT_EQ(source.chapters.size(), 2);
    EXPECT_EQ(source.chapters[0].fileName, "one.md");
    EXPECT_EQ(source.chapters[1].markdown, "# Two\n\nThe end.\n");
}

TEST_F(ManualTest, WhatIsMissingIsAnError) {
    EXPECT_THROW(ManualSource::read(path("index.md")), std::runtime_error); // one.md
    EXPECT_THROW(bodyOf("# One\n\n![a window](images/none.png)\n"), std::runtime_error);
    EXPECT_THROW(bodyOf("no heading\n"), std::runtime_error);
    EXPECT_THROW(bodyOf("# One\n\n# One more\n"), std::runtime_error);
    write("index.md", "# Tarvo\n");
    EXPECT_THROW(ManualSource::read(path("index.md")), std::runtime_error);
}

TEST_F(ManualTest, ChaptersBeginPages) {
    const ManualBody body = bodyOf("# One\n\nA line.\n\n## Part\n\nAnother.\n");
    ASSERT_EQ(body.headings().size(), 3);
    EXPECT_EQ(body.headings()[1].text, "Part");
    EXPECT_EQ(body.headings()[1].page, 0);
    EXPECT_EQ(body.headings()[2].page, 1);
    EXPECT_EQ(body.pageCount(), 2);
    EXPECT_EQ(body.chapterOn(0), "One");
    EXPECT_TRUE(body.opensChapter(1));
}

TEST_F(ManualTest, ReferenceToAChapterTellsItsPage) {
    // Two pages come before the first, and chapter one has one page.
    const ManualBody body = bodyOf("# One\n\nSee [the end](two.md) and [more](https://example.org).\n");
    const QString text = body.document().toPlainText();
    EXPECT_THAT(text.toStdString(), HasSubstr("See the end (page 4) and more."));
}

TEST_F(ManualTest, NothingIsLostAndNothingStandsBadly) {
    const std::string part = "## Part\n\nText of some length before the table.\n\n"
                             "| Key | Meaning |\n|---|---|\n| `A` | one |\n| `B` | two |\n\n"
                             "Text after it.\n\n    code\n    more code\n\n";
    const ManualBody body = bodyOf("# One\n\n" + repeated(part, 40));
    int tables = 0;
    for (QTextBlock block = body.document().begin(); block.isValid(); block = block.next()) {
        EXPECT_GT(block.layout()->lineCount(), 0) << block.text().toStdString();
        if (block.blockFormat().headingLevel() == 2) {
            EXPECT_EQ(PageBreaks::pageOf(block), PageBreaks::pageOf(block.next()));
        }
        const QTextTable* table = QTextCursor(block).currentTable();
        if (table != nullptr && table->firstPosition() == block.position()) {
            ++tables;
            EXPECT_EQ(PageBreaks::pageOf(block), PageBreaks::pageOf(body.document().findBlock(table->lastPosition())));
        }
    }
    EXPECT_EQ(tables, 40);
}

TEST_F(ManualTest, RowsOfALongTableAreNotTorn) {
    const std::string words = repeated("some words about the key ", 8);
    const ManualBody body =
        bodyOf("# One\n\n| Key | Meaning |\n|---|---|\n" + repeated("| `A` | " + words + "|\n", 60));
    EXPECT_GT(body.pageCount(), 3);
    for (QTextBlock block = body.document().begin(); block.isValid(); block = block.next()) {
        EXPECT_EQ(PageBreaks::pageOf(block), PageBreaks::pageOf(block, block.layout()->lineCount()));
    }
}

TEST_F(ManualTest, LongLinesOfCodeAndLargeImagesFitTheText) {
    QImage image(2000, 500, QImage::Format_RGB32);
    image.fill(Qt::gray);
    ASSERT_TRUE(image.save(path("wide.png")));
    const std::string line =
        "tarvo-batch --first-option some-value --second-option other-value --third-option last-value file.csv";
    const ManualBody body = bodyOf("# One\n\n![a window](wide.png)\n\n    " + line + "\n");
    const QTextBlock picture = body.document().begin().next();
    const QTextImageFormat format = picture.begin().fragment().charFormat().toImageFormat();
    // 160 mm at 96 pixels an inch.
    EXPECT_NEAR(format.width(), 604.7, 0.1);
    EXPECT_NEAR(format.height(), 151.2, 0.1);
    // The last option ends in column 80, the most there is room for.
    const QTextBlock code = body.document().findBlock(body.document().toPlainText().indexOf("tarvo-batch"));
    ASSERT_EQ(code.layout()->lineCount(), 2);
    EXPECT_EQ(code.text().section(QChar::LineSeparator, 1), "    last-value file.csv");
}

TEST_F(ManualTest, SameChaptersMakeTheSameBytes) {
    write("one.md", "# One\n\n| a | b |\n|---|---|\n| `x` | [y](two.md) |\n");
    for (const char* name : {"a.pdf", "b.pdf"}) {
        ASSERT_EQ(QProcess::execute(MAKE_MANUAL, {path("index.md"), "3.4.8", path(name)}), 0);
    }
    const std::string pdf = readFile(_folder / "a.pdf");
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    EXPECT_EQ(pdf.find("CreationDate"), std::string::npos);
    EXPECT_TRUE(pdf == readFile(_folder / "b.pdf"));
}

} // namespace
