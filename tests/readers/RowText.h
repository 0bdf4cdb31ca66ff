#pragma once

#include "JoinedLines.h"

#include <string>
#include <vector>

// Small files of the formats with one row for each record, made by hand, as lists of lines.

using TextLines = std::vector<std::string>;

inline TextLines with(TextLines lines, const TextLines& rows) {
    lines.insert(lines.end(), rows.begin(), rows.end());
    return lines;
}

/// As other systems write it.
inline TextLines troveHeader() {
    return {"Data Type:                         Upsonde/1 TROVE",
            "Project ID:                        TESTEX, IOP2",
            "Launch Site Type/Site ID:          SITE, A1",
            "Launch Location (lon,lat,alt):     105 14.07'W, 40 00.74'N, -105.23450 40.01230 0",
            "GMT Launch Time (y,m,d,h,m,s):     2022, 02, 03, 11:30:07",
            "Sonde Type / ID:                   RSS421 R4520117",
            "/",
            "/",
            "Reference Launch Data Source:      Tower",
            "System Operator/Comments:          Doe , clear, sky ",
            "Post Processing Comments:          none",
            "/",
            " Time  Press  Temp  Dewpt  RH    Uwind  Vwind  Wspd  Dir   dZ      Lon     Lat    Rng   Az     Alt",
            "  sec    mb     C     C     %     m/s    m/s   m/s   deg   m/s     deg     deg     km   deg     m",
            "------ ------ ----- ----- ----- ------ ------ ----- ----- ----- -------- ------- ----- ----- ------- ---- "
            "---- ---- ---- ---- ----"};
}
inline const std::string kTroveLaunch =
    "-1.0 1012.0 28.5 24.7 80.0 -7 0.6 7.0 95.0 99.0 -105.234 40.012 999 999 1.5 9 9 9";

inline TextLines zorHeader() {
    return {"Data Type/Direction:                       Channel 1/Descending",
            "File Format/Version:                       ZOR Sounding Format/1.1",
            "Project Name/Platform:                     TESTEX, RF07/AC1, N00XX",
            "Launch Site:                               Site A",
            "Launch Location (lon,lat,alt):             80 25.93'W -80.432100, 25 07.40'N 25.123400,  6330.79",
            "UTC Launch Time (y,m,d,h,m,s):             2021, 08, 01, 12:00:03",
            "Sonde Id/Sonde Type:                       204715063/RSS421",
            "Reference Launch Data Source/Time:         OBSSYS/11:59:58",
            "System Operator/Comments:                  Doe/clear / sky",
            "Post Processing Comments:                  none",
            "/",
            "  Time   -- UTC  --   Press    Temp   Dewpt    RH",
            "   sec   hh mm   ss     mb      C       C       %",
            "-------- -- -- ----- ------- ------- ------- -------"};
}
inline const std::string kZorLaunch =
    "-1.00 12  0  2.00  450.00  -4.98 -5.74 94.45 -30.64 34.11 45.85 138.07 -999.00 6330.49 -80.4321 25.1234 6330.79";

inline TextLines frdHeader() {
    return {" ======",
            " DROPWINDSONDE PROCESSING RECORD                            Sonde: 204715063 B",
            " FRD file",
            " Aircraft: AC1, N00XX                        Date: 891231   Time: 235959 UTC",
            " ------",
            " Bias corrections:",
            " Filters (LPF):     PTH = ",
            " Dyn RH correction = ",
            " Estimated PR used = ",
            " Dyn T correction  = ",
            " ------",
            " COMMENT: clear sky; no wind",
            " ======",
            "",
            " ======",
            " Date: 891231   Lat:  17.90 S   TA:  -10.8 C   PS:  400.0 mb   WD:   141 deg",
            " Time: 235959   Lon:  61.20 W   TD:  -11.8 C   GA:   7248 m    WS:  39.9 m/s",
            " SID:  204715063                RH:   92.9 %   Navaid:   GP",
            " ======",
            "",
            "IX      t (s)  P (mb)    T (C)"};
}

inline TextLines mw41Header() {
    return {"FLEDT\tmetadata",
            "Station name\tSite A",
            "Key without value\t",
            "Key\twith\ttwo tabs",
            "Sonde serial number\tR4520117",
            "Balloon release date and time\t2022-02-03T11:30:07",
            "Release point latitude\t40.0123\xC2\xB0N",
            "Reason for termination\tBalloon burst",
            ""};
}

/// Whole files with two records.
inline std::string troveText() {
    return joined(with(troveHeader(),
                       {kTroveLaunch, "0.0 1011.0 28.4 24.6 79.7 -7 0.6 7.1 94.5 5.0 -105.235 40.013 999 999 6.5 9 9 9",
                        "10.0 1006.3 28.1 24.6 81.4 -7 0.7 7.2 95.8 5.1 -105.236 40.014 999 999 50.7 9 9 9"}));
}
inline std::string zorText() {
    return joined(
        with(zorHeader(),
             {kZorLaunch,
              "0.00 12 0 3.00 449.99 17.06 1.25 34.47 -30.6 34.1 45.8 138.0 -13.9 6329.49 -80.4322 25.1235 6329.79",
              "0.50 12 0 3.50 450.40 6.96 -5.52 40.68 -30.5 34.0 45.7 137.9 -13.8 6323.52 -80.4323 25.1236 6323.82"}));
}
inline std::string frdText() {
    return joined(with(frdHeader(),
                       {"0001 -0.50 400.0 15.84 34.6 7248 140 39.9 -25.6 30.6 7 -0.3 7248 0 0 0 0 -17.901 -61.201",
                        "0002  0.00 400.3  3.92 39.6 7241 141 40.1 -25.2 31.2 8 -0.2 7241 0 0 0 0 -17.902 -61.202"}));
}
inline std::string mw41Text() {
    return joined(with(mw41Header(), {"Elapsed time,HeightMSL,P,Temp,RH,Dewp,Dir,Speed,AscRate,Lat,Lon,GpsHeightMSL",
                                      "s,m,hPa,C,%,C,deg,m/s,m/s,deg,deg,m",
                                      "-1,-0.1,1002.99,3.02,87.7,1.18,198.9,8.09,4.93,40.0123,-105.2345,12.3",
                                      "10.0,50.7,996.79,2.76,87.9,0.95,201.8,8.26,5.16,40.0130,-105.2341,62.0"}));
}
