#pragma once

#include "TarvoView.h"

#include <QLabel>
#include <QTextEdit>

/// What the analysis has to say, by topic.
class SummaryView : public TarvoView {
    Q_OBJECT

public:
    SummaryView(DocumentController* doc, QPrinter* printer, QWidget* parent);

    void update() override;
    int printPreview() override;
    int print() override;
    int save() override;
    int autoSave() override;

private:
    std::unique_ptr<QTextDocument> datalist() const;

    QLabel* _topLabel;
    QTextEdit* _text;
};
