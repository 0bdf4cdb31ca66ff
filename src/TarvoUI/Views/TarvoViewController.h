#pragma once

#include "DocumentController.h"
#include "RegistryXML.h"
#include "TabWidget.h"
#include "TarvoConfigSet.h"
#include "TarvoView.h"

#include <QPrinter>
#include <QWidget>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class LevelsView;
class SoundingDB;

/// The window of one sounding. It works on a configuration of its own from the moment of opening, keeps the document,
/// and shows it on tabs. It deletes itself when it is closed. The printer, the database and the status agent are
/// borrowed.
class TarvoViewController : public QWidget {
    Q_OBJECT

public:
    TarvoViewController(QPrinter* printer, SoundingDB* soundingDB, StatusAgent& statusAgent, QWidget* parent);
    ~TarvoViewController() override;

    /// Reads a sounding file and makes its tabs. \p message tells why it failed, or what the reader warns of.
    bool openFile(const QString& path, QString& message);
    /// Runs the analysis, and shows its result on all tabs.
    void process();

    /// Whether data or options were changed since the last run.
    bool needsRun() const { return _needsRun; }

    TarvoView* activeTab() const { return _activeTab; }
    int save();
    int print();
    int printPreview();
    /// Edits the options of the window's set; \p windows is how many are open.
    void options(int windows);
    /// Asks, and sets the options of this window to their defaults.
    void restoreConfigDefaults();
    /// The name of the configuration set of this window.
    QString activeConfigSet() const;
    /// Null for no database.
    void setSoundingDB(SoundingDB* soundingDB);

    /// The canonical path of the sounding file.
    const QString& currentFile() const { return _curFile; }
    EditorControl* editor() const { return _doc == nullptr ? nullptr : _doc->editor(); }
    TarvoConfigSet* configSet() const { return _configSet.get(); }
    TabWidget* tabs() const { return _viewWidget; }

signals:
    void processRequested(bool onlySignal);
    void processDone(QString path);
    void databaseFailed(QString error);
    /// The user wants no window asked what becomes of its options, and the program to end.
    void quitRequested();

protected:
    void closeEvent(QCloseEvent* event) override;

private slots:
    void processRequest(bool onlySignal);
    void saveConfiguration(bool immediateOnly);
    void tabChanged(int index);
    void tabClicked(int index);
    void levelsChanged();

private:
    /// One kind of tab: its text, what the status bar says when it is updated, and who makes it.
    struct Tab;
    static const std::vector<Tab>& tabTable();

    void setCurrentFile(const QString& path);
    void createTabs();
    void addTabs();
    void connectSignals();
    LevelsView* levelsView() const;
    void addSoundingToDB();
    void updateTabs();
    void autoSave();
    void promptAndSaveConfig();
    void request(bool onlySignal);
    bool isOn(const char* key) const;
    /// The options by name, but those that the program stores for itself, such as folders.
    std::map<std::string, std::pair<double, std::string>> runOptions() const;
    /// The options may have been changed: shows them, and that a run is needed unless they are those of the last one.
    void optionsChanged(bool runNeeded);

    SoundingDB* _soundingDB;
    StatusAgent* _statusAgent;
    TabWidget* _viewWidget;
    QString _curFile;
    std::unique_ptr<RegistryXML> _registry;
    std::unique_ptr<TarvoConfigSet> _configSet;
    std::unique_ptr<DocumentController> _doc;
    std::vector<std::pair<const Tab*, TarvoView*>> _tabs; // in their order
    TarvoView* _activeTab = nullptr;
    QPrinter* _printer;
    std::map<std::string, std::pair<double, std::string>> _lastOptions; // of the last run
    bool _rawChanged = false;
    bool _needsRun = false;
    bool _running = false;
};
