#include "WorkerPool.h"
#include "AtomicFile.h"
#include "BatchPlan.h"

#include "CsvText.h"
#include "MadeConfig.h"
#include "TemporaryFolder.h"

#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

bool writeNote(AnalysedSounding&, const std::string& path) {
    AtomicFile file(path);
    file.stream() << "written";
    return file.commit();
}

bool crash(AnalysedSounding&, const std::string& path) {
    AtomicFile file(path);
    file.stream() << "half" << std::flush;
    std::signal(SIGABRT, SIG_DFL);
    std::raise(SIGKILL);
    return true;
}

bool hang(AnalysedSounding&, const std::string& path) {
    AtomicFile file(path);
    file.stream() << "half" << std::flush;
    std::this_thread::sleep_for(1h);
    return true;
}

bool fail(AnalysedSounding&, const std::string&) {
    return false;
}

const BatchFormat kWrites{"note", "Note.txt", nullptr, BatchFormat::Nothing, &writeNote};
const BatchFormat kCrashes{"crash", "Crash.txt", nullptr, BatchFormat::Nothing, &crash};
const BatchFormat kHangs{"hang", "Hang.txt", nullptr, BatchFormat::Nothing, &hang};
const BatchFormat kFails{"fail", "Fail.txt", nullptr, BatchFormat::Nothing, &fail};

struct Batch {
    Batch() {
        CsvText text(false);
        text.fields("Time,Pressure").data("0,500").data("1,501");
        writeFile(folder / "drop.csv", text.text());
    }
    BatchJob job(const BatchFormat& format) const {
        BatchJob job;
        job.input = (folder / "drop.csv").string();
        job.products.push_back({&format, (folder / ("drop" + std::string(format.suffix))).string()});
        return job;
    }
    int run(const std::vector<BatchJob>& jobs, double timeout = 60.0) {
        reports.assign(jobs.size(), {});
        return WorkerPool({2, timeout}, config.set).run(jobs, [this](std::size_t index, const FileReport& report) {
            reports[index] = report;
        });
    }
    TemporaryFolder folder;
    MadeConfig config;
    std::vector<FileReport> reports;
};

} // namespace

TEST(WorkerPool, ACrashOrAFailureCostsOneFile) {
    Batch batch;
    std::vector<BatchJob> jobs(450, batch.job(kWrites)); // more than one process takes
    jobs[120] = batch.job(kCrashes);
    jobs[121] = batch.job(kFails);
    jobs[122].input += ".absent";
    jobs[123].refusal = "refused";
    EXPECT_EQ(batch.run(jobs), 0);

    for (std::size_t i = 0; i < jobs.size(); ++i) {
        ASSERT_EQ(batch.reports[i].failed, i >= 120 && i <= 123) << i << " " << batch.reports[i].error;
    }
    EXPECT_THAT(batch.reports[120].error, HasSubstr("crashed"));
    EXPECT_TRUE(batch.reports[121].valid);
    EXPECT_THAT(batch.reports[121].error, HasSubstr("can't be written"));
    EXPECT_THAT(batch.reports[122].error, HasSubstr("No such file"));
    EXPECT_EQ(batch.reports[123].error, "refused");
    EXPECT_EQ(batch.reports[124].type, "Ombra");
    EXPECT_THAT(batch.reports[124].products, ElementsAre((batch.folder / "dropNote.txt").string()));
    EXPECT_EQ(batch.folder.size(), 2) << "the input and one product";
}

TEST(WorkerPool, AHangEndsWithItsTimeAndLeavesNothing) {
    Batch batch;
    std::filesystem::create_directory(batch.folder / "elsewhere");
    std::filesystem::create_symlink("elsewhere/target.txt", batch.folder / "dropHang.txt");
    EXPECT_EQ(batch.run({batch.job(kHangs), batch.job(kWrites)}, 1.0), 0);
    EXPECT_EQ(batch.reports[0].error, "Timed out after 1 s");
    EXPECT_FALSE(batch.reports[1].failed);
    EXPECT_TRUE(std::filesystem::is_empty(batch.folder / "elsewhere")) << "not even behind the link";
    EXPECT_EQ(batch.folder.size(), 4) << "the input, the link and its folder, and one product";
}

TEST(WorkerPool, AStopLeavesNothingHalfWritten) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        Batch batch;
        const pid_t pid = fork();
        if (pid == 0) {
            _exit(batch.run({batch.job(kHangs)}));
        }
        for (int i = 0; i < 1000 && batch.folder.size() < 2; ++i) {
            std::this_thread::sleep_for(10ms);
        }
        ASSERT_EQ(batch.folder.size(), 2) << "the worker is writing";
        kill(pid, signal);
        int status = 0;
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), signal);
        EXPECT_EQ(batch.folder.size(), 1);
    }
}

TEST(WorkerPool, ASignalThatTheCallerIgnoresStopsNothing) {
    Batch batch;
    const auto before = std::signal(SIGHUP, SIG_IGN);
    const std::vector<BatchJob> jobs{batch.job(kWrites), batch.job(kWrites), batch.job(kWrites)};
    int processed = 0;
    const int stopped = WorkerPool({1, 60.0}, batch.config.set).run(jobs, [&](std::size_t, const FileReport& report) {
        std::raise(SIGHUP);
        processed += report.failed ? 0 : 1;
    });
    std::signal(SIGHUP, before);
    EXPECT_EQ(stopped, 0);
    EXPECT_EQ(processed, 3);
}

TEST(FileReport, IsOneLineOfJson) {
    FileReport report;
    report.file = "a \"b\"\xff.csv";
    report.type = "Ombra";
    report.valid = true;
    report.error = "- one\n- two\n";
    report.seconds = 0.25;
    report.products = {"x"};
    report.version = "V1";
    report.set = "mine";
    report.overrides = {"A=1"};
    report.sha256 = "ab";
    report.productSha256 = {"cd"};
    EXPECT_EQ(
        report.toJson(),
        "{\"file\":\"a \\\"b\\\"\xEF\xBF\xBD.csv\",\"type\":\"Ombra\",\"valid\":true,\"failed\":true,"
        "\"error\":\"- one\\n- two\\n\",\"qcError\":\"\",\"seconds\":0.25,\"products\":[\"x\"],"
        "\"version\":\"V1\",\"set\":\"mine\",\"overrides\":[\"A=1\"],\"sha256\":\"ab\",\"productSha256\":[\"cd\"]}");
    FileReport back;
    EXPECT_FALSE(unpackReport("", back));
    EXPECT_FALSE(unpackReport(packReport(report).substr(0, 20), back));
    ASSERT_TRUE(unpackReport(packReport(report), back));
    EXPECT_EQ(back.file, report.file);
    EXPECT_EQ(back.toJson(), report.toJson());
    ASSERT_TRUE(FileReport::fromJson(report.toJson(), back));
    EXPECT_EQ(back.productSha256, report.productSha256);
    for (const char* torn : {"", "{}", "{\"file\":\"a", "{\"file\":1}", "[1]"}) {
        EXPECT_FALSE(FileReport::fromJson(torn, back)) << torn;
    }
}
