#include "FileManager.h"

#include "ModalAnswers.h"
#include "QtText.h"
#include "StartedProgram.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;

QString pathText(const fs::path& path) {
    return QString::fromStdString(path.string());
}

/// A file that the program brings along, and the place of the user's copy.
class FileManagerTest : public testing::Test {
protected:
    FileManagerTest() { writeFile(_resource, "ours"); }

    TemporaryFolder _folder;
    fs::path _resource = _folder / "resource.txt";
    fs::path _user = _folder / "mine.v1.txt";
    ModalAnswers _answers;
};

/// A manager of the file of a user.
class Managed : public FileManager {
public:
    Managed(const fs::path& user, const fs::path& resource) : FileManager(pathText(user), pathText(resource)) {}
};

TEST_F(FileManagerTest, BackupNameGetsItsVersionBeforeTheLastExtension) {
    writeFile(_user, "mine");
    Managed(_user, _resource).upgradeVersion(1.2345678);
    EXPECT_EQ(readFile(_folder / "mine.v1_1.23457.txt"), "mine");
    EXPECT_EQ(readFile(_user), "ours");
    writeFile(_folder / "plain", "mine");
    Managed(_folder / "plain", _resource).upgradeVersion(3.0);
    EXPECT_EQ(readFile(_folder / "plain_3"), "mine");
}

TEST_F(FileManagerTest, UpdateGoesBySizeAlone) {
    writeFile(_user, "mine"); // as long as "ours"
    Managed(_user, _resource).updateFile();
    EXPECT_EQ(readFile(_user), "mine");
    EXPECT_TRUE(_answers.boxes().empty());

    writeFile(_user, "mine, longer");
    Managed(_user, _resource).updateFile();
    EXPECT_EQ(readFile(_user), "ours");

    Managed(_user, ":nothing.txt").updateFile();
    EXPECT_EQ(readFile(_user), "ours");
    EXPECT_THAT(
        _answers.told(),
        testing::ElementsAre("Tarvo File Update: Your mine.v1.txt appears to be out of date. Tarvo will update it.",
                             "Tarvo File Update: Unable to access the resource :nothing.txt"));
}

TEST_F(FileManagerTest, ACopyIsWritableMakesOneFolderAndReplacesAReadOnlyFile) {
    fs::permissions(_resource, fs::perms::owner_read);
    writeFile(_user, "mine");
    fs::permissions(_user, fs::perms::owner_read);
    for (const fs::path& copy : {_user, _folder / "new/copy.txt"}) {
        Managed(_user, _resource).copyFile(pathText(_resource), pathText(copy));
        EXPECT_EQ(readFile(copy), "ours");
        EXPECT_NE(fs::status(copy).permissions() & fs::perms::owner_write, fs::perms::none);
    }
    EXPECT_EQ(_folder.size(), 3) << "and nothing beside them";
}

TEST_F(FileManagerTest, EveryFailureOfACopyEndsTheProgram) {
    fs::create_directories(_folder / "taken/inside");
    const std::string missing = (_folder / "missing.txt").string();
    const std::string taken = (_folder / "taken").string();
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {missing, (_folder / "copy.txt").string(), "read the file " + missing},
        {_resource.string(), taken, "create the file " + taken},
    };
    for (const auto& [source, destination, failure] : cases) {
        const StartedProgram run(STARTUP_PROGRAM, _folder.path(), {pathText(source), pathText(destination)});
        EXPECT_EQ(run.exitStatus(), 1);
        EXPECT_EQ(run.boxTexts(), QStringList({QString::fromStdString("Fatal: Tarvo is unable to " + failure +
                                                                      ". \nHint: check your directory permissions.")}));
    }
    // The folder in the way, and no unfinished copy beside it.
    EXPECT_EQ(_folder.size(), 2);
    EXPECT_TRUE(fs::is_directory(_folder / "taken/inside"));
}

} // namespace
