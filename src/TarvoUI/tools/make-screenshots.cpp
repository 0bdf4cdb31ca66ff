// Makes the pictures of the manual: opens the window on an example, without a screen and in a home of its own, and
// keeps what a user would see.
//
//     make-screenshots EXAMPLE GEOGRAPHY FOLDER

#include "Environment.h"
#include "SynopticWidget.h"
#include "SyntheticStations.h"
#include "TarvoMainWindow.h"
#include "TarvoSettings.h"
#include "TarvoViewController.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <QToolBar>
#include <qwt_plot.h>

namespace {

constexpr int kWidth = 1280; // pixels
constexpr int kHeight = 800;
constexpr int kDialogWidth = 1040;
constexpr int kDialogHeight = 700;
constexpr int kTextSize = 10; // points
constexpr int kPeriod = 20;   // ms
constexpr int kRowsAbove = 8; // of the one that the Raw tab shows off

void wait(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, kPeriod);
    }
}

class Album {
public:
    explicit Album(QString folder) : _folder(std::move(folder)) {}

    void keep(const QPixmap& picture, const QString& name) {
        const QString path = _folder + "/" + name + ".png";
        if (!picture.toImage().convertToFormat(QImage::Format_RGB32).save(path)) {
            QTextStream(stderr) << "Can't write " << path << "\n";
            _complete = false;
        }
    }
    void keep(QWidget& widget, const QString& name) {
        wait(100);
        keep(widget.grab(), name);
    }
    /// The window with one of its menus open.
    void keepMenu(QMainWindow& window, const char* menuName, const QString& name) {
        auto* menu = window.findChild<QMenu*>(menuName);
        const QPoint corner =
            window.menuBar()->mapTo(&window, window.menuBar()->actionGeometry(menu->menuAction()).bottomLeft());
        keepPopup(window, *menu, corner, name);
    }
    /// The window with a menu over it.
    void keepPopup(QWidget& window, QMenu& menu, const QPoint& corner, const QString& name) {
        menu.popup(window.mapToGlobal(corner));
        wait(100);
        QPixmap picture = window.grab();
        QPainter(&picture).drawPixmap(corner, menu.grab());
        menu.hide();
        keep(picture, name);
    }
    bool complete() const { return _complete; }

private:
    QString _folder;
    bool _complete = true;
};

/// Answers boxes, of which it keeps the first of a kind, and gives up dialogs.
class Answers : public QObject {
public:
    explicit Answers(Album& album) : _album(album) { startTimer(kPeriod); }

    /// The next box goes into the album under this name.
    void keepNext(const QString& name) { _name = name; }

protected:
    void timerEvent(QTimerEvent* /*event*/) override {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            return;
        }
        if (!_name.isEmpty()) {
            if (dialog->findChild<QTabWidget*>() != nullptr) {
                dialog->resize(kDialogWidth, kDialogHeight); // which the screen that isn't there has no room for
                QCoreApplication::sendPostedEvents();
            }
            _album.keep(dialog->grab(), _name);
            _name.clear();
        }
        qobject_cast<QMessageBox*>(dialog) != nullptr ? dialog->accept() : dialog->reject();
    }

private:
    Album& _album;
    QString _name;
};

/// Smaller type than the shipped one, so that a page shows more of a window, and no dialog of its own accord.
void adjustConfiguration() {
    RegistryXML registry(TarvoSettings::configFile().toStdString(), "");
    TarvoConfigSet set(&registry);
    set.set("TextSizePt", kTextSize);
    set.set("FontFamily", "DejaVu Sans");
    set.set("AutoFile", 0.0);
    set.set("OpenMaximized", 0.0);
    set.save(false);
}

void showTab(TarvoViewController& view, int index) {
    view.tabs()->setCurrentIndex(index);
    wait(100);
}

/// A row that a check took something out of, well behind the equilibration of the sensors.
int faultyRow(const QAbstractItemModel& model) {
    constexpr int kBehindEquilibration = 100;
    const int last = model.columnCount() - 1;
    int row = kBehindEquilibration;
    while (row < model.rowCount() && model.index(row, last).data().toString().isEmpty()) {
        ++row;
    }
    return row;
}

/// What would differ from one run to the next.
void settle(QMainWindow& window) {
    window.statusBar()->clearMessage();
    window.findChild<QLabel*>("_configDirLabel")->setText("CONFIG DIR: /home/operator/.config/Tarvo ");
    window.findChild<QLabel*>("_statusAgent")->setText("Ready");
}

/// Wind against pressure with its levels, and a menu of the tab.
void keepXYgraph(TarvoViewController& view, QMainWindow& window, Album& album) {
    constexpr int kXYgraph = 3;
    showTab(view, kXYgraph);
    QWidget* tab = view.tabs()->currentWidget();
    for (const char* name : {"_raw", "_qc", "_levels", "_spdDir", "_pres"}) {
        tab->findChild<QAbstractButton*>(name)->click();
    }
    auto* plot = tab->findChild<QwtPlot*>();
    plot->setFooter("Tarvo");
    album.keep(window, "xy-graph-tab");
    auto* flags = tab->findChild<QPushButton*>("_flags");
    const QPoint beside = flags->mapTo(&window, QPoint(flags->width(), flags->height()));
    album.keepPopup(window, *flags->menu(), beside - QPoint(0, flags->menu()->sizeHint().height()), "xy-graph-flags");
}

