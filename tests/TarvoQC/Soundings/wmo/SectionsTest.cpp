#include "AbrHeader.h"
#include "MadeLevels.h"
#include "PrescribedTime.h"
#include "SignificantSections.h"
#include "WMOsection1.h"
#include "WMOsection10.h"
#include "WMOsection2.h"
#include "WMOsection3.h"
#include "WMOsection4.h"
#include "WMOsection7.h"
#include "WMOsection9.h"

#include <gtest/gtest.h>

namespace {

using T = LevelType;
using Part = WMOpartType;

constexpr double kKnot = 1.0 / 1.94; // m/s

/// The groups in a row, a "|" ahead of each that starts a line.
std::string textOf(const WMOsection& section) {
    std::string text;
    for (const WMOcodeGroup& group : section.groups()) {
        text += std::string(text.empty() ? "" : " ") + (group.newLine() ? "|" : "") + group.text();
    }
    return text;
}

SndMetaData launch(int day, int hour, int min, int sec = 0) {
    SndMetaData meta;
    meta.year = 2024;
    meta.month = 2;
    meta.day = day;
    meta.hour = hour;
    meta.min = min;
    meta.sec = sec;
    meta.BSN = "72469";
    meta.callSign = "WXYZ";
    meta.WMOequipType = "8";
    meta.WMOsondeType = "96";
    meta.WMOtrackingType = "08";
    return meta;
}

SndMetaData at(double lat, double lon) {
    SndMetaData meta = launch(5, 12, 29);
    meta.launchLat.set(lat);
    meta.launchLon.set(lon);
    return meta;
}

/// A standard level with height, temperature and, with a speed in knots, wind from 270 degrees.
Level& standard(MadeLevels& made, double p, double knots = -1.0) {
    Level& level = made.add(T::Standard, {{LFpres, p}, {LFalt, 1234.0}, {LFtdry, -10.2}, {LFrh, 100.0}});
    if (knots >= 0.0) {
        level.setField(LFwspd, knots * kKnot);
        level.setField(LFwdir, 270.0);
    }
    return level;
}

void wind(MadeLevels& made, T type, double p, double knots, double dir, double time = 0.0) {
    made.add(type, {{LFtime, time}, {LFpres, p}, {LFwspd, knots * kKnot}, {LFwdir, dir}});
}

void thermo(MadeLevels& made, T type, double p, double t) {
    made.add(type, {{LFtime, 0.0}, {LFpres, p}, {LFtdry, t}, {LFrh, 100.0}});
}

} // namespace

TEST(WMOsection1, TempIsOfTheStation) {
    MadeLevels made;
    standard(made, 850.0, 10.0);
    standard(made, 70.0, 10.0);
    const SndMetaData meta = launch(5, 12, 29);
    const auto text = [&](Part part) { return textOf(WMOsection1temp(made.levels, part, TempMsgType::Temp, meta)); };
    EXPECT_EQ(text(Part::A), "|TTAA  55128 72469");
    EXPECT_EQ(text(Part::B), "TTBB  55128 72469");
    EXPECT_EQ(text(Part::C), "|TTCC  55127 72469");
    EXPECT_EQ(text(Part::D), "TTDD  5512/ 72469");
}

TEST(WMOsection1, ShipAndMobilTellTheirPlace) {
    MadeLevels made;
    SndMetaData meta = at(-33.94, 151.17);
    const auto text = [&](TempMsgType type) { return textOf(WMOsection1temp(made.levels, Part::A, type, meta)); };
    EXPECT_EQ(text(TempMsgType::TempShip), "|UUAA  WXYZ 5512/ 99339 31512 42831");
    EXPECT_EQ(text(TempMsgType::TempMobil), "|IIAA  WXYZ 5512/ 99339 31512 42831 00004");
    meta.launchAlt.set(-4.6);
    EXPECT_EQ(text(TempMsgType::TempMobil), "|IIAA  WXYZ 5512/ 99339 31512 42831 -0051");
    meta.launchAlt.set(1234.5);
    EXPECT_EQ(text(TempMsgType::TempMobil), "|IIAA  WXYZ 5512/ 99339 31512 42831 12351");
    meta.launchLat.adjust(-999.0, true); // ignored
    EXPECT_EQ(text(TempMsgType::TempShip), "|UUAA  WXYZ 5512/ 99/// ///// /////");
}

