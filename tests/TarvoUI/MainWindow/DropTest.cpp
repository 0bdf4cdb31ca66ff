// Files and folders dropped on the main window.

#include "DesktopTest.h"
#include "MadeGeography.h"

#include <QMimeData>
#include <QProgressBar>
#include <QStatusBar>
#include <algorithm>
#include <filesystem>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {
class DropTest : public DesktopTest {};
} // namespace

TEST_F(DropTest, OpensFilesAndTheFilesOfAFolderButNotOfFoldersInIt) {
    std::filesystem::create_directories(path("folder/deeper"));
    makeSounding("folder/b.csv");
    makeSounding("folder/a.csv");
    makeSounding("folder/deeper/no.csv");
    const std::string one = makeSounding("one.csv");
    start();
    drop({one, path("gone.csv"), path("folder"), one});
    EXPECT_THAT(openFiles(), ElementsAre("one.csv", "a.csv", "b.csv"));
    EXPECT_EQ(view().windowTitle(), "one.csv") << "the second time it is raised";
    EXPECT_THAT(answers.boxes(), IsEmpty());
    EXPECT_THAT(recent(), ElementsAre(one, path("folder/b.csv"), path("folder/a.csv")));
}

TEST_F(DropTest, ABarTellsHowFarItIs) {
    start();
    std::vector<std::string> texts;
    QProgressBar* bar = nullptr;
    QObject::connect(&window(), &TarvoMainWindow::updateSounding, [&](const QString& file) {
        bar = window().statusBar()->findChild<QProgressBar*>("_progressBar");
        ASSERT_NE(bar, nullptr);
        texts.push_back((bar->text() + ": " + file.section('/', -1)).toStdString());
        EXPECT_TRUE(bar->isVisible());
        EXPECT_EQ(bar->width(), 160);
        EXPECT_EQ(bar->maximum(), 2);
        EXPECT_EQ(label("_statusAgent"), "Updating tabs...Summary ");
    });
    drop({makeSounding("one.csv"), makeSounding("two.csv")});
    EXPECT_THAT(texts, ElementsAre("Opening 1 of 2: one.csv", "Opening 2 of 2: two.csv"));
    EXPECT_EQ(window().statusBar()->findChild<QProgressBar*>(), nullptr);
}

TEST_F(DropTest, NothingToOpenMakesNoBar) {
    std::filesystem::create_directory(path("empty"));
    start();
    drop({path("empty")});
    EXPECT_THAT(openFiles(), IsEmpty());
    EXPECT_THAT(answers.boxes(), IsEmpty());
    QMimeData words;
    words.setText("Dear reader");
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(DropTest, AFolderOfTooManyStopsWithOneBox) {
    std::filesystem::create_directory(path("many"));
    for (int i = 0; i < 151; ++i) {
        const std::string name = QString::asprintf("many/%03d.csv", i).toStdString();
        if (i % 3 == 1) {
            writeFile(path(name), i % 2 == 0 ? "" : "Dear reader\n");
        } else {
            makeSounding(name);
        }
    }
    configure("GeoDBPath", makeGeography(path("world.sqlite")));
    start();
    trigger("_actionSynoptic"); // the map is none of them
    drop({path("many")});
    EXPECT_EQ(openFiles().size(), 100U);
    // Files 0 to 149 hold 100 soundings and 50 others.
    const auto told = answers.told();
    ASSERT_EQ(told.size(), 51U);
    EXPECT_EQ(std::count_if(told.begin(), told.end(),
                            [](const std::string& box) { return box.rfind("File Open Error: ", 0) == 0; }),
              50);
    EXPECT_EQ(told.back(),
              "ERROR: Cannot open file \"" + path("many/150.csv") +
                  "\". Maximum of 100 soundings can be open at a time.\nYou must close one before opening another.");
    EXPECT_EQ(window().statusBar()->findChild<QProgressBar*>(), nullptr);

    const std::string late = path("many/150.csv");
    open(late);
    EXPECT_EQ(answers.told().back(), told.back());
    trigger("_actionClose");
    open(late);
    EXPECT_EQ(view().windowTitle(), "150.csv");
    trigger("_actionCloseAll");
    EXPECT_THAT(openFiles(), IsEmpty());
}

TEST_F(DropTest, WhileARunIsUnderWayNothingElseBegins) {
    start();
    const std::string other = makeSounding("other.csv");
    int runs = 0;
    QObject::connect(&window(), &TarvoMainWindow::updateSounding, [&] {
        if (++runs > 1) {
            return;
        }
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(other))});
        QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(), &event);
        trigger("_actionOpen");
        trigger("_actionRecompute");
        trigger("_actionClose");
        EXPECT_FALSE(view().close());
        EXPECT_FALSE(mdiArea().activeSubWindow()->close());
        EXPECT_FALSE(window().close());
    });
    open(makeSounding("one.csv"));
    EXPECT_THAT(openFiles(), ElementsAre("one.csv"));
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(view().close()) << "when it is over";
}
