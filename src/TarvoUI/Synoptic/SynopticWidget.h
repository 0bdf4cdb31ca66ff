#pragma once

#include "QMicroMap.h"
#include "SoundingDB.h"

#include <QGraphicsItemGroup>
#include <QImage>
#include <QItemSelection>
#include <QSet>
#include <QStringList>
#include <QWidget>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QPrinter;
class QPushButton;
class QRadioButton;
class QTableView;
class QVBoxLayout;
class SoundingProxyModel;
class SoundingTableModel;

/// The window with the synoptic map: the soundings of a database in a table, those that are chosen there on the map as
/// station models of one level. It deletes itself when it is closed.
class SynopticWidget : public QWidget {
    Q_OBJECT

public:
    /// All are borrowed, and outlive the window or are replaced by setSoundingDB(). Throws a std::string when the
    /// geographic database can't be read.
    SynopticWidget(SpatiaLiteDB& geoDB, SoundingDB* soundingDB, QPrinter* printer, QWidget* parent = nullptr);
    ~SynopticWidget() override;

    /// A sounding of that file has been entered in the database, or entered anew.
    void addNewSounding(const QString& name);
    /// The database may have been changed by others.
    void readAnew();
    void setSoundingDB(SoundingDB* soundingDB);
    /// Stands above the path of the database on the map.
    void setMapTitle(const std::string& title);

    void save();
    /// Every level from the first one with data on, a picture each.
    void saveAll();
    void print();
    void printPreview();

    /// The level that the text of the combo box stands for; the surface for any other text.
    static SoundingDB::LEVEL_TYPE stationLevel(const QString& text);

signals:
    void changeSoundingDB(QString path);
    void openSounding(QString path);

private slots:
    void mouseModeSelect(bool on);
    void mouseModeChange(QMicroMap::MOUSE_MODE mode);
    void levelChanged(const QString& text);
    void time();
    void tdry();
    void dp();
    void wind();
    void presht();
    void selectAllSoundings();
    void deleteSoundings();
    void changeSoundingDB();
    void setProcess();
    void selectedSoundings(const QItemSelection& selected, const QItemSelection& deselected);
    void processSounding(const QString& name);
    void removeStationModel(const QString& name);
    void mapPreview(QPrinter* printer);

private:
    /// What the database knows of a sounding at one level; -999 is missing.
    struct StationValues;
    struct Picture;

    // The form.
    void makeForm();
    QWidget* makeControls();
    QGroupBox* makeMouseModes();
    QGroupBox* makeFeatures();
    QWidget* makeSoundings();
    QRadioButton* addMode(QVBoxLayout* layout, const char* name, const char* text);
    QCheckBox* addFeature(QVBoxLayout* layout, const char* name, const char* text, void (SynopticWidget::*slot)());
    void connectForm();

    // The table.
    void readSoundings();
    void showSoundings();
    void showAnew();
    static QStringList tableRow(const SoundingDB::Sounding& sounding);
    void showCount();
    void showSelectAll(bool clears);
    QString sourceName(int proxyRow) const;
    int proxyRowOf(const QString& relativeName) const;
    const SoundingDB::Sounding* find(const QString& relativeName, const QString& launchTime) const;
    void selectRow(int proxyRow, bool select);

    // The map.
    void updateStationModel();
    void removeStations();
    void addStationModel(SoundingDB::LEVEL_TYPE level);
    StationValues valuesAt(int id, SoundingDB::LEVEL_TYPE level);
    void showModelPart(unsigned long part);
    void hideModelPart(unsigned long part);
    void setModelPart(const QCheckBox* box, unsigned long part);
    static QString toolTipOf(const SoundingDB::Sounding& sounding);
    static QString getRelativeFileName(const QString& path);

    // Pictures.
    QImage grabMap(const char* purpose);
    void drawOn(QPrinter* printer, const QImage& image) const;
    QString suggestedName(const QString& rest) const;

    SoundingDB* _soundingDB;
    QPrinter* _printer;
    QMicroMap* _map = nullptr;
    std::vector<SoundingDB::Sounding> _soundings;
    QSet<QString> _selected; // relative file names
    SoundingTableModel* _tableModel = nullptr;
    SoundingProxyModel* _proxyModel = nullptr;
    QGraphicsItemGroup* _stations = nullptr;
    SoundingDB::LEVEL_TYPE _level = SoundingDB::SURFACE;
    unsigned long _parts = 255;
    const std::string _removeText = "Remove this sounding from synoptic map";
    const std::string _processText = "Reprocess this sounding with Tarvo";
    bool _levelHasData = false;
    bool _selecting = false; // the window itself changes the selection

    QFrame* _mapFrame = nullptr;
    QPushButton* _reset = nullptr;
    QGroupBox* _mouseModes = nullptr;
    QRadioButton* _modePan = nullptr;
    QRadioButton* _modeSelect = nullptr;
    QRadioButton* _modeZoom = nullptr;
    QGroupBox* _features = nullptr;
    QCheckBox* _tdry = nullptr;
    QCheckBox* _dp = nullptr;
    QCheckBox* _wind = nullptr;
    QCheckBox* _presht = nullptr;
    QCheckBox* _time = nullptr;
    QCheckBox* _grid = nullptr;
    QCheckBox* _placeNames = nullptr;
    QLabel* _levelLabel = nullptr;
    QComboBox* _levelSelect = nullptr;
    QLabel* _soundingLabel = nullptr;
    QLabel* _soundingLabel1 = nullptr;
    QLabel* _soundingCount = nullptr;
    QPushButton* _delete = nullptr;
    QPushButton* _selectAll = nullptr;
    QPushButton* _changeDB = nullptr;
    QTableView* _soundingView = nullptr;
};