TEST(WMOsection1, APlaceOffTheGlobeIsNone) {
    MadeLevels made;
    for (const auto& [lat, lon] : {std::pair(99999999999.0, -80.0), std::pair(90.1, 0.0), std::pair(25.0, 1e12)}) {
        SndMetaData meta = at(lat, lon);
        meta.launchAlt.set(1e12);
        EXPECT_EQ(textOf(WMOsection1temp(made.levels, Part::B, TempMsgType::TempMobil, meta)),
                  "IIBB  WXYZ 55128 99/// ///// ///// 00004");
        EXPECT_EQ(textOf(WMOsection1tempdrop(made.levels, Part::B, meta)), "XXBB  05128 99/// ///// /////");
    }
    SndMetaData meta = at(-90.0, 180.0);
    for (const auto& [height, group] : {std::pair(9999.4, "99991"), std::pair(9999.6, "00004"),
                                        std::pair(-998.9, "-9991"), std::pair(-1000.0, "00004")}) {
        meta.launchAlt.set(height);
        EXPECT_EQ(WMOsection1temp(made.levels, Part::B, TempMsgType::TempMobil, meta).groups().back().text(), group);
    }
}

TEST(WMOsection1, HalfPastGoesToTheNextHour) {
    MadeLevels made;
    const auto date = [&](const SndMetaData& meta) {
        return WMOsection1temp(made.levels, Part::D, TempMsgType::Temp, meta).groups()[1].text();
    };
    EXPECT_EQ(date(launch(29, 9, 29, 59)), "7909/");
    EXPECT_EQ(date(launch(29, 9, 30)), "7910/");
    EXPECT_EQ(date(launch(29, 23, 45)), "5100/") << "the last day of February 2024";
}

TEST(WMOsection1, ALaunchTimeThatIsNoneIsSlashes) {
    MadeLevels made;
    for (const SndMetaData& meta :
         {launch(0, 9, 0), launch(32, 9, 0), launch(-999, -999, -999, -999), launch(5, 24, 0), launch(5, 9, 60)}) {
        EXPECT_EQ(textOf(WMOsection1temp(made.levels, Part::D, TempMsgType::Temp, meta)), "TTDD  ///// 72469");
        const bool isTime = meta.hour == 9 && meta.min == 0;
        EXPECT_EQ(textOf(WMOsection7(made.levels, Part::B, meta)),
                  isTime ? "|31313 09608 80900" : "|31313 09608 8////");
    }
    made.add(T::RELLocation, {{LFtime, -1.0}, {LFpres, 400.0}, {LFlat, 24.7}, {LFlon, -80.1}});
    WMOsection10 section(made.levels, Part::A);
    section.set62626({"EYE", -1, false, false, "", ""}, launch(5, 24, 0));
    EXPECT_EQ(section.groups()[1].text(), "62626 EYE");
}

TEST(WMOsection1, TempDropWithAndWithoutWindAndPosition) {
    MadeLevels made;
    standard(made, 850.0);
    const SndMetaData meta = at(25.46, -80.27);
    EXPECT_EQ(textOf(WMOsection1tempdrop(made.levels, Part::A, meta)), "|XXAA  0512/ 99255 70803 08150");
    wind(made, T::GDLWspd, 900.0, 10.0, 90.0);
    EXPECT_EQ(textOf(WMOsection1tempdrop(made.levels, Part::A, meta)), "|XXAA  5512/ 99255 70803 08150");
    EXPECT_EQ(textOf(WMOsection1tempdrop(made.levels, Part::B, meta)), "XXBB  55128 99255 70803 08150");
    EXPECT_EQ(textOf(WMOsection1tempdrop(made.levels, Part::D, launch(5, 12, 0))), "XXDD  5512/ 99/// ///// /////");
}

