// The batch tool as its user meets it: a command line, an exit status, two output streams, files.

#include "BatchTool.h"
#include "TextEdits.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// What a CSV product says of the launch altitude, m.
double launchAltitude(const std::string& product) {
    const auto at = product.find("\nAltitude,");
    return at == std::string::npos ? NAN : std::stod(product.substr(at + 10));
}

std::vector<std::string> exampleNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kExamples)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

TEST(BatchTool, AnswersWithoutAFile) {
    const TemporaryFolder folder;
    EXPECT_THAT(tool(folder, "--version").out, HasSubstr("tarvo-batch V3.4.8"));
    EXPECT_THAT(tool(folder, "--help").out, AllOf(HasSubstr("--override"), HasSubstr("Exit status")));
    EXPECT_EQ(tool(folder, "--list-sets").out, "descending-PELO\ndriftsonde\neditsonde\nmini-dropsonde\n"
                                               "research-dropsonde\nsample\nupsonde-10s\nupsonde-1s\n");
    const Outcome formats = tool(folder, "--list-formats");
    EXPECT_EQ(formats.status, 0);
    EXPECT_THAT(formats.out, AllOf(HasSubstr("qc-csv     NAMEQC.csv\n"), HasSubstr("qc-bfr     NAMEQC.bfr\n")));
}

TEST(BatchTool, TellsWrongUsage) {
    const TemporaryFolder folder;
    struct {
        const char* arguments;
        const char* says;
    } const cases[] = {
        {"", "no file given"},
        {"--no-such-option x", "--no-such-option"},
        {"--set nosuch x", "editsonde"},
        {"--formats nosuch x", "raw-csv"},
        {"--bufr-tables . x", "no table_b_bufr"},
        {"--formats , x", "names no format"},
        {"--override NoSuchKey=1 x", "NoSuchKey"},
        {"--override PresOffset=two x", "PresOffset"},
        {"--override PresOffset=nan x", "PresOffset"},
        {"--override PresOffset= x", "PresOffset"},
        {"--override RHThreshold=maybe x", "RHThreshold"},
        {"--override LaunchPresOverride=high x", "LaunchPresOverride"},
        {"--override PresOffset x", "KEY=VALUE"},
        {"--jobs 0 x", "--jobs"},
        {"--timeout 0 x", "--timeout"},
        {"--config nosuch.xml x", "nosuch.xml"},
        {"--report no/such/folder/report x", "no/such/folder/report"},
        {"--out /dev/null/x x", "/dev/null/x"},
    };
    for (const auto& c : cases) {
        const Outcome outcome = tool(folder, c.arguments);
        EXPECT_EQ(outcome.status, 2) << c.arguments;
        EXPECT_THAT(outcome.err, HasSubstr(c.says)) << c.arguments;
    }
    EXPECT_EQ(folder.size(), 0) << "nothing was made";
}

TEST(BatchTool, AnEmptyNameIsNoFile) {
    const TemporaryFolder folder;
    const Outcome outcome = tool(folder, "--out out --formats raw-csv ''");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, HasSubstr("The file can't be opened: No such file or directory"));
}

TEST(BatchTool, WithoutItsEngineTellsTheVersionAndWhatIsMissing) {
    const TemporaryFolder folder;
    fs::create_directories(folder / "bin");
    fs::copy_file(TARVO_BATCH_PROGRAM, folder / "bin/tarvo-batch");
    const auto run = [&](const std::string& argument) {
        const std::string told = (folder / "told").string();
        const std::string program = (folder / "bin/tarvo-batch").string();
        const int status = std::system(("'" + program + "' " + argument + " >'" + told + "' 2>&1").c_str());
        return Outcome{WEXITSTATUS(status), readFile(told), ""};
    };
    const Outcome version = run("--version");
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(version.out, testing::StartsWith("tarvo-batch V"));
    const Outcome missing = run("drop.1");
    EXPECT_EQ(missing.status, 2);
    EXPECT_THAT(missing.out, HasSubstr("libexec/tarvo-batch-engine can't be started: No such file"));
}

