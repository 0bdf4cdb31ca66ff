#include "OmbraText.h"
#include "ReadText.h"
#include "RowText.h"
#include "UpsondeText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

namespace {

std::string csv() {
    return "FileFormat,CSV\nYear,2021\nMonth,08\nDay,1\nHour,12\nMinute,00\nSecond,03\nFields,Time,Pressure,RH\n"
           "Data,0.0,500,50\nData,0.5,501,51\n";
}

std::string ombra() {
    return comment("Sonde ID/Type/Rev/Built/Sensors:", "204715063, RD, A, 2020, RSS421") +
           comment("Launch Time (y,m,d,h,m,s):", "2021-08-01, 12:00:03") +
           comment("Met/Wind Offset (s):", "PTU lags wind by 0.5 sec") +
           comment("Pre-launch Obs Data System/Time:", "AIMS, 11:59:58") + shortDrop();
}

std::string upsonde(const std::string& system) {
    return joined({upsondeComment(system, "Project Name/Mission ID:", "TESTEX, Site A"),
                   upsondeComment(system, "Sonde Dynamic Errors  (P,T,U):", "0.25"),
                   upsondeComment(system, "Pre-launch Obs (lon,lat,alt):", "12.5 deg, 40.0 deg, 3 m"),
                   upsondeLaunch(system), upsondeRecord(system, 0, 1000.0, "A00"), upsondeRecord(system, 1, 999.0),
                   upsondeRecord(system, 2, 998.0)});
}

std::string mirra() {
    std::string text = "Data Type: MIRRA\nProject a\nLaunch\nLaunch\nGMT Launch Time t: 2022, 02, 03, 11:30:05\n"
                       "Sonde Type/ID/Sensor ID/Tx Freq: a b c d\nMet\nWinds\nPre-Launch\nSystem\n/\n/\nTime\nsec\n";
    return text + "-----\n-1.0 1000 1 2\n0.0 999 1 2 3 4 5 6 7 8 9\n1.0 998 1 2 3 4 5 6 7 8 9\n";
}

std::vector<std::string> everyFormat() {
    return {csv(), ombra(), upsonde("PELO"), upsonde("VESTA"), mirra(), troveText(), zorText(), frdText(), mw41Text()};
}

/// Everything an owner of a reader asks for.
void use(SoundingFile& file) {
    const int n = file.sTime()->lastIndex();
    for (Series* series : {file.sPres(), file.sTdry(), file.sRh0(), file.sWdir(), file.sWspd(), file.sDz(), file.sLon(),
                           file.sLat(), file.sAlt(), file.sGpsalt(), file.sSats(), file.sRh1(), file.sRh2()}) {
        const int last = series->lastIndex(); // -1: a quantity that the format doesn't have
        ASSERT_TRUE(last == n || last == -1 || file.soundingType() == SoundingType::Unknown);
    }
    file.unixLaunchObsTime();
    file.adjustErrStats(1.0);
    EXPECT_GE(file.getPtuErrNum(), 0);
    EXPECT_GE(file.getPGErrNum(), 0);
    EXPECT_FALSE(file.description().empty());
    EXPECT_TRUE(!file.isValid() || file.dataPoints() > 0);
}

void replaceAll(std::string& text, const std::string& what, const std::string& by) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
        text.replace(at, what.size(), by);
    }
}

} // namespace

TEST(ReaderRobustness, AFileMayEndAnywhere) {
    for (const std::string& text : everyFormat()) {
        int valid = 0;
        for (std::size_t length = 0; length <= text.size(); ++length) {
            const auto file = readText(text.substr(0, length));
            if (file) {
                use(*file);
                valid += file->isValid() ? 1 : 0;
            }
        }
        EXPECT_GT(valid, 0);
    }
}

TEST(ReaderRobustness, LineEndsMakeNoDifference) {
    for (const std::string& text : {csv(), ombra(), troveText(), zorText(), frdText()}) {
        const auto plain = readText(text);
        const auto third = text.find('\n', text.find('\n') + 1) + 1; // the first two tell the format
        std::string other = text.substr(third);
        replaceAll(other, "\n", "\r\n\r\n \t\n");
        other.insert(0, text.substr(0, third));
        for (const auto& file : {readText(other), readText(text.substr(0, text.size() - 1))}) {
            ASSERT_TRUE(file && file->isValid()) << text;
            EXPECT_EQ(file->getErrorMsg(), plain->getErrorMsg());
            EXPECT_EQ(file->sPres()->dataArray(), plain->sPres()->dataArray());
            EXPECT_EQ(file->sRh2()->dataArray(), plain->sRh2()->dataArray());
        }
    }
}

