#include "ManualBody.h"

#include "ManualStyle.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QStringList>
#include <QTextBlock>
#include <QTextCursor>
#include <QUrl>

#include <stdexcept>

namespace {

constexpr double kMmPerInch = 25.4;
/// Page breaks and the pages in references change what comes after them; the document is laid out until it stays.
constexpr int kMostRounds = 60;

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
        const bool moreBreaks = _breaks.add(*_document, paper);
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
    _breaks.apply(*_document);

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

void ManualBody::findHeadings() {
    _headings.clear();
    for (QTextBlock block = _document->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level == 1 || level == 2) {
            _headings.append({block.text(), level, PageBreaks::pageOf(block)});
        }
    }
}