TEST(BatchTool, MakesTheSameOfTheExamplesWhateverTheNumberOfJobsAndTheOrder) {
    const TemporaryFolder folder;
    const auto names = exampleNames();
    std::string backwards;
    for (const std::string& name : names) {
        backwards = " " + example(name) + backwards;
    }
    const std::string all = " '" + kExamples.string() + "'";
    for (const std::string& run :
         {"1 --jobs 1 --report report.jsonl" + all, "2 --jobs 4" + all, "3 --jobs 1" + backwards}) {
        tool(folder,
             "--quiet --formats "
             "raw-csv,qc-csv,raw-trv,qc-trv,raw-zor,qc-zor,qc-frd,raw-nc,qc-nc,qc-bfr,wmo,levels,summary "
             "--out out" +
                 run,
             "TARVO_OVERRIDE_PROCESSING_TIME=1627819203");
    }
    for (const auto& entry : fs::directory_iterator(folder / "out1")) {
        for (const char* other : {"out2", "out3"}) {
            EXPECT_EQ(readFile(entry.path()), readFile(folder / other / entry.path().filename()));
        }
    }
    const auto lines = reportLines(readFile(folder / "report.jsonl"));
    ASSERT_EQ(lines.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const nlohmann::json& line = lines[i];
        EXPECT_EQ(line["file"], (kExamples / names[i]).string());
        EXPECT_EQ(line.size(), 13u);
        EXPECT_TRUE(line["valid"]);
        const bool message = fs::path(names[i]).extension() == ".wmo"; // which has few samples, and isn't coded again
        EXPECT_EQ(line["products"].size(), message ? 12u : 13u);
        EXPECT_GT(fs::file_size(folder / line["products"][1]), message ? 1000u : 10000u);
        const bool late = names[i] == "D20220523_091501.3";
        EXPECT_EQ(line["error"].get<std::string>().find("late launch detect") != std::string::npos, late) << names[i];
        EXPECT_FALSE(fs::exists(kExamples / (names[i] + "d"))) << "no descent was asked for";
    }
}

TEST(BatchTool, FindsTheBufrTables) {
    const TemporaryFolder folder;
    const std::string drop = "--formats qc-bfr " + example("D20210801_120003.1");
    const fs::path resources = fs::path(TARVO_SOURCE_DIR) / "resources";
    const std::string shipped = "'" + (resources / "tarvo.xml").string() + "' ";
    EXPECT_EQ(tool(folder, "--config " + shipped + drop).status, 0) << "those of the program";

    // Those beside the configuration file go before, the environment before them, and the option before all.
    fs::copy_file(resources / "tarvo.xml", folder / "mine.xml");
    writeFile(folder / "table_b_bufr", "damaged");
    writeFile(folder / "table_d_bufr", "damaged");
    const Outcome damaged = tool(folder, "--config mine.xml --out damaged " + drop);
    EXPECT_EQ(damaged.status, 1);
    EXPECT_THAT(damaged.err, AllOf(HasSubstr("unable to finalize the BUFR template"), HasSubstr("can't be written")));
    EXPECT_TRUE(fs::is_empty(folder / "damaged")) << "nothing half written";
    const std::string good = (resources / "bufr").string();
    EXPECT_EQ(tool(folder, "--config mine.xml " + drop, "BUFR_TABLES='" + good + "'").status, 0);
    EXPECT_EQ(tool(folder, "--config mine.xml --bufr-tables '" + good + "' " + drop, "BUFR_TABLES=. AFSISIO=.").status,
              0);
}

