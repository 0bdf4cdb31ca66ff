#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <string>

namespace {

/// A desktop that knows the file types of the system and ours.
class FileTypes : public testing::Test {
protected:
    static void SetUpTestSuite() {
        static QTemporaryDir data;
        ASSERT_TRUE(data.isValid());
        const QDir mime(data.path() + "/mime");
        ASSERT_TRUE(mime.mkpath("packages"));
        for (const QString& package : {QStringLiteral("/usr/share/mime/packages/freedesktop.org.xml"),
                                       QStringLiteral(TARVO_SOURCE_DIR "/resources/desktop/tarvo-mime.xml")})
            ASSERT_TRUE(QFile::copy(package, mime.filePath("packages/" + QFileInfo(package).fileName())));
        qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
        qputenv("XDG_DATA_DIRS", data.path().toLocal8Bit());
        qputenv("PKGSYSTEM_ENABLE_FSYNC", "0"); // a made desktop needn't survive a power cut
        QProcess update;
        update.start("update-mime-database", {mime.path()});
        ASSERT_TRUE(update.waitForFinished());
        ASSERT_EQ(update.exitCode(), 0) << update.readAllStandardError().toStdString();
        EXPECT_EQ(update.readAllStandardError().toStdString(), "");
    }

    static std::string typeOf(const QString& example) {
        return QMimeDatabase().mimeTypeForFile(TARVO_SOURCE_DIR "/examples/data/" + example).name().toStdString();
    }
    static std::string typeOf(const QString& name, const QByteArray& content) {
        return QMimeDatabase().mimeTypeForFileNameAndData(name, content).name().toStdString();
    }
};

TEST_F(FileTypes, OursAreKnownByTheirFirstLinesAndOthersKeepTheirTypes) {
    for (const char* drop : {"D20210801_120003.1", "D20100119_180708.4"}) {
        EXPECT_EQ(typeOf(drop), "application/x-tarvo-dfile") << "and no manual page";
    }
    EXPECT_EQ(typeOf("sonde", "OMBRA-T01 COM\n"), "application/x-tarvo-dfile");
    EXPECT_EQ(typeOf("sonde", "ACS-T04 COM\n"), "application/x-tarvo-dfile");
    EXPECT_EQ(typeOf("summer_up_20220705.csv"), "application/x-tarvo-csv");
    EXPECT_EQ(typeOf("prices.csv", "apples,3\npears,4\n"), "text/csv");
    EXPECT_EQ(typeOf("Dockerfile.1", ".TH DOCKER 1\n"), "application/x-troff-man");
    EXPECT_EQ(typeOf("notes.txt", "ACS is a word\n"), "text/plain");
}

} // namespace
