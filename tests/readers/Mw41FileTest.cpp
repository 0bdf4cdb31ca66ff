#include "ReadText.h"
#include "RowText.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::Pair;

namespace {

const std::string kNotice =
    "- Vaisala MW41 files have already been QC checked and should not be reprocessed. Setting QC "
    "mode to pass through.\n";

std::unique_ptr<SoundingFile> readLines(const TextLines& pairs,
                                        const TextLines& table = {"Elapsed time", "s", "0", "1"}) {
    return readText(joined(with(with(with({"FLEDT\tmetadata"}, pairs), {""}), table)));
}

const std::string kNoLaunch = "- Launch date or time is invalid.\n";

/// Without the notice that comes with every file, nor that of a file without a date.
std::string errorOf(const SoundingFile& file) {
    const std::string text = file.getErrorMsg();
    EXPECT_EQ(text.substr(0, kNotice.size()), kNotice);
    const std::string own = text.substr(kNotice.size());
    return own.substr(0, own.find(kNoLaunch));
}

} // namespace

TEST(Mw41File, TakesPairsAndTable) {
    const auto file = readText(mw41Text());
    EXPECT_TRUE(file->isValid());
    EXPECT_EQ(errorOf(*file), "");
    EXPECT_EQ(file->soundingType(), SoundingType::Mw41);
    EXPECT_TRUE(file->ascending());
    EXPECT_EQ(file->description(), "D20210801_120003.1  Site A R4520117");
    EXPECT_EQ(file->siteId() + "|" + file->sondeId(), "Site A|R4520117");
    EXPECT_EQ(file->launchObsTime(), "2022-02-03T11:30:07");
    EXPECT_EQ(file->unixLaunchObsTime(), 1643887807); // date -u -d '2022-02-03 11:30:07' +%s
    EXPECT_EQ(file->launchLat(), 40.0123);
    EXPECT_EQ(file->launchLon(), -999.0);
    EXPECT_THAT(file->mw41metadata(), ElementsAre(Pair("StationName", "Site A"), Pair("SondeSerialNumber", "R4520117"),
                                                  Pair("BalloonReleaseDateAndTime", "2022-02-03T11:30:07"),
                                                  Pair("ReasonForTermination", "Balloon burst")));
    ASSERT_EQ(file->dataPoints(), 2);
    const std::pair<Series*, double> last[] = {
        {file->sTime(), 10.0}, {file->sAlt(), 50.7},   {file->sPres(), 996.79},   {file->sTdry(), 2.76},
        {file->sRh0(), 87.9},  {file->sDp(), 0.95},    {file->sWdir(), 201.8},    {file->sWspd(), 8.26},
        {file->sDz(), 5.16},   {file->sLat(), 40.013}, {file->sLon(), -105.2341}, {file->sGpsalt(), 62.0},
    };
    for (const auto& [series, value] : last) {
        ASSERT_EQ(series->lastIndex(), 1);
        EXPECT_EQ(series->time(0), -1.0);
        EXPECT_EQ(series->time(1), 10.0);
        EXPECT_EQ(series->data(1), value);
    }
    EXPECT_TRUE(file->sSats()->empty());
}

TEST(Mw41File, TakesNumbersWithTheirUnitsAndHemispheres) {
    const auto file =
        readLines({"Release point latitude\t12.5S", "Release point longitude\t 105.5 deg W \r",
                   "The Release point height from sea level (m)\t1.5 m", "Surface pressure\t99999.0 hPa",
                   "Surface temperature\t-3.5", "Surface relative humidity\t88 %", "Surface wind speed\t8 m/s",
                   "Surface wind direction\t200", "Sonde type\tRS41", "Comments\tclear sky", "other  key\t v\t"});
    EXPECT_THAT(launchOf(*file), ElementsAre(-999.0, -3.5, 88.0, 200.0, 8.0, -105.5, -12.5, 1.5, -999.0));
    EXPECT_EQ(file->sondeModel() + "|" + file->comments(), "RS41|clear sky");
    EXPECT_THAT(file->mw41metadata(),
                ElementsAre(Pair("SondeType", "RS41"), Pair("Comments", "clear sky"), Pair("OtherKey", "v")));

    const auto others = readLines({"Surface humidity\t77", "Release point latitude\t12.5", "Release point latitude",
                                   "Release point longitude\t99999.0 W"});
    EXPECT_EQ(others->launchRH(), 77.0);
    EXPECT_EQ(others->launchLat(), 12.5);
    EXPECT_EQ(others->launchLon(), -999.0);
    EXPECT_TRUE(others->mw41metadata().empty());
}

TEST(Mw41File, JoinsDateAndTimeInEitherOrder) {
    const std::string date = "Balloon release date\t03/02/22";
    const std::string time = "Balloon release time\t11:30:07";
    for (const TextLines& lines : {TextLines{date, time}, TextLines{time, date}}) {
        const auto file = readLines(lines);
        EXPECT_EQ(file->launchObsTime(), "03/02/22 11:30:07");
        EXPECT_EQ(file->unixLaunchObsTime(), 1643887807);
        EXPECT_EQ(file->year() * 10000 + file->month() * 100 + file->day(), 20220203);
        EXPECT_EQ(file->mw41metadata().size(), 2U);
        EXPECT_EQ(file->getErrorMsg(), kNotice);
    }
    EXPECT_EQ(readLines({date})->unixLaunchObsTime(), -999);
    EXPECT_EQ(readLines({date})->getErrorMsg(), kNotice + kNoLaunch);
}

TEST(Mw41File, SaysWhatItCannotUse) {
    const std::string noTime = "- No elapsed time column found, so no usable data.\n";
    const std::string noData = "- No sounding data found in file.\n";
    const std::pair<TextLines, std::string> cases[] = {
        {{}, noTime},
        {{"Elapsed time,P"}, noData},
        {{"Elapsed time,P", "s,hPa"}, noData},
        {{"Elapsed time,P", "s,hPa", "1", "", "99999.0,1000"}, noData},
        {{"Elapsed time,P", "s,hPa", "later,1000", "1,1000"}, "- There is no time in line 5\n"},
        {{"elapsed time,P", "s,hPa", "1,1000"}, noTime},
        {{" Elapsed time , Foo,P, Foo,", "s,x,hPa,x", "1,2,3,4"},
         "- Tarvo does not recognize column: Foo. The data from this column will not be ingested.\n"},
    };
    for (const auto& [table, error] : cases) {
        const auto file = readLines({}, table);
        EXPECT_EQ(errorOf(*file), error);
        EXPECT_EQ(file->isValid(), error != noTime && error != noData);
    }
    // Without the empty line all of it is header.
    const std::string text = mw41Text();
    const auto endless = readText(text.substr(0, text.find("\n\n")) + text.substr(text.find("\n\n") + 1));
    EXPECT_FALSE(endless->isValid());
    EXPECT_EQ(errorOf(*endless), noTime);
}

TEST(Mw41File, PassesOverShortRowsAndReadsMarks) {
    const auto file = readLines({}, {"P,Elapsed time,Temp,P\r", "hPa,s,C,hPa\r", "1000,0,1.5,1", "999,1,2.5",
                                     "99999.0,2,,1\r", "99998.9,3,x,1,extra,", "998,,4.5,1", ""});
    ASSERT_EQ(file->dataPoints(), 3);
    EXPECT_THAT(file->sPres()->dataArray(), ElementsAre(1000.0, -999.0, 99998.9));
    EXPECT_THAT(file->sTdry()->dataArray(), ElementsAre(1.5, -999.0, 0.0));
    EXPECT_EQ(file->sPres()->time(2), 3.0);
}
