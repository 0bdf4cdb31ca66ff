// The database of soundings: how the window finds it, and what it enters there.

#include "DesktopTest.h"
#include "FilePathDialog.h"
#include "MadeGeography.h"
#include "SynopticWidget.h"

#include <QDialogButtonBox>
#include <QGraphicsProxyWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <filesystem>
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

const char* const kNotes = "no database at all, but longer than nothing\n";

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
    std::string asked;
    answers.operate(kDialog, [&asked](QDialog& dialog) {
        asked = dialog.findChild<QLabel*>("_memoLabel")->text().toStdString();
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    start();
    EXPECT_EQ(asked, "Select the sounding database. You can:\n"
                     "  - Browse to an existing file.\n"
                     "  - Browse to a directory, then enter the name of the database file to create.\n"
                     "  - Just hit OK, to use/create the default database file (soundings.sqlite)");
    EXPECT_THAT(answers.told(),
                ElementsAre("Tarvo Sounding Database Create: A valid sounding database was not specified.\n"
                            "Tarvo will create a database at: \n   \"" +
                            made + "\"."));
    EXPECT_EQ(stored("SoundingDBPath"), made);
    EXPECT_THAT(names(made), IsEmpty());
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
    change(path("other.sqlite"), "create table t (n integer)");
    const std::string other = readFile(path("other.sqlite"));
    configure("SoundingDBPath", path("other.sqlite"));
    start();
    EXPECT_THAT(answers.told(),
                ElementsAre("Invalid Database: The database file: \n   \"" + path("other.sqlite") +
                            "\" \nis not a valid sounding database.  Tarvo will create the default database for your "
                            "session at: \n   \"" +
                            path("soundings.sqlite") + "\" "));
    EXPECT_EQ(stored("SoundingDBPath"), path("soundings.sqlite"));
    EXPECT_EQ(readFile(path("other.sqlite")), other);

    writeFile(path("notes.txt"), kNotes);
    writeFile(path("soundings.sqlite"), kNotes);
    configure("SoundingDBPath", path("notes.txt"));
    answers.forget();
    start();
    ASSERT_EQ(answers.boxes().size(), 2U) << "the one beside it is none either";
    EXPECT_EQ(answers.boxes()[1].title, "Levels Database Error");
    open(makeSounding("one.csv"));
    EXPECT_EQ(answers.boxes().size(), 2U) << "work goes on without one";
    EXPECT_THAT(openFiles(), ElementsAre("one.csv"));
    EXPECT_EQ(readFile(path("notes.txt")), kNotes);
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
    trigger("_actionRecompute");
    const auto soundings = SoundingDB(database(), SQLITE_OPEN_READWRITE, "").getSoundings();
    ASSERT_EQ(soundings.size(), 1U);
    EXPECT_EQ(soundings[0].filename, fs::canonical(drop).string());
    EXPECT_EQ(soundings[0].soundingType, "Ombra") << "the type of a CSV file that comes down";
    EXPECT_GT(number(database(), "select count(*) from levels"), 3);
}

TEST_F(DatabaseTest, AFailureIsToldAndEndsNothing) {
    start();
    open(makeSounding("one.csv"));
    change(database(), "create trigger no_level before insert on levels begin select raise(abort, 'full'); end");
    const int before = number(database(), "select count(*) from levels");
    trigger("_actionRecompute");
    EXPECT_THAT(answers.told(), ElementsAre(AllOf(testing::StartsWith("Levels Database Error: "), HasSubstr(database()),
                                                  HasSubstr("full"))));
    EXPECT_EQ(number(database(), "select count(*) from levels"), before) << "the old ones stay";
}

TEST_F(DatabaseTest, OneThatIsDeletedInMidRunIsToldAndReplaced) {
    start();
    open(makeSounding("one.csv"));
    for (const char* end : {"", "-wal", "-shm"}) {
        fs::remove(database() + end);
    }
    open(makeSounding("two.csv"));
    EXPECT_THAT(answers.told(),
                ElementsAre("Sounding Database Error: Unable to add sounding \"" + path("two.csv") + kUnable));
    EXPECT_GT(inView<QTableWidget>("_levelsGrid").rowCount(), 0) << "the tabs are filled all the same";
    window().changeSoundingDB(QString::fromStdString(database())); // a new one there
    writeFile(path("soundings.sqlite"), kNotes);
    window().changeSoundingDB(QString::fromStdString(path("soundings.sqlite")));
    EXPECT_EQ(stored("SoundingDBPath"), database()) << "the one before stays in use";
    trigger("_actionRecompute");
    EXPECT_THAT(names(database()), ElementsAre("two.csv"));
    ASSERT_EQ(answers.boxes().size(), 2U);
    EXPECT_EQ(answers.boxes()[1].title, "Levels Database Error");
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