TEST(BatchTool, DrawsTheSkewT) {
    const TemporaryFolder folder;
    const std::string drop = example("D20210914_043120.2");
    const std::string size = " --override PlotPixelsX=640 --override PlotPixelsY=480 ";
    const auto run = [&](const std::string& arguments) {
        return tool(folder, "--quiet --formats skewt-svg,skewt-png" + size + arguments + " " + drop,
                    "TARVO_OVERRIDE_PROCESSING_TIME=1627819203");
    };
    const auto product = [&](const char* out, const char* extension) {
        return readFile(folder / out / (std::string("D20210914_043120skewt") + extension));
    };
    EXPECT_EQ(run("--out one").err, "");
    EXPECT_EQ(run("--out two --jobs 2").status, 0);
    const std::string svg = product("one", ".svg");
    const std::string png = product("one", ".png");
    EXPECT_THAT(svg, HasSubstr(" width=\"640\" height=\"480\">"));
    EXPECT_EQ(png.substr(1, 3), "PNG");
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x02\x80\0\0\x01\xE0", 8)) << "640 by 480, in the header";
    EXPECT_EQ(svg, product("two", ".svg"));
    EXPECT_EQ(png, product("two", ".png"));
    if (std::system("command -v xmllint >/dev/null") == 0) {
        const std::string file = (folder / "one/D20210914_043120skewt.svg").string();
        EXPECT_EQ(std::system(("xmllint --nonet --noout '" + file + "'").c_str()), 0);
    }
    // QC data where there are any: fewer than the raw ones of this file, by what the checks took out.
    EXPECT_EQ(run("--out raw --override DoQC=0").status, 0);
    const char* const mark = "fill=\"red\"/>";
    EXPECT_GT(countOf(svg, mark), 100);
    EXPECT_GT(countOf(product("raw", ".svg"), mark), countOf(svg, mark));

    for (const char* extension : {".svg", ".png"}) { // folders stand where the products should
        fs::create_directories(folder / "full" / (std::string("D20210914_043120skewt") + extension) / "inside");
    }
    const Outcome full = run("--out full");
    EXPECT_EQ(full.status, 1);
    EXPECT_THAT(full.err, HasSubstr("skewt.png"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "full"), {}), 2) << "nothing half written";
}

TEST(BatchTool, AMessageOpensAgainAndIsNotCodedAnew) {
    const TemporaryFolder folder;
    EXPECT_EQ(tool(folder, "--quiet --out out --formats wmo " + example("D20210801_120003.1")).status, 0);
    const Outcome outcome = tool(folder, "--out out --formats levels,summary --report - out/D20210801_120003WMO.txt");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(reportLines(outcome.out).at(0)["type"], "Wmo");
    EXPECT_THAT(outcome.err, HasSubstr(" levels in the message\n"));
    EXPECT_EQ(countOf(readFile(folder / "out/D20210801_120003WMOLevels.csv"), ",Standard,"), 6) << "1000 to 400 mb";

    const Outcome message = tool(folder, "--out out --formats wmo out/D20210801_120003WMO.txt");
    EXPECT_EQ(message.status, 1);
    EXPECT_THAT(message.err, HasSubstr("Without a coded message"));
    EXPECT_FALSE(fs::exists(folder / "out/D20210801_120003WMOWMO.txt"));
}

