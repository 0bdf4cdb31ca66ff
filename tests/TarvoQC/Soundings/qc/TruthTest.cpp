// What QC makes of the example soundings, against the air that they were made from.

#include "ExampleRun.h"

#include <cmath>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr double kUnsettled = 30.0; // s of a drop
constexpr double kSameTime = 0.01;  // s

struct Example {
    const char* file;
    const char* configuration;
    double endOfDrop = 0.0; ///< s, that the user sets; 0 for none
};

const Example kAll[] = {{"D20080910_235612.2", "editsonde"},           {"D20100119_180708.4", "editsonde"},
                        {"D20210801_120003.1", "editsonde"},           {"D20210914_043120.2", "editsonde"},
                        {"D20220523_091501.3", "editsonde"},           {"D20230211_154208.1", "editsonde"},
                        {"tradewind_drop_20210803.csv", "editsonde"},  {"summer_up_20220705.csv", "upsonde-1s"},
                        {"polar_up_20230117.csv", "upsonde-10s"},      {"pelo_updown_20220914.dat", "upsonde-1s"},
                        {"pelo_damaged_20220915.dat", "upsonde-1s"},   {"vesta_up_20210312.vst", "upsonde-10s"},
                        {"vesta_damaged_20210313.vst", "upsonde-10s"}, {"mirra_up_20200620.mir", "upsonde-10s"},
                        {"mirra_damaged_20200621.mir", "upsonde-10s"}, {"monsoon_drop_20210915.trv", "editsonde"},
                        {"tradewind_drop_20210804.zor", "editsonde"},  {"subtropical_drop_20220524.frd", "editsonde"},
                        {"warmfront_drop_20230212.frd", "editsonde"},  {"plain_up_20220706.trv", "upsonde-10s"},
                        {"fjord_up_20230118.zor", "upsonde-10s"},      {"plain_up_20220707.txt", "upsonde-1s"},
                        {"fjord_up_20230119.txt", "upsonde-10s"},      {"D20230829_184207.2", "editsonde", 243.75}};

/// Where a planted fault would show, and how far a QC value may lie from the clean one: some five times the noise.
struct Place {
    const char* series;
    double normalError;
};

const std::map<std::string, Place> kPlaces{
    {"pressure", {"QCPres", 0.5}},
    {"temperature", {"QCTdry", 0.3}},
    {"rh", {"QCRH", 2.0}},
    {"rh1", {"QCRH", 2.0}},
    {"rh2", {"QCRH", 2.0}},
    {"speed", {"QCWspd", 1.0}},
    // Winds are judged by their speed, so that a direction wrong by itself stays, and smoothing tames it: in a curve of
    // 10 s one of two samples a second weighs 0.5 s pi / (sqrt(2) 10 s) = 0.11, so that a wind turned by 130 degrees
    // turns the curve by 6; noise and the correction for inertia add to that.
    {"direction", {"QCWdir", 10.0}},
    {"latitude", {"QCGpsLat", 2e-5}},
    {"longitude", {"QCGpsLon", 2e-5}},
    {"gps_altitude", {"QCGpsAlt", 6.0}},
};

std::string stemOf(const Example& example) {
    return fs::path(example.file).stem().string();
}

void PrintTo(const Example& example, std::ostream* out) {
    *out << example.file;
}

/// An example after the whole of QC, with its truth.
class TruthTest : public testing::TestWithParam<Example> {
protected:
    void SetUp() override {
        std::ifstream truthFile(kExamples.parent_path() / "truth" / (stemOf(GetParam()) + ".json"));
        ASSERT_TRUE(truthFile.is_open());
        truth = json::parse(truthFile);
        run = std::make_unique<ExampleRun>(GetParam().file, GetParam().configuration);
        editor = &run->editor;
        ASSERT_TRUE(editor->isValid()) << editor->getSndfileErrorMsg();
        editor->qcProcess();
        if (GetParam().endOfDrop > 0.0) {
            editor->qcError(firstAlert);
            run->config.add("LastDataTimeOverride", GetParam().endOfDrop, false, false, false);
            editor->qcProcess();
        }
    }

