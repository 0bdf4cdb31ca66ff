// The database of soundings: how the window finds it, and what it enters there.

#include "DesktopTest.h"
#include "FilePathDialog.h"
#include "MadeGeography.h"
#include "SynopticWidget.h"

#include <QDialogButtonBox>
#include <QGraphicsProxyWidget>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>

#include <filesystem>
#include <set>
#include <sqlite3.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

namespace {

const char* const kDialog = "Tarvo - Browse for Sounding Database";
const char* const kUnable =
    "\" to the database.\nThis can happen if the synoptic map database version has been upgraded\n"
    "in a newer version of Tarvo. You will need to delete your old database,\n"
    "or change to a new database file name, in order start saving results in the\n"
    "new database format.\n";

class DatabaseTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        configure("AutoFile", 0.0);
    }
    static std::string home() { return QDir::homePath().toStdString(); }

    /// What is typed when the window asks for its database.
    void answerPath(const QString& typed) {
        answers.operate(kDialog, [typed](QDialog& dialog) {
            if (!typed.isEmpty()) {
                dialog.findChild<QLineEdit*>("_pathEditor")->insert(typed); // letters that no key of the test has
            }
            QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
    }
    static int number(const std::string& path, const std::string& sql) {
        SQLiteDB db(path, false, SQLITE_OPEN_READWRITE);
        db.prepare(sql);
        return db.step() ? db.Integer(0) : -1;
    }
    static void change(const std::string& path, const std::string& sql) {
        SQLiteDB(path, false, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE).exec(sql);
    }
    static std::vector<std::string> names(const std::string& path) {
        std::vector<std::string> all;
        for (const auto& sounding : SoundingDB(path, SQLITE_OPEN_READWRITE, "").getSoundings()) {
            all.push_back(fs::path(sounding.filename).filename().string());
        }
        return all;
    }
};

} // namespace