TEST(WMOsection1, IdIsOfTheHighestStandardLevelWithWind) {
    struct IdCase {
        Part part;
        double p;
        const char* id;
    };
    const std::vector<IdCase> cases{{Part::A, 1000, "0"}, {Part::A, 925, "9"}, {Part::A, 850, "8"}, {Part::A, 700, "7"},
                                    {Part::A, 500, "5"},  {Part::A, 400, "4"}, {Part::A, 300, "3"}, {Part::A, 250, "2"},
                                    {Part::A, 200, "2"},  {Part::A, 150, "1"}, {Part::A, 100, "1"}, {Part::A, 70, "/"},
                                    {Part::C, 100, "/"},  {Part::C, 70, "7"},  {Part::C, 50, "5"},  {Part::C, 30, "3"},
                                    {Part::C, 20, "2"},   {Part::C, 10, "1"},  {Part::C, 1, "1"}};
    for (const IdCase& c : cases) {
        MadeLevels made;
        standard(made, c.p, 20.0);
        wind(made, T::GDLWspd, 60.0, 20.0, 90.0); // not a standard level
        const WMOsection1temp section(made.levels, c.part, TempMsgType::Temp, launch(5, 12, 0));
        EXPECT_EQ(section.groups()[1].text(), std::string("5512") + c.id) << c.p;
    }
}

TEST(WMOsection2, SurfaceGroups) {
    MadeLevels made;
    const auto text = [&] { return textOf(WMOsection2(made.levels, Part::A)); };
    EXPECT_EQ(text(), "99/// ///// /////");
    Level& surface = made.add(T::SurfaceThermo, {{LFpres, 1013.2}, {LFtdry, 27.4}});
    EXPECT_EQ(text(), "99013 274// /////");
    surface.setField(LFrh, 100.0);
    wind(made, T::SurfaceWind, 1013.2, 20.0, 90.0);
    EXPECT_EQ(text(), "99013 27400 09020");
    made.levels.levels()[0].getField(LFtdry)->setTag(true);
    EXPECT_EQ(text(), "99013 ///// 09020");
    made.levels.levels()[0].tag(true);
    EXPECT_EQ(text(), "99/// ///// 09020");
    made.add(T::ExtrapSfcPres, {{LFpres, 958.7}});
    EXPECT_EQ(text(), "99959 ///// 09020") << "the extrapolated pressure goes ahead";
    EXPECT_EQ(textOf(WMOsection2(made.levels, Part::C)), "");
}

TEST(WMOsection2, WindsStopWithTheHighestButForTheTwoSlashGroups) {
    struct HighestWind {
        double p;
        const char* text;
    };
    const std::vector<HighestWind> cases{
        {300.0, "30123 10300 27020 25123 10300 20123 10300 15123 10300 10123 10300"},
        {250.0, "30123 10300 27020 25123 10300 27020 20123 10300 ///// 15123 10300 10123 10300"},
        {200.0, "30123 10300 27020 25123 10300 27020 20123 10300 27020 15123 10300 10123 10300"},
        {150.0, "30123 10300 27020 25123 10300 27020 20123 10300 27020 15123 10300 27020 10123 10300 /////"},
        {2000.0, "30123 10300 25123 10300 20123 10300 15123 10300 10123 10300"},
    };
    for (const HighestWind& c : cases) {
        MadeLevels made;
        for (const double p : {100.0, 150.0, 200.0, 250.0, 300.0}) {
            standard(made, p, p >= c.p ? 20.0 : -1.0);
        }
        EXPECT_EQ(textOf(WMOsection2(made.levels, Part::A)), std::string("99/// ///// ///// ") + c.text) << c.p;
    }
}

TEST(WMOsection2, TaggedLevelsKeepTheirPlacesAnd100mbStandsInPartA) {
    MadeLevels made;
    standard(made, 70.0, 20.0);
    standard(made, 100.0, 20.0);
    standard(made, 850.0, 20.0).tag(true);
    standard(made, 925.0, 20.0).getField(LFalt)->setTag(true);
    EXPECT_EQ(textOf(WMOsection2(made.levels, Part::A)),
              "99/// ///// ///// 92/// 10300 27020 85/// ///// ///// 10123 10300 27020");
    EXPECT_EQ(textOf(WMOsection2(made.levels, Part::C)), "70123 10300 27020");
}

