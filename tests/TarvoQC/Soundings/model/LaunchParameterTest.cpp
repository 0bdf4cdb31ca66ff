#include "LaunchParameter.h"

#include <gtest/gtest.h>

#include <string>

// From the file 5 or nothing, then in turn: i no override and ignore, n no override and don't, o override by 7, O the
// same with the ignore flag on.
TEST(LaunchParameter, overridesAndIgnoring) {
    const struct {
        bool inFile;
        std::string steps;
        double value;
        bool avail, availWithIgnored;
    } cases[] = {
        {false, "", -999.0, false, false},   {false, "n", -999.0, false, false}, {false, "i", -999.0, false, false},
        {false, "o", 7, true, true},         {false, "iO", 7, true, true},       {false, "on", -999.0, false, false},
        {false, "oi", -999.0, false, false}, {true, "", 5, true, true},          {true, "i", 5, false, true},
        {true, "in", 5, true, true},         {true, "O", 7, true, true},         {true, "oi", 5, false, true},
        {true, "on", 5, true, true},
    };
    for (const auto& c : cases) {
        LaunchParameter parameter;
        if (c.inFile) {
            parameter.set(5);
        }
        for (const char step : c.steps) {
            parameter.adjust(step == 'o' || step == 'O' ? 7 : -999.0, step == 'i' || step == 'O');
        }
        EXPECT_EQ(parameter.value(), c.value) << c.inFile << c.steps;
        EXPECT_EQ(parameter.avail(false), c.avail) << c.inFile << c.steps;
        EXPECT_EQ(parameter.avail(true), c.availWithIgnored) << c.inFile << c.steps;
    }
}
