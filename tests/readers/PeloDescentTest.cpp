// The descent of a PELO sounding as a file of its own.

#include "PeloFile.h"
#include "TemporaryFolder.h"
#include "UpsondeText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::size_t kBurst = 9; // the line of the smallest pressure
constexpr int kFewestLines = 30;  // from it on

/// Five lines of a header, launch, launch observation, 1000, 900 and 800 mb, and so many records from there down.
std::vector<std::string> upAndDown(int down = kFewestLines - 1) {
    std::vector<std::string> lines(5, upsondeComment("PELO", "Standard Comments:", "c"));
    lines.push_back(upsondeLaunch("PELO"));
    lines.push_back(upsondeRecord("PELO", 0, 1000.0, "A00"));
    for (int second = 1; second <= 3; ++second) {
        lines.push_back(upsondeRecord("PELO", second, 1100.0 - 100.0 * second));
    }
    for (int i = 0; i < down; ++i) {
        lines.push_back(upsondeRecord("PELO", 4 + i, 801.0 + i));
    }
    return lines;
}

struct Opened {
    TemporaryFolder folder;
    std::string source = (folder / "up.dat").string();
    std::string derived = source + "d";
    std::unique_ptr<PeloFile> file;

    void open(const std::vector<std::string>& lines, bool derives = true) {
        file = std::make_unique<PeloFile>(source, lines, derives);
    }
    std::string written() const { return readFile(derived); }
};

} // namespace

TEST(PeloDescent, IsWrittenByteByByte) {
    Opened opened;
    opened.open(upAndDown());
    const std::string c = "PELO-T01 COM Standard Comments:                     c\r\n";
    std::string expected =
        c + c + c + c + c +
        "PELO-T01 LAU  R4520117 220203 113003.00\r\n"
        "PELO-D01 A00  R4520117 220203 113003.00  800.00  -5.25  45.50 180.00  10.00   5.50  -80.500000  25.500000 "
        " 2000.00  8  46.00  45.00 999 999  5560.25\r\n"
        "PELO-D01 S00  R4520117 220203 113003.00  800.00  -5.25  45.50 180.00  10.00   5.50  -80.500000  25.500000 "
        " 2000.00  8  46.00  45.00 999 999  5560.25";
    for (int i = 0; i < kFewestLines - 1; ++i) {
        expected += "\r\n" + upsondeRecord("PELO", 4 + i, 801.0 + i);
    }
    EXPECT_EQ(opened.written(), expected);
    EXPECT_EQ(opened.file->derivedSndFile(), opened.derived);
    EXPECT_THAT(opened.file->getSummaryInfo(), ElementsAre("Descending D-file \"" + opened.derived + "\" created"));
    EXPECT_EQ(opened.file->getErrorMsg(), "");
    EXPECT_EQ(opened.file->dataPoints(), 3 + kFewestLines - 1) << "the whole file is read as an upsonde";
    EXPECT_EQ(opened.folder.size(), 1) << "nothing temporary is left";

    opened.file->updateDescendingGeoAlt(2087.456);
    expected.replace(expected.find(" 2000.00"), 8, " 2087.46");
    EXPECT_EQ(opened.written(), expected);
    opened.open(upAndDown());
    EXPECT_THAT(opened.written(), HasSubstr("A00")) << "opened again, it is known as ours";
    EXPECT_EQ(opened.file->derivedSndFile(), opened.derived);
    EXPECT_EQ(opened.file->getErrorMsg(), "");
}

TEST(PeloDescent, WhenThereIsOne) {
    struct {
        const char* what;
        bool derives;
        std::vector<std::string> lines;
        bool found;
    } cases[] = {{"exactly 30 lines from the burst on", true, upAndDown(29), true},
                 {"29 lines", true, upAndDown(28), false},
                 {"switched off", false, upAndDown(), false},
                 {"five lines", true, std::vector<std::string>(5, upAndDown()[8]), false},
                 {"no pressure below 9999", true, upAndDown(), false},
                 {"frames of other kinds", true, upAndDown(), false},
                 {"frames with a bad GPS part", true, upAndDown(), true}};
    for (auto& line : cases[4].lines) {
        line = line.size() > 50 && line[9] == 'S' ? line.replace(40, 7, "9999.00") : line;
    }
    for (const std::size_t i : {5U, 6U}) {
        for (auto& line : cases[i].lines) {
            line = line.size() > 50 && line[9] == 'S' ? line.replace(9, 3, i == 5 ? "S10" : "S01") : line;
        }
    }
    for (const auto& c : cases) {
        Opened opened;
        opened.open(c.lines, c.derives);
        EXPECT_EQ(opened.folder.size(), c.found ? 1 : 0) << c.what;
        EXPECT_EQ(opened.file->derivedSndFile().empty(), !c.found) << c.what;
    }
    Opened derived;
    derived.source = derived.derived;
    derived.open(upAndDown());
    EXPECT_EQ(derived.folder.size(), 0);
    EXPECT_TRUE(derived.file->descending());
}