// The last two records change places, or the last one comes twice, or both.
TEST(ReaderRobustness, RecordsOutOfOrderOrRepeatedTakeTheirPlaces) {
    const std::string unordered = "- The times of the records go backward. The records are put in order of time.\n";
    const std::string repeated = "- Records are repeated. Each was read once.\n";
    for (const std::string& text :
         {csv(), upsonde("PELO"), upsonde("VESTA"), mirra(), zorText(), frdText(), mw41Text()}) {
        const auto plain = readText(text);
        const auto behind = text.rfind('\n', text.size() - 2) + 1;
        const auto ahead = text.rfind('\n', behind - 2) + 1;
        const std::string start = text.substr(0, ahead);
        const std::string next = text.substr(ahead, behind - ahead);
        const std::string last = text.substr(behind);
        for (const auto& [changed, told] : {std::pair(start + last + next, unordered),
                                            {text + last, repeated},
                                            {start + last + next + last, unordered + repeated}}) {
            const auto file = readText(changed);
            ASSERT_TRUE(file->isValid()) << changed;
            EXPECT_EQ(file->getErrorMsg(), plain->getErrorMsg() + told) << changed;
            EXPECT_EQ(file->dataPoints(), plain->dataPoints());
            for (Series* (SoundingFile::*series)() :
                 {&SoundingFile::sTime, &SoundingFile::sPres, &SoundingFile::sTdry, &SoundingFile::sRh0,
                  &SoundingFile::sRh1, &SoundingFile::sWspd, &SoundingFile::sLat, &SoundingFile::sGpsalt}) {
                EXPECT_EQ(((*file).*series)()->timeArray(), ((*plain).*series)()->timeArray()) << changed;
                EXPECT_EQ(((*file).*series)()->dataArray(), ((*plain).*series)()->dataArray()) << changed;
            }
        }
    }
}

TEST(ReaderRobustness, GarbageIsNoSounding) {
    std::mt19937 random(11);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> any(0, 1000000);
    for (const std::string& text : everyFormat()) {
        for (int run = 0; run < 300; ++run) {
            std::string damaged = text;
            for (int i = 0; i < 1 + run / 10; ++i) {
                damaged[static_cast<std::size_t>(any(random)) % damaged.size()] = static_cast<char>(byte(random));
            }
            if (const auto file = readText(damaged)) {
                use(*file);
            }
        }
    }
    std::string garbage = "FileFormat,CSV\n";
    for (int i = 0; i < 20000; ++i) {
        garbage += static_cast<char>(byte(random));
    }
    EXPECT_FALSE(readText(garbage)->isValid());
    EXPECT_FALSE(readText("OMBRA-T01" + garbage.substr(14))->isValid());
}

TEST(ReaderRobustness, NumbersOutOfRange) {
    for (const char* number :
         {"99999999999999999999", "-99999999999999999999", "1e300", "-1e300", "1e999", "nan", ""}) {
        std::string text = csv() + "LaunchObsTime,1:2:" + number + "\n";
        for (const char* value : {"2021", "08", ",1\n", "12", "00", "03", "0.5"}) {
            std::string changed = text;
            replaceAll(changed, value, *value == ',' ? "," + std::string(number) + "\n" : number);
            use(*readText(changed));
        }
        for (const char* value : {"210801", "12000", "770.00", "-12.00"}) {
            std::string changed = ombra();
            replaceAll(changed, value, number);
            use(*readText(changed));
        }
    }
    std::string farAway = ombra();
    replaceAll(farAway, "120005.00", "120005" + std::string(300, '9'));
    EXPECT_FALSE(readText(farAway)->isValid());
}

// In a cabin that is never steady each frame looks for a steady stretch in vain. Lines and frames by the hundred
// thousand take a fraction of a second; a step that costs the square of them takes many times the limit.
TEST(ReaderRobustness, TheCostIsLinearInTheLines) {
    std::string text = version16() + launchLine(0.0);
    for (int i = 0; i < 80000; ++i) {
        Frame frame;
        frame.second = -43200.0 + i;
        frame.pres = i % 2 == 0 ? 770.0 : 775.0;
        text += frameText(frame) + comment("Nothing known:", "") + comment("Standard Comments:", "c");
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(readText(text)->isValid());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}
