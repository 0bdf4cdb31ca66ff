// What another program reads in the BUFR messages is what went into them, to the resolution of the code.

#include "FileSaver.h"
#include "Humidity.h"
#include "Levels.h"
#include "Missing.h"
#include "ProductColumns.h"
#include "TarvoToBUFR_BC25.h"

#include "ExampleRun.h"
#include "TemporaryFolder.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using C = ProductColumns;

const char* const kTables = TARVO_SOURCE_DIR "/resources/bufr";

std::string outputOf(const std::string& command) {
    std::string text;
    FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    char part[4096];
    for (std::size_t n = 0; (n = std::fread(part, 1, sizeof part, pipe)) > 0;) {
        text.append(part, n);
    }
    return pclose(pipe) == 0 ? text : "failed: " + text;
}

/// The elements of the sequence 303054, in its order, as the decoder names them.
const char* const kElements[] = {"timePeriod",
                                 "extendedVerticalSoundingSignificance",
                                 "pressure",
                                 "nonCoordinateGeopotentialHeight",
                                 "latitudeDisplacement",
                                 "longitudeDisplacement",
                                 "airTemperature",
                                 "dewpointTemperature",
                                 "windDirection",
                                 "windSpeed"};
/// Half of what the last digit of the code is worth; direction and flags are exact.
const double kResolution[] = {0.5, 0.0, 5.0, 0.5, 0.5e-5, 0.5e-5, 0.005, 0.005, 0.0, 0.05};

using Row = std::array<double, 10>;

struct Decoded {
    std::map<std::string, std::string> head; ///< the first value of each key
    std::vector<Row> rows;
};

Decoded decode(const fs::path& path) {
    Decoded decoded;
    std::istringstream lines(outputOf("bufr_dump -p '" + path.string() + "'"));
    std::size_t next = std::size(kElements);
    for (std::string line; std::getline(lines, line);) {
        const auto equals = line.find('=');
        if (equals == std::string::npos) {
            decoded.head["unexpandedDescriptors"] += line;
            continue;
        }
        const std::string key = line.substr(line[0] == '#' ? line.find('#', 1) + 1 : 0);
        const std::string name = key.substr(0, key.find('='));
        const std::string value = line.substr(equals + 1);
        if (name == kElements[0]) {
            EXPECT_EQ(next, std::size(kElements));
            decoded.rows.emplace_back();
            next = 0;
        }
        if (next < std::size(kElements)) {
            EXPECT_EQ(name, kElements[next]);
            decoded.rows.back().at(next++) = value == "MISSING" ? kMissing : std::stod(value);
        } else {
            decoded.head.emplace(name, value);
        }
    }
    return decoded;
}

/// A row before it is coded: the eight columns of BufrRows, and its flags.
struct Sample {
    Sample() { values.fill(kMissing); }
    bool isEmpty() const {
        return flags == 0 && std::all_of(values.begin(), values.end(), [](double v) { return v == kMissing; });
    }
    std::array<double, BufrRows::NumColumns> values;
    std::uint32_t flags = 0;
};
using Samples = std::map<double, Sample>;

const C::Column kColumns[] = {C::Pres, C::Tdry, C::RH, C::Wspd, C::Wdir, C::Lat, C::Lon, C::Alt};
const LevelFieldId kFields[] = {LFpres, LFtdry, LFrh, LFwspd, LFwdir, LFlat, LFlon, LFalt};

Samples eachRow(const C& columns) {
    Samples samples;
    for (int row = 0; row < columns.nRows(); ++row) {
        for (std::size_t i = 0; i < std::size(kColumns); ++i) {
            samples[columns[C::Time][row]].values[i] = columns[kColumns[i]][row];
        }
    }
    return samples;
}

void takeLevels(const Levels& levels, Samples& samples) {
    for (const Level& level : levels.sortByPres()) {
        double time = 0.0;
        if (level.empty() || !level.getFieldData(LFtime, time)) {
            continue;
        }
        Sample& sample = samples[time];
        sample.flags |= BufrRows::flagsOf(level.levelType());
        for (std::size_t i = 0; sample.flags != 0 && i < std::size(kFields); ++i) {
            level.getFieldData(kFields[i], sample.values[i]);
        }
    }
}

/// What a row reads as when it is decoded.
Row coded(double time, const Sample& sample, double lat, double lon) {
    using R = BufrRows;
    const auto& v = sample.values;
    const auto known = [](double a, double result, double b = 0.0) {
        return a == kMissing || b == kMissing ? kMissing : result;
    };
    const double dp = v[R::Tdry] == kMissing || v[R::RH] == kMissing ? kMissing : dewPt(v[R::Tdry], v[R::RH]);
    return {time + 1.0,
            static_cast<double>(sample.flags),
            known(v[R::Pres], v[R::Pres] * 100.0),
            v[R::Alt],
            known(v[R::Lat], v[R::Lat] - lat, lat),
            known(v[R::Lon], v[R::Lon] - lon, lon),
            known(v[R::Tdry], v[R::Tdry] + 273.15),
            known(dp, dp + 273.15),
            known(v[R::Wdir], std::trunc(v[R::Wdir] + 1e-6)) /* 298 degrees stay 298 */,
            v[R::Wspd]};
}

void expectRows(const std::vector<Row>& rows, const Samples& samples, bool ascending, double lat, double lon) {
    std::vector<Row> expected;
    for (const auto& [time, sample] : samples) {
        if (!sample.isEmpty()) {
            expected.insert(ascending ? expected.end() : expected.begin(), coded(time, sample, lat, lon));
        }
    }
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t i = 0; i < std::size(kElements); ++i) {
            ASSERT_NEAR(rows[row][i], expected[row][i], kResolution[i] + 1e-6) << "row " << row << " " << kElements[i];
        }
    }
}