TEST(PeloDescent, TheFirstOfEqualPressuresIsTheBurst) {
    auto lines = upAndDown(40);
    lines[kBurst + 1].replace(40, 7, " 800.00");
    Opened opened;
    opened.open(lines);
    EXPECT_THAT(opened.written(), HasSubstr("A00  R4520117 220203 113003.00"));
}

TEST(PeloDescent, AMalformedLineEndsItsCreationOnly) {
    const auto good = upAndDown();
    const auto changed = [&](std::size_t line, const std::string& text) {
        auto lines = good;
        lines[line] = text;
        return lines;
    };
    const auto damaged = {
        changed(5, good[5].substr(0, 38)),
        changed(5, good[4]),
        changed(5, "PELO-T01 LAU  R45201 220203 113000.00   "),
        changed(kBurst, good[kBurst].substr(0, 113)),
        changed(kBurst, good[kBurst].substr(0, 38)),
        changed(kBurst, "x S00"),
        changed(kBurst, good[kBurst].substr(0, 83) + " " + good[kBurst].substr(83)),
        changed(20, "PELO-D01 A00  R4520117 220203 113020.00  800.00"),
    };
    for (const auto& lines : damaged) {
        Opened opened;
        opened.open(lines);
        EXPECT_EQ(opened.folder.size(), 0) << lines[5] << "\n" << lines[kBurst];
        EXPECT_EQ(opened.file->derivedSndFile(), "");
        EXPECT_THAT(opened.file->getErrorMsg(), HasSubstr("not laid out in the columns of a D-file"));
        EXPECT_GT(opened.file->dataPoints(), 25);
    }
    Opened opened;
    opened.open(changed(5, good[5].substr(0, 38) + " ")); // tenths of a second only
    EXPECT_EQ(opened.folder.size(), 1);
}

TEST(PeloDescent, ReplacesNothingButItself) {
    Opened ours;
    ours.open(upAndDown());
    const std::string own = ours.written();
    std::string otherLaunch = own;
    otherLaunch.replace(own.find("113003"), 6, "113004");
    for (const std::string& foreign :
         {std::string("a letter"), std::string(), own + "\r\n", otherLaunch, own.substr(0, own.find("113003") - 1)}) {
        Opened opened;
        writeFile(opened.derived, foreign);
        opened.open(upAndDown());
        EXPECT_EQ(opened.written(), foreign);
        EXPECT_EQ(opened.file->derivedSndFile(), "");
        EXPECT_THAT(opened.file->getSummaryInfo(), IsEmpty());
        EXPECT_THAT(opened.file->getErrorMsg(), HasSubstr("a file that was not made from this sounding"));
        EXPECT_TRUE(opened.file->isValid());
    }
    Opened link;
    fs::create_symlink("elsewhere", link.derived);
    link.open(upAndDown());
    EXPECT_EQ(link.folder.size(), 1);
    EXPECT_TRUE(fs::is_symlink(link.derived));

    // More of the same sounding has come in.
    ours.file->updateDescendingGeoAlt(1.0);
    ours.open(upAndDown(60));
    EXPECT_GT(ours.written().size(), own.size());
    // Replaced behind our back, it isn't ours any more.
    writeFile(ours.derived, "a letter");
    ours.file->updateDescendingGeoAlt(2.0);
    EXPECT_EQ(ours.written(), "a letter");
}

TEST(PeloDescent, WhereNothingCanBeWrittenItIsPassedOver) {
    Opened opened;
    opened.source = (opened.folder / "gone/up.dat").string();
    opened.open(upAndDown());
    EXPECT_EQ(opened.file->derivedSndFile(), opened.source + "d");
    EXPECT_EQ(opened.file->getErrorMsg(), "");
    EXPECT_THAT(opened.file->getSummaryInfo(), IsEmpty());
    opened.file->updateDescendingGeoAlt(1.0);

    fs::create_directory(opened.folder / "gone");
    fs::permissions(opened.folder / "gone", fs::perms::owner_read | fs::perms::owner_exec);
    opened.open(upAndDown());
    EXPECT_TRUE(fs::is_empty(opened.folder / "gone")) << "not even by who may write everywhere";
    EXPECT_TRUE(opened.file->isValid());
}
