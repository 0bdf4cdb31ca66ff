#include "MessageText.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <random>

namespace {

/// Decodes damaged text: an error is fine, and so are values, as long as they are numbers a message can hold.
bool survives(const std::string& text) {
    try {
        const UnLevels read(text);
        for (const UnLevels::Level& level : read.allLevels()) {
            for (const auto& [field, value] : level) {
                EXPECT_TRUE(std::isfinite(value) && std::abs(value) < 1e6) << text;
            }
        }
        EXPECT_LT(std::abs(read.latitude()), 1000.0) << text;
        return true;
    } catch (const std::string& error) {
        EXPECT_FALSE(error.empty());
        return false;
    }
}

constexpr std::size_t kMegabyte = 1000000;

std::string repeated(const std::string& text) {
    std::string all;
    while (all.size() < kMegabyte) {
        all += text;
    }
    return all;
}

} // namespace

TEST(UnLevelsRobustness, AMessageMayBeCutAndGarbledAnywhere) {
    const std::string text = fourParts();
    int read = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        read += survives(text.substr(0, i)) ? 1 : 0;
        if (i == 0 || text[i - 1] == ' ' || text[i - 1] == '\n') { // without the group that begins here
            survives(text.substr(0, i) + text.substr(std::min(text.find_first_of(" \n", i), text.size())));
        }
        for (const char other : {'X', '/', ' ', '\xff', '='}) {
            survives(text.substr(0, i) + other + text.substr(i + 1));
        }
    }
    EXPECT_GT(read, 100);
}

// A message of a megabyte takes some tens of milliseconds; a step that costs the square of its groups, many seconds.
TEST(UnLevelsRobustness, AMegabyteOfAnythingCostsItsLengthOnly) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> printable(' ', '~');
    std::string garbage;
    for (std::size_t i = 0; i < kMegabyte; ++i) {
        garbage += i % 71 == 70 ? '\n' : static_cast<char>(printable(random));
    }
    const std::string b = "TTBB 51128 72469 00013 12250 ";
    const std::string remarks = b + "31313 09608 81905 62626 ";
    const std::string texts[] = {
        garbage,
        b + garbage,
        remarks + garbage,
        b + repeated("11850 10150 "),
        "TTAA 51121 72469 99013 12250 27035 " + repeated("88250 50150 09001 "),
        "TTAA 51121 72469 99013 12250 27035 88999 " + repeated("77250 09001 40101 "),
        b + "31313 09608 81905 " + repeated("12345 "),
        remarks + repeated("MBL WND 27035 LST WND 012 TODD "),
        remarks + "\n" + repeated("62626 " + std::string(59, 'Z') + "\n"),
        repeated("TTCC 51121 72469 70844 70150 09001 88999 77999 "),
        repeated(b),
        repeated("1"),
        "TTAA" + repeated("1"),
        remarks + repeated("R"),
        "UUAA " + repeated("ABCD "),
        repeated("="),
    };
    for (const std::string& text : texts) {
        const auto start = std::chrono::steady_clock::now();
        survives(text);
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3)) << text.substr(0, 60);
    }
}
