// The commands of the main window, their menus and the tool bar.

#include "TarvoMainWindow.h"
#include "TarvoViewController.h"
#include "UiText.h"

#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

namespace {

/// An "&" in the name of a file is one to be seen.
QString entryText(int number, const QString& path) {
    return QString("&%1 %2").arg(number).arg(QFileInfo(path).fileName().replace("&", "&&"));
}

} // namespace

struct TarvoMainWindow::Command {
    const char* name;
    const char* text;
    const char* tip;
    const char* keys; ///< null without
    const char* icon; ///< null without
    void (TarvoMainWindow::*slot)();
};

const std::vector<TarvoMainWindow::Command>& TarvoMainWindow::commands() {
    using W = TarvoMainWindow;
    static const std::vector<Command> all{
        {"_actionOpen", "&Open...", "Open an existing sounding file", "Ctrl+O", "open.png", &W::open},
        {"_actionClose", "&Close...", "Close the active sounding file", "Ctrl+F4", nullptr, &W::closeFile},
        {"_actionQuit", "&Quit", "Quit the application", "Ctrl+Q", nullptr, nullptr},
        {"_actionToolbar", "&Toolbar", "Show or hide the toolbar", nullptr, nullptr, &W::showToolbar},
        {"_actionStatusbar", "&Status Bar", "Show or hide the status bar", nullptr, nullptr, &W::showStatusbar},
        {"_actionAbout", "&About Tarvo...", "Display program information, version number and copyright", nullptr,
         "about.png", &W::about},
        {"_actionUserManual", "Tarvo &User Manual...", "Open Tarvo User Manual (PDF)", nullptr, "pdf.png",
         &W::UserManual},
        {"_actionTarvoDocs", "Tarvo online documentation", "Open Tarvo documentation site", nullptr, "tarvo.ico",
         &W::TarvoDocs},
        {"_actionSave", "&Save...", "Save the active document", "Ctrl+S", "save.png", &W::save},
        {"_actionRecompute", "&Recompute", "Reprocess the sounding file", nullptr, "recompute1.png", &W::recompute},
        {"_actionOptions", "&Options", "Change advanced processing options", nullptr, "settings.png", &W::options},
        {"_actionRestoreDefaults", "Restore &Defaults", "Reset QC processing options to default", nullptr, nullptr,
         &W::restoreDefaults},
        {"_actionCascade", "&Cascade", "Arrange windows so they overlap", nullptr, nullptr, &W::cascade},
        {"_actionTile", "&Tile", "Arrange windows as non-overlapping tiles", nullptr, nullptr, &W::tile},
        {"_actionArrangeIcons", "&Arrange Icons", "Arrange icons at the bottom of the window", nullptr, nullptr,
         &W::arrangeIcons},
        {"_actionPrint", "&Print...", "Change the printing options or print the current view", "Ctrl+P", "print.png",
         &W::print},
        {"_actionPrintPreview", "Print Pre&view...", "Display full pages", nullptr, nullptr, &W::printPreview},
        {"_actionCloseAll", "Close &All", "Close all open sounding files", "Ctrl+Shift+F4", nullptr, &W::closeAll},
        {"_actionConfiguration", "Config&uration...", "Manage the Tarvo configuration sets", "Ctrl+U", nullptr,
         &W::configuration},
        {"_actionConfigLog", "Tarvo &Config Log", "Open Tarvo Configuration Log (txt)", nullptr, "document.png",
         &W::ConfigLog},
        {"_actionSynoptic", "Synoptic &Map", "Open the synoptic map", "Ctrl+M", "World.png", &W::synoptic},
        {"_actionSaveAll", "Save All Synoptic &Levels", "Save all synoptic levels", "Ctrl+L", "saveAll.png",
         &W::saveAll},
    };
    return all;
}

QAction* TarvoMainWindow::action(const char* name) const {
    auto* found = findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
    Q_ASSERT(found != nullptr);
    return found;
}