TEST(WMOsection3, TropopausesBySideOf100mb) {
    MadeLevels made;
    EXPECT_EQ(textOf(WMOsection3(made.levels, Part::A)), "88999");
    made.add(T::TropopauseLevel, {{LFpres, 99.9}, {LFtdry, -70.2}, {LFrh, 100.0}});
    made.add(T::TropopauseLevel, {{LFpres, 100.0}, {LFtdry, -69.9}});
    EXPECT_EQ(textOf(WMOsection3(made.levels, Part::A)), "88999");
    EXPECT_EQ(textOf(WMOsection3(made.levels, Part::C)), "88000 699// ///// 88999 70300 /////");
    Level& low = made.add(T::TropopauseLevel, {{LFpres, 210.4}, {LFtdry, -56.5}, {LFrh, 100.0}});
    low.setField(LFwspd, 100.0 * kKnot);
    low.setField(LFwdir, 270.0);
    EXPECT_EQ(textOf(WMOsection3(made.levels, Part::A)), "88210 56500 27100");
    made.levels.levels().back().tag(true);
    EXPECT_EQ(textOf(WMOsection3(made.levels, Part::A)), "88999");
}

TEST(WMOsection4, MaximumWindAndShear) {
    MadeLevels made;
    EXPECT_EQ(textOf(WMOsection4(made.levels, Part::A)), "77999");
    wind(made, T::HighestWind, 150.0, 60.0, 270.0);
    wind(made, T::MaxWind, 225.0, 120.0, 270.0);
    EXPECT_EQ(textOf(WMOsection4(made.levels, Part::A)), "77225 27120 4////");
    wind(made, T::ShearAbove, 190.0, 90.0, 270.0);  // 30 knots less
    wind(made, T::ShearBelow, 262.0, 120.0, 360.0); // 120 * sqrt(2) = 170 knots apart
    EXPECT_EQ(textOf(WMOsection4(made.levels, Part::A)), "77225 27120 49930");
    EXPECT_EQ(textOf(WMOsection4(made.levels, Part::C)), "77999");
    made.levels.levels()[1].getField(LFwspd)->setTag(true);
    EXPECT_EQ(textOf(WMOsection4(made.levels, Part::A)), "") << "not even 77999";
}

TEST(WMOsection4, AtTheTopOfTheDataAndAt100mb) {
    MadeLevels top;
    wind(top, T::HighestWind, 200.0, 90.0, 180.0);
    wind(top, T::MaxWind, 200.0, 90.0, 180.0);
    EXPECT_EQ(textOf(WMOsection4(top.levels, Part::A)), "66200 18090 4////");
    MadeLevels made;
    wind(made, T::MaxWind, 100.0, 90.0, 180.0);
    EXPECT_EQ(textOf(WMOsection4(made.levels, Part::A)), "77000 18090 4////");
    EXPECT_EQ(textOf(WMOsection4(made.levels, Part::C)), "77000 18090 4////");
}

TEST(WMOsection5, NumbersFromTheSurfaceUp) {
    MadeLevels made;
    EXPECT_EQ(textOf(WMOsection5(made.levels, Part::B)), "00/// /////");
    EXPECT_EQ(textOf(WMOsection5(made.levels, Part::D)), "");
    for (int i = 0; i < 12; ++i) {
        thermo(made, T::GDLTdry, 200.0 + 10.0 * i, -10.0);
    }
    thermo(made, T::Standard, 505.0, -10.0); // not of these
    made.add(T::GDLRH, {{LFpres, 450.0}, {LFtdry, -5.0}});
    made.add(T::InversionTop, {{LFpres, 460.0}});
    thermo(made, T::SurfaceThermo, 1012.0, 20.0);
    EXPECT_EQ(textOf(WMOsection5(made.levels, Part::B)),
              "00012 20000 11460 ///// 22450 051// 33310 10100 44300 10100 55290 10100 66280 10100 77270 10100 "
              "88260 10100 99250 10100 11240 10100 22230 10100 33220 10100 44210 10100 55200 10100");
}

TEST(WMOsection5, WithoutASurfaceAndInPartD) {
    MadeLevels made;
    thermo(made, T::LowestThermo, 700.0, 5.0);
    thermo(made, T::HighestThermo, 100.0, -70.0); // stands in neither part
    thermo(made, T::GDLTdry, 9.94, -40.0);
    EXPECT_EQ(textOf(WMOsection5(made.levels, Part::B)), "00/// ///// 11700 05000");
    EXPECT_EQ(textOf(WMOsection5(made.levels, Part::D)), "11099 40100");
}

