#include "ReadText.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

const std::string kHead = "FileFormat,CSV\nYear,2021\nMonth,08\nDay,1\nHour,12\nMinute,00\nSecond,03\n";
const std::string kData = "Fields,Time,Pressure\nData,0.5,1000\n";

} // namespace

TEST(CsvFile, ReadsDataByTheFieldsLine) {
    const auto file = readText(kHead + "Fields, TIME ,Pressure,Dewpoint,RH,rh2,Ascent\n"
                                       "DATA,0.5,1000.5,1,50,,-1.5\n"
                                       " data, 1.0 ,1001.5mb,2,,52,junk\n");
    ASSERT_TRUE(file->isValid());
    EXPECT_EQ(file->dataPoints(), 2);
    EXPECT_THAT(file->sTime()->dataArray(), ElementsAre(0.5, 1.0));
    EXPECT_THAT(file->sPres()->dataArray(), ElementsAre(1000.5, 1001.5));
    EXPECT_THAT(file->sPres()->timeArray(), ElementsAre(0.5, 1.0));
    EXPECT_THAT(file->sRh0()->dataArray(), ElementsAre(50.0, -999.0));
    EXPECT_THAT(file->sRh2()->dataArray(), ElementsAre(-999.0, 52.0));
    EXPECT_THAT(file->sDz()->dataArray(), ElementsAre(-1.5, 0.0));
    EXPECT_EQ(file->numRhChan(), 1);
    EXPECT_TRUE(file->ascending());
    EXPECT_EQ(file->soundingType(), SoundingType::Unknown);
    // A series without a column is missing throughout, but for those of other formats.
    for (Series* series : {file->sSats(), file->sTdry(), file->sRh1(), file->sWdir(), file->sWspd(), file->sAlt(),
                           file->sGpsalt(), file->sLat(), file->sLon()}) {
        EXPECT_THAT(series->dataArray(), ElementsAre(-999.0, -999.0));
        EXPECT_THAT(series->timeArray(), ElementsAre(0.5, 1.0));
    }
    EXPECT_TRUE(file->sDp()->empty() && file->sWe()->empty());
}

TEST(CsvFile, AnEmptyFieldIsMissing) {
    const auto file =
        readText(kHead + "Fields,Time,Pressure,Temperature,RH,Speed,Direction,Latitude,Longitude,Altitude,"
                         "Sats,GpsAlt,Ascent,RH1\nData,0.3,,,,,,,,,,,,\n");
    EXPECT_EQ(file->dataPoints(), 1);
    EXPECT_THAT(file->sTime()->dataArray(), ElementsAre(0.3));
    EXPECT_THAT(file->sPres()->dataArray(), ElementsAre(-999.0));
    EXPECT_THAT(file->sRh1()->dataArray(), ElementsAre(-999.0));
    EXPECT_EQ(file->numRhChan(), 2);
}

TEST(CsvFile, ARecordWithoutATimeIsToldOnce) {
    for (const char* time : {"", "-999", "nan", "x12", "-", "\"2.0\""}) {
        const std::string record = "Data," + std::string(time) + ",998\n";
        const auto file = readText(kHead + kData + "Data,1.0,999\n" + record + record);
        EXPECT_TRUE(file->isValid());
        EXPECT_EQ(file->dataPoints(), 4);
        EXPECT_EQ(file->getErrorMsg(), "- There is no time in line 11\n") << time;
        EXPECT_EQ(file->sPres()->time(3), -999.0) << time;
    }
    EXPECT_EQ(readText(kHead + "Fields,Time\nData,-.5\nData, +1\nData,2s\n")->getErrorMsg(), "");
}

// Which of "Data,1,2", "Data,1,2,3", "Data,1,2,3,4" count.
TEST(CsvFile, TakesDataOfTheLengthOfTheFieldsLine) {
    const std::string data = "Data,1,2\nData,1,2,3\nData,1,2,3,4\n";
    const std::pair<std::string, std::vector<double>> cases[] = {
        {"Fields,Time,Pressure\n" + data, {2.0}},
        {data + "Fields,Time,Pressure\n" + data, {2.0}},
        {"Fields,Time,Pressure\n" + data + "Fields,RH\n" + data, {2.0, 2.0}},
        {"Fields,Time,Pressure,\nData,1,5,\nData,1,6\n", {5.0}},
    };
    for (const auto& [text, pressures] : cases) {
        EXPECT_EQ(readText(kHead + text)->sPres()->dataArray(), pressures) << text;
    }
}