TEST(BatchTool, ProcessesTheDescentOfASoundingAsAFurtherFile) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "in");
    const char* const name = "pelo_updown_20220914.dat";
    fs::copy(kExamples / name, folder / "in" / name);
    const std::string run = "--set upsonde-1s --formats qc-csv --report - --override descendingPELO=true --out ";
    // The second time the descent is among the inputs, and still processed after the ascent.
    for (const std::string out : {"first", "second"}) {
        const Outcome outcome = tool(folder, run + out + " in");
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_THAT(outcome.err, HasSubstr("the descent of in/pelo_updown_20220914.dat, with the configuration set "
                                           "descending-PELO\n"));
        EXPECT_THAT(outcome.err, HasSubstr("2 of 2 files processed"));
        const auto lines = reportLines(outcome.out);
        ASSERT_EQ(lines.size(), 2u);
        EXPECT_FALSE(lines[0].contains("derivedFrom"));
        EXPECT_EQ(lines[1]["file"], "in/pelo_updown_20220914.datd");
        EXPECT_EQ(lines[1]["derivedFrom"], "in/pelo_updown_20220914.dat");
        EXPECT_EQ(lines[1]["set"], "descending-PELO");
        EXPECT_THAT(lines[1]["products"], ElementsAre(out + "/pelo_updown_20220914_descentQC.csv"));
        EXPECT_THAT(readFile(folder / out / "pelo_updown_20220914QC.csv"), HasSubstr("ConfigSetName,\"upsonde-1s\""));
        const std::string descent = readFile(folder / out / "pelo_updown_20220914_descentQC.csv");
        EXPECT_THAT(descent, HasSubstr("ConfigSetName,\"descending-PELO\""));
        EXPECT_THAT(descent, HasSubstr("TarvoVersion,\"Tarvo V3.4.8\""));
        EXPECT_THAT(descent, HasSubstr("Ascending,\"false\""));
        // QC has told where the descent began: the air's height at the smallest pressure, where the file says 4026.9.
        EXPECT_NEAR(launchAltitude(descent), 4022.0, 10.0);
    }
    const std::string derived = readFile(folder / "in/pelo_updown_20220914.datd");

    // Without the item it is a file like any other; in a folder that can't be written there is none.
    const Outcome plain = tool(folder, "--set upsonde-1s --formats qc-csv --report - --out plain in");
    EXPECT_EQ(plain.status, 0) << plain.err;
    EXPECT_EQ(reportLines(plain.out).size(), 2u);
    EXPECT_THAT(plain.err, Not(HasSubstr("the descent of")));
    fs::remove(folder / "in/pelo_updown_20220914.datd");
    fs::permissions(folder / "in", fs::perms::owner_read | fs::perms::owner_exec);
    const Outcome locked = tool(folder, run + "locked in");
    EXPECT_EQ(locked.status, 0) << locked.err;
    EXPECT_EQ(reportLines(locked.out).size(), 1u);
    EXPECT_THAT(locked.err, HasSubstr("The descent can't be written: in/pelo_updown_20220914.datd"));
    EXPECT_FALSE(fs::exists(folder / "in/pelo_updown_20220914.datd"));
    fs::permissions(folder / "in", fs::perms::owner_all);

    // What stands in its place and isn't ours stays, and is a file like any other.
    writeFile(folder / "in/pelo_updown_20220914.datd", "a letter\n");
    const Outcome foreign = tool(folder, run + "foreign in");
    EXPECT_EQ(foreign.status, 1);
    EXPECT_THAT(foreign.err, HasSubstr("was not made from this sounding"));
    EXPECT_THAT(foreign.err, HasSubstr("1 of 2 files processed"));
    EXPECT_EQ(readFile(folder / "in/pelo_updown_20220914.datd"), "a letter\n");
    EXPECT_THAT(derived, HasSubstr("A00"));
}

// With a set that keeps the fall in the ascent, too, the descent begins where the balloon burst.
TEST(BatchTool, TellsADescentTheAltitudeOfTheBurst) {
    const TemporaryFolder folder;
    fs::copy(kExamples / "pelo_updown_20220914.dat", folder / "up.dat");
    const Outcome outcome =
        tool(folder, "--set descending-PELO --formats qc-csv --override descendingPELO=true up.dat");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_THAT(readFile(folder / "upQC.csv"), HasSubstr("Ascending,\"true\""));
    EXPECT_NEAR(launchAltitude(readFile(folder / "up_descentQC.csv")), 4022.0, 10.0);
}

