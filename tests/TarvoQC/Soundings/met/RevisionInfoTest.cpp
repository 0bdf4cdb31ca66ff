#include "RevisionInfo.h"

#include <gtest/gtest.h>

TEST(RevisionInfo, versionInFiveCharacters) {
    const char* const cases[][2] = {{"V3.4.8", "30408"}, {"V3.14-8", "31408"}, {"V3.4", "/////"}, {".4.8", "0408"}};
    for (const auto& [revision, aev] : cases) {
        EXPECT_EQ(RevisionInfo::aev(revision), aev) << revision;
    }
    const RevisionInfo info;
    EXPECT_EQ(info.at("TARVO_AEV"), RevisionInfo::aev(info.at("REPO_REVISION")));
    EXPECT_EQ(programText(), "Tarvo " + info.at("REPO_TAG"));
}
