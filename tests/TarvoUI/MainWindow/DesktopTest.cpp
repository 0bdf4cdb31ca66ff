#include "DesktopTest.h"

#include "InitTarvoFiles.h"

#include <QDir>
#include <QMimeData>
#include <QStatusBar>
#include <memory>

void DesktopTest::SetUp() {
    QDir(QDir::homePath() + "/.config/Tarvo").removeRecursively();
    const InitTarvoFiles files(TarvoSettings::kApplication);
    SoundingDB::openOrCreate(database());
    configure("SoundingDBPath", database());
    answers.forget();
}

TarvoMainWindow& DesktopTest::start() {
    _window.reset();
    _window = std::make_unique<TarvoMainWindow>();
    _window->resize(1000, 700);
    _window->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(_window.get(), kPatience));
    return *_window;
}

std::vector<std::string> DesktopTest::openFiles() {
    std::vector<std::string> names;
    for (const QMdiSubWindow* sub : mdiArea().subWindowList()) {
        if (const auto* open = qobject_cast<TarvoViewController*>(sub->widget())) {
            names.push_back(open->windowTitle().toStdString());
        }
    }
    return names;
}

std::vector<std::string> DesktopTest::menu(const char* name) {
    auto* pulled = _window->findChild<QMenu*>(name);
    emit pulled->aboutToShow();
    std::vector<std::string> texts;
    for (const QAction* action : pulled->actions()) {
        if (action->isVisible()) {
            texts.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        }
    }
    return texts;
}

QAction* DesktopTest::entry(const char* menuName, const char* text) {
    menu(menuName);
    for (QAction* action : _window->findChild<QMenu*>(menuName)->actions()) {
        if (action->isVisible() && action->text() == text) {
            return action;
        }
    }
    return nullptr;
}

void DesktopTest::choose(const char* menuName, const char* text) {
    QAction* chosen = entry(menuName, text);
    ASSERT_NE(chosen, nullptr) << text;
    chosen->trigger();
}

std::string DesktopTest::message() {
    return _window->statusBar()->currentMessage().toStdString();
}

void DesktopTest::drop(const std::vector<std::string>& paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& dropped : paths) {
        urls << QUrl::fromLocalFile(QString::fromStdString(dropped));
    }
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(_window.get(), &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(_window.get(), &event);
    EXPECT_TRUE(event.isAccepted());
}

void DesktopTest::onDialog(const std::string& title, std::function<void(QFileDialog&)> how) {
    auto under = std::make_shared<bool>(false);
    answers.operate(title, [how = std::move(how), under](QDialog& dialog) {
        if (!*under) {
            *under = true;
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog, kPatience));
            how(dynamic_cast<QFileDialog&>(dialog));
            if (!QTest::qWaitFor([&dialog] { return !dialog.isVisible(); }, kPatience)) {
                ADD_FAILURE() << dialog.windowTitle().toStdString() << " isn't done";
                dialog.reject();
            }
            *under = false;
        }
    });
}

std::string DesktopTest::makeSounding(const std::string& name, int rows) {
    std::string text = "FileFormat,CSV\nYear,2021\nMonth,08\nDay,03\nHour,17\nMinute,22\nSecond,45\n"
                       "Latitude,12.1,\"units=deg\"\nLongitude,-47.35,\"units=deg\"\nAltitude,10.0,\"units=m\"\n"
                       "Ascending,\"true\"\nFields,Time,Pressure,Temperature,RH\n";
    for (int i = 0; i < rows; ++i) {
        text += QString::asprintf("Data,%d,%.2f,%.2f,%.2f\n", i, 1000.0 - 0.5 * i, 20.0 - 0.03 * i, 70.0).toStdString();
    }
    writeFile(path(name), text);
    return path(name);
}

std::string DesktopTest::database() {
    return QDir::homePath().toStdString() + "/.config/Tarvo/soundings.sqlite";
}

std::string DesktopTest::configFile() {
    return TarvoSettings::configFile().toStdString();
}

std::string DesktopTest::stored(const char* item) {
    RegistryXML registry(configFile(), "");
    const TarvoConfigSet set(&registry);
    std::string text;
    double number = 0.0;
    if (set[Id(item)]->isNumeric()) {
        set.value(item, number);
        return QString::number(number).toStdString();
    }
    set.text(item, text);
    return text;
}

std::vector<std::string> DesktopTest::recent() {
    std::vector<std::string> paths;
    for (const QString& path : TarvoSettings().value("Recent_Files").toStringList()) {
        paths.push_back(path.toStdString());
    }
    return paths;
}

void DesktopTest::remember(const std::vector<std::string>& paths) {
    QStringList list;
    for (const std::string& path : paths) {
        list << QString::fromStdString(path);
    }
    TarvoSettings().setValue("Recent_Files", list);
}