TEST(WMOsection5, OfOneCodedPressureTheHigherLevelStays) {
    MadeLevels made;
    thermo(made, T::GDLTdry, 850.4, 5.0);
    thermo(made, T::GDLRH, 849.6, 6.0);
    EXPECT_EQ(textOf(WMOsection5(made.levels, Part::B)), "00/// ///// 11850 06000");
}

TEST(WMOsection6, WindLevels) {
    MadeLevels made;
    EXPECT_EQ(textOf(WMOsection6(made.levels, Part::B)), "00/// /////");
    EXPECT_EQ(textOf(WMOsection6(made.levels, Part::D)), "");
    wind(made, T::LowestWind, 700.0, 20.0, 90.0);
    EXPECT_EQ(textOf(WMOsection6(made.levels, Part::B)), "|21212 00/// ///// 11700 09020");
    wind(made, T::HighestWind, 60.0, 30.0, 180.0);
    EXPECT_EQ(textOf(WMOsection6(made.levels, Part::D)), "|21212 11600 18030");
    wind(made, T::SurfaceWind, 1013.0, 0.0, 0.0);
    made.levels.levels().back().getField(LFwdir)->setTag(true);
    EXPECT_EQ(textOf(WMOsection6(made.levels, Part::B)), "|21212 00013 ///// 11700 09020");
}

TEST(WMOsection9, ExtrapolatedLevels) {
    MadeLevels made;
    EXPECT_EQ(textOf(WMOsection9(made.levels, Part::A)), "");
    made.add(T::ExtrapAlt, {{LFpres, 100.0}, {LFalt, 16580.0}});
    made.add(T::ExtrapAlt, {{LFpres, 200.0}, {LFalt, 12400.0}});
    made.add(T::ExtrapAlt, {{LFpres, 700.0}});
    made.add(T::ExtrapSfcPres, {{LFpres, 1009.0}});
    EXPECT_EQ(textOf(WMOsection9(made.levels, Part::B)), "|51515 10190 70/// 10190 20240 10191");
    EXPECT_EQ(textOf(WMOsection9(made.levels, Part::D)), "|51515 10190 10658");
}

TEST(WMOsection9, DoubtfulHeightsComeAndGo) {
    MadeLevels none;
    WMOsection9 section(none.levels, Part::A);
    section.removeDoubtfulHts();
    EXPECT_EQ(textOf(section), "");
    section.addDoubtfulHts(850.0, 500.0);
    EXPECT_EQ(textOf(section), "|51515 10166 08550");
    section.addDoubtfulHts(1000.0, 70.0);
    EXPECT_EQ(textOf(section), "|51515 10166 00070");
    section.deleteGroup(2);
    section.addDoubtfulHts(1000.0, 100.0);
    EXPECT_EQ(textOf(section), "|51515 10166 00010");
    section.removeDoubtfulHts();
    EXPECT_EQ(textOf(section), "");

    MadeLevels made;
    made.add(T::ExtrapSfcPres, {{LFpres, 1009.0}});
    WMOsection9 more(made.levels, Part::A);
    more.addDoubtfulHts(850.0, 500.0);
    EXPECT_EQ(textOf(more), "|51515 10166 08550 10191");
    more.removeDoubtfulHts();
    EXPECT_EQ(textOf(more), "|51515 10191");
    more.deleteGroup(0);
    more.addDoubtfulHts(850.0, 500.0);
    EXPECT_EQ(textOf(more), "|51515 10166 08550 10191") << "51515 was taken out by hand";
}

TEST(WMOsection10, MissionGroup) {
    MadeLevels made;
    WMOsection10 section(made.levels, Part::A);
    EXPECT_EQ(textOf(section), "61616");
    section.set61616("AF302 01AAA STORM        OB 03");
    section.set62626({"EYE", -1, false, false, "", ""}, launch(5, 12, 0));
    section.set61616("AF302 01AAA STORM        OB 04");
    EXPECT_EQ(textOf(section), "|61616 AF302 01AAA STORM        OB 04 |62626 EYE");
    section.set62626({}, launch(5, 12, 0));
    EXPECT_EQ(textOf(section), "|61616 AF302 01AAA STORM        OB 04");
}

