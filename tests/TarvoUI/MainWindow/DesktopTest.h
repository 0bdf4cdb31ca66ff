#pragma once

#include "ModalAnswers.h"
#include "QtText.h"
#include "TarvoMainWindow.h"
#include "TarvoViewController.h"
#include "TemporaryFolder.h"
#include "TimeLimit.h"

#include <QFileDialog>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTableView>
#include <QtTest/QtTest>
#include <gmock/gmock.h>

/// The main window with the files of a new user, and a folder for soundings.
class DesktopTest : public testing::Test {
protected:
    void SetUp() override;

    /// A window as at the start of the program. A second one replaces the first.
    TarvoMainWindow& start();
    TarvoMainWindow& window() { return *_window; }
    TarvoViewController& view() { return *_window->activeView(); }
    QMdiArea& mdiArea() { return *_window->findChild<QMdiArea*>(); }
    std::vector<std::string> openFiles();

    QAction& action(const char* name) { return *_window->findChild<QAction*>(name); }
    void trigger(const char* name) { action(name).trigger(); }
    /// The entries of a menu as they stand after it was pulled down: texts, "-" for a separator; hidden ones not.
    std::vector<std::string> menu(const char* name);
    /// Null for one that isn't there.
    QAction* entry(const char* menuName, const char* text);
    void choose(const char* menuName, const char* text);
    std::string label(const char* name) { return _window->findChild<QLabel*>(name)->text().toStdString(); }
    /// What the status bar says before it falls back to its labels.
    std::string message();
    template <typename Widget = QWidget>
    Widget& inView(const char* name) {
        return *view().findChild<Widget*>(name);
    }
    void drop(const std::vector<std::string>& paths);

    /// An ascending CSV sounding of \p rows seconds.
    std::string makeSounding(const std::string& name, int rows = 120);
    std::string path(const std::string& name) const { return (_folder / name).string(); }
    static std::string example(const char* name) { return std::string(TARVO_SOURCE_DIR "/examples/data/") + name; }
    void open(const std::string& path) { _window->processFile(QString::fromStdString(path)); }

    /// The database of soundings that a window starts with, empty.
    static std::string database();
    static std::string configFile();
    /// The stored configuration, changed and read.
    template <typename Value>
    static void configure(const char* item, Value value) {
        RegistryXML registry(configFile(), "");
        TarvoConfigSet set(&registry);
        ASSERT_TRUE(set.set(item, value)) << item;
        set.save(false);
    }
    static std::string stored(const char* item);
    static std::vector<std::string> recent();
    static void remember(const std::vector<std::string>& paths);

    /// Does something with a dialog of this title, once each time that it is shown.
    void onDialog(const std::string& title, std::function<void(QFileDialog&)> how);

    ModalAnswers answers;

private:
    TemporaryFolder _folder;
    std::unique_ptr<TarvoMainWindow> _window;
};