    /// Where the sounding that is judged ends: what comes down again behind an ascent is another, what
    /// comes from the water none.
    double lastTime() const {
        return truth.contains("descent")    ? truth["descent"]["burst"].get<double>()
               : GetParam().endOfDrop > 0.0 ? GetParam().endOfDrop
                                            : 1e9;
    }
    bool drops() const { return truth["direction"] == "down"; }
    /// Of a format whose writer has done the QC: nothing is judged, nothing smoothed and nothing added.
    bool passesThrough() const {
        double mode = 0.0;
        return run->config.value("DoQC", mode) && mode == 2.0;
    }
    const Series& series(const std::string& name) const { return *editor->getSeries(name); }
    std::size_t column(const std::string& name) const {
        const auto& columns = truth["profile_columns"];
        return static_cast<std::size_t>(std::find(columns.begin(), columns.end(), name) - columns.begin());
    }

    struct Deviation {
        int compared = 0;
        double rms = 0.0;
        double greatest = 0.0;
    };

    Deviation deviation(const Series& qc, const std::string& quantity) const {
        // A gap of twice the interval of the coarsest example bridges a lost sample.
        constexpr double kGap = 20.0;
        Deviation found;
        double squares = 0.0;
        for (const json& row : truth["profile"]) {
            const double time = row[column("t")];
            double value = 0.0;
            if ((drops() && time < kUnsettled) || !qc.interpolate(time, kGap, value)) {
                continue;
            }
            const double off = value - row[column(quantity)].get<double>();
            squares += off * off;
            found.greatest = std::max(found.greatest, std::abs(off));
            ++found.compared;
        }
        found.rms = found.compared > 0 ? std::sqrt(squares / found.compared) : 0.0;
        std::cout << stemOf(GetParam()) << " " << quantity << ": rms " << found.rms << ", greatest " << found.greatest
                  << ", at " << found.compared << " of " << truth["profile"].size() << "\n";
        return found;
    }

    void expectRms(const char* name, const char* quantity, double limit) const {
        const Deviation found = deviation(series(name), quantity);
        EXPECT_GE(found.compared, 60) << name;
        EXPECT_LE(found.rms, limit) << name;
    }

    /// The times at which one of \p quantities was planted with a wrong value, or a whole record damaged.
    std::set<double> faultTimes(const std::set<std::string>& quantities) const {
        std::set<double> times;
        for (const json& fault : truth["faults"]) {
            const std::string kind = fault["kind"];
            if (kind == "crc" || kind == "winds_only" ||
                (fault.contains("quantity") && quantities.count(fault["quantity"]) > 0)) {
                times.insert(fault["time"].get<double>());
            }
        }
        return times;
    }

    json truth;
    std::string firstAlert; ///< ahead of the end of drop that the user sets
    std::unique_ptr<ExampleRun> run;
    EditorControl* editor = nullptr;
};

class TruthOfDropTest : public TruthTest {};

std::vector<Example> allDrops() {
    std::vector<Example> drops;
    std::copy_if(std::begin(kAll), std::end(kAll), std::back_inserter(drops),
                 [](const Example& example) { return std::string(example.configuration) == "editsonde"; });
    return drops;
}

bool holdsTime(const Series& series, double time) {
    return std::any_of(series.begin(), series.end(),
                       [time](const Value& value) { return std::abs(value.time() - time) < kSameTime; });
}

} // namespace

TEST_P(TruthTest, GivesTheAirBack) {
    expectRms("QCTdry", "T", 0.2);
    expectRms("QCU", "u", 0.5);
    expectRms("QCV", "v", 0.5);
    expectRms("QCPres", "p", 0.3);
    expectRms("QCGpsLat", "lat", 5e-4); // half of the last digit of the coarsest format
    expectRms("QCGpsLon", "lon", 5e-4);
}

