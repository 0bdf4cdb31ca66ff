#include "LaunchTime.h"

#include <gmock/gmock.h>

#include <optional>

using testing::ElementsAre;

namespace {

constexpr double kNoon = 1627819200.0; // 2021-08-01 12:00:00

/// Frames at 0, 1, 2 ... s.
Series pressures(const std::vector<double>& data) {
    Series series;
    for (std::size_t i = 0; i < data.size(); ++i) {
        series.appendValue(data[i], static_cast<double>(i));
    }
    return series;
}

} // namespace

TEST(FindPresLaunchTime, SeesTheFallFromTheCabin) {
    const std::pair<std::vector<double>, std::optional<double>> cases[] = {
        // the fall is at 5 s; the third frame behind it is the launch
        {{770, 771, 770, 771, 770, 400, 401, 402, 403, 404, 405, 406}, 8.0},
        // too few frames behind the launch
        {{770, 771, 770, 771, 770, 400, 401, 402, 403, 404, 405}, 8.0},
        {{770, 771, 770, 771, 770, 400, 401, 402, 403, 404}, std::nullopt},
        // fewer than ten pressures
        {{770, 771, 770, 771, 770, 400, 401, 402, 403}, std::nullopt},
        {{770, 771, 770, 771, 770, 400, -999, 401, 402, 403}, std::nullopt},
        // a frame without pressure doesn't count, and leaves its gap in the times
        {{770, 771, 770, 771, 770, -999, 400, 401, 402, 403, 404, 405}, 9.0},
        // a cabin that is never steady: every fourth step is 2 mb or more
        {{770, 771, 770, 772, 770, 400, 401, 402, 403, 404, 405, 406}, std::nullopt},
        // three small steps in a row are too few, in the cabin and behind the launch
        {{772, 770, 771, 770, 771, 400, 401, 402, 403, 404, 405, 406}, std::nullopt},
        {{770, 770, 770, 770, 770, 400, 401, 402, 403, 415, 416, 417, 418, 419, 420}, 12.0},
        // 50 mb are too little, a little more isn't
        {{770, 770, 770, 770, 770, 720, 721, 722, 723, 724, 725}, std::nullopt},
        {{770, 770, 770, 770, 770, 719.9, 721, 722, 723, 724, 725}, 8.0},
        // 30 mb below the last pressure of the cabin, though 60 below an earlier one
        {{770, 770, 770, 770, 770, 740, 740, 740, 740, 740, 710, 711, 712, 713, 714, 715, 716}, std::nullopt},
        // the way down from the cabin takes longer, steps of 10 mb and more are part of it
        {{770, 770, 770, 770, 770, 600, 500, 400, 401, 402, 403, 404, 405}, 10.0},
        {{770, 770, 770, 770, 770, 430, 440, 450, 460, 470, 480, 490, 500}, std::nullopt},
        // falling on behind the launch: something else than a sonde on its way down
        {{770, 770, 770, 770, 770, 400, 399, 398, 397, 396, 395, 394}, std::nullopt},
        {{}, std::nullopt},
    };
    for (const auto& [data, launch] : cases) {
        EXPECT_EQ(findPresLaunchTime(pressures(data)), launch) << testing::PrintToString(data);
    }
}

TEST(DecideLaunchTime, TheLineStandsWhenNothingContradicts) {
    const auto told = decideLaunchTime(kNoon + 3.0, std::nullopt);
    EXPECT_EQ(told.time, kNoon + 3.0);
    EXPECT_EQ(told.errorText, "");
    EXPECT_THAT(told.summary, ElementsAre("Launch time specified by the LAU line will be used.",
                                          "LAU launch line time:  2021-08-01 12:00:03"));
    for (const double diagnosed : {kNoon, kNoon + 3.0, kNoon + 6.0}) {
        const auto both = decideLaunchTime(kNoon + 3.0, diagnosed);
        EXPECT_EQ(both.time, kNoon + 3.0);
        EXPECT_EQ(both.errorText, "");
        EXPECT_TRUE(both.summary.empty());
        EXPECT_EQ(both.source, LaunchTimeSource::LaunchLine);
    }
}

TEST(DecideLaunchTime, TheDiagnosisStandsInForTheLine) {
    const auto decision = decideLaunchTime(std::nullopt, kNoon + 1.5);
    EXPECT_EQ(decision.time, kNoon + 1.5);
    EXPECT_EQ(decision.source, LaunchTimeSource::PressureWithoutLine);
    EXPECT_EQ(decision.errorText, "- No launch (LAU) line was found in the file. A launch time diagnosed from pressure "
                                  "data will be used.\nDiagnosed launch time:\n   2021-08-01 12:00:01\n");
    EXPECT_THAT(decision.summary, ElementsAre("No launch line was found in the file.",
                                              "A launch time diagnosed from pressure data will be used.",
                                              "Diagnosed launch time: 2021-08-01 12:00:01"));
}

TEST(DecideLaunchTime, TheDiagnosisOverrulesALineFarFromIt) {
    const std::string consequence =
        "The pressure diagnosed launch time will be used instead of the launch time at the launch (LAU) line.";
    const auto late = decideLaunchTime(kNoon + 3.1, kNoon);
    EXPECT_EQ(late.time, kNoon);
    EXPECT_EQ(late.source, LaunchTimeSource::PressureAgainstLine);
    EXPECT_EQ(late.errorText, "- This file appears to have a late launch detect signal. " + consequence +
                                  "\nDiagnosed launch time:\n   2021-08-01 12:00:00\n"
                                  "LAU launch line time:\n   2021-08-01 12:00:03\n");
    EXPECT_THAT(late.summary,
                ElementsAre("This file appears to have a <b><font color=\"red\">late launch detect signal</font></b>.",
                            consequence, "Diagnosed launch time: 2021-08-01 12:00:00",
                            "LAU launch line time:  2021-08-01 12:00:03"));
    const auto early = decideLaunchTime(kNoon, kNoon + 3.1);
    EXPECT_EQ(early.time, kNoon + 3.1);
    EXPECT_EQ(early.errorText, "- This file appears to have an early launch detect signal. " + consequence +
                                   "\nDiagnosed launch time: 2021-08-01 12:00:03\n"
                                   "LAU launch line time: 2021-08-01 12:00:00\n");
    EXPECT_EQ(early.summary.at(0),
              "This file appears to have an <b><font color=\"red\">early launch detect signal</font></b>.");
}

TEST(DecideLaunchTime, NothingToGoBy) {
    const auto decision = decideLaunchTime(std::nullopt, std::nullopt);
    EXPECT_FALSE(decision.time.has_value());
    EXPECT_EQ(decision.errorText, "- No launch (LAU) line was found in this file, and a pressure diagnosed launch time "
                                  "cannot be determined. This sounding cannot be processed.\n");
    EXPECT_EQ(decision.summary.size(), 2U);
}
