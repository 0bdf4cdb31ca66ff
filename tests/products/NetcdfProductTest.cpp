// The netCDF product, read by the netCDF library and by ncdump.

#include "DataFileSaveNetcdf.h"
#include "RevisionInfo.h"
#include "SndMetaData.h"

#include "MadeAnalysis.h"
#include "MadeColumns.h"
#include "PrescribedTime.h"
#include "TemporaryFolder.h"

#include <gmock/gmock.h>
#include <netcdfcpp.h>

namespace {

using C = ProductColumns;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Which columns the writer isn't given.
enum Without { Nothing, AllItCanDoWithout };

bool save(const std::string& path, int n, const SndMetaData& meta, const EditorControl& editor, const MadeColumns& c,
          Without without = AllItCanDoWithout) {
    const auto optional = [&](C::Column column) { return without == Nothing ? c[column] : nullptr; };
    return DataFileSaveNetcdf(path, n, meta, editor, c[C::Time], c[C::Pres], c[C::Tdry], c[C::RH], c[C::Wspd],
                              c[C::Wdir], c[C::U], c[C::V], optional(C::W), c[C::Lat], c[C::Lon], optional(C::Alt),
                              c[C::GpsAlt], c[C::Dz], optional(C::DewPoint), optional(C::MixingRatio),
                              optional(C::VirtualTemp), optional(C::PotentialTemp))
        .isSaved();
}

class NetcdfProduct : public testing::Test {
protected:
    NetcdfProduct() : path((folder / "made.nc").string()), meta(analysis.editor.getSndMetaData(true)) {}

    bool save(int n, const MadeColumns& columns, Without without = AllItCanDoWithout) {
        return ::save(path, n, meta, analysis.editor, columns, without);
    }
    std::vector<double> values(const char* name) {
        const NcError quiet(NcError::silent_nonfatal);
        const NcFile file(path.c_str());
        NcVar* variable = file.is_valid() ? file.get_var(name) : nullptr;
        if (variable == nullptr) {
            return {};
        }
        std::vector<double> all(static_cast<std::size_t>(variable->num_vals()));
        variable->get(all.data(), static_cast<long>(all.size()));
        return all;
    }
    double value(const char* name) { return values(name).at(0); }

    const PrescribedTime processingTime;
    TemporaryFolder folder;
    MadeAnalysis analysis;
    std::string path;
    SndMetaData meta;
};

/// The samples, behind the reference row, in single precision.
std::vector<double> samples(const MadeColumns& columns, C::Column column, bool reverse) {
    std::vector<double> all(columns.values[column].begin() + 1, columns.values[column].end());
    std::transform(all.begin(), all.end(), all.begin(), [](double v) { return static_cast<float>(v); });
    if (reverse) {
        std::reverse(all.begin(), all.end());
    }
    return all;
}

const std::pair<const char*, C::Column> kGiven[] = {
    {"time", C::Time},      {"pres", C::Pres},      {"tdry", C::Tdry},          {"rh", C::RH},    {"wspd", C::Wspd},
    {"wdir", C::Wdir},      {"u_wind", C::U},       {"v_wind", C::V},           {"w_wind", C::W}, {"lat", C::Lat},
    {"lon", C::Lon},        {"alt", C::Alt},        {"gpsalt", C::GpsAlt},      {"dz", C::Dz},    {"dp", C::DewPoint},
    {"mr", C::MixingRatio}, {"vt", C::VirtualTemp}, {"theta", C::PotentialTemp}};
const std::pair<const char*, C::Column> kReference[] = {
    {"reference_pres", C::Pres}, {"reference_tdry", C::Tdry}, {"reference_rh", C::RH},   {"reference_wspd", C::Wspd},
    {"reference_wdir", C::Wdir}, {"reference_lat", C::Lat},   {"reference_lon", C::Lon}, {"reference_alt", C::Alt}};

} // namespace

TEST_F(NetcdfProduct, HoldsTheColumnsDescendingOnesReversed) {
    const MadeColumns columns(60);
    for (const bool ascending : {true, false}) {
        meta.ascending = ascending;
        ASSERT_TRUE(save(60, columns, Nothing));
        for (const auto& [name, column] : kGiven) {
            EXPECT_EQ(values(name), samples(columns, column, !ascending)) << name;
        }
        for (const auto& [name, column] : kReference) {
            EXPECT_THAT(values(name), ElementsAre(static_cast<float>(columns.values[column][0]))) << name;
        }
        EXPECT_THAT(values("launch_time"), ElementsAre(0));
    }
    EXPECT_EQ(folder.size(), 1);
}

