// A message goes over a line: Kermit of Debian on a pair of pseudo-terminals, with a receiver that isn't ours.

#include "CommView.h"
#include "FullDisk.h"
#include "OpenSounding.h"
#include "TemporaryFolder.h"
#include "TimeLimit.h"
#include "WMO.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QtTest/QtTest>
#include <filesystem>
#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class Transmission : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(folder / "temporary");
        fs::create_directories(folder / "received");
        temporaryBefore = qgetenv("TMPDIR");
        qputenv("TMPDIR", path("temporary").toLocal8Bit());
    }
    void TearDown() override {
        temporaryBefore.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", temporaryBefore);
        for (QProcess* process : {&receiver, &line}) {
            process->kill();
            process->waitForFinished(2000);
        }
    }

    QString path(const char* name) const { return QString::fromStdString((folder / name).string()); }
    /// The tab, with that program for Kermit and that port.
    CommView& open(const QString& kermit, const QString& port) {
        sounding.config.set("KermitPath", kermit.toStdString());
        view = std::make_unique<CommView>(&sounding.doc, &sounding.printer, nullptr);
        view->show();
        view->findChild<QComboBox*>("_commPort")->setEditText(port);
        return *view;
    }
    void press(const char* name) { QTest::mouseClick(view->findChild<QPushButton*>(name), Qt::LeftButton); }
    QString status() const { return view->findChild<QLabel*>("_sendStatus")->text(); }
    QString clearText() const { return view->findChild<QPushButton*>("_sendClear")->text(); }
    std::vector<std::string> temporaryFiles() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder / "temporary")) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }
    /// The informative text of the box that came up, which goes.
    std::string box() {
        auto* shown = view->findChild<QMessageBox*>();
        if (shown == nullptr) {
            return "";
        }
        EXPECT_EQ(shown->windowTitle(), "ARWO Error");
        EXPECT_EQ(shown->text(), "The WMO message transfer to the ARWO failed.");
        EXPECT_FALSE(shown->isModal());
        const std::string text = shown->informativeText().toStdString();
        delete shown;
        return text;
    }
    std::string message() {
        std::string text;
        for (const std::string& part : sounding.editor().wmo()->textLines()) {
            text += part + "\r\n";
        }
        return text;
    }

    const std::string kAdvice = "Is the ARWO computer available? \n\nAre the com port and baud rate set correctly? \n\n"
                                "Is kermit installed and the correct path set?";
    TemporaryFolder folder;
    QByteArray temporaryBefore;
    OpenedSounding sounding{"D20210801_120003.1"};
    std::unique_ptr<CommView> view;
    QProcess line;
    QProcess receiver;
};

} // namespace

TEST_F(Transmission, TheMessageArrivesWhereThereIsAPort) {
    for (const char* program : {"kermit", "socat", "rz"}) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            GTEST_SKIP() << program << " is not installed";
        }
    }
    open(QStandardPaths::findExecutable("kermit"), "/dev/nowhere");
    press("_sendMsg");
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == "ARWO message transfer failed"; }, kPatience))
        << status().toStdString();
    EXPECT_EQ(box(), kAdvice);

    line.start("socat", {"pty,raw,echo=0,link=" + path("a"), "pty,raw,echo=0,link=" + path("b")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return fs::exists(folder / "a") && fs::exists(folder / "b"); }, kPatience));
    receiver.setWorkingDirectory(path("received"));
    receiver.start("sh", {"-c", "exec rz -b <'" + path("b") + "' >'" + path("b") + "'"});
    ASSERT_TRUE(receiver.waitForStarted());

    view->findChild<QComboBox*>("_commPort")->setEditText(path("a"));
    press("_sendMsg");
    ASSERT_TRUE(QTest::qWaitFor([&] { return clearText() == "Cancel"; }, kPatience)) << status().toStdString();
    EXPECT_EQ(temporaryFiles().size(), 1U);
    EXPECT_FALSE(view->findChild<QPushButton*>("_sendMsg")->isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == "ARWO message transfer success"; }, kPatience))
        << status().toStdString();
    EXPECT_EQ(clearText(), "Clear");
    EXPECT_THAT(temporaryFiles(), IsEmpty());
    EXPECT_TRUE(view->findChild<QPushButton*>("_sendMsg")->isEnabled());
    receiver.waitForFinished(kPatience);
    const auto files = QDir(path("received")).entryList(QDir::Files);
    ASSERT_EQ(files.size(), 1);
    EXPECT_EQ(readFile(folder / "received" / files[0].toStdString()), message());
    EXPECT_EQ(box(), "");
    press("_sendClear");
    EXPECT_EQ(status(), "");
}

