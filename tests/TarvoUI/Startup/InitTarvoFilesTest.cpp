#include "InitTarvoFiles.h"

#include "QtText.h"
#include "StartedProgram.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

namespace fs = std::filesystem;

const QString kNoConfiguration = "Unable to open file: \"tarvo.xml\"\nTarvo will create a copy for you.";
const QString kOldManual = "Your TarvoManual.pdf appears to be out of date. Tarvo will update it.";
const QString kOldLog = "Your TarvoConfigLog.txt appears to be out of date. Tarvo will update it.";
const QString kOldTableB = "Your table_b_bufr appears to be out of date. Tarvo will update it.";
const QString kOldTableD = "Your table_d_bufr appears to be out of date. Tarvo will update it.";

std::string shippedConfiguration() {
    return readFile(TARVO_SOURCE_DIR "/resources/tarvo.xml");
}

std::string configurationOf(const std::string& versionLine) {
    return "<?xml version=\"1.0\"?>\n<!-- " + versionLine + "\n-->\n<mine/>\n";
}

bool ownerMayWrite(const fs::path& path) {
    return (fs::status(path).permissions() & fs::perms::owner_write) != fs::perms::none;
}

/// A home with the files of a first run in it.
class UsedHome {
public:
    UsedHome() { EXPECT_EQ(StartedProgram(STARTUP_PROGRAM, path()).exitStatus(), 0); }

    const fs::path& path() const { return _home.path(); }
    fs::path files() const { return path() / ".config" / "Tarvo"; }
    fs::path configuration() const { return files() / "tarvo.xml"; }
    fs::path settings() const { return files() / "TarvoQt.ini"; }

private:
    TemporaryFolder _home;
};

double versionOf(const std::string& text) {
    const TemporaryFolder folder;
    writeFile(folder / "any.xml", text);
    QFile file(QString::fromStdString((folder / "any.xml").string()));
    const double version = InitTarvoFiles::configVersion(&file);
    EXPECT_FALSE(file.isOpen());
    return version;
}

TEST(ConfigVersion, IsTheNumberBehindTheFirstMarker) {
    const std::pair<std::string, double> cases[] = {{"<!--\n  @version: 2.09\n-->\n@version: 3\n", 2.09},
                                                    {"x @version:10.5", 10.5},
                                                    {shippedConfiguration(), 2.09},
                                                    {"", -1.0},
                                                    {"@Version: 2.09\nversion: 3\n", -1.0},
                                                    {"@version: new", 0.0}};
    for (const auto& [text, version] : cases) {
        EXPECT_DOUBLE_EQ(versionOf(text), version) << text.substr(0, 40);
    }
    QFile missing("/nonexistent/tarvo.xml");
    EXPECT_DOUBLE_EQ(InitTarvoFiles::configVersion(&missing), -1.0);
}

TEST(InitTarvoFiles, FirstRunInAnEmptyHomeMakesEverything) {
    const TemporaryFolder home;
    const StartedProgram run(STARTUP_PROGRAM, home.path());

    EXPECT_EQ(run.exitStatus(), 0);
    EXPECT_EQ(run.boxTexts(), QStringList({kNoConfiguration, kOldManual, kOldLog, kOldTableB, kOldTableD}));
    EXPECT_EQ(run.boxes()[0].title, "Tarvo File Open");
    EXPECT_EQ(run.boxes()[1].title, "Tarvo File Update");
    EXPECT_EQ(run.boxes()[1].icon, QMessageBox::Warning);
    const fs::path files = home / ".config" / "Tarvo";
    EXPECT_EQ(readFile(files / "tarvo.xml"), shippedConfiguration());
    EXPECT_EQ(readFile(files / "TarvoConfigLog.txt"), readFile(TARVO_SOURCE_DIR "/resources/TarvoConfigLog.txt"));
    EXPECT_THAT(readFile(files / "TarvoManual.pdf"), StartsWith("%PDF-"));
    for (const char* name : {"table_b_bufr", "table_d_bufr"}) {
        EXPECT_EQ(readFile(files / name), readFile(std::string(TARVO_SOURCE_DIR "/resources/bufr/") + name));
    }
    for (const char* name : {"tarvo.xml", "TarvoConfigLog.txt", "TarvoManual.pdf", "table_b_bufr", "table_d_bufr"}) {
        EXPECT_TRUE(ownerMayWrite(files / name)) << name;
    }
    // Nothing but the five files and the settings: no unfinished copy stays.
    EXPECT_EQ(std::distance(fs::directory_iterator(files), fs::directory_iterator()), 6);
}

