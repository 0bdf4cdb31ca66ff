// Raw and QC data of every example, written as CSV, TROVE, ZOR and FRD, come back through the reader as they were, to
// the digits of the format.

#include "EditorControl.h"
#include "FileSaver.h"
#include "ProductColumns.h"
#include "Text.h"

#include "MadeConfig.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

const fs::path kExamples = fs::path(TARVO_SOURCE_DIR) / "examples/data";

using C = ProductColumns;

/// A quantity as a format prints it, and the column in which it comes back.
struct Cells {
    C::Column column;
    const char* digits;
    C::Column back;
    Cells(C::Column both, const char* shape) : Cells(both, shape, both) {}
    Cells(C::Column from, const char* shape, C::Column to) : column(from), digits(shape), back(to) {}
};

const std::vector<Cells> kCsv{{C::Time, "%.1f"}, {C::Pres, "%.2f"}, {C::Tdry, "%.2f"},  {C::RH, "%.2f"},
                              {C::Wspd, "%.2f"}, {C::Wdir, "%.2f"}, {C::Lat, "%.5f"},   {C::Lon, "%.5f"},
                              {C::Alt, "%.1f"},  {C::Dz, "%.2f"},   {C::GpsAlt, "%.1f"}};
const std::vector<Cells> kTrove{{C::Time, "%.1f"}, {C::Pres, "%.1f"}, {C::Tdry, "%.1f"}, {C::RH, "%.1f"},
                                {C::Wspd, "%.1f"}, {C::Wdir, "%.1f"}, {C::Dz, "%.1f"},   {C::Lon, "%.3f"},
                                {C::Lat, "%.3f"},  {C::Alt, "%.1f"}};
const std::vector<Cells> kZor{{C::Time, "%.2f"}, {C::Pres, "%.2f"}, {C::Tdry, "%.2f"},  {C::RH, "%.2f"},
                              {C::Wspd, "%.2f"}, {C::Wdir, "%.2f"}, {C::Dz, "%.2f"},    {C::Alt, "%.2f"},
                              {C::Lon, "%.6f"},  {C::Lat, "%.6f"},  {C::GpsAlt, "%.2f"}};
const std::vector<Cells> kFrd{{C::Time, "%.2f"}, {C::Pres, "%.1f"}, {C::Tdry, "%.2f"},    {C::RH, "%.1f"},
                              {C::Alt, "%.0f"},  {C::Wdir, "%.0f"}, {C::Wspd, "%.2f"},    {C::Sats, "%.0f"},
                              {C::Lat, "%.3f"},  {C::Lon, "%.3f"},  {C::W, "%.1f", C::Dz}};

struct Format {
    const char* suffix;
    bool raw;            ///< also made of raw data
    double earliest;     ///< s; what is ahead of it doesn't come back
    bool keepsDirection; ///< the others are dropsondes, whatever was written
    const std::vector<Cells>& cells;
};

const Format kFormats[] = {{".csv", true, -0.99, true, kCsv},
                           {".trv", true, 0.0, true, kTrove},
                           {".zor", true, 0.0, true, kZor},
                           {".frd", false, -0.99, false, kFrd}};

void open(EditorControl& editor, const fs::path& path) {
    std::ifstream stream(path);
    editor.getSounding(path.string(), &stream);
    ASSERT_TRUE(editor.isValid()) << path << editor.getSndfileErrorMsg();
}

std::vector<int> rowsFrom(double earliest, const ProductColumns& columns) {
    std::vector<int> rows;
    for (int i = 0; i < columns.nRows(); ++i) {
        if (columns[C::Time][i] >= earliest) {
            rows.push_back(i);
        }
    }
    return rows;
}

std::string textOf(const char* digits, const ProductColumns& columns, C::Column column, int row) {
    return stringFormat(digits, columns[column] == nullptr ? -999.0 : columns[column][row]);
}

constexpr double kFastestDz = 98.0; // m/s

void expectSame(const Format& format, const ProductColumns& written, const ProductColumns& back,
                const std::string& what) {
    const std::vector<int> rows = rowsFrom(format.earliest, written);
    const std::vector<int> rowsBack = rowsFrom(format.earliest, back);
    ASSERT_EQ(rows.size(), rowsBack.size()) << what;
    ASSERT_GT(rows.size(), 300U);
    for (const Cells& cells : format.cells) {
        std::string differing; // the first that does
        for (std::size_t i = 0; i < rows.size() && differing.empty(); ++i) {
            if (cells.column == C::Dz && written[C::Dz][rows[i]] > kFastestDz) {
                continue; // reads as missing: a jump of the pressure at launch, no ascent
            }
            const std::string out = textOf(cells.digits, written, cells.column, rows[i]);
            const std::string in = textOf(cells.digits, back, cells.back, rowsBack[i]);
            differing = out == in ? "" : out + " became " + in + " at " + std::to_string(written[C::Time][rows[i]]);
        }
        EXPECT_EQ(differing, "") << what << ", column " << cells.column;
    }
}

} // namespace

TEST(ExampleRoundTrip, ProductsComeBackEqual) {
    int examples = 0;
    for (const auto& entry : fs::directory_iterator(kExamples)) {
        ++examples;
        if (entry.path().extension() == ".wmo") { // a message has no samples to write
            continue;
        }
        const TemporaryFolder folder;
        MadeConfig config;
        EditorControl editor(config.set, "V3.4.8");
        open(editor, entry.path());
        editor.qcProcess();
        const SndMetaData meta = editor.getSndMetaData(true);
        for (const bool raw : {true, false}) {
            const ProductColumns written = raw ? ProductColumns::raw(editor) : ProductColumns::qc(editor, config.set);
            for (const Format& format : kFormats) {
                if (raw && !format.raw) {
                    continue;
                }
                const std::string what = entry.path().filename().string() + (raw ? " raw" : " QC") + format.suffix;
                const std::string path = (folder / (std::string("product") + format.suffix)).string();
                ASSERT_TRUE(FileSaver::saveFile("", path, format.suffix, meta, editor, written, nullptr));
                MadeConfig configBack;
                EditorControl back(configBack.set, "V3.4.8");
                open(back, path);
                expectSame(format, written, ProductColumns::raw(back), what);
                const SndMetaData metaBack = back.getSndMetaData(false);
                EXPECT_EQ(metaBack.launchTime, meta.launchTime) << what;
                EXPECT_EQ(metaBack.ascending, format.keepsDirection && meta.ascending) << what;
                EXPECT_EQ(metaBack.sondeId, meta.sondeId) << what;
            }
        }
    }
    const auto truth = fs::directory_iterator(kExamples.parent_path() / "truth");
    EXPECT_EQ(examples, std::distance(begin(truth), end(truth)));
}