TEST_F(Transmission, TheSenderHasToSayThatItIsComplete) {
    const std::pair<const char*, bool> cases[] = {
        {"exit 0", true},
        {"echo C-Kermit 10.0; echo Transfer complete >&2", true},
        {"echo C-Kermit 10.0; echo Transfer incomplete >&2", false},
        {"echo C-Kermit 10.0; echo '?SET SPEED has no effect without prior SET LINE'", false},
        {"echo C-Kermit 10.0; echo Transfer complete >&2; exit 1", false},
        {"test \"$LC_ALL\" = C", true}};
    for (const auto& [commands, success] : cases) {
        writeFile(folder / "program", std::string("#!/bin/sh\n") + commands + "\n");
        fs::permissions(folder / "program", fs::perms::owner_all);
        open(path("program"), "com1");
        press("_sendMsg");
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return clearText() == "Clear" && !status().startsWith("Starting"); }, kPatience));
        EXPECT_EQ(status() == "ARWO message transfer success", success) << commands;
        EXPECT_EQ(box(), success ? "" : kAdvice);
    }
}

TEST_F(Transmission, CancelEndsIt) {
    writeFile(folder / "slow", "#!/bin/sh\nexec sleep 60\n");
    fs::permissions(folder / "slow", fs::perms::owner_all);
    open(path("slow"), "com1");
    press("_sendMsg");
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == "ARWO message transfer started"; }, kPatience));
    EXPECT_EQ(clearText(), "Cancel");
    EXPECT_EQ(temporaryFiles().size(), 1U);
    press("_sendClear");
    EXPECT_EQ(clearText(), "Clear");
    EXPECT_EQ(status(), "");
    EXPECT_THAT(temporaryFiles(), IsEmpty());
    EXPECT_EQ(box(), "") << "no failure";
    press("_sendMsg");
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == "ARWO message transfer started"; }, kPatience));
    view.reset(); // the tab goes while a transfer runs
    EXPECT_THAT(temporaryFiles(), IsEmpty());
}

TEST_F(Transmission, FailuresAreTold) {
    writeFile(folder / "failing", "#!/bin/sh\nexit 3\n");
    fs::permissions(folder / "failing", fs::perms::owner_all);
    open(path("failing"), "/dev/nowhere");
    press("_sendMsg");
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == "ARWO message transfer failed"; }, kPatience));
    EXPECT_EQ(box(), kAdvice);
    EXPECT_THAT(temporaryFiles(), IsEmpty());

    writeFile(folder / "failing", "#!/bin/sh\nkill -9 $$\n"); // dies in the middle
    press("_sendMsg");
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == "ARWO message transfer failed"; }, kPatience));
    EXPECT_EQ(clearText(), "Clear");
    EXPECT_EQ(box(), "");
    EXPECT_THAT(temporaryFiles(), IsEmpty());
    EXPECT_TRUE(view->findChild<QPushButton*>("_sendMsg")->isEnabled());

    fs::remove(folder / "failing"); // it has gone since the tab was opened
    press("_sendMsg");
    ASSERT_TRUE(QTest::qWaitFor([&] { return status() == "ARWO message transfer failed"; }, kPatience));
    EXPECT_EQ(box(), kAdvice);
    EXPECT_THAT(temporaryFiles(), IsEmpty());
}

TEST_F(Transmission, AFullDisk) {
    writeFile(folder / "ok", "#!/bin/sh\nexit 0\n");
    fs::permissions(folder / "ok", fs::perms::owner_all);
    open(path("ok"), "com1");
    {
        const FullDisk disk(0);
        press("_sendMsg");
    }
    EXPECT_EQ(box(), "Cannot create temporary file to hold the WMO message.");
    EXPECT_THAT(temporaryFiles(), IsEmpty());
}

TEST(ZmodemProcess, Commands) {
    EXPECT_EQ(
        ZmodemProcess("/usr/bin/kermit", "/tmp/m.txt", "com1", "9600").commands(),
        "set line com1,set speed 9600,set serial 8N1,set protocol zmodem,set carrier off,set flow-control none,send "
        "/tmp/m.txt,quit");
}
