#pragma once

#include "SeriesGrid.h"
#include "TarvoView.h"

#include <QLabel>
#include <QTableView>

class QContextMenuEvent;
class QMenu;

/// What the Raw and the QC tab have in common: the description above, a grid of series, its listing on paper, and
/// saving its data.
class GridView : public TarvoView {
    Q_OBJECT

public:
    int printPreview() override;
    int print() override;
    int save() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    SeriesGrid* grid() const { return _grid; }
    QTableView* table() const { return _table; }

protected:
    /// What a tab is called and how it saves.
    struct Words {
        const char* title; ///< "Raw" or "QC", in dialogs
        const char* saveFilters;
        const char* saveDirItem;
        const char* suffix; ///< of the proposed file name
        QString listingTitle;
        QString listingHead;
    };

    /// Rows are as high as the type and \p rowMargin more.
    GridView(std::vector<GridColumn> columns, bool withAttributes, int rowMargin, DocumentController* doc,
             QPrinter* printer, QWidget* parent);

    virtual Words words() const = 0;
    /// Writes the data of the tab to \p path, in the format whose extension \p filter holds.
    virtual bool saveTo(const QString& path, const QString& filter) const = 0;
    std::unique_ptr<QTextDocument> datalist() const;
    void setUpPage();
    void showDescription();
    /// Columns that don't show their contents any more become wider; the others stay as the user left them.
    void widenColumns();

    SeriesGrid* _grid;
    QTableView* _table;
    int _version = -1;

private:
    void fitToFont();
    void showMenu(const QContextMenuEvent& request);
    int wantedWidth(int column) const;

    QLabel* _topLabel;
    QMenu* _menu = nullptr; // of the cells, once it was asked for
};