TEST(BatchTool, BadInputCostsOnlyItself) {
    const TemporaryFolder folder;
    const std::string good = readFile(kExamples / "tradewind_drop_20210803.csv");
    const std::string dfile = readFile(kExamples / "D20230211_154208.1");
    fs::create_directories(folder / "in/sub");
    const auto add = [&](const std::string& name, const std::string& text) { writeFile(folder / "in" / name, text); };
    const std::string backward = dfile + dfile.substr(dfile.rfind('\n', dfile.size() - 500) + 1);
    std::string binary;
    for (int i = 0; i < 100000; ++i) {
        binary += static_cast<char>(i * 7919 >> 3);
    }
    add("a good 'one' \xC3\xA4\xC3\xB6.csv", good);
    add("backward.D0", backward);
    add("binary.D1", binary);
    add("empty.csv", "");
    add("header_and_garbage.csv", "FileFormat,CSV\n" + binary);
    add("out_of_range.csv", "FileFormat,CSV\nYear,99999999999999999999\nMonth,-7\nDay,1e9\nHour,1\nMinute,2\nSecond,3\n"
                            "Fields,Time,Pressure\nData,1e999,1e308\nData,nan,inf\nData,2,-1e308\n");
    add("sub/below.csv", good);
    add("truncated.D5", dfile.substr(0, dfile.size() / 2 - 37));
    fs::create_symlink("nowhere", folder / "in/dangling.csv");

    const Outcome outcome = tool(folder, "--out out --report - in in/nosuch.csv");
    EXPECT_EQ(outcome.status, 1);
    std::vector<std::string> valid;
    for (const nlohmann::json& line : reportLines(outcome.out)) {
        if (line["valid"]) {
            valid.push_back(line["file"]);
        } else {
            EXPECT_THAT(line["error"].get<std::string>(), Not(IsEmpty())) << line;
            EXPECT_THAT(outcome.err, HasSubstr(line["file"].get<std::string>() + ": "));
        }
        EXPECT_EQ(line["error"].get<std::string>().find("crash"), std::string::npos) << line;
    }
    EXPECT_THAT(valid, ElementsAre("in/a good 'one' \xC3\xA4\xC3\xB6.csv", "in/out_of_range.csv", "in/truncated.D5"));
    EXPECT_THAT(outcome.err, HasSubstr("in/backward.D0: - Time values out of sequence in line"));
    EXPECT_TRUE(fs::exists(folder / "out/a good 'one' \xC3\xA4\xC3\xB6QC.csv"));

    EXPECT_THAT(tool(folder, "--out out2 --recursive --report - in").out, HasSubstr("in/sub/below.csv"));
    const Outcome quiet = tool(folder, "--quiet --out out3 in/empty.csv in/sub/below.csv");
    EXPECT_EQ(quiet.out, "");
    EXPECT_EQ(quiet.err, "in/empty.csv: Unrecognized file type\n");
}

TEST(BatchTool, NeverWritesOverAnInputOrAnotherProduct) {
    const TemporaryFolder folder;
    const std::string good = readFile(kExamples / "tradewind_drop_20210803.csv");
    for (const char* path : {"out", "other"}) {
        fs::create_directories(folder / path);
    }
    for (const char* path : {"drop.csv", "more.csv", "other/drop.txt"}) {
        writeFile(folder / path, good);
    }
    EXPECT_EQ(tool(folder, "--out new drop.csv other/drop.txt").err,
              "other/drop.txt: Its product dropQC.csv would overwrite that of drop.csv\n");
    // Nor through a link.
    fs::create_symlink("../drop.csv", folder / "out/dropQC.csv");
    fs::create_symlink("common.csv", folder / "out/dropRAW.csv");
    fs::create_symlink("common.csv", folder / "out/moreRAW.csv");
    EXPECT_EQ(tool(folder, "--out out drop.csv").err,
              "drop.csv: Its product dropQC.csv would overwrite an input file\n");
    EXPECT_EQ(readFile(folder / "drop.csv"), good);
    EXPECT_EQ(tool(folder, "--out out --formats raw-csv drop.csv more.csv").err,
              "more.csv: Its product moreRAW.csv would overwrite that of drop.csv\n");
}

TEST(BatchTool, AReportReplacesNothingButAReport) {
    const TemporaryFolder folder;
    const std::string good = readFile(kExamples / "tradewind_drop_20210803.csv");
    fs::create_directories(folder / "in");
    writeFile(folder / "in/a.csv", good);
    writeFile(folder / "b.csv", good);
    const Outcome forgotten = tool(folder, "--out out --report b.csv in/a.csv");
    EXPECT_EQ(forgotten.status, 2);
    EXPECT_THAT(forgotten.err, HasSubstr("b.csv"));
    EXPECT_EQ(readFile(folder / "b.csv"), good);
    for (const char* run : {"first", "second"}) {
        const Outcome outcome = tool(folder, "--out out --report in/report.jsonl in");
        EXPECT_EQ(outcome.status, 0) << run << outcome.err;
        EXPECT_EQ(reportLines(readFile(folder / "in/report.jsonl")).size(), 1u) << run;
    }
}

