#pragma once

#include "GridView.h"

#include <array>
#include <cstdint>

/// The raw data, with their attributes. Here the user orders samples kept or ignored, and sets the end of the drop.
class RawView : public GridView {
    Q_OBJECT

public:
    RawView(DocumentController* doc, QPrinter* printer, QWidget* parent);

    void update() override;

public slots:
    void setIgnore() { setIgnoreAtt(true); }
    void clearIgnore() { setIgnoreAtt(false); }
    void setKeep() { setKeepAtt(true); }
    void clearKeep() { setKeepAtt(false); }
    void setEndOfDrop();

protected:
    Words words() const override;
    bool saveTo(const QString& path, const QString& filter) const override;

private:
    void makeContextMenu();
    void setIgnoreAtt(bool on);
    void setKeepAtt(bool on);
    void markSelection(std::uint32_t bit, bool on, const char* refusal);
    bool mark(int row, int column, std::uint32_t bit, bool on);
    bool hasSelection();
};
