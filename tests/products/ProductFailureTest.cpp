// Products whose file can't be written: the caller is told, and nothing is left behind.

#include "FileSaver.h"
#include "ProductColumns.h"
#include "SndMetaData.h"

#include "FullDisk.h"
#include "MadeAnalysis.h"
#include "TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <iostream>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

const char* const kExtensions[] = {".trv", ".nc", ".csv", ".zor", ".frd", ".bfr"};

class ProductFailure : public testing::Test {
protected:
    ProductFailure() : columns(ProductColumns::qc(analysis.editor, analysis.config.set)) {}

    bool save(const fs::path& path, const std::string& filter) {
        return FileSaver::saveFile("V3.4.8", path.string(), filter, analysis.editor.getSndMetaData(true),
                                   analysis.editor, columns, nullptr, TARVO_SOURCE_DIR "/resources/bufr");
    }

    TemporaryFolder folder;
    MadeAnalysis analysis;
    ProductColumns columns;
};

} // namespace

TEST_F(ProductFailure, AFullDiskLeavesNothing) {
    for (const std::string extension : kExtensions) {
        const fs::path path = folder / ("whole" + extension);
        EXPECT_FALSE(save(folder / "no/such/folder", extension));
        ASSERT_TRUE(save(path, extension));
        const auto size = fs::file_size(path);
        const std::string whole = readFile(path);
        for (const auto bytes : {std::uintmax_t{0}, std::uintmax_t{1}, size / 2, size - 1}) {
            testing::internal::CaptureStderr();
            bool saved = false;
            {
                const FullDisk disk(bytes);
                saved = save(path, extension);
            }
            const std::string told = testing::internal::GetCapturedStderr();
            std::cerr.clear(); // the captured text had no room either
            EXPECT_FALSE(saved) << extension << " of " << size << " bytes cut at " << bytes;
            EXPECT_EQ(readFile(path), whole) << "what stood there stays";
            if (bytes > 100) {
                EXPECT_EQ(told, extension == ".nc" ? "Could not save netcdf file: " + path.string() + "\n" : "");
            }
        }
    }
    EXPECT_EQ(folder.size(), static_cast<int>(std::size(kExtensions)));
}

// It would take a blank at the start of a name for none and other signs for those of a place in the net, and remove a
// pipe that it can't write to.
TEST_F(ProductFailure, NetcdfTakesAPlainFileOfAnyName) {
    fs::create_directory(folder / " blank");
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    for (const char* name : {" blank/x.nc", "http:x#mode=nczarr.nc", "c:\\x [1].nc", "\xff.nc"}) {
        EXPECT_TRUE(save(name, ".nc")) << name;
        EXPECT_TRUE(fs::is_regular_file(name)) << name;
    }
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    const int reader = open("pipe", O_RDONLY | O_NONBLOCK);
    EXPECT_FALSE(save("pipe", ".nc"));
    EXPECT_TRUE(fs::is_fifo("pipe"));
    close(reader);
    fs::current_path(before);
}