TEST_F(DatabaseTest, ANewUserGetsTheDefaultOne) {
    configure("SoundingDBPath", "C:\\soundings.sqlite");
    const std::string made = home() + "/soundings.sqlite";
    fs::remove(made);
    std::vector<std::string> seen;
    answers.operate(kDialog, [&](QDialog& dialog) {
        seen.push_back(dialog.findChild<QLabel*>("_memoLabel")->text().toStdString());
        EXPECT_EQ(dialog.findChild<QLabel*>("_imageLabel")->size(), QSize(160, 160));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    start();
    EXPECT_THAT(seen, ElementsAre("Select the sounding database. You can:\n"
                                  "  - Browse to an existing file.\n"
                                  "  - Browse to a directory, then enter the name of the database file to create.\n"
                                  "  - Just hit OK, to use/create the default database file (soundings.sqlite)"));
    ASSERT_THAT(answers.told(),
                ElementsAre("Tarvo Sounding Database Create: A valid sounding database was not specified.\n"
                            "Tarvo will create a database at: \n   \"" +
                            made + "\"."));
    EXPECT_EQ(stored("SoundingDBPath"), made);
    EXPECT_THAT(names(made), IsEmpty());
    start();
    EXPECT_EQ(seen.size(), 1U);
    EXPECT_EQ(answers.boxes().size(), 1U);
}

TEST_F(DatabaseTest, APathIsTypedOrBrowsedFor) {
    const std::string typed = path("né w \"'.sqlite");
    configure("SoundingDBPath", "");
    answerPath(QString::fromStdString(typed));
    start();
    EXPECT_EQ(stored("SoundingDBPath"), typed);
    EXPECT_THAT(names(typed), IsEmpty());
    EXPECT_THAT(answers.boxes(), IsEmpty());

    fs::create_directories(path("folder"));
    configure("SoundingDBPath", "");
    answerPath(QString::fromStdString(path("folder")));
    start();
    EXPECT_EQ(stored("SoundingDBPath"), path("folder/soundings.sqlite"));
    EXPECT_EQ(answers.boxes().size(), 1U);

    const std::string chosen = path("né w.sqlite"); // a dialog of files takes quotes for its own
    fs::copy_file(typed, chosen);
    configure("SoundingDBPath", "");
    bool asked = false;
    bool browsed = false; // the dialog of files has the same title
    answers.operate(kDialog, [&](QDialog& dialog) {
        if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
            browsed = true;
            EXPECT_THAT(files->nameFilters(), ElementsAre("SQLite Database (*.sqlite)", "All Files (*.*)"));
            auto* name = files->findChild<QLineEdit*>("fileNameEdit");
            name->clear();
            name->insert(QString::fromStdString(chosen));
            QTest::keyClick(name, Qt::Key_Return);
        } else if (!asked) { // by a timer of its own: that of the answers doesn't run within itself
            asked = true;
            QTimer::singleShot(0, dialog.findChild<QPushButton*>("_btnBrowse"), &QPushButton::click);
        } else if (browsed) {
            QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
        }
    });
    start();
    EXPECT_TRUE(browsed);
    EXPECT_EQ(stored("SoundingDBPath"), chosen);
}

TEST_F(DatabaseTest, AFileOfSomethingElseIsLeftAlone) {
    writeFile(path("notes.txt"), "no database at all, but longer than nothing\n");
    change(path("other.sqlite"), "create table t (n integer)");
    const std::string other = readFile(path("other.sqlite"));
    for (const char* name : {"notes.txt", "other.sqlite"}) {
        answers.forget();
        configure("SoundingDBPath", path(name));
        start();
        ASSERT_THAT(
            answers.texts(),
            ElementsAre("The database file: \n   \"" + path(name) +
                        "\" \nis not a valid sounding database.  Tarvo will create the default database for your "
                        "session at: \n   \"" +
                        path("soundings.sqlite") + "\" "));
        EXPECT_EQ(answers.boxes()[0].title, "Invalid Database");
        EXPECT_EQ(stored("SoundingDBPath"), path("soundings.sqlite"));
    }
    EXPECT_EQ(readFile(path("notes.txt")), "no database at all, but longer than nothing\n");
    EXPECT_EQ(readFile(path("other.sqlite")), other);

    answers.forget();
    fs::remove(path("soundings.sqlite"));
    writeFile(path("soundings.sqlite"), "no database at all, but longer than nothing\n");
    configure("SoundingDBPath", path("notes.txt"));
    start();
    ASSERT_EQ(answers.boxes().size(), 2U) << "the one beside it is none either";
    EXPECT_EQ(answers.boxes()[1].title, "Levels Database Error");
    open(makeSounding("one.csv"));
    EXPECT_EQ(answers.boxes().size(), 2U) << "work goes on without one";
    EXPECT_THAT(openFiles(), ElementsAre("one.csv"));
}

TEST_F(DatabaseTest, AnOlderVersionIsSetAside) {
    const std::string old = path("mine.sqlite");
    const std::string aside = path("soundings_1.sqlite");
    SoundingDB::openOrCreate(old)->addSounding("/old", {}, "CSV");
    change(old, "pragma user_version = 1");
    configure("SoundingDBPath", old);
    writeFile(aside, "something that is there");
    start();
    ASSERT_EQ(answers.boxes().size(), 2U);
    EXPECT_EQ(answers.boxes()[1].title, "Levels Database Error");
    EXPECT_EQ(readFile(aside), "something that is there");
    EXPECT_THAT(names(old), ElementsAre("old"));

    answers.forget();
    fs::remove(aside);
    start();
    ASSERT_THAT(answers.told(),
                ElementsAre("Tarvo Database Upgrade: Your sounding database has an older version 1, which is "
                            "incompatible with the current "
                            "version 2 used by Tarvo. It will be renamed to \"soundings_1.sqlite\" and Tarvo will "
                            "create an empty database for your session."));
    EXPECT_THAT(names(aside), ElementsAre("old"));
    EXPECT_THAT(names(old), IsEmpty());
    EXPECT_EQ(number(old, "pragma user_version"), 2);
}

TEST_F(DatabaseTest, ARunEntersTheSoundingAndItsLevels) {
    start();
    const std::string drop = path("a \"dröp\" isn't.csv");
    fs::copy_file(example("tradewind_drop_20210803.csv"), drop);
    fs::create_symlink(drop, path("link.csv"));
    open(path("link.csv"));
    const auto soundings = SoundingDB(database(), SQLITE_OPEN_READWRITE, "").getSoundings();
    ASSERT_EQ(soundings.size(), 1U);
    EXPECT_EQ(soundings[0].filename, fs::canonical(drop).string());
    EXPECT_EQ(soundings[0].soundingType, "Ombra") << "the type of a CSV file that comes down";
    const int levels = number(database(), "select count(*) from levels");
    EXPECT_GT(levels, 3);
    change(database(), "update levels set tdry_degc = -999; insert into levels (sounding_id, type) values (1, 26)");
    trigger("_actionRecompute");
    EXPECT_EQ(number(database(), "select count(*) from soundings"), 1);
    EXPECT_EQ(number(database(), "select count(*) from levels"), levels);
    EXPECT_EQ(number(database(), "select count(*) from levels where tdry_degc = -999"), 0);
}

TEST_F(DatabaseTest, AFailureIsToldAndEndsNothing) {
    start();
    open(makeSounding("one.csv"));
    change(database(), "create trigger no_level before insert on levels begin select raise(abort, 'full'); end");
    const int before = number(database(), "select count(*) from levels");
    trigger("_actionRecompute");
    ASSERT_EQ(answers.boxes().size(), 1U);
    EXPECT_EQ(answers.boxes()[0].title, "Levels Database Error");
    EXPECT_THAT(answers.boxes()[0].text, AllOf(HasSubstr(database()), HasSubstr("full")));
    EXPECT_EQ(number(database(), "select count(*) from levels"), before) << "the old ones stay";

    answers.forget();
    change(database(), "create trigger no_row before insert on soundings begin select raise(abort, 'full'); end");
    testing::internal::CaptureStdout();
    open(makeSounding("two.csv"));
    EXPECT_THAT(testing::internal::GetCapturedStdout(), HasSubstr("full"));
    EXPECT_THAT(answers.told(),
                ElementsAre("Sounding Database Error: Unable to add sounding \"" + path("two.csv") + kUnable));
    EXPECT_GT(inView<QTableWidget>("_levelsGrid").rowCount(), 0) << "the tabs are filled all the same";
    EXPECT_THAT(names(database()), ElementsAre("one.csv"));
}

TEST_F(DatabaseTest, OneThatIsDeletedInMidRunIsToldAndReplaced) {
    start();
    open(makeSounding("one.csv"));
    for (const char* end : {"", "-wal", "-shm"}) {
        fs::remove(database() + end);
    }
    open(makeSounding("two.csv"));
    EXPECT_THAT(answers.texts(), ElementsAre("Unable to add sounding \"" + path("two.csv") + kUnable));
    window().changeSoundingDB(QString::fromStdString(database())); // a new one there
    trigger("_actionRecompute");
    EXPECT_THAT(names(database()), ElementsAre("two.csv"));
    EXPECT_EQ(answers.boxes().size(), 1U);
}

TEST_F(DatabaseTest, AboutTellsWhereTheDatabasesAre) {
    start();
    trigger("_actionAbout");
    ASSERT_EQ(answers.boxes().size(), 1U);
    EXPECT_THAT(answers.boxes()[0].text, AllOf(HasSubstr("<p>Sounding Database: <b>" + database() + "</b></p>"),
                                               HasSubstr("<p>Geo Database: <b>not open</b></p>"),
                                               HasSubstr(std::string("<p>SpatiaLiteDB: <b>SQLite version: ") +
                                                         sqlite3_libversion() + ", SpatiaLite version: ")));
}

TEST_F(DatabaseTest, AllWindowsGoOverToAnotherDatabase) {
    start();
    open(makeSounding("one.csv"));
    open(makeSounding("two.csv"));
    const std::string other = path("other.sqlite");
    SoundingDB::openOrCreate(other);
    window().changeSoundingDB(QString::fromStdString(other));
    EXPECT_EQ(stored("SoundingDBPath"), other);
    trigger("_actionRecompute");
    choose("_menuWindow", "&1 one.csv");
    trigger("_actionRecompute");
    EXPECT_THAT(names(other), ElementsAre("two.csv", "one.csv"));
    EXPECT_EQ(number(other, "select count(distinct sounding_id) from levels"), 2);

    writeFile(path("soundings.sqlite"), "no database at all, but longer than nothing\n");
    window().changeSoundingDB(QString::fromStdString(path("soundings.sqlite")));
    EXPECT_EQ(answers.boxes().back().title, "Levels Database Error");
    EXPECT_EQ(stored("SoundingDBPath"), other);
    open(makeSounding("three.csv"));
    EXPECT_EQ(names(other).size(), 3U) << "the one before stays in use";
    EXPECT_THAT(names(database()), ElementsAre("one.csv", "two.csv"));
}

TEST_F(DatabaseTest, TheMapFollowsTheSoundingsAndTheDatabase) {
    const std::string world = makeGeography(path("world.sqlite"));
    configure("GeoDBPath", world);
    configure("SynopticMapTitle", "A campaign");
    start();
    open(makeSounding("one.csv"));
    const auto map = [this] { return window().findChild<SynopticWidget*>(); };
    const auto count = [&] { return map()->findChild<QLabel*>("_soundingCount")->text().toStdString(); };
    const auto title = [&] {
        for (const QGraphicsItem* item : map()->findChild<QMicroMap*>()->scene()->items()) {
            const auto* proxy = dynamic_cast<const QGraphicsProxyWidget*>(item);
            const auto* text = proxy == nullptr ? nullptr : qobject_cast<QLabel*>(proxy->widget());
            if (text != nullptr && text->text().endsWith(".sqlite")) {
                return text->text().toStdString();
            }
        }
        return std::string();
    };
    const auto geoDB = [this] {
        answers.forget();
        trigger("_actionAbout");
        return answers.texts().at(0);
    };
    trigger("_actionSynoptic");
    EXPECT_EQ(count(), "(0/1)");
    EXPECT_EQ(title(), "A campaign\n" + database());
    EXPECT_THAT(geoDB(), HasSubstr("<p>Geo Database: <b>" + world + "</b></p>"));
    open(makeSounding("two.csv"));
    trigger("_actionRecompute");
    EXPECT_EQ(count(), "(0/2)");

    answers.operate(kDialog, [this](QDialog& dialog) {
        dialog.findChild<QLineEdit*>("_pathEditor")->setText(QString::fromStdString(path("other.sqlite")));
        dialog.accept();
    });
    map()->findChild<QPushButton*>("_changeDB")->click();
    EXPECT_EQ(stored("SoundingDBPath"), path("other.sqlite"));
    EXPECT_EQ(count(), "(0/0)");
    EXPECT_EQ(title(), "A campaign\n" + path("other.sqlite"));
    trigger("_actionRecompute");
    EXPECT_EQ(count(), "(0/1)");
    EXPECT_THAT(names(path("other.sqlite")), ElementsAre("two.csv"));

    map()->parentWidget()->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return map() == nullptr; }, kPatience));
    EXPECT_THAT(geoDB(), HasSubstr("<p>Geo Database: <b>not open</b></p>"));
    choose("_menuWindow", "&1 one.csv");
    trigger("_actionRecompute");
    trigger("_actionSynoptic");
    EXPECT_EQ(count(), "(0/2)");
}