TEST(CsvFile, TheFirstColumnIsTheTimeTag) {
    const auto file = readText(kHead + "Fields,Pressure,Time\nData,1000,0.5\nData,,1.5\n");
    EXPECT_THAT(file->sTime()->dataArray(), ElementsAre(0.5, 1.5));
    EXPECT_THAT(file->sTime()->timeArray(), ElementsAre(1000.0, -999.0));
    EXPECT_THAT(file->sPres()->dataArray(), ElementsAre(1000.0, -999.0));
}

TEST(CsvFile, ParametersGoToTheirFields) {
    const auto file = readText(
        kHead + kData +
        "Latitude,1.5,\"units=deg\"\nLONGITUDE,2.5\nPressure,3.5\nTemperature,4.5\nrh,5.5\nSpeed,6.5\nDirection,7.5\n"
        "Altitude,8.5\nGpsAltitude,9.5\nComments,\"A quiet Day\"\nDataType,a\nEquipmentType,b\nPlatformType,c\n"
        "PlatformId,d\nProject,e\nFlight,f\nPtuWindTimeDiff,\"0.25\"\nRadiationCorr,g\nTrackingType,h\nSondeId,i\n"
        "SondeType,23\nOperator,k\nLaunchObsSource,l\nLaunchObsTime,m\nSondeModel,n\nLaunchSite,o\nThermoSensor,p\n"
        "Agency,q\nComments\nascending,\"FALSE\"\n");
    EXPECT_THAT(launchOf(*file), ElementsAre(3.5, 4.5, 5.5, 7.5, 6.5, 2.5, 1.5, 8.5, 9.5));
    EXPECT_EQ(file->comments(), "A quiet Day");
    EXPECT_EQ(file->dataType() + file->WMOequipType() + file->platformType() + file->platformId() + file->project() +
                  file->flight() + file->WMOradCorrection() + file->WMOtrackingType() + file->sondeId() +
                  file->WMOsondeType() + file->sysOperator() + file->launchObsSource() + file->launchObsTime() +
                  file->sondeModel() + file->siteId() + file->thermoSensor(),
              "abcdefghi23klmnop");
    EXPECT_EQ(file->ptuWindTimeDiff(), 0.25);
    EXPECT_EQ(startOf(*file), "2021-08-01 12:00:03");
    EXPECT_FALSE(file->ascending());
    EXPECT_EQ(file->soundingType(), SoundingType::Ombra);
}

TEST(CsvFile, TheSondeTypeIsACodeFigure) {
    const std::pair<const char*, const char*> cases[] = {
        {"7", "7"},         {"23", "23"}, {"123", "123"}, {"\"//\"", "//"}, {"1234", "90"},
        {"RS41-SGP", "90"}, {"2a", "90"}, {"/", "90"},    {"-1", "90"},     {"", "90"},
    };
    for (const auto& [value, type] : cases) {
        EXPECT_EQ(readText(kHead + kData + "SondeType," + value)->WMOsondeType(), type) << value;
    }
}

TEST(CsvFile, AnEmptyOrUnusableLaunchValueIsMissing) {
    for (const char* value : {"", "\"\"", "nan", "1e999"}) {
        EXPECT_EQ(readText(kHead + kData + "Pressure," + value)->launchPres(), -999.0) << value;
    }
}

TEST(CsvFile, ALaunchTimeThatTheCalendarDoesntHaveIsTold) {
    for (const char* lines : {"Month,02\nDay,29\n", "Month,13\n", "Day,0\n", "Hour,24\n", "Minute,60\n", "Second,60\n",
                              "Year,abc\n", "Year,2147483647\n"}) {
        const auto file = readText(kHead + kData + lines);
        EXPECT_TRUE(file->isValid()) << lines;
        EXPECT_EQ(file->getErrorMsg(), "- Launch date or time is invalid.\n") << lines;
    }
    EXPECT_EQ(readText(kHead + kData + "Month,02\nDay,29\nYear,2020\nSecond,59\n")->getErrorMsg(), "");
}

TEST(CsvFile, NeedsEveryPartOfTheDateAndData) {
    EXPECT_TRUE(readText(kHead + kData)->isValid());
    EXPECT_FALSE(readText(kHead + "Fields,Time,Pressure\n")->isValid());
    for (const char* part : {"Year,", "Month,", "Day,", "Hour,", "Minute,", "Second,"}) {
        std::string text = kHead + kData;
        text.replace(text.find(part), 1, "x");
        const auto file = readText(text);
        EXPECT_FALSE(file->isValid()) << part;
        EXPECT_EQ(file->dataPoints(), 1) << part;
        EXPECT_EQ(file->getErrorMsg(), "") << part;
    }
}
