#pragma once

#include "Busy.h"
#include "RecentFiles.h"
#include "RegistryXML.h"
#include "SoundingDB.h"
#include "SpatiaLiteDB.h"
#include "StatusAgentQLabel.h"
#include "TarvoConfigSet.h"

#include <QAction>
#include <QLabel>
#include <QLoggingCategory>
#include <QMainWindow>
#include <QMdiArea>
#include <QPrinter>
#include <array>
#include <memory>

/// The log category tarvo.mainwindow, of which warnings and worse are on by default.
const QLoggingCategory& mainWindowLog();

class QMdiSubWindow;
class QMimeData;
class SynopticWidget;
class TarvoViewController;

/// The one window of the program. It opens sounding files, each in a window of its own inside, keeps the list of recent
/// files, and passes the commands of menus and tool bar on to the window that is active.
class TarvoMainWindow : public QMainWindow {
    Q_OBJECT

public:
    enum TEXTCHANGE { NoChange = 0, Larger = 1, Smaller = 2 };
    static constexpr int kMostSoundings = 100;

    explicit TarvoMainWindow(QWidget* parent = nullptr);
    ~TarvoMainWindow() override;

    /// The window of the active sounding; null without one.
    TarvoViewController* activeView() const;
    /// The synoptic map; null while it isn't open.
    SynopticWidget* synopticWidget() const { return _synoptic; }

public slots:
    /// Opens a sounding file, or raises its window when it is open already.
    void processFile(const QString& path);
    /// Goes over to the database of soundings at \p path. The one before stays when that fails, of which a box tells.
    void changeSoundingDB(const QString& path);
    void recompute();
    void updateMenus();
    void updateStatusBar(const QString& message = QString(), int timeoutMs = 0);

signals:
    void updateSounding(QString path);
    void appFontSize(TarvoMainWindow::TEXTCHANGE change);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private slots:
    void open();
    void openRecentFile();
    void closeFile();
    void closeAll();
    void save();
    void saveAll();
    void print();
    void printPreview();
    void options();
    void restoreDefaults();
    void configuration();
    void synoptic();
    void synopticDestroyed();
    void updateSynopticMapTitle();
    void showToolbar();
    void showStatusbar();
    void cascade() { arrange(&QMdiArea::cascadeSubWindows); }
    void tile() { arrange(&QMdiArea::tileSubWindows); }
    void arrangeIcons();
    void about();
    void UserManual();
    void ConfigLog();
    void TarvoDocs();
    void updateMenuFile();
    void updateMenuWindow();
    void processRequested(bool onlySignal);
    void setAppStyleSheet(TarvoMainWindow::TEXTCHANGE change);

private:
    /// One command: its name, texts, keys, icon and slot.
    struct Command;
    static const std::vector<Command>& commands();

    // The form.
    void makeActions();
    void makeMenus();
    void makeToolBar();
    void makeStatusBar();
    QAction* action(const char* name) const;

    // The configuration.
    bool checkConfigFile();
    void initConfigSet();
    bool isOn(const char* key) const;
    QString configText(const char* key) const;

    // The databases.
    void openSoundingDB();
    void showDatabaseError(const QString& error);

    // The synoptic map.
    SynopticWidget* activeSynoptic() const;
    void updateSynopticCommands();
    void readSynopticAnew();

    // Files.
    TarvoViewController* findView(const QString& path) const;
    TarvoViewController* viewOf(const QMdiSubWindow* window) const;
    static QMdiSubWindow* subWindowOf(const TarvoViewController* view);
    int soundingCount() const;
    bool isFull(const QString& path);
    /// The new window; null when the file couldn't be opened, of which a box has told.
    TarvoViewController* createViewsAndProcessFile(const QString& path);
    void showView(TarvoViewController* view);
    void raiseWindow(QMdiSubWindow* window);
    void arrange(void (QMdiArea::*order)());
    void processDerivedFile(const QString& derived);
    void closeSoundings();
    QStringList droppedFiles(const QMimeData* dropped) const;
    void updateRecentFileActions();
    void fillMenuFile();
    void showConfigName();
    void startFlash();
    void stopFlash();
    void showContextMenu();
    void openDocument(const QString& path, const QString& failure);

    QMdiArea* _mdiArea;
    StatusAgentQLabel* _statusAgent;
    QLabel* _configLabel;
    QLabel* _configDirLabel;
    QLabel* _modeLabel;
    QMenu* _menuFile;
    QMenu* _menuWindow;
    QToolBar* _toolBar;
    RecentFiles _recentFiles;
    std::array<QAction*, RecentFiles::kMost> _recentFileActions{};
    std::unique_ptr<RegistryXML> _registry;
    std::unique_ptr<TarvoConfigSet> _configSet;
    int _autoOpenTimer = 0;
    int _recomputeTimer = 0;
    int _recomputeFlash = 0;
    QIcon _recomputeIconA;
    QIcon _recomputeIconB;
    QPixmap _letterV;
    QPixmap _letterQ;
    std::unique_ptr<QPrinter> _printer;
    std::unique_ptr<SoundingDB> _soundingDB; // null when there is none
    std::unique_ptr<SpatiaLiteDB> _geoDB;    // null while there is no map
    SynopticWidget* _synoptic = nullptr;     // deletes itself
    int _textSizePt = 12;
    QString _fontFamily = "Arial";
    int _busy = 0;          // runs under way, in which no other may begin and no window may close
    bool _quitting = false; // the user wants out without further questions
};
