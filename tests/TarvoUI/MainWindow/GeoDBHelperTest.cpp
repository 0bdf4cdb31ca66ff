// How the geographic database is found.

#include "GeoDBHelper.h"
#include "DesktopTest.h"
#include "FilePathDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <sqlite3.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class GeoDBHelperTest : public DesktopTest {
protected:
    std::unique_ptr<SpatiaLiteDB> find() {
        RegistryXML registry(configFile(), "");
        TarvoConfigSet set(&registry);
        return GeoDBHelper::getDB(nullptr, set);
    }
    void answerPath(const std::string& typed) {
        answers.operate("Tarvo - Browse for Geographic Database", [this, typed](QDialog& dialog) {
            asked = dialog.findChild<QLabel*>("_memoLabel")->text().toStdString();
            QTest::keyClicks(dialog.findChild<QLineEdit*>("_pathEditor"), QString::fromStdString(typed));
            const auto button = typed.empty() ? QDialogButtonBox::Cancel : QDialogButtonBox::Ok;
            QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
        });
    }
    void make(const char* name, const char* sql) {
        SQLiteDB(path(name), false, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE).exec(sql);
    }

    std::string asked;
};

const char* const kEnd = "\nThe Tarvo synoptic tool is not available.\n"
                         "(Use the configuration editor to specify the correct database.)";

} // namespace

TEST_F(GeoDBHelperTest, AMissingOneIsAskedFor) {
    answerPath("");
    EXPECT_EQ(find(), nullptr);
    EXPECT_EQ(asked,
              "Tarvo synoptic tool requires a geographic database. Tarvo \ncannot open the database currently "
              "specified at: \n\"C:\\ne1to50m.sqlite\".\n\nPlease locate the geographic database that comes with "
              "Tarvo \ninstallation. The database is named \"ne1to50m.sqlite\" and \nit is normally found in the "
              "directory \"\\Geodata\" under the \nmain Tarvo installation directory on your computer.");
    EXPECT_THAT(
        answers.told(),
        ElementsAre(
            "Tarvo Geographic Database Error: A valid geographic database was not specified at C:\\ne1to50m.sqlite. " +
            std::string(kEnd)));
    EXPECT_EQ(stored("GeoDBPath"), "C:\\ne1to50m.sqlite");

    answers.forget();
    make("world.sqlite", "create table land (name text, GEOMETRY blob)");
    answerPath(path("world.sqlite"));
    const auto db = find();
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(db->dbPath(), path("world.sqlite"));
    EXPECT_EQ(stored("GeoDBPath"), path("world.sqlite"));
    EXPECT_THAT(answers.boxes(), IsEmpty());
}

TEST_F(GeoDBHelperTest, OneWithoutGeometryIsRefused) {
    make("plain.sqlite", "create table t (n integer)");
    writeFile(path("notes.sqlite"), "no database at all, but longer than nothing\n");
    for (const char* name : {"plain.sqlite", "notes.sqlite"}) {
        answers.forget();
        configure("GeoDBPath", path(name));
        EXPECT_EQ(find(), nullptr);
        EXPECT_THAT(answers.texts(), ElementsAre("The file at " + path(name) +
                                                 " does not contain a valid Tarvo geographic database." + kEnd));
    }
    EXPECT_FALSE(GeoDBHelper::validDB(nullptr));
}
