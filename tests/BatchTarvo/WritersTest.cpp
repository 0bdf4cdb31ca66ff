// What every writer of the tool leaves behind when the disk fills up, the run is killed, or nothing may be written.

#include "BatchTool.h"
#include "TimeLimit.h"

#include <chrono>
#include <gmock/gmock.h>
#include <map>
#include <thread>

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

const std::string kEvery = "raw-csv,qc-csv,raw-trv,qc-trv,raw-zor,qc-zor,qc-frd,raw-nc,qc-nc,qc-bfr,wmo,levels,summary,"
                           "skewt-svg,skewt-png";
const std::string kDrop = example("D20210914_043120.2");
const std::string kTime = "TARVO_OVERRIDE_PROCESSING_TIME=1627819203";

class Writers : public testing::Test {
protected:
    Writers() {
        fs::permissions(folder.path(), fs::perms(0755)); // for another user to look at
        tool(folder, "--quiet --out whole --formats " + kEvery + " " + kDrop, kTime);
        whole = filesIn("whole");
        for (auto& [name, text] : whole) {
            text = comparable(name, text);
        }
    }
    std::map<std::string, std::string> filesIn(const char* name) const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(folder / name)) {
            files[entry.path().filename().string()] = readFile(entry.path());
        }
        return files;
    }
    /// The summary tells how long the steps took.
    static std::string comparable(const std::string& name, const std::string& text) {
        return name.find("Summary") == std::string::npos ? text : text.substr(0, text.find("Processing Steps"));
    }
    /// Nothing in the folder but products, each as it is in a run that goes well. Returns how many there are.
    std::size_t countWhole(const char* name, bool mayBeHidden = false) const {
        std::size_t found = 0;
        for (const auto& [file, text] : filesIn(name)) {
            if (mayBeHidden && file[0] == '.') {
                continue;
            }
            EXPECT_EQ(whole.count(file), 1U) << "left behind: " << file;
            EXPECT_TRUE(whole.count(file) == 1 && comparable(file, text) == whole.at(file)) << "not whole: " << file;
            ++found;
        }
        return found;
    }

    TemporaryFolder folder;
    std::map<std::string, std::string> whole;
};

} // namespace

TEST_F(Writers, AFullDiskLeavesWholeProductsOnly) {
    ASSERT_EQ(whole.size(), 15U);
    std::size_t before = 0;
    for (const int kib : {1, 20, 100, 300, 2000}) { // the smallest product has 1 KiB, the greatest 1 MiB
        SCOPED_TRACE(kib);
        fs::remove_all(folder / "out");
        const std::string limited =
            "sh -c 'trap \"\" XFSZ; ulimit -f " + std::to_string(2 * kib) + "; exec \"$0\" \"$@\"'";
        const Outcome outcome =
            tool(folder, "--quiet --out out --report - --formats " + kEvery + " " + kDrop, kTime + " " + limited);
        const std::size_t written = countWhole("out");
        EXPECT_GE(written, before);
        before = written;
        EXPECT_EQ(outcome.status, written == whole.size() ? 0 : 1);
        if (kib > 1) { // or the report isn't whole either
            EXPECT_EQ(reportLines(outcome.out).at(0)["products"].size(), written) << "it tells what is there";
        }
        EXPECT_TRUE(written == whole.size() || outcome.err.find("can't be written") != std::string::npos);
    }
    EXPECT_EQ(before, whole.size());
}

TEST_F(Writers, AKilledRunLeavesWholeProductsOnly) {
    setenv("TARVO_OVERRIDE_PROCESSING_TIME", "1627819203", 1);
    const auto begun = [this] {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder / "killed"), {}));
    };
    std::size_t some = 0;
    for (std::size_t i = 0; i < 12; ++i) {
        fs::remove_all(folder / "killed");
        fs::create_directory(folder / "killed");
        RunningTool run(folder, {"--quiet", "--jobs", "1", "--out", "killed", "--formats", kEvery,
                                 (kExamples / "D20210914_043120.2").string()});
        const auto longest = std::chrono::steady_clock::now() + std::chrono::milliseconds(kPatience);
        while (begun() < 2 + i && std::chrono::steady_clock::now() < longest) {
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
        run.end(SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(50)); // its worker goes with it
        const std::size_t written = countWhole("killed", true);
        some += written > 0 && written < whole.size() ? 1 : 0;
    }
    unsetenv("TARVO_OVERRIDE_PROCESSING_TIME");
    EXPECT_GT(some, 2U) << "of the kills fell between the products";
}

TEST_F(Writers, WhatMayNotBeWrittenStaysAsItIs) {
    const std::string nobody = geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "";
    if (tool(folder, "--version", nobody).status != 0) {
        GTEST_SKIP() << "no other user can run the program where it is built";
    }
    fs::permissions(folder / "whole", fs::perms(0555));
    const auto before = filesIn("whole");
    const Outcome outcome =
        tool(folder, "--quiet --out whole --report - --formats " + kEvery + " " + kDrop, kTime + " " + nobody);
    fs::permissions(folder / "whole", fs::perms(0755));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(filesIn("whole") == before);
    EXPECT_THAT(reportLines(outcome.out).at(0)["products"], IsEmpty());
    EXPECT_THAT(outcome.err, HasSubstr("can't be written: whole/D20210914_043120QC.csv"));
}
