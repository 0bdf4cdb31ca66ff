// The desktop over a long day, and on a disk that fills up.

#include "DesktopTest.h"
#include "FullDisk.h"

#include <QLineEdit>
#include <QPixmapCache>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <malloc.h>

namespace {

namespace fs = std::filesystem;

const char* const kDrop = "D20210914_043120.2";
const char* const kFormats[] = {"QCAutoSaveFmtZor",    "QCAutoSaveFmtFrd",    "QCAutoSaveFmtTrv",
                                "QCAutoSaveFmtNc",     "QCAutoSaveFmtCsv",    "QCAutoSaveFmtBufr",
                                "SkewtAutoSaveFmtPng", "SkewtAutoSaveFmtJpg", "SkewtAutoSaveFmtSvg",
                                "WmoAutoSaveFmtTxt",   "WmoAutoSaveFmtCsv",   "SumAutoSaveFmtTxt"};

class SoakTest : public DesktopTest {
protected:
    /// Qt keeps up to 10 MiB of pictures, and of those that are cleared their names for longer: without room it keeps
    /// none.
    SoakTest() { QPixmapCache::setCacheLimit(0); }
    ~SoakTest() override { QPixmapCache::setCacheLimit(_pictures); }

    /// A working day of one sounding: opened, looked at, changed, recomputed and closed.
    void workOn(const char* sounding) {
        open(example(sounding));
        auto& tabs = *view().tabs();
        for (int i = 0; i < tabs.count(); ++i) {
            tabs.setCurrentIndex(i);
            QCoreApplication::processEvents();
        }
        QTest::keyClicks(&inView<QLineEdit>("_overridePres"), "481");
        trigger("_actionRecompute");
        trigger("_actionCloseAll");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        answers.forget();
    }
    /// What this process has of its own, KiB.
    static long memory() {
        malloc_trim(0);
        std::ifstream status("/proc/self/status");
        for (std::string word; status >> word;) {
            if (word == "RssAnon:") {
                long kib = 0;
                status >> kib;
                return kib;
            }
        }
        return 0;
    }

private:
    const int _pictures = QPixmapCache::cacheLimit();
};

} // namespace

TEST_F(SoakTest, MemoryStaysFlat) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer keeps what is freed";
#endif
    const char* const count = std::getenv("TARVO_SOAK_SOUNDINGS");
    const int soundings = count == nullptr ? 40 : std::atoi(count);
    start();
    for (int i = 0; i < 10; ++i) {
        workOn(kDrop);
    }
    const long before = memory();
    for (int i = 0; i < soundings; ++i) {
        workOn(i % 2 == 0 ? kDrop : "D20210801_120003.1");
    }
    const long after = memory();
    std::cout << "memory of its own: " << before << " KiB, after " << soundings << " more soundings " << after
              << " KiB\n";
    EXPECT_LT(after - before, 1024) << "a sounding has some 3 MiB";
}

TEST_F(SoakTest, AFullDiskLeavesWholeProductsOnly) {
    const fs::path saved = path("saved");
    fs::create_directories(saved);
    configure("QCAutoSaveDir", saved.string());
    for (const char* format : kFormats) {
        configure(format, 1.0);
    }
    start();
    open(example(kDrop));
    EXPECT_TRUE(fs::is_empty(saved)) << "off until it is enabled";
    trigger("_actionClose");
    configure("QCAutoSaveEnable", 1.0);
    open(example(kDrop));
    std::map<std::string, std::uintmax_t> whole;
    for (const auto& entry : fs::directory_iterator(saved)) {
        whole[entry.path().filename().string()] = entry.file_size();
    }
    ASSERT_EQ(whole.size(), std::size(kFormats));
    for (const int kib : {0, 1, 50, 150}) {
        SCOPED_TRACE(kib);
        fs::remove_all(saved);
        fs::create_directories(saved);
        answers.forget();
        {
            const FullDisk disk(static_cast<rlim_t>(kib) * 1024);
            trigger("_actionRecompute");
        }
        std::cerr.clear();
        std::size_t written = 0;
        for (const auto& entry : fs::directory_iterator(saved)) {
            const std::string name = entry.path().filename().string();
            ASSERT_EQ(whole.count(name), 1U) << "left behind: " << name;
            // A picture, and a text with times of the clock, differ a little from one save to the next.
            EXPECT_NEAR(static_cast<double>(entry.file_size()), static_cast<double>(whole[name]),
                        0.03 * static_cast<double>(whole[name]))
                << name;
            ++written;
        }
        EXPECT_LT(written, whole.size());
        const auto boxes = answers.boxes();
        const auto told =
            std::count_if(boxes.begin(), boxes.end(), [](const auto& box) { return box.title == "File Save Error"; });
        EXPECT_EQ(static_cast<std::size_t>(told), whole.size() - written) << "each loss is told";
    }
}