TEST(InitTarvoFiles, FirstRunWritesThePlacesIntoTheSettingsAndTheSecondIsSilent) {
    const UsedHome home;
    const std::string files = home.files().string();
    const std::string settings = readFile(home.settings());
    EXPECT_THAT(settings, HasSubstr("\nXMLdir=" + files + "/\n"));
    EXPECT_THAT(settings, HasSubstr("\nTarvoManual=" + files + "/TarvoManual.pdf\n"));
    EXPECT_THAT(settings, HasSubstr("\nConfigLog=" + files + "/TarvoConfigLog.txt\n"));
    EXPECT_THAT(settings, HasSubstr("\nBufrDir=" + files + "/\n"));
    const StartedProgram again(STARTUP_PROGRAM, home.path());
    EXPECT_EQ(again.exitStatus(), 0);
    EXPECT_EQ(again.boxTexts(), QStringList());
}

TEST(InitTarvoFiles, OlderConfigurationIsKeptUnderItsVersion) {
    const UsedHome home;
    writeFile(home.files() / "tarvo_0.25.xml", "an older backup");
    for (const auto& [line, backup, told] :
         {std::tuple{"@version: 2.5e-1", "0.25", "0.25"}, {"@version: 2.0", "2", "2.00"}, {"", "-1", "-1.00"}}) {
        const std::string mine = configurationOf(line);
        writeFile(home.configuration(), mine);
        EXPECT_EQ(StartedProgram(STARTUP_PROGRAM, home.path()).boxTexts(),
                  QStringList({QString("Your configuration file \"tarvo.xml\" has an older version of %1. Tarvo will "
                                       "upgrade it to the latest version of 2.09. Your original file will be renamed "
                                       "as \"tarvo_%1.xml\".")
                                   .arg(told)}));
        EXPECT_EQ(readFile(home.files() / ("tarvo_" + std::string(backup) + ".xml")), mine);
        EXPECT_EQ(readFile(home.configuration()), shippedConfiguration());
    }
    const std::string newer = configurationOf("@version: 10");
    writeFile(home.configuration(), newer);
    EXPECT_EQ(StartedProgram(STARTUP_PROGRAM, home.path()).boxTexts(), QStringList());
    EXPECT_EQ(readFile(home.configuration()), newer);
}

TEST(InitTarvoFiles, PlacesOfTheUserCountWhereverTheSettingsAre) {
    const TemporaryFolder home;
    const TemporaryFolder mine;
    const std::string folder = mine.path().string() + "/Höhe/";
    const std::string manual = mine.path().string() + "/read me.pdf";
    fs::create_directories(mine / "settings/Tarvo");
    const QString settings = QString::fromStdString((mine / "settings").string());
    writeFile(mine / "settings/Tarvo/TarvoQt.ini", "[General]\nXMLdir=" + folder + "\nTarvoManual=" + manual + "\n");
    EXPECT_EQ(StartedProgram(STARTUP_PROGRAM, home.path(), {}, settings).exitStatus(), 0);
    EXPECT_EQ(readFile(folder + "tarvo.xml"), shippedConfiguration());
    EXPECT_TRUE(fs::exists(manual));
    EXPECT_TRUE(fs::exists(folder + "TarvoConfigLog.txt"));
    EXPECT_FALSE(fs::exists(home / ".config"));

    writeFile(mine / "settings/Tarvo/TarvoQt.ini", "[General]\nXMLdir=\n");
    EXPECT_EQ(StartedProgram(STARTUP_PROGRAM, home.path(), {}, settings).exitStatus(), 0);
    EXPECT_EQ(readFile(home / ".config/Tarvo/tarvo.xml"), shippedConfiguration());
}

TEST(InitTarvoFiles, FolderBelowAMissingOneEndsTheProgram) {
    const TemporaryFolder home;
    const std::string folder = (home / "a/b").string();
    fs::create_directories(home / ".config/Tarvo");
    writeFile(home / ".config/Tarvo/TarvoQt.ini", "[General]\nXMLdir=" + folder + "/\n");

    const StartedProgram run(STARTUP_PROGRAM, home.path());
    EXPECT_EQ(run.exitStatus(), 1);
    const QString fatal = "Fatal: Tarvo is unable to create the directory " + QString::fromStdString(folder) +
                          " for :tarvo.xml. \nHint: check your directory permissions.";
    EXPECT_EQ(run.boxTexts(), QStringList({kNoConfiguration, fatal}));
    EXPECT_EQ(run.boxes()[1].title, "Tarvo Fatal Error");
    EXPECT_EQ(run.boxes()[1].icon, QMessageBox::Critical);
}

} // namespace