void TarvoMainWindow::makeActions() {
    for (const Command& command : commands()) {
        auto* made = new QAction(command.text, this);
        made->setObjectName(command.name);
        made->setStatusTip(command.tip);
        if (command.keys != nullptr) {
            made->setShortcut(QKeySequence(command.keys));
        }
        if (command.icon != nullptr) {
            made->setIcon(QIcon(QString(":/tarvo_icons/") + command.icon));
        }
        if (command.slot != nullptr) {
            connect(made, &QAction::triggered, this, command.slot);
        }
        addAction(made); // the keys work also while no menu holds the action
    }
    connect(action("_actionQuit"), &QAction::triggered, this, &QWidget::close);
    action("_actionRecompute")->setToolTip("Recompute");
    for (const char* name : {"_actionToolbar", "_actionStatusbar"}) {
        action(name)->setCheckable(true);
        action(name)->setChecked(true);
    }
    for (const char* name : {"_actionOptions", "_actionAbout"}) {
        action(name)->setMenuRole(QAction::NoRole);
    }
    for (QAction*& recent : _recentFileActions) {
        recent = new QAction(this);
        recent->setVisible(false);
        connect(recent, &QAction::triggered, this, &TarvoMainWindow::openRecentFile);
    }
}

void TarvoMainWindow::makeMenus() {
    const auto menu = [this](const char* name, const char* text) {
        QMenu* made = menuBar()->addMenu(text);
        made->setObjectName(name);
        return made;
    };
    _menuFile = menu("_menuFile", "&File");
    QMenu* tools = menu("_menuTools", "&Tools");
    QMenu* view = menu("_menuView", "&View");
    _menuWindow = menu("_menuWindow", "&Window");
    QMenu* help = menu("_menuHelp", "&Help");
    connect(_menuFile, &QMenu::aboutToShow, this, &TarvoMainWindow::updateMenuFile);
    connect(_menuWindow, &QMenu::aboutToShow, this, &TarvoMainWindow::updateMenuWindow);
    fillMenuFile();
    for (const char* name : {"_actionOptions", "_actionRestoreDefaults", "_actionRecompute"}) {
        tools->addAction(action(name));
    }
    tools->addSeparator();
    tools->addAction(action("_actionSynoptic"));
    view->addAction(action("_actionToolbar"));
    view->addAction(action("_actionStatusbar"));
    help->addAction(action("_actionAbout"));
    help->addSeparator();
    for (const char* name : {"_actionUserManual", "_actionTarvoDocs", "_actionConfigLog"}) {
        help->addAction(action(name));
    }
}

void TarvoMainWindow::makeToolBar() {
    _toolBar = addToolBar("Toolbar");
    _toolBar->setObjectName("_toolBar");
    _toolBar->setMovable(false);
    for (const char* name : {"_actionOpen", "_actionSave", "_actionSaveAll", "_actionPrint"}) {
        _toolBar->addAction(action(name));
    }
    _toolBar->addSeparator();
    _toolBar->addAction(action("_actionRecompute"));
    _toolBar->addAction(action("_actionSynoptic"));
    _toolBar->addSeparator();
    _toolBar->addAction(action("_actionAbout"));
}

void TarvoMainWindow::makeStatusBar() {
    _statusAgent = new StatusAgentQLabel(this);
    _statusAgent->setObjectName("_statusAgent");
    _configLabel = new QLabel(this);
    _configLabel->setObjectName("_configLabel");
    _configDirLabel = new QLabel(this);
    _configDirLabel->setObjectName("_configDirLabel");
    _modeLabel = new QLabel(this);
    _modeLabel->setObjectName("_modeLabel");
    statusBar()->addWidget(_statusAgent);
    for (QLabel* label : {_configLabel, _configDirLabel, _modeLabel}) {
        statusBar()->addPermanentWidget(label);
    }
}

void TarvoMainWindow::updateMenuFile() {
    _recentFiles.read();
    _recentFiles.dropMissing();
    _recentFiles.write();
    updateRecentFileActions();
    fillMenuFile();
}

void TarvoMainWindow::fillMenuFile() {
    _menuFile->clear();
    const auto add = [this](std::initializer_list<const char*> names) {
        for (const char* name : names) {
            _menuFile->addAction(action(name));
        }
    };
    add({"_actionOpen", "_actionConfiguration"});
    _menuFile->addSeparator();
    add({"_actionSave", "_actionSaveAll", "_actionClose", "_actionCloseAll"});
    _menuFile->addSeparator();
    add({"_actionPrintPreview", "_actionPrint"});
    _menuFile->addSeparator();
    for (QAction* recent : _recentFileActions) {
        _menuFile->addAction(recent);
    }
    if (!_recentFiles.paths().isEmpty()) {
        _menuFile->addSeparator();
    }
    add({"_actionQuit"});
}

