#include "ManualBody.h"

#include "ManualImport.h"
#include "ManualStyle.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextTable>
#include <QUrl>

#include <algorithm>
#include <stdexcept>

namespace {

constexpr double kMmPerInch = 25.4;
/// Page breaks and the pages in references change what comes after them; the document is laid out until it stays.
constexpr int kMostRounds = 60;
/// A table or piece of code up to this part of a page isn't split.
constexpr double kWholeUpTo = 0.4;

struct Reference {
    int position;
    int length;
    QString target;
};

QVector<Reference> localReferences(const QTextDocument& document) {
    QVector<Reference> found;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const QString href = fragment.charFormat().anchorHref();
            if (!href.isEmpty() && QUrl(href).isRelative()) {
                found.append({fragment.position(), fragment.length(), href.section('#', 0, 0)});
            }
        }
    }
    return found;
}

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

QString wholeText(const ManualSource& source) {
    QStringList texts;
    for (const ManualChapter& chapter : source.chapters) {
        texts.append(chapter.markdown);
    }
    return texts.join("\n\n");
}

} // namespace

ManualBody::ManualBody(const ManualSource& source, QPaintDevice& paper, int frontPages) {
    for (int round = 0; round < kMostRounds; ++round) {
        const QMap<QString, int> before = _chapterPages;
        layOut(source, paper, frontPages);
        const bool moreBreaks = addPageBreaks();
        if (!moreBreaks && _chapterPages == before) {
            return;
        }
    }
}

QString ManualBody::chapterOn(int page) const {
    QString title;
    for (const ManualHeading& heading : _headings) {
        if (heading.level == 1 && heading.page <= page) {
            title = heading.text;
        }
    }
    return title;
}

bool ManualBody::opensChapter(int page) const {
    for (const ManualHeading& heading : _headings) {
        if (heading.level == 1 && heading.page == page) {
            return true;
        }
    }
    return false;
}

void ManualBody::layOut(const ManualSource& source, QPaintDevice& paper, int frontPages) {
    _document = std::make_unique<QTextDocument>();
    _document->setUndoRedoEnabled(false);
    _document->setBaseUrl(QUrl::fromLocalFile(source.folder + "/"));
    _document->setDefaultFont(manual_style::bodyFont());
    _document->setMarkdown(wholeText(source), QTextDocument::MarkdownDialectGitHub);
    turnReferencesIntoPages(source, frontPages);
    manual_style::apply(*_document);
    breakPages();

    _document->documentLayout()->setPaintDevice(&paper);
    _document->setDocumentMargin(0.0);
    const double pxPerMm = paper.logicalDpiY() / kMmPerInch;
    _document->setPageSize(QSizeF(manual_style::kTextWidthMm * pxPerMm, manual_style::kTextHeightMm * pxPerMm));

    findHeadings();
    int chapter = 0;
    for (const ManualHeading& heading : _headings) {
        if (heading.level == 1) {
            if (chapter == source.chapters.size()) {
                throw std::runtime_error("a chapter has more than one heading of the first level");
            }
            _chapterPages[source.chapters[chapter++].fileName] = heading.page;
        }
    }
    if (chapter != source.chapters.size()) {
        throw std::runtime_error("a chapter has no heading of the first level");
    }
}

void ManualBody::turnReferencesIntoPages(const ManualSource& source, int frontPages) {
    QVector<Reference> references = localReferences(*_document);
    // From the end, so that the positions of the others stay.
    while (!references.isEmpty()) {
        const Reference reference = references.takeLast();
        bool isChapter = false;
        for (const ManualChapter& chapter : source.chapters) {
            isChapter = isChapter || chapter.fileName == reference.target;
        }
        QTextCursor cursor(_document.get());
        cursor.setPosition(reference.position);
        cursor.setPosition(reference.position + reference.length, QTextCursor::KeepAnchor);
        QTextCharFormat format = cursor.charFormat();
        format.setAnchor(false);
        format.clearProperty(QTextFormat::AnchorHref);
        cursor.setCharFormat(format);
        if (isChapter) {
            cursor.setPosition(reference.position + reference.length);
            const int page = _chapterPages.value(reference.target, 0) + frontPages + 1;
            cursor.insertText(QString(" (page\u00a0%1)").arg(page), QTextCharFormat());
        }
    }
}

/// Done before the layout: one that is changed afterwards loses paragraphs behind tables.
void ManualBody::breakPages() {
    for (const int number : _pageBreaks) {
        const QTextBlock block = _document->findBlockByNumber(number);
        QTextBlockFormat format = block.blockFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(block).setBlockFormat(format);
    }
}

/// At most one for each chapter, since what comes after it moves.
bool ManualBody::addPageBreaks() {
    bool added = false;
    bool settled = false;
    for (QTextBlock block = _document->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 1) {
            settled = false;
        }
        if (settled || !standsApart(block)) {
            continue;
        }
        settled = true;
        const QTextBlock lead = leadOf(block);
        if (!_pageBreaks.contains(lead.blockNumber())) {
            _pageBreaks.insert(lead.blockNumber());
            added = true;
        }
    }
    return added;
}

/// Whether \p block begins something that a page should hold as a whole and doesn't: a heading with the text below it,
/// a short table, a short piece of code.
bool ManualBody::standsApart(const QTextBlock& block) const {
    const QTextBlock next = block.next();
    if (!next.isValid() || block.blockFormat().headingLevel() == 1) {
        return false;
    }
    if (block.blockFormat().headingLevel() > 1) {
        // Two lines of text at least, where there are two.
        return pageOf(block) != pageOf(next, 1);
    }
    if (!beginsWhole(block)) {
        return false;
    }
    const QTextBlock last = lastOfWhole(block);
    if (pageOf(block) == pageOf(last, last.layout()->lineCount())) {
        return false;
    }
    const QAbstractTextDocumentLayout* layout = _document->documentLayout();
    const double height = layout->blockBoundingRect(last).bottom() - layout->blockBoundingRect(block).top();
    return height < kWholeUpTo * _document->pageSize().height();
}

void ManualBody::findHeadings() {
    _headings.clear();
    for (QTextBlock block = _document->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level == 1 || level == 2) {
            _headings.append({block.text(), level, pageOf(block)});
        }
    }
}

int ManualBody::pageOf(const QTextBlock& block, int line) const {
    // Where the block begins is no answer: even its first line may have gone on to the next page.
    const double top = _document->documentLayout()->blockBoundingRect(block).top();
    const int lines = block.layout()->lineCount();
    const double lineTop = lines > 0 ? block.layout()->lineAt(std::min(line, lines - 1)).y() : 0.0;
    return static_cast<int>((top + lineTop + 1.0) / _document->pageSize().height());
}