/// A level with several stations, at 850 mb, from the Bahamas to Texas.
void keepMap(TarvoMainWindow& window, const QString& geography, Album& album) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("soundings.sqlite");
    SyntheticStations::enter(*SoundingDB::openOrCreate(path.toStdString()), 7, 9);
    {
        RegistryXML registry(TarvoSettings::configFile().toStdString(), "");
        TarvoConfigSet set(&registry);
        set.set("GeoDBPath", geography.toStdString());
        set.set("SynopticMapTitle", std::string("Synthetic soundings round a cyclone"));
        set.save(false);
    }
    window.changeSoundingDB(path);
    window.findChild<QAction*>("_actionSynoptic")->trigger();
    SynopticWidget* synoptic = window.synopticWidget();
    if (synoptic == nullptr) {
        album.keep(QPixmap(), "synoptic-map");
        return;
    }
    wait(300);
    settle(window);
    synoptic->findChild<QPushButton*>("_selectAll")->click();
    synoptic->findChild<QComboBox*>("_levelSelect")->setCurrentText("850 mb");
    auto* map = synoptic->findChild<QMicroMap*>();
    map->setTopLeftAnnotation("Synthetic soundings round a cyclone\n/home/operator/soundings.sqlite");
    map->showView(QRectF(QPointF(-99.0, 17.5), QPointF(-73.0, 34.0)));
    album.keep(window, "synoptic-map");
    window.changeSoundingDB(QDir::homePath() + "/soundings.sqlite");
}

/// The dialogs of the configuration, each while it is up.
void keepOptions(TarvoMainWindow& window, Answers& answers) {
    answers.keepNext("options-dialog");
    window.findChild<QAction*>("_actionOptions")->trigger();
    window.findChild<QAction*>("_actionCloseAll")->trigger();
    answers.keepNext("configuration-dialog");
    window.findChild<QAction*>("_actionConfiguration")->trigger();
}

void takePictures(const QString& example, const QString& geography, Album& album, Answers& answers) {
    answers.keepNext("first-start-box");
    { const TarvoMainWindow first; } // makes the files of the user
    adjustConfiguration();
    TarvoMainWindow window;
    window.resize(kWidth, kHeight);
    window.show();
    settle(window);
    album.keep(window, "window-empty");
    window.processFile(example);
    TarvoViewController* view = window.activeView();
    if (view == nullptr) {
        album.keep(QPixmap(), "main-tab");
        return;
    }
    settle(window);
    album.keep(window, "main-tab");
    album.keepMenu(window, "_menuFile", "file-menu");

    showTab(*view, 1);
    auto* grid = view->tabs()->currentWidget()->findChild<QTableView*>();
    const int fault = faultyRow(*grid->model());
    grid->scrollTo(grid->model()->index(fault - kRowsAbove, 0), QAbstractItemView::PositionAtTop);
    grid->setCurrentIndex(grid->model()->index(fault, 1));
    album.keep(window, "raw-tab");
    QMenu context;
    context.setStyleSheet(window.menuBar()->styleSheet());
    context.addActions(grid->actions());
    const QPoint cell = grid->viewport()->mapTo(&window, grid->visualRect(grid->currentIndex()).center());
    album.keepPopup(window, context, cell, "raw-context-menu");
    showTab(*view, 2);
    album.keep(window, "qc-tab");
    keepXYgraph(*view, window, album);

    for (const auto& [tab, name] :
         {std::pair("SkewTView", "skewt-tab"), std::pair("LevelsView", "levels-tab"), std::pair("WMOView", "wmo-tab"),
          std::pair("CommView", "comm-tab"), std::pair("SummaryView", "summary-tab")}) {
        view->tabs()->setCurrentWidget(view->findChild<QWidget*>(tab));
        album.keep(window, name);
    }
    showTab(*view, 1);
    grid->selectColumn(0);
    answers.keepNext("selection-error-box");
    grid->actions().front()->trigger();
    keepMap(window, geography, album);
    view->activateWindow();
    window.synopticWidget()->parentWidget()->close();
    wait(200);
    keepOptions(window, answers);
}

} // namespace

int main(int argc, char* argv[]) {
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", (home.path() + "/.config").toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    setTimeZone("TZ=GMT0");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4) {
        QTextStream(stderr) << "Usage: make-screenshots EXAMPLE GEOGRAPHY FOLDER\n";
        return 2;
    }
    Album album(arguments[3]);
    Answers answers(album);
    takePictures(arguments[1], arguments[2], album, answers);
    return album.complete() ? 0 : 1;
}
