#include "AtomicFile.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(AtomicFile, appearsWholeOrNotAtAll) {
    const TemporaryFolder folder;
    const std::string path = (folder / "product").string();
    {
        AtomicFile file(path);
        ASSERT_TRUE(file.isOpen());
        file.stream() << "one";
        EXPECT_FALSE(fs::exists(path));
        EXPECT_TRUE(file.commit());
        EXPECT_FALSE(file.commit()) << "only once";
    }
    EXPECT_EQ(readFile(path), "one");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    { AtomicFile(path).stream() << "dropped"; }
    EXPECT_EQ(readFile(path), "one");
    {
        AtomicFile file(path);
        file.stream() << "two";
        EXPECT_TRUE(file.commit(true));
    }
    EXPECT_EQ(readFile(path), "two");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(folder.size(), 1);
}

TEST(AtomicFile, refusesWhatItCantWrite) {
    const TemporaryFolder folder;
    EXPECT_FALSE(AtomicFile((folder / "none/product").string()).isOpen());
    EXPECT_FALSE(AtomicFile(folder.path().string()).isOpen());
    AtomicFile device("/dev/full");
    device.stream() << "text";
    EXPECT_FALSE(device.commit());
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}