void TarvoMainWindow::updateMenuWindow() {
    _menuWindow->clear();
    for (const char* name : {"_actionCascade", "_actionTile", "_actionArrangeIcons"}) {
        _menuWindow->addAction(action(name));
    }
    _menuWindow->addSeparator();
    int number = 0;
    for (QMdiSubWindow* window : _mdiArea->subWindowList()) {
        ++number;
        const TarvoViewController* view = viewOf(window);
        QAction* entry = _menuWindow->addAction(view != nullptr ? entryText(number, view->currentFile())
                                                                : QString("&%1 Synoptic").arg(number));
        entry->setCheckable(true);
        entry->setChecked(window == _mdiArea->currentSubWindow());
        connect(entry, &QAction::triggered, this, [this, window] { raiseWindow(window); });
    }
}

void TarvoMainWindow::updateMenus() {
    const TarvoViewController* view = activeView();
    const TarvoView* tab = view == nullptr ? nullptr : view->activeTab();
    action("_actionConfiguration")->setEnabled(view == nullptr);
    action("_actionSave")->setEnabled(tab != nullptr && tab->canSave());
    for (const char* name : {"_actionPrint", "_actionPrintPreview"}) {
        action(name)->setEnabled(tab != nullptr && tab->canPrint());
    }
    action("_actionRecompute")->setEnabled(tab != nullptr && tab->canRecompute());
    showConfigName();
    view != nullptr && view->needsRun() ? startFlash() : stopFlash();
    for (const char* name : {"_actionClose", "_actionCloseAll", "_actionOptions", "_actionRestoreDefaults",
                             "_actionCascade", "_actionTile", "_actionArrangeIcons"}) {
        action(name)->setEnabled(view != nullptr);
    }
    updateSynopticCommands();
}

void TarvoMainWindow::updateRecentFileActions() {
    const QStringList& paths = _recentFiles.paths();
    for (int i = 0; i < RecentFiles::kMost; ++i) {
        QAction* recent = _recentFileActions[static_cast<std::size_t>(i)];
        recent->setVisible(i < paths.size());
        if (i < paths.size()) {
            recent->setText(entryText(i + 1, paths[i]));
            recent->setData(paths[i]);
        }
    }
}

void TarvoMainWindow::showToolbar() {
    _toolBar->setVisible(action("_actionToolbar")->isChecked());
}

void TarvoMainWindow::showStatusbar() {
    statusBar()->setVisible(action("_actionStatusbar")->isChecked());
}

/// Lays out all windows, those that were icons too.
void TarvoMainWindow::arrange(void (QMdiArea::*order)()) {
    QMdiSubWindow* active = _mdiArea->currentSubWindow();
    _mdiArea->setUpdatesEnabled(false);
    _mdiArea->setOption(QMdiArea::DontMaximizeSubWindowOnActivation, true);
    for (QMdiSubWindow* window : _mdiArea->subWindowList()) {
        if (window->isMinimized()) {
            window->showNormal();
        }
    }
    (_mdiArea->*order)();
    _mdiArea->setActiveSubWindow(active);
    _mdiArea->setOption(QMdiArea::DontMaximizeSubWindowOnActivation, false);
    _mdiArea->setUpdatesEnabled(true);
}

/// Every icon gets its place anew whenever one window becomes an icon, so those that are icons already stay as they
/// are: to show a hundred windows once more takes seconds.
void TarvoMainWindow::arrangeIcons() {
    // Otherwise the window that follows an active one which becomes an icon is maximised in its place, one after
    // another.
    _mdiArea->setOption(QMdiArea::DontMaximizeSubWindowOnActivation, true);
    for (QMdiSubWindow* window : _mdiArea->subWindowList()) {
        if (!window->isMinimized()) {
            window->showNormal();
            window->showMinimized();
        }
    }
    _mdiArea->setOption(QMdiArea::DontMaximizeSubWindowOnActivation, false);
}
