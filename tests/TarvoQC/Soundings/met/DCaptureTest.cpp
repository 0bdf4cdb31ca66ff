#include "DCapture.h"
#include "Environment.h"
#include "InTemporaryFolder.h"

#include <ctime>
#include <iomanip>
#include <sstream>

namespace {

class DCaptureTest : public InTemporaryFolder {
protected:
    ~DCaptureTest() override { DCapture::enable(false); }
};

/// Counts how often it is formatted.
struct Counted {
    int* count;
};

std::ostream& operator<<(std::ostream& out, const Counted& counted) {
    ++*counted.count;
    return out;
}

} // namespace

// One test: the file is made once in a process.
TEST_F(DCaptureTest, formatsNothingWhileOffAndKeepsOneFileWhileOn) {
    setTimeZone("TZ=TST5"); // five hours west, so that local and universal time can't be confused
    int formatted = 0;
    DCapture::dcout << Counted{&formatted} << "lost";
    DCapture::enable(true);
    EXPECT_EQ(formatted, 0);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path())) << "the first output opens the file, not the flag";

    const std::time_t before = std::time(nullptr);
    DCapture::dcout << Counted{&formatted} << "n" << 7 << ' ' << static_cast<short>(-3) << ' ' << 0.5F << ' ';
    DCapture::dcout.flags(std::ios_base::fixed | std::ios_base::right);
    DCapture::dcout.precision(2);
    DCapture::dcout.fill('*');
    DCapture::dcout.width(8);
    DCapture::dcout << 3.14159 << std::string(" end");
    const std::time_t after = std::time(nullptr);
    DCapture::enable(false);
    DCapture::dcout << Counted{&formatted} << " lost";
    DCapture::dcout.precision(5);
    DCapture::enable(true);
    DCapture::dcout << " " << 2.0;
    EXPECT_EQ(formatted, 1);

    std::tm local{};
    std::istringstream(DCapture::instance().fileName()) >> std::get_time(&local, "TarvoDebug-%Y-%m-%d-%H%M%S.txt");
    EXPECT_GE(std::mktime(&local), before) << DCapture::instance().fileName();
    EXPECT_LE(std::mktime(&local), after) << DCapture::instance().fileName();
    DCapture::instance().flush();
    std::ostringstream content;
    content << std::ifstream(folder / DCapture::instance().fileName()).rdbuf();
    EXPECT_EQ(content.str(), "n7 -3 0.5 ****3.14 end 2.00");
}