TEST_P(TruthTest, NoStepFailsThatCanWork) {
    const bool afloat = GetParam().endOfDrop > 0.0;
    EXPECT_EQ(firstAlert,
              afloat ? "- This sounding appears to contain post-splash data. Please remove post-splash data by "
                       "setting end-of-drop time.\n"
                     : "");
    std::string text;
    editor->qcError(text);
    // Its wavelength of 10 s can't be told from samples every 10 s.
    const bool coarse =
        std::string(GetParam().configuration) == "upsonde-10s" && !series("RawGpsAlt").empty() && !passesThrough();
    EXPECT_EQ(text, coarse ? "- Filter check failed for GPS Altitude\n" : "");
}

TEST_P(TruthOfDropTest, HeightsAndSurfacePressureFitTheColumn) {
    const Deviation up = deviation(*editor->getAltitudeSeries(), "z");
    EXPECT_GE(up.compared, 60);
    EXPECT_LE(up.greatest, 5.0);
    double p = 0.0;
    ASSERT_EQ(editor->getRawTermPres(p), !passesThrough());
    EXPECT_NEAR(p, passesThrough() ? 0.0 : truth["surface"]["p"].get<double>(), 0.5);
}

TEST_P(TruthTest, KeepsWhatIsGood) {
    const struct {
        const char* raw;
        const char* qc;
        std::set<std::string> quantities;
    } cases[] = {{"RawPres", "QCPres", {"pressure"}},
                 {"RawTdry", "QCTdry", {"temperature"}},
                 {"RawRH", "QCRH", {"rh", "rh1", "rh2", "temperature"}},
                 {"RawWspd", "QCWspd", {"speed", "direction", "wind_error", "satellites"}}};
    for (const auto& [rawName, qcName, quantities] : cases) {
        const std::set<double> planted = faultTimes(quantities);
        int good = 0;
        int kept = 0;
        std::string lost;
        for (const Value& sample : series(rawName)) {
            const auto isIt = [&](double time) { return std::abs(time - sample.time()) < kSameTime; };
            if (sample.isObservation() || sample.time() < 0.0 || sample.time() > lastTime() ||
                sample.testAttribute(Value::QcAmbientEquilibration) ||
                std::any_of(planted.begin(), planted.end(), isIt)) {
                continue;
            }
            ++good;
            if (holdsTime(series(qcName), sample.time())) {
                ++kept;
            } else {
                lost += " " + std::to_string(sample.time());
            }
        }
        std::cout << stemOf(GetParam()) << " " << qcName << " kept " << kept << " of " << good << "\n";
        ASSERT_GT(good, 300) << qcName;
        EXPECT_GE(kept, 0.99 * good) << qcName << " lost" << lost;
    }
}

TEST_P(TruthTest, PlantedFaultsAreGone) {
    int judged = 0;
    for (const json& fault : truth["faults"]) {
        const std::string quantity = fault.value("quantity", "");
        const double time = fault["time"];
        if (quantity == "wind_error" || quantity == "satellites") {
            ++judged;
            EXPECT_FALSE(holdsTime(series("QCWspd"), time)) << quantity << " at " << time;
        }
        const auto place = kPlaces.find(quantity);
        if (place == kPlaces.end()) {
            continue;
        }
        ++judged;
        for (const Value& value : series(place->second.series)) {
            if (std::abs(value.time() - time) < kSameTime) {
                EXPECT_NEAR(value.data(), fault["clean"].get<double>(), place->second.normalError)
                    << quantity << " at " << time;
            }
        }
    }
    if (stemOf(GetParam()) == "D20210914_043120") {
        EXPECT_EQ(judged, 32) << "all but an ascent and an altitude, which no QC series takes";
    }
}

std::string nameOf(const testing::TestParamInfo<Example>& example) {
    return stemOf(example.param);
}

INSTANTIATE_TEST_SUITE_P(Examples, TruthTest, testing::ValuesIn(kAll), nameOf);
INSTANTIATE_TEST_SUITE_P(Drops, TruthOfDropTest, testing::ValuesIn(allDrops()), nameOf);
