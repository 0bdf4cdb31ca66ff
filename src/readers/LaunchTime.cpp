#include "LaunchTime.h"

#include "Missing.h"
#include "WrittenTime.h"

#include <cmath>

namespace {

constexpr int kFewestPressures = 10;
constexpr double kSteadyCabin = 2.0; // mb from frame to frame
constexpr int kCabinFrames = 4;      // steps in a row that make a steady cabin pressure
constexpr double kLaunchFall = 50.0; // mb below the cabin
constexpr double kSteadyFall = 10.0; // mb from frame to frame behind the launch
constexpr int kFallFrames = 4;       // steps in a row below it
constexpr int kFirstCandidate = 5;
constexpr double kTolerance = 3.0; // s between the launch line and the diagnosis

/// Whether the \p steps differences between neighbours from index \p first on are all below \p limit in size.
bool isSteady(const Series& p, int first, int steps, double limit) {
    for (int i = first; i < first + steps; ++i) {
        if (!(std::abs(p.data(i) - p.data(i + 1)) < limit)) {
            return false;
        }
    }
    return true;
}

Series presentOnly(const Series& pressure) {
    Series present;
    for (const Value& value : pressure) {
        if (value.data() != kMissing) {
            present.appendValue(value.data(), value.time());
        }
    }
    return present;
}

std::string launchLine(double told) {
    return "LAU launch line time:  " + WrittenTime::of(told).text();
}

std::string diagnosedLine(double diagnosed) {
    return "Diagnosed launch time: " + WrittenTime::of(diagnosed).text();
}

LaunchTimeDecision noLaunch() {
    LaunchTimeDecision decision;
    decision.errorText =
        "- No launch (LAU) line was found in this file, and a pressure diagnosed launch time cannot be "
        "determined. This sounding cannot be processed.\n";
    decision.summary = {"No launch (LAU) line was found in this file, and a pressure diagnosed launch time cannot be "
                        "determined.",
                        "This sounding cannot be processed."};
    return decision;
}

LaunchTimeDecision launchWithoutLine(double diagnosed) {
    LaunchTimeDecision decision;
    decision.time = diagnosed;
    decision.source = LaunchTimeSource::PressureWithoutLine;
    decision.errorText =
        "- No launch (LAU) line was found in the file. A launch time diagnosed from pressure data will "
        "be used.\nDiagnosed launch time:\n   " +
        WrittenTime::of(diagnosed).text() + "\n";
    decision.summary = {"No launch line was found in the file.",
                        "A launch time diagnosed from pressure data will be used.", diagnosedLine(diagnosed)};
    return decision;
}

LaunchTimeDecision launchAgainstLine(double told, double diagnosed) {
    const bool late = told > diagnosed;
    const std::string signal = late ? "late launch detect signal" : "early launch detect signal";
    const std::string article = late ? "a " : "an ";
    const std::string consequence = "The pressure diagnosed launch time will be used instead of the launch time at the "
                                    "launch (LAU) line.";
    const std::string ahead = late ? "\n   " : " ";
    LaunchTimeDecision decision;
    decision.time = diagnosed;
    decision.source = LaunchTimeSource::PressureAgainstLine;
    decision.errorText = "- This file appears to have " + article + signal + ". " + consequence +
                         "\nDiagnosed launch time:" + ahead + WrittenTime::of(diagnosed).text() +
                         "\nLAU launch line time:" + ahead + WrittenTime::of(told).text() + "\n";
    decision.summary = {"This file appears to have " + article + "<b><font color=\"red\">" + signal + "</font></b>.",
                        consequence, diagnosedLine(diagnosed), launchLine(told)};
    return decision;
}

} // namespace

std::optional<double> findPresLaunchTime(const Series& pressure) {
    const Series p = presentOnly(pressure);
    const int n = p.lastIndex() + 1;
    if (n < kFewestPressures) {
        return std::nullopt;
    }
    double cabin = 0.0; // the last pressure that ended a steady stretch, up to two frames ahead of the candidate's fall
    for (int i = kFirstCandidate; i <= n - 5; ++i) {
        const int reference = i - 2;
        if (reference >= kCabinFrames && isSteady(p, reference - kCabinFrames, kCabinFrames, kSteadyCabin)) {
            cabin = p.data(reference);
        }
        const bool fell = cabin - p.data(i - 1) > kLaunchFall;
        if (fell && isSteady(p, i - 1, kFallFrames, kSteadyFall)) {
            const int launch = i + 2;
            double later = 0.0;
            const bool grows = p.average(launch + 1, n, later) && p.data(launch) < later;
            return grows ? std::optional<double>(p.time(launch)) : std::nullopt;
        }
    }
    return std::nullopt;
}

LaunchTimeDecision decideLaunchTime(std::optional<double> told, std::optional<double> diagnosed) {
    if (!told && !diagnosed) {
        return noLaunch();
    }
    if (!told) {
        return launchWithoutLine(*diagnosed);
    }
    if (diagnosed && std::abs(*told - *diagnosed) > kTolerance) {
        return launchAgainstLine(*told, *diagnosed);
    }
    LaunchTimeDecision decision;
    decision.time = told;
    if (!diagnosed) {
        decision.summary = {"Launch time specified by the LAU line will be used.", launchLine(*told)};
    }
    return decision;
}