TEST(BatchTool, NothingPrintedGetsIntoAFileWhenTheStreamsAreClosed) {
    const TemporaryFolder folder;
    writeFile(folder / "drop.csv", readFile(kExamples / "tradewind_drop_20210803.csv"));
    const std::string command = "cd '" + folder.path().string() + "' && env -u TARVOCONFIG HOME=. '" +
                                TARVO_BATCH_PROGRAM "' --report r.jsonl drop.csv nosuch.csv <&- >&- 2>&-";
    const int status = std::system(command.c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
    const auto lines = reportLines(readFile(folder / "r.jsonl"));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0]["file"], "drop.csv");
    EXPECT_TRUE(lines[0]["valid"]);
    EXPECT_EQ(readFile(folder / "dropQC.csv").substr(0, 15), "FileFormat,CSV\n");
}

TEST(BatchTool, OverridesAndSetsTakeEffect) {
    const TemporaryFolder folder;
    const std::string file = example("tradewind_drop_20210803.csv");
    tool(folder, "--quiet --out a --set mini-dropsonde --override PresOffset=1.5 --override RHThreshold=true "
                 "--override LaunchPresOverride=431.5 --override Project=MINE " +
                     file);
    const std::string text = readFile(folder / "a/tradewind_drop_20210803QC.csv");
    EXPECT_THAT(text, HasSubstr("\nConfigSetName,\"mini-dropsonde\"\n"));
    EXPECT_THAT(text, HasSubstr("\nPresOffset,\"1.5\"\n"));
    EXPECT_THAT(text, HasSubstr("\nRHThreshold,\"1\"\n"));
    EXPECT_THAT(text, HasSubstr("\nChuteArea,\"400\"\n"));
    EXPECT_THAT(text, HasSubstr("\nPressure,431.5,\"units=mb\"\n"));
    EXPECT_THAT(text, HasSubstr("\nLaunchPresOverride,\"431.5\"\n"));
    EXPECT_THAT(text, HasSubstr("\nProject,\"MINE\"\n"));

    const Outcome noQc = tool(folder, "--out b --formats raw-csv,qc-csv --override DoQC=0 " + file);
    EXPECT_EQ(noQc.status, 1);
    EXPECT_TRUE(fs::exists(folder / "b/tradewind_drop_20210803RAW.csv"));
    EXPECT_FALSE(fs::exists(folder / "b/tradewind_drop_20210803QC.csv"));
}

TEST(BatchTool, UsesTheUsersConfigurationAndNeverWritesIt) {
    const TemporaryFolder folder;
    std::string xml = readFile(fs::path(TARVO_SOURCE_DIR) / "resources/tarvo.xml");
    ASSERT_FALSE(xml.empty());
    const auto active = xml.find(">editsonde<");
    ASSERT_NE(active, std::string::npos);
    xml.replace(active, 11, ">upsonde-1s<");
    fs::create_directories(folder / ".config/Tarvo");
    writeFile(folder / ".config/Tarvo/tarvo.xml", xml);
    const std::string file = example("polar_up_20230117.csv");
    EXPECT_EQ(tool(folder, "--quiet --override PresOffset=1 --out a " + file).status, 0);
    EXPECT_THAT(readFile(folder / "a/polar_up_20230117QC.csv"), HasSubstr("\nConfigSetName,\"upsonde-1s\"\n"));
    EXPECT_EQ(readFile(folder / ".config/Tarvo/tarvo.xml"), xml);

    writeFile(folder / ".config/Tarvo/tarvo.xml", xml.substr(0, xml.size() / 2));
    const Outcome damaged = tool(folder, "--out b " + file);
    EXPECT_EQ(damaged.status, 2);
    EXPECT_THAT(damaged.err, HasSubstr(".config/Tarvo/tarvo.xml"));
    EXPECT_EQ(tool(folder, "--quiet --out b --config '" TARVO_SOURCE_DIR "/resources/tarvo.xml' " + file).status, 0);
}
