// The batch tool over whole campaigns: shards, runs that resume, directories that fill, and where a product comes from.

#include "BatchTool.h"
#include "Sha256.h"
#include "SoundingDB.h"
#include "WatchedFolder.h"

#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <sqlite3.h>
#include <thread>
#include <unistd.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

template <typename Condition>
bool becomesTrue(Condition condition) {
    constexpr int kMostTries = 400;
    for (int i = 0; i < kMostTries; ++i) {
        if (condition()) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
}

/// Copies of one short drop, so that a run over them takes a while.
void makeCampaign(const TemporaryFolder& folder, int files) {
    fs::create_directories(folder / "raw");
    for (int i = 0; i < files; ++i) {
        fs::copy_file(kExamples / "D20230211_154208.1", folder / ("raw/drop" + std::to_string(100 + i) + ".1"));
    }
}

int linesOf(const fs::path& path) {
    const std::string text = readFile(path);
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

const std::string kRun = "--quiet --jobs 2 --out out --formats qc-csv,qc-trv --report report.jsonl ";

} // namespace

TEST(Sha256, PublishedDigests) { // the examples of FIPS 180-4, and an empty file
    const TemporaryFolder folder;
    writeFile(folder / "abc", "abc");
    writeFile(folder / "long", std::string(1000000, 'a'));
    writeFile(folder / "empty", "");
    EXPECT_EQ(sha256OfFile(folder / "abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256OfFile(folder / "long"), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
    EXPECT_EQ(sha256OfFile(folder / "empty"), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256OfFile(folder / "none"), "");
    EXPECT_EQ(sha256OfFile(folder.path()), "") << "a directory";
}

TEST(Campaign, ShardsSeeToEveryFileOnce) {
    const TemporaryFolder folder;
    makeCampaign(folder, 30);
    std::multiset<std::string> seen;
    for (const char* shard : {"1/4", "2/4", "3/4", "4/4"}) {
        // A file that comes in between the jobs of an array moves no other file from shard to shard.
        fs::copy_file(kExamples / "D20230211_154208.1", folder / ("raw/a" + std::string(1, shard[0]) + ".1"));
        const Outcome outcome =
            tool(folder, std::string("--quiet --out out --formats levels --report - --shard ") + shard + " raw");
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        const auto lines = reportLines(outcome.out);
        EXPECT_GT(lines.size(), 2u) << shard;
        EXPECT_LT(lines.size(), 16u) << shard;
        for (const auto& line : lines) {
            if (line["file"].get<std::string>().find("drop") != std::string::npos) {
                seen.insert(line["file"]);
            }
        }
    }
    EXPECT_EQ(seen.size(), 30u);
    EXPECT_EQ(std::set<std::string>(seen.begin(), seen.end()).size(), 30u);
    for (const char* wrong : {"0/4", "5/4", "1", "1/0", "a/2", "1/2x"}) {
        EXPECT_EQ(tool(folder, std::string("--shard ") + wrong + " raw").status, 2) << wrong;
    }
}

TEST(Campaign, ADescentBelongsToTheShardOfItsFile) {
    const TemporaryFolder folder;
    fs::create_directories(folder / "raw");
    for (int i = 0; i < 4; ++i) {
        fs::copy_file(kExamples / "pelo_updown_20220914.dat", folder / ("raw/p" + std::to_string(i) + ".dat"));
    }
    const std::string run = "--quiet --out out --formats levels --report - --override descendingPELO=true raw --shard ";
    std::multiset<std::string> seen;
    for (const char* shard : {"1/3", "2/3", "3/3"}) {
        for (const auto& line : reportLines(tool(folder, run + shard).out)) {
            const std::string file = line["file"];
            seen.insert(file);
            EXPECT_EQ(line.contains("derivedFrom"), file.back() == 'd') << file;
        }
    }
    EXPECT_EQ(seen.size(), 8u);
    EXPECT_EQ(std::set<std::string>(seen.begin(), seen.end()).size(), 8u);
}

TEST(Campaign, ReportTellsWhereProductsComeFrom) {
    const TemporaryFolder folder;
    fs::copy_file(kExamples / "D20230211_154208.1", folder / "drop.1");
    ASSERT_EQ(tool(folder, kRun + "--override TdryOffset=0.5 --override RHOffset=1 drop.1 none.1").status, 1);
    const auto lines = reportLines(readFile(folder / "report.jsonl"));
    ASSERT_EQ(lines.size(), 2u);
    const nlohmann::json& line = lines[0];
    EXPECT_THAT(line["version"].get<std::string>(), HasSubstr("V3.4.8"));
    EXPECT_EQ(line["set"], "editsonde");
    EXPECT_EQ(line["overrides"], (nlohmann::json{"TdryOffset=0.5", "RHOffset=1"}));
    const auto digest = [&](const std::string& file) { // by a program that isn't ours
        const std::string command = "cd '" + folder.path().string() + "' && sha256sum '" + file + "' >sum";
        return std::system(command.c_str()) == 0 ? readFile(folder / "sum").substr(0, 64) : "";
    };
    EXPECT_EQ(line["sha256"], digest("drop.1"));
    ASSERT_EQ(line["products"].size(), 2u);
    EXPECT_EQ(line["productSha256"], (nlohmann::json{digest(line["products"][0]), digest(line["products"][1])}));
    EXPECT_EQ(lines[1]["sha256"], "") << "there is no such file";
    EXPECT_EQ(lines[1]["set"], "editsonde");

    const std::string plain = readFile(folder / "out/dropQC.csv");
    EXPECT_THAT(plain, Not(HasSubstr("Provenance")));
    ASSERT_EQ(tool(folder, kRun + "--provenance --override TdryOffset=0.5 drop.1").status, 0);
    const std::string told = readFile(folder / "out/dropQC.csv");
    for (const std::string& text :
         {std::string("ProvenanceInputFile,\"drop.1\"\n"), std::string("ProvenanceSet,\"editsonde\"\n"),
          "ProvenanceInputSHA256,\"" + digest("drop.1") + "\"\n",
          std::string("ProvenanceOverrides,\"TdryOffset=0.5\"\n")}) {
        EXPECT_THAT(told, HasSubstr(text));
    }
    EXPECT_EQ(tool(folder, "--quiet --out again --formats raw-csv out/dropQC.csv").status, 0) << "it reads back";
}

TEST(Campaign, ResumesWhatIsNotDone) {
    const TemporaryFolder folder;
    makeCampaign(folder, 6);
    writeFile(folder / "raw/broken.1", "no sounding\n");
    EXPECT_EQ(tool(folder, "--resume raw").status, 2) << "without a report there is nothing to resume from";
    EXPECT_EQ(tool(folder, kRun + "raw").status, 1);
    EXPECT_EQ(linesOf(folder / "report.jsonl"), 7);

    const auto processed = [&](const std::string& more) {
        std::map<std::string, fs::file_time_type> before;
        for (const auto& entry : fs::directory_iterator(folder / "out")) {
            before[entry.path().string()] = fs::last_write_time(entry.path());
        }
        tool(folder, kRun + "--resume " + more + " raw");
        std::set<std::string> made;
        for (const auto& entry : fs::directory_iterator(folder / "out")) {
            if (before.count(entry.path().string()) == 0 ||
                before[entry.path().string()] != fs::last_write_time(entry.path())) {
                made.insert(entry.path().filename().string().substr(0, 7));
            }
        }
        EXPECT_EQ(linesOf(folder / "report.jsonl"), 7) << "one line for each file";
        return made;
    };
    EXPECT_THAT(processed(""), IsEmpty());

    fs::remove(folder / "out/drop100QC.csv");                       // a product that is gone
    writeFile(folder / "out/drop101QC.trv", "cut short");           // one that isn't what was written
    std::ofstream(folder / "raw/drop102.1", std::ios::app) << "\n"; // an input that has changed
    fs::last_write_time(folder / "raw/drop103.1",
                        fs::file_time_type::clock::now() + std::chrono::hours(1)); // or may have
    EXPECT_THAT(processed(""), ElementsAre("drop100", "drop101", "drop102", "drop103"));
    fs::last_write_time(folder / "raw/drop103.1", fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_THAT(processed(""), IsEmpty());

    EXPECT_EQ(processed("--override TdryOffset=0.5").size(), 6u) << "another configuration";
    EXPECT_EQ(processed("--override TdryOffset=0.5 --set research-dropsonde").size(), 6u);
}

TEST(Campaign, AKilledRunIsResumed) {
    const TemporaryFolder folder;
    makeCampaign(folder, 150);
    {
        RunningTool run(folder, {"--quiet", "--jobs", "1", "--out", "out", "--formats", "qc-csv,qc-trv", "--report",
                                 "report.jsonl", "raw"});
        ASSERT_TRUE(
            becomesTrue([&] { return fs::exists(folder / "report.jsonl") && linesOf(folder / "report.jsonl") > 4; }));
        EXPECT_EQ(run.end(SIGKILL), SIGKILL);
    }
    const int done = linesOf(folder / "report.jsonl");
    ASSERT_LT(done, 150);
    std::ofstream(folder / "report.jsonl", std::ios::app) << "{\"file\":\"raw/drop1"; // a line torn by the kill
    const Outcome outcome =
        tool(folder, "--jobs 2 --out out --formats qc-csv,qc-trv --report report.jsonl --resume raw");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("150 of 150 files processed"));
    EXPECT_THAT(outcome.out, HasSubstr(std::to_string(done) + " of them by an earlier run"));
    std::set<std::string> files;
    for (const auto& line : reportLines(readFile(folder / "report.jsonl"))) {
        EXPECT_FALSE(line["failed"]);
        files.insert(line["file"]);
        for (std::size_t i = 0; i < line["products"].size(); ++i) {
            EXPECT_EQ(sha256OfFile(folder / line["products"][i].get<std::string>()), line["productSha256"][i]);
        }
    }
    EXPECT_EQ(files.size(), 150u);
}

TEST(WatchedFolder, GivesAFileOnceItHasSettled) {
    const TemporaryFolder folder;
    WatchedFolder watched(folder.path().string(), false, 2.0);
    const auto start = WatchedFolder::Clock::now();
    const auto at = [&](double seconds) {
        std::vector<std::string> names;
        for (const std::string& path :
             watched.ready(start + std::chrono::milliseconds(static_cast<long>(1000.0 * seconds)))) {
            names.push_back(fs::path(path).filename().string());
        }
        return names;
    };
    writeFile(folder / "b.1", "1");
    writeFile(folder / ".hidden", "1");
    writeFile(folder / "c.1.part", "1");
    fs::create_directories(folder / "below");
    writeFile(folder / "below/d.1", "1");
    EXPECT_THAT(at(0.0), IsEmpty());
    writeFile(folder / "a.1", "1");
    EXPECT_THAT(at(1.9), IsEmpty());
    EXPECT_THAT(at(2.0), ElementsAre("b.1"));
    EXPECT_THAT(at(3.0), IsEmpty());
    writeFile(folder / "a.1", "12"); // still growing
    EXPECT_THAT(at(3.9), IsEmpty());
    EXPECT_THAT(at(5.8), IsEmpty());
    EXPECT_THAT(at(5.9), ElementsAre("a.1"));
    writeFile(folder / "b.1", "changed");
    fs::rename(folder / "c.1.part", folder / "c.1"); // it has arrived
    EXPECT_THAT(at(6.0), IsEmpty());
    EXPECT_THAT(at(8.0), ElementsAre("b.1", "c.1"));
    fs::remove(folder / "b.1");
    EXPECT_THAT(at(9.0), IsEmpty());
    writeFile(folder / "b.1", "changed");
    EXPECT_THAT(at(10.0), IsEmpty());
    EXPECT_THAT(at(12.0), ElementsAre("b.1")) << "another file of the same name";
}

TEST(Campaign, WatchesADirectoryThroughRestarts) {
    const TemporaryFolder folder;
    makeCampaign(folder, 1);
    EXPECT_EQ(tool(folder, "--watch raw").status, 2) << "without a report nothing would tell what is done";
    EXPECT_EQ(tool(folder, "--watch raw --report r.jsonl raw").status, 2);
    EXPECT_EQ(tool(folder, "--watch none --report r.jsonl").status, 2);
    // Products go where the soundings are, and are no soundings.
    const std::vector<std::string> arguments{"--quiet", "--watch",   "raw",    "--settle", "0.2",    "--out",
                                             "raw",     "--formats", "qc-csv", "--report", "r.jsonl"};
    const auto reported = [&] { return fs::exists(folder / "r.jsonl") ? linesOf(folder / "r.jsonl") : 0; };
    {
        RunningTool run(folder, arguments);
        EXPECT_TRUE(becomesTrue([&] { return reported() == 1; })) << "what was there before";
        fs::copy_file(kExamples / "D20220523_091501.3", folder / "raw/late.3");
        EXPECT_TRUE(becomesTrue([&] { return reported() == 2; })) << "what has come";
        EXPECT_EQ(run.end(SIGTERM), SIGTERM);
    }
    const auto first = fs::last_write_time(folder / "raw/drop100QC.csv");
    fs::copy_file(kExamples / "D20210801_120003.1", folder / "raw/meanwhile.1");
    {
        RunningTool run(folder, arguments);
        EXPECT_TRUE(becomesTrue([&] { return reported() == 3; })) << "what came while it was down";
        std::this_thread::sleep_for(std::chrono::milliseconds(1500));
        EXPECT_EQ(run.end(SIGTERM), SIGTERM);
    }
    EXPECT_EQ(reported(), 3);
    EXPECT_EQ(fs::last_write_time(folder / "raw/drop100QC.csv"), first) << "done is done";
    EXPECT_TRUE(fs::exists(folder / "raw/meanwhileQC.csv"));
    EXPECT_FALSE(fs::exists(folder / "raw/meanwhileQCQC.csv"));
}

TEST(Campaign, EntersEachSoundingOnceInTheDatabase) {
    const TemporaryFolder folder;
    makeCampaign(folder, 12);
    writeFile(folder / "raw/broken.1", "no sounding\n");
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(tool(folder, "--quiet --jobs 8 --out out --formats levels --db raw/all.sqlite raw").status, 1);
        SoundingDB db((folder / "raw/all.sqlite").string(), SQLITE_OPEN_READWRITE, "");
        const auto soundings = db.getSoundings();
        ASSERT_EQ(soundings.size(), 12u);
        std::set<std::string> files;
        for (const auto& sounding : soundings) {
            files.insert(sounding.filename);
            EXPECT_GT(db.getLevels(sounding.id).size(), 5u);
        }
        EXPECT_EQ(files.size(), 12u);
        EXPECT_EQ(*files.begin(), fs::canonical(folder / "raw/drop100.1").string());
    }
    const std::string all = (folder / "raw/all.sqlite").string();
    SQLiteDB(all, false, SQLITE_OPEN_READWRITE)
        .exec("create trigger full before insert on levels begin select raise(abort, 'the disk is full'); end");
    const Outcome failed =
        tool(folder, "--report - --out new --formats levels --db raw/all.sqlite " + example("D20210801_120003.1"));
    EXPECT_EQ(failed.status, 1);
    const auto report = nlohmann::json::parse(failed.out); // and nothing else is printed there
    EXPECT_THAT(report["error"], HasSubstr("The sounding can't be entered in the database: "));
    EXPECT_THAT(report["error"], HasSubstr("the disk is full"));
    EXPECT_EQ(report["products"].size(), 1u);
    EXPECT_EQ(SoundingDB(all, SQLITE_OPEN_READWRITE, "").getSoundings().size(), 12u) << "nor a row without levels";

    SQLiteDB(all, false, SQLITE_OPEN_READWRITE).exec("pragma user_version = 1");
    for (const char* path : {"raw/all.sqlite", "no/such/folder/new.sqlite", "''"}) {
        EXPECT_EQ(tool(folder, std::string("--out out --db ") + path + " raw").status, 2) << path;
    }
    writeFile(folder / "notes.sqlite", "no database at all, but longer than nothing\n");
    const Outcome refused = tool(folder, "--db notes.sqlite --out out raw");
    EXPECT_EQ(refused.status, 2);
    EXPECT_THAT(refused.err, HasSubstr("notes.sqlite"));
    EXPECT_EQ(readFile(folder / "notes.sqlite"), "no database at all, but longer than nothing\n");
}

TEST(Campaign, ExplainsWhatWasRemoved) {
    const TemporaryFolder folder;
    const Outcome outcome = tool(folder, "--explain " + example("D20210914_043120.2"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    // Of the planted faults: see the truth of this example.
    for (const char* text : {"      5  the checksum of the record's pressure, temperature and humidity is wrong\n",
                             "      1  outside of what can be in the atmosphere\n           312.00 s (1250.00)\n",
                             "60.00 s (544.25), 75.00 s (534.36)\n",
                             "too few satellites (WindSats 6)\n           300.00 to 300.50 s (2 samples)\n",
                             "(WindBuddySlope 10 per second)\n           150.00 s (42.33)\n"}) {
        EXPECT_THAT(outcome.out, HasSubstr(text));
    }
    EXPECT_THAT(outcome.out, Not(HasSubstr("<font")));
    EXPECT_THAT(tool(folder, "--explain --override TdrySmoothWL=100000 " + example("D20210914_043120.2")).out,
                HasSubstr("What QC couldn't do:\n  - Final smoothing failed for tdry\n"));
    EXPECT_TRUE(fs::is_empty(folder.path()) || std::distance(fs::directory_iterator(folder.path()), {}) == 0)
        << "no product";
    const Outcome message = tool(folder, "--explain none.1 " + example("temp_20220708.wmo"));
    EXPECT_EQ(message.status, 1);
    EXPECT_THAT(message.err, HasSubstr("none.1: The file can't be opened: No such file or directory\n"));
    EXPECT_THAT(message.out, HasSubstr("there is nothing to remove"));
}
