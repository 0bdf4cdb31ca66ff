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

TEST_F(FileManagerTest, OnlyAMissingFileIsCopied) {
    Managed(_user, _resource).checkExistence(false);
    EXPECT_EQ(readFile(_user), "ours");
    writeFile(_user, "mine");
    Managed(_user, _resource).checkExistence(true);
    EXPECT_EQ(readFile(_user), "mine");
    EXPECT_TRUE(_answers.boxes().empty());
}

TEST_F(FileManagerTest, BackupNameGetsItsVersionBeforeTheLastExtension) {
    writeFile(_user, "mine");
    Managed(_user, _resource).upgradeVersion(1.2345678);
    EXPECT_EQ(readFile(_folder / "mine.v1_1.23457.txt"), "mine");
    EXPECT_EQ(readFile(_user), "ours");
    writeFile(_folder / "plain", "mine");
    Managed(_folder / "plain", _resource).upgradeVersion(3.0);
    EXPECT_EQ(readFile(_folder / "plain_3"), "mine");
}

TEST_F(FileManagerTest, WithoutItsResourceTheFileStays) {
    writeFile(_user, "mine");
    Managed(_user, ":nothing.txt").upgradeVersion(1.0);
    EXPECT_EQ(readFile(_user), "mine");
    EXPECT_EQ(readFile(_folder / "mine.v1_1.txt"), "mine");
    Managed(_user, ":nothing.txt").updateFile();
    EXPECT_EQ(readFile(_user), "mine");
    ASSERT_THAT(_answers.told(), testing::ElementsAre("Tarvo File Update: Unable to access the resource :nothing.txt"));
}

TEST_F(FileManagerTest, UpdateGoesBySizeAlone) {
    writeFile(_user, "mine"); // as long as "ours"
    Managed(_user, _resource).updateFile();
    EXPECT_EQ(readFile(_user), "mine");
    EXPECT_TRUE(_answers.boxes().empty());

    writeFile(_user, "mine, longer");
    Managed(_user, _resource).updateFile();
    EXPECT_EQ(readFile(_user), "ours");
    ASSERT_THAT(
        _answers.told(),
        testing::ElementsAre("Tarvo File Update: Your mine.v1.txt appears to be out of date. Tarvo will update it."));
}

TEST_F(FileManagerTest, UpdateMakesAMissingFileEvenOfAnEmptyResource) {
    writeFile(_resource, "");
    Managed(_user, _resource).updateFile();
    EXPECT_TRUE(fs::exists(_user));
    EXPECT_EQ(_answers.boxes().size(), 1U);
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

struct Fatal {
    const char* source;
    const char* destination;
    const char* message;
};

/// A path of the table below; those that begin with "+" stand in the folder.
QString placed(const char* path, const TemporaryFolder& folder) {
    return path[0] == '+' ? pathText(folder / (path + 1)) : QString(path);
}

TEST_F(FileManagerTest, EveryFailureOfACopyEndsTheProgram) {
    fs::create_directories(_folder / "taken/inside");
    constexpr Fatal kCases[] = {
        {"+missing.txt", "+copy.txt", "Tarvo is unable to read the file %1."},
        {"+resource.txt", "+a/b/copy.txt", "Tarvo is unable to create the directory %3 for %1."},
        {"+resource.txt", "+taken", "Tarvo is unable to create the file %2."},
    };
    for (const Fatal& fatal : kCases) {
        const QString source = placed(fatal.source, _folder);
        const QString destination = placed(fatal.destination, _folder);
        const StartedProgram run(STARTUP_PROGRAM, _folder.path(), {source, destination});
        const QString message = QString(fatal.message)
                                    .replace("%1", source)
                                    .replace("%2", destination)
                                    .replace("%3", pathText(fs::path(destination.toStdString()).parent_path()));
        EXPECT_EQ(run.exitStatus(), 1) << fatal.message;
        EXPECT_EQ(run.boxTexts(), QStringList({"Fatal: " + message + " \nHint: check your directory permissions."}));
    }
    // The folder in the way, and no unfinished copy beside it.
    EXPECT_EQ(_folder.size(), 2);
    EXPECT_TRUE(fs::is_directory(_folder / "taken/inside"));
}

} // namespace
