#include "RevisionInfo.h"

#include <gtest/gtest.h>

TEST(RevisionInfo, versionInFiveCharacters) {
    const char* const cases[][2] = {{"V3.4.8", "30408"}, {"V3.14-8", "31408"}, {"V3.4", "/////"}, {".4.8", "0408"}};
    for (const auto& [revision, aev] : cases) {
        EXPECT_EQ(RevisionInfo::aev(revision), aev) << revision;
    }
    EXPECT_EQ(programText(), "Tarvo " + RevisionInfo().at("REPO_TAG"));
}
