#pragma once

#include "GridView.h"

/// The data after QC.
class QCView : public GridView {
    Q_OBJECT

public:
    QCView(DocumentController* doc, QPrinter* printer, QWidget* parent);

    void update() override;
    /// Writes the products that the configuration asks for.
    int autoSave() override;

protected:
    Words words() const override;
    bool saveTo(const QString& path, const QString& filter) const override;
};
