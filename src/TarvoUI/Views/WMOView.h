#pragma once

#include "TarvoView.h"

#include <QColor>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <vector>

class WMO;
class WMOcodeGroup;
class WMOsection;

/// The coded message, group by group. Groups can be changed, put in and taken out; the next coding forgets that.
class WMOView : public TarvoView {
    Q_OBJECT

public:
    WMOView(DocumentController* doc, QPrinter* printer, QWidget* parent);

    void update() override;
    int printPreview() override;
    int print() override;
    int save() override;
    int autoSave() override;

    /// The link that hands \p text over to the mail program.
    static QUrl mailUrl(const QString& address, const QString& text);

private slots:
    void deleteGroup();
    void after();
    void before();
    void modify();
    void restore();
    void email();

private:
    /// A cell of the grid, and the group that it shows (a piece of).
    struct Cell {
        int row;
        int column;
        WMOsection* section;
        int group;
        QString text;
        QColor color;
    };
    /// The group that a button works on; without a section there is none.
    struct Target {
        WMOsection* section = nullptr;
        int group = 0;
    };

    QPushButton* makeButton(const char* name, const char* text, void (WMOView::*slot)());
    void layOut(const WMO& wmo);
    void placeSection(WMOsection& section, int& row, int& column);
    void updateGrid();
    void showCounts();
    int countModifiedGroups() const;
    Target current() const;
    Target nearest(bool& walked) const;
    WMOcodeGroup& groupOf(const Target& target) const;
    void insert(int offset);
    void saveCell();
    bool promptLine(const QString& title, const QString& label, const QString& value, QString& out);
    std::unique_ptr<QTextDocument> datalist() const;
    bool saveTextFile(const QString& name) const;

    QLabel* _topLabel;
    QLabel* _originalGroups;
    QLabel* _modifiedGroups;
    QTableWidget* _table;
    std::vector<Cell> _cells;
    int _rows = 0;
    int _wmoVersion = -1;
    int _deleted = 0; // by hand, since the last coding
    int _savedRow = -1;
    int _savedColumn = -1;
};
