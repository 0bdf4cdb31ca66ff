#include "SummaryView.h"

#include "AtomicFile.h"
#include "AutoSaveDirectory.h"
#include "UiText.h"

#include <QMessageBox>
#include <QVBoxLayout>

namespace {

const char* const kTitle = "Summary";
constexpr double kPrintedPoints = 10.0;

} // namespace

SummaryView::SummaryView(DocumentController* doc, QPrinter* printer, QWidget* parent)
    : TarvoView(doc, printer, parent), _topLabel(makeTopLabel("_summary_topLabel")), _text(new QTextEdit(this)) {
    setObjectName("SummaryView");
    _text->setReadOnly(true);
    _text->setAccessibleName("Summary");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_topLabel);
    layout->addWidget(_text);
}

void SummaryView::update() {
    _text->clear();
    _topLabel->setText(_description);
    if (!_editor->QCready()) {
        return;
    }
    QString html;
    for (const std::string& topic : _editor->summaryTopics()) {
        html += "<h4>" + toQString(topic).toHtmlEscaped() + "</h4><ul>";
        for (const std::string& item : _editor->summaryItems(topic)) {
            html += "<li>" + toQString(item).toHtmlEscaped() + "</li>";
        }
        html += "</ul>";
    }
    _text->setHtml(html);
}

std::unique_ptr<QTextDocument> SummaryView::datalist() const {
    std::unique_ptr<QTextDocument> listing(_text->document()->clone());
    QFont font = listing->defaultFont();
    font.setPointSizeF(kPrintedPoints); // whatever the size of the text on the screen
    listing->setDefaultFont(font);
    return listing;
}

int SummaryView::printPreview() {
    return previewText(datalist().get(), kTitle, QString(), "Tarvo - Print Preview Summary");
}

int SummaryView::print() {
    return printDoc(datalist().get(), kTitle, QString());
}

int SummaryView::save() {
    return saveDoc(datalist().get(), kTitle, QString());
}

int SummaryView::autoSave() {
    const QString directory = autoSaveDirectory(*_configSet, this);
    if (!isOn("SumAutoSaveFmtTxt")) {
        return 0;
    }
    AtomicFile file((directory + getRootFilename() + "Summary.txt").toStdString());
    file.stream() << _text->toPlainText().toStdString() << '\n';
    if (!file.isOpen() || !file.commit()) {
        QMessageBox::warning(this, "File Save Error", "Tarvo can't save the file to format .txt");
    }
    return 0;
}