TEST_F(NetcdfProduct, WorksOutWhatIsntGiven) {
    MadeColumns columns(4);
    columns.values[C::Tdry] = {1.0, 20.0, -20.0, 7.0};
    columns.values[C::RH] = {1.0, 50.0, 40.0, -999.0};
    columns.values[C::Pres] = {1.0, 1000.0, 500.0, 900.0};
    meta.ascending = true;
    ASSERT_TRUE(save(4, columns));
    // By hand, from Hardy's vapour pressures of 23.3926 and 1.25584 mb and the dew points 2353 / (9.4051 - log10(e)).
    const struct {
        const char* name;
        double first, second, third;
        double slack;
    } expected[] = {{"dp", 9.403, -30.393, -999, 0.006},       {"mr", 7.4264, 0.6123, -999, 0.004},
                    {"theta", 293.15, 308.593, 288.712, 0.01}, {"theta_e", 314.731, 310.770, -999, 0.02},
                    {"vt", 294.4675, 253.2463, -999, 0.001},   {"theta_v", 294.4675, 308.7107, -999, 0.001}};
    for (const auto& e : expected) {
        EXPECT_THAT(values(e.name),
                    ElementsAre(testing::DoubleNear(e.first, e.slack), testing::DoubleNear(e.second, e.slack),
                                testing::DoubleNear(e.third, e.slack)))
            << e.name;
    }
    EXPECT_THAT(values("alt"), ElementsAre(-999, -999, -999)) << "what isn't given reads as fill";
    EXPECT_EQ(value("reference_alt"), -999);
}

// Raw data and those passed through have met no limits.
TEST_F(NetcdfProduct, WhatCantBeWorkedOutIsMissing) {
    MadeColumns columns(4);
    columns.values[C::Tdry] = {1.0, 20.0, -300.0, 20.0};
    columns.values[C::RH] = {1.0, 50.0, 50.0, 50.0};
    columns.values[C::Pres] = {1.0, 0.0, 900.0, -5.0};
    meta.ascending = true;
    ASSERT_TRUE(save(4, columns));
    for (const char* name : {"theta", "theta_e", "theta_v"}) {
        EXPECT_THAT(values(name), ElementsAre(-999, testing::_, -999)) << name;
    }
    for (const char* name : {"mr", "theta_e", "vt", "theta_v"}) {
        EXPECT_EQ(values(name)[1], -999) << name;
    }
    EXPECT_THAT(values("pres"), ElementsAre(0, 900, -5));
    EXPECT_THAT(values("tdry"), ElementsAre(20, -300, 20));
}

TEST_F(NetcdfProduct, TellsTheTimeOfTheReference) {
    meta.unixLaunchObsTime = -999;
    ASSERT_TRUE(save(3, MadeColumns(3)));
    EXPECT_EQ(value("reference_time"), -999);
    meta.unixLaunchObsTime = meta.launchTime - 2;
    ASSERT_TRUE(save(3, MadeColumns(3)));
    EXPECT_EQ(value("reference_time"), -2);
}

TEST_F(NetcdfProduct, ASingleRowAndNoneAreFilesToo) {
    for (const int rows : {1, 0}) {
        ASSERT_TRUE(save(rows, MadeColumns(1)));
        EXPECT_TRUE(values("pres").empty());
        const double pres = rows == 1 ? static_cast<float>(MadeColumns(1)[C::Pres][0]) : -999.0;
        EXPECT_EQ(value("reference_pres"), pres);
    }
}

TEST_F(NetcdfProduct, HasTheHeaderOfTheConvention) {
    if (std::system("command -v ncdump >/dev/null") != 0) {
        GTEST_SKIP() << "ncdump (netcdf-bin) isn't installed";
    }
    const auto header = [&] {
        EXPECT_TRUE(save(3, MadeColumns(3)));
        EXPECT_EQ(std::system(("ncdump -h -n made '" + path + "' >'" + path + ".cdl'").c_str()), 0);
        return readFile(path + ".cdl");
    };
    analysis.config.set.set("DoQC", 2.0); // no configuration but after normal QC
    const std::string text = header();
    const auto split = text.find("\n// global");
    EXPECT_EQ(text.substr(0, split), readFile(TARVO_SOURCE_DIR "/tests/products/netcdf-header.cdl"));

    std::string global = "\n// global attributes:\n\t\t:Conventions = \"CF-1.6\" ;\n";
    const RevisionInfo revision;
    for (const auto& [name, key] : {std::pair("RepoRevision", "REPO_REVISION"),
                                    {"RepoLastChangedDate", "REPO_DATE"},
                                    {"RepoId", "REPO_HASH"},
                                    {"RepoBranch", "REPO_BRANCH"}}) {
        global += revision.count(key) > 0 ? std::string("\t\t:") + name + " = \"" + revision.text(key) + "\" ;\n" : "";
    }
    global += "\t\t:featureType = \"trajectory\" ;\n";
    for (const auto& [key, value] : analysis.editor.baseAttributes()) {
        global += "\t\t:" + key + " = \"" + value + "\" ;\n";
    }
    EXPECT_EQ(text.substr(split), global + "}\n");

    EXPECT_THAT(text, Not(HasSubstr(":ConfigSetName")));
    analysis.config.set.set("DoQC", 1.0);
    EXPECT_THAT(header(), testing::AllOf(HasSubstr(":ConfigSetName"), HasSubstr(":DoQC = \"1\"")));
}
