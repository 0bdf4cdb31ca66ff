#pragma once

#include "TarvoView.h"

#include <QLabel>
#include <QTableWidget>

class Level;
class Levels;
class SoundingDB;

/// The level set. A press on a cell, or the space bar on it, withdraws a level or one of its fields from coding, or
/// takes it back; the message is coded anew when the user leaves the tab.
class LevelsView : public TarvoView {
    Q_OBJECT

public:
    LevelsView(DocumentController* doc, QPrinter* printer, QWidget* parent);

    /// Where every new level set goes, if the sounding is there; null for nowhere. Borrowed.
    void setSoundingDB(SoundingDB* soundingDB) { _soundingDB = soundingDB; }

    void update() override;
    int printPreview() override;
    int print() override;
    int save() override;
    int autoSave() override;
    void leavingView() override;

signals:
    void levelsChanged();
    /// The levels couldn't be entered in the database.
    void databaseFailed(QString error);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void cellPressed(int row, int column);

private:
    /// A cell that sorts by number where it holds one.
    class levelItem;

    void initGrid();
    void updateGrid(const Levels& levels);
    void updateDB(const Levels& levels);
    void fillRow(int row, const Level& level);
    void setLevelColor(int row);
    /// The index of the level in a row: sorting doesn't change it.
    int levelIndex(int row) const;
    Level* levelOf(int row) const;
    bool saveLevelsCsvTo(const QString& name) const;
    std::unique_ptr<QTextDocument> datalist() const;

    QLabel* _topLabel;
    QTableWidget* _levelsGrid;
    SoundingDB* _soundingDB = nullptr;
    int _levelsVersion = -1;
    bool _changed = false;
};