TEST(WMOsection10, AllRemarksInTheirOrder) {
    MadeLevels made;
    made.add(T::SurfaceThermo, {{LFtime, 640.0}, {LFpres, 1012.0}, {LFlat, 24.0}, {LFlon, -87.0}});
    made.add(T::LastWindAlt, {{LFtime, 1.0}, {LFpres, 1010.0}, {LFalt, 14.6}});
    wind(made, T::MeanBLWind, 960.0, 75.0, 115.0);
    Level& deep = made.add(T::DeepLayer, {{LFpres, 1010.0}, {LFpresBot, 1010.0}, {LFpresTop, 99.9}});
    deep.setField(LFwspd, 71.0 * kKnot);
    deep.setField(LFwdir, 125.0);
    wind(made, T::Layer150m, 1000.0, 57.0, 110.0);
    made.levels.levels().back().setField(LFalt, 85.9);
    made.add(T::RELLocation, {{LFtime, -1.0}, {LFpres, 400.0}, {LFlat, 24.705}, {LFlon, -86.92}});
    const SndMetaData meta = launch(5, 23, 59, 30);
    WMOsection10 section(made.levels, Part::A);
    section.set62626({"EYEWALL 045", 3, true, true, "30408", "AL092024"}, meta);
    EXPECT_EQ(section.groups()[1].text(),
              "62626 EYEWALL 045 SPL 2400N08700W 0010 LST WND 015 MBL WND 11575 AEV 30408 REXMT OF OB 03 CORRECTED RPT "
              "LAST REPORT DLM WND 12571 010999 WL150 11057 085 ATCF AL092024 REL 2471N08692W 235929");
    // Of the splash of the last wind the other one isn't told.
    made.add(T::SPGLocation, {{LFtime, 100.0}, {LFpres, 1011.0}, {LFlat, -0.4}, {LFlon, 179.996}});
    section.set62626({}, meta);
    EXPECT_EQ(section.groups()[1].text(),
              "62626 LST WND 015 MBL WND 11575 DLM WND 12571 010999 WL150 11057 085 REL 2471N08692W 235929 "
              "SPG 0040S18000E 000110");
}

TEST(WMOsection10, LeavesOutWhatIsOutOfRange) {
    MadeLevels made;
    made.add(T::SurfaceThermo, {{LFtime, 59.0}, {LFpres, 1012.0}, {LFlat, 91.0}, {LFlon, 0.0}});
    made.add(T::LastWindAlt, {{LFtime, 1.0}, {LFpres, 1010.0}, {LFalt, 1000.0}});
    made.add(T::RELLocation, {{LFtime, -1.0}, {LFpres, 400.0}, {LFlat, 24.7}, {LFlon, -180.1}});
    wind(made, T::MeanBLWind, 960.0, 75.0, 115.0);
    made.levels.levels().back().tag(true);
    WMOsection10 section(made.levels, Part::A);
    section.set62626({}, launch(5, 0, 1));
    EXPECT_EQ(section.groups()[1].text(), "62626 0001") << "a splash without a place has its time";
    made.levels.levels().front().tag(true);
    made.add(T::RELLocation, {{LFtime, -1.0}, {LFpres, 300.0}, {LFlat, 10.0}, {LFlon, 10.0}});
    made.levels.levels()[2].tag(true);
    section.set62626({}, launch(5, 0, 0));
    EXPECT_EQ(section.groups()[1].text(), "62626 REL 1000N01000E 235959") << "the second ahead of midnight";
}

TEST(AbrHeader, DefaultOverrideAndCorrection) {
    MadeLevels made;
    AbrHeader header(made.levels, Part::A);
    EXPECT_EQ(textOf(header), "UZNT13 UZxx13 000000");
    header.create("KNHC", "COR 03", 5, 6, 7, 10.0, 120.0, "");
    EXPECT_EQ(textOf(header), "UZPA13 KNHC 050607 COR 03");
    header.create("KWBC", "", 5, 6, 7, 10.0, 120.0, "UUNA19");
    EXPECT_EQ(textOf(header), "UUNA19 KWBC 050607");
    const PrescribedTime processingTime;
    EXPECT_EQ(AbrHeader::build("KWBC", "", 5, 6, 7, 10.0, 120.0, ""), "UZPA13 KWBC 011200");
}