TEST_F(DatabaseTest, TwoWindowsAndABatchLoseNothing) {
    start();
    fs::create_directories(path("in"));
    std::set<std::string> all;
    for (int i = 0; i < 24; ++i) {
        const std::string name = "batch" + std::to_string(i) + ".csv";
        makeSounding("in/" + name);
        all.insert(name);
    }
    QProcess batch;
    batch.start(BATCH_PROGRAM, {"--jobs", "4", "--quiet", "--out", QString::fromStdString(path("out")), "--db",
                                QString::fromStdString(database()), QString::fromStdString(path("in"))});
    TarvoMainWindow second;
    second.show();
    for (int i = 0; i < 6; ++i) {
        const std::string name = "window" + std::to_string(i) + ".csv";
        open(makeSounding(name));
        all.insert(name);
        const std::string other = "second" + std::to_string(i) + ".csv";
        second.processFile(QString::fromStdString(makeSounding(other)));
        all.insert(other);
    }
    ASSERT_TRUE(batch.state() == QProcess::NotRunning || batch.waitForFinished(60000));
    EXPECT_EQ(batch.exitCode(), 0) << batch.readAllStandardError().toStdString();
    EXPECT_THAT(answers.boxes(), IsEmpty());
    const auto entered = names(database());
    EXPECT_EQ(std::set<std::string>(entered.begin(), entered.end()), all);
    EXPECT_EQ(entered.size(), all.size());
    EXPECT_EQ(number(database(), "select count(distinct sounding_id) from levels"), static_cast<int>(all.size()));
}