class BufrDecoding : public testing::Test {
protected:
    void SetUp() override {
        if (outputOf("bufr_dump -V").rfind("failed", 0) == 0) {
            GTEST_SKIP() << "bufr_dump is not installed";
        }
        unsetenv("AFSISIO");
        unsetenv("BUFR_TABLES");
    }
    const TemporaryFolder folder;
};

} // namespace

TEST_F(BufrDecoding, ExamplesComeBack) {
    int ascending = 0;
    int withoutLaunch = 0;
    int examples = 0;
    int shorter = 0;
    for (const auto& entry : fs::directory_iterator(kExamples)) {
        if (entry.path().extension() == ".wmo") { // a message has no samples to code
            continue;
        }
        SCOPED_TRACE(entry.path());
        ++examples;
        ExampleRun run(entry.path().filename().string());
        auto& [registry, config, editor] = run;
        editor.qcProcess();
        editor.doLevels();
        const SndMetaData meta = editor.getSndMetaData(true);
        double lat = meta.launchLat.avail(false) ? meta.launchLat.value() : kMissing;
        double lon = meta.launchLon.avail(false) ? meta.launchLon.value() : kMissing;
        if (lat == kMissing || lon == kMissing) {
            ASSERT_TRUE(editor.levels()->highestPos(lat, lon));
            ++withoutLaunch;
        }
        const C columns = C::qc(editor, config);
        ascending += meta.ascending;
        const auto saved = [&](bool resampled) {
            config.set("ResampleBufr", resampled ? 1.0 : 0.0);
            config.set("BufrAddAbrHdr", resampled ? 1.0 : 0.0);
            const fs::path path = folder / (resampled ? "resampled.bfr" : "whole.bfr");
            EXPECT_TRUE(
                FileSaver::saveFile("", path.string(), ".bfr", meta, editor, columns, editor.levels(), kTables));
            return path;
        };
        const fs::path whole = saved(false);
        const fs::path resampled = saved(true);
        EXPECT_EQ(readFile(whole).substr(0, 4), "BUFR");
        EXPECT_EQ(readFile(resampled).substr(0, 4), "IUDA");
        shorter += 3 * fs::file_size(resampled) < 2 * fs::file_size(whole); // two samples a second became one

        const Decoded decoded = decode(whole);
        Samples samples = eachRow(columns);
        if (!meta.ascending) {
            samples[-1.0].flags |= 0x08;
        }
        takeLevels(*editor.levels(), samples);
        expectRows(decoded.rows, samples, meta.ascending, lat, lon);
        EXPECT_GT(decoded.rows.size(), 100U);
        const auto head = [&](const char* key) {
            const auto found = decoded.head.find(key);
            return found == decoded.head.end() ? std::string("absent") : found->second;
        };
        EXPECT_EQ(head("extendedDelayedDescriptorReplicationFactor"), " {" + std::to_string(decoded.rows.size()) + "}");
        EXPECT_EQ(head("radiosondeSerialNumber"), '"' + meta.sondeId + '"');
        // The dump has six digits only.
        std::istringstream place(
            outputOf("bufr_get -s unpack=1 -F%.6f -p latitude,longitude '" + whole.string() + "'"));
        double codedLat = 0.0;
        double codedLon = 0.0;
        place >> codedLat >> codedLon;
        EXPECT_NEAR(codedLat, lat, 0.5e-5 + 1e-9);
        EXPECT_NEAR(codedLon, lon, 0.5e-5 + 1e-9);
        EXPECT_EQ(head("height"),
                  meta.launchAlt.avail(false) ? std::to_string(std::lround(meta.launchAlt.value())) : "MISSING");
        const std::pair<const char*, int> when[] = {{"year", meta.year}, {"month", meta.month}, {"day", meta.day},
                                                    {"hour", meta.hour}, {"minute", meta.min},  {"second", meta.sec}};
        for (const auto& [key, value] : when) {
            EXPECT_EQ(head(key), std::to_string(value)) << key;
        }
        EXPECT_EQ(head("observationSequenceNumber"), meta.ascending ? "absent" : "99") << "99 if none is told";
        EXPECT_EQ(head("dataCategory"), "2");
    }
    EXPECT_GT(ascending, 1);
    EXPECT_GT(examples - ascending, 6);
    EXPECT_GT(withoutLaunch, 0);
    EXPECT_GT(shorter, 6);
}

TEST_F(BufrDecoding, AnyNumberOfRows) {
    TarvoToBUFR::set_bufr_table_dir(kTables);
    for (const int n : {0, 1, 10000}) {
        std::vector<double> column;
        for (int i = 0; i < n; ++i) {
            column.push_back(i * 0.01);
        }
        const double* c = column.data();
        SndMetaData meta; // without a launch position
        meta.year = 2021;
        TarvoToBUFR_BC25 bufr;
        ASSERT_TRUE(bufr.process(n, meta, {}, nullptr, c, c, c, c, c, c, c, c, c));
        std::ofstream stream(folder / "a.bfr", std::ios::binary);
        ASSERT_TRUE(bufr.save(&stream));
        stream.close();
        const Decoded decoded = decode(folder / "a.bfr");
        ASSERT_EQ(decoded.rows.size(), static_cast<std::size_t>(n));
        for (const auto& row : decoded.rows) {
            const double value = column[static_cast<std::size_t>(&row - decoded.rows.data())];
            ASSERT_NEAR(row[2], value * 100.0, 5.0 + 1e-6);
            ASSERT_NEAR(row[6], value + 273.15, 0.005 + 1e-6);
            ASSERT_EQ(row[4], kMissing);
        }
        EXPECT_EQ(decoded.head.at("latitude"), "MISSING");
    }
}
