// Raw and QC data of every example, written as CSV, come back through the reader as they were, to the digits of the
// format.

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

struct Cells {
    ProductColumns::Column column;
    const char* digits;
};

const Cells kRead[] = {{ProductColumns::Time, "%.1f"},   {ProductColumns::Pres, "%.2f"}, {ProductColumns::Tdry, "%.2f"},
                       {ProductColumns::RH, "%.2f"},     {ProductColumns::Wspd, "%.2f"}, {ProductColumns::Wdir, "%.2f"},
                       {ProductColumns::Lat, "%.5f"},    {ProductColumns::Lon, "%.5f"},  {ProductColumns::Alt, "%.1f"},
                       {ProductColumns::GpsAlt, "%.1f"}, {ProductColumns::Dz, "%.2f"}};

void open(EditorControl& editor, const fs::path& path) {
    std::ifstream stream(path);
    editor.getSounding(path.string(), &stream);
    ASSERT_TRUE(editor.isValid()) << path << editor.getSndfileErrorMsg();
    editor.qcProcess();
}

void expectSame(const ProductColumns& written, const ProductColumns& back, const std::string& what) {
    const int first = written.firstDataIsPrelaunch() ? 1 : 0;
    const int firstBack = back.firstDataIsPrelaunch() ? 1 : 0;
    ASSERT_EQ(written.nRows() - first, back.nRows() - firstBack) << what;
    ASSERT_GT(back.nRows(), 300);
    int differing = 0;
    for (const Cells& cells : kRead) {
        for (int i = 0; first + i < written.nRows(); ++i) {
            differing += stringFormat(cells.digits, written[cells.column][first + i]) !=
                         stringFormat(cells.digits, back[cells.column][firstBack + i]);
        }
        EXPECT_EQ(differing, 0) << what << ", column " << cells.column;
    }
}

} // namespace

TEST(ExampleRoundTrip, CsvComesBackEqual) {
    int examples = 0;
    for (const auto& entry : fs::directory_iterator(kExamples)) {
        ++examples;
        const TemporaryFolder folder;
        MadeConfig config;
        EditorControl editor(config.set, "V3.4.8");
        open(editor, entry.path());
        const SndMetaData meta = editor.getSndMetaData(true);
        for (const bool raw : {true, false}) {
            const ProductColumns written = raw ? ProductColumns::raw(editor) : ProductColumns::qc(editor, config.set);
            const std::string path = (folder / (raw ? "raw.csv" : "qc.csv")).string();
            ASSERT_TRUE(FileSaver::saveFile("", path, ".csv", meta, editor, written, nullptr));
            MadeConfig configBack;
            EditorControl back(configBack.set, "V3.4.8");
            open(back, path);
            expectSame(written, ProductColumns::raw(back), entry.path().filename().string() + (raw ? " raw" : " QC"));
            EXPECT_EQ(back.getSndMetaData(false).launchTime, meta.launchTime);
            EXPECT_EQ(back.getSndMetaData(false).ascending, meta.ascending);
            EXPECT_EQ(back.getSndMetaData(false).sondeId, meta.sondeId);
        }
    }
    EXPECT_GE(examples, 15);
}
