#include "ConfigFiles.h"
#include "RegistryXML.h"
#include "TarvoConfigSet.h"

#include <chrono>
#include <clocale>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class RegistryXMLSaveTest : public InTemporaryDirectory {
protected:
    RegistryXMLSaveTest() : path(write("site.xml", kTwoSets)) {
        fs::last_write_time(path, fs::last_write_time(path) - std::chrono::hours(1));
        stamp = fs::last_write_time(path);
    }

    bool untouched() const { return readFile(path) == kTwoSets && fs::last_write_time(path) == stamp; }

    std::string path;
    fs::file_time_type stamp;
};

TEST_F(RegistryXMLSaveTest, OnlyTheChangedTextsOfTheFileDiffer) {
    RegistryXML store(path, "");
    store.set("Length", 0.1234567);
    store.set("Switch", -1.0);
    store.set("Title", "UTF-16 & <caf\xc3\xa9> \xf0\x9f\x8e\x88");
    store.setActive2SetName("day");
    store.save(false);
    std::string expected = replaced(kTwoSets, " 2.5 ", "0.123457");
    expected = replaced(expected, "<current>false", "<current>true");
    expected = replaced(expected, "one\ntwo", "UTF-16 &amp; &lt;caf\xc3\xa9&gt; \xf0\x9f\x8e\x88");
    expected = replaced(expected, "<active2>night", "<active2>day");
    EXPECT_EQ(readFile(path), expected);
    EXPECT_EQ(folder.size(), 1) << "nothing is left beside the file";
}

TEST_F(RegistryXMLSaveTest, ImmediateSaveHoldsBackTheOthersAndTheActiveNames) {
    RegistryXML store(path, "");
    store.set("Length", 9.0);
    store.set("Title", "now");
    store.setActive1SetName("night");
    store.save(true);
    EXPECT_EQ(readFile(path), replaced(kTwoSets, "one\ntwo", "now"));
    store.save(false);
    EXPECT_EQ(RegistryXML(path, "").getActive1SetName(), "night");
    EXPECT_THAT(readFile(path), ::testing::HasSubstr("<current>9.000000</current>"));
}

TEST_F(RegistryXMLSaveTest, AddedOptionReachesTheFileWithTheNextRealChange) {
    {
        RegistryXML store(path, "");
        TarvoConfigSet set(&store);
        set.save(false);
        EXPECT_TRUE(untouched());
        set.set("DropsondeHitSfc", 0.0);
        set.save(false);
    }
    RegistryXML again(path, "");
    Option::OPTION_TYPE type = Option::BOOL;
    EXPECT_TRUE(again.getOptionType("SetHtsMissing", type)) << "added, though only another key was changed";
    EXPECT_EQ(type, Option::NUMERIC) << "a flag that the file lacked";
    TarvoConfigSet set(&again);
    EXPECT_EQ(set[Id("DropsondeHitSfc")]->value(), 0.0);
    set.restoreDefault();
    EXPECT_EQ(set[Id("DropsondeHitSfc")]->value(), 1.0);
    again.setActive1SetName("night");
    EXPECT_FALSE(again.getOptionType("SetHtsMissing", type));
    EXPECT_FALSE(again.getOptionType("ObsNum", type)) << "kept in memory only";
}

TEST_F(RegistryXMLSaveTest, ClonedAndDeletedSetsReachTheFileWithASave) {
    RegistryXML store(path, "");
    EXPECT_FALSE(store.cloneSet("day", "night"));
    store.set("NotInThisSet", 4.0);
    store.set("Title", " one two\n"); // as it reads
    store.save(false);
    EXPECT_TRUE(store.cloneSet("day", "dusk & dawn"));
    EXPECT_TRUE(store.deleteSet("night"));
    EXPECT_TRUE(untouched());
    store.save(true);
    RegistryXML again(path, "dusk & dawn");
    EXPECT_THAT(again.getSetNames(), ::testing::ElementsAre("day", "dusk & dawn"));
    Option::OPTION_TYPE type = Option::STRING;
    EXPECT_TRUE(again.getOptionType("Length", type));
}

TEST_F(RegistryXMLSaveTest, ASetWithinADeletedSetIsStillSafeToUse) {
    write("site.xml", "<tarvoConfig><active1>in</active1><set name='out'><option name='K' type='string'/>"
                      "<set name='in'><option name='L' type='string'><current>l</current></option></set></set>"
                      "</tarvoConfig>");
    RegistryXML store(path, "");
    EXPECT_TRUE(store.deleteSet("out"));
    store.set("L", "changed");
    EXPECT_TRUE(store.cloneSet("in", "copy"));
    EXPECT_TRUE(store.deleteSet("in"));
    store.save(false);
    EXPECT_THAT(readFile(path), ::testing::Not(::testing::HasSubstr("<set")));
}

TEST_F(RegistryXMLSaveTest, MissingOrEmptyElementsAreFilledWhereTheyBelong) {
    const std::string sparse =
        "<tarvoConfig><active>s</active><set name=\"s\">"
        "<option name=\"A\" type=\"string\"><current/><default/></option>"
        "<option name=\"B\" type=\"string\"/>"
        "<option name=\"C\" type=\"string\"><current>x<!-- note --><![CDATA[y]]></current></option>"
        "<option name=\"D\"><current>kept</current></option>"
        "</set></tarvoConfig>";
    write("site.xml", sparse);
    RegistryXML store(path, "");
    store.setActive2SetName("s");
    store.save(false);
    EXPECT_EQ(readFile(path), sparse) << "no active2 element is made";
    store.set("A", "a");
    store.set("B", "b");
    store.set("C", "c");
    store.save(false);
    std::string expected = replaced(sparse, "<current/>", "<current>a</current>");
    expected = replaced(expected, "\"B\" type=\"string\"/>", "\"B\" type=\"string\"><current>b</current></option>");
    expected = replaced(expected, "x<!-- note --><![CDATA[y]]>", "c");
    EXPECT_EQ(readFile(path), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + expected + "\n");
}

TEST_F(RegistryXMLSaveTest, WhatIsNotOursStaysAndComesOutAsUtf8) {
    const std::string foreign =
        replaced(replaced(kTwoSets, "<active2>", "<extra note=\"1\">x<!-- y --><z/></extra>\n  <active2>"),
                 "<set name=\"night\">", "<set name=\"night\" owner=\"me\"><option name=\"Odd\" type=\"colour\"/>");
    std::string wide = "\xff\xfe";
    for (const char c : replaced(foreign, "UTF-8", "UTF-16")) {
        wide += {c, '\0'};
    }
    const std::string latin1 = replaced(replaced(foreign, "UTF-8", "ISO-8859-1"), "one\ntwo", "caf\xe9");
    for (const auto& [text, title] : {std::pair(wide, "one\ntwo"), std::pair(latin1, "caf\xc3\xa9")}) {
        write("site.xml", text);
        RegistryXML store(path, "");
        ASSERT_EQ(store.status(), 0) << store.statusText();
        store.set("Length", 3.0);
        store.save(false);
        EXPECT_EQ(readFile(path), replaced(replaced(foreign, " 2.5 ", "3.000000"), "one\ntwo", title));
    }
}

TEST_F(RegistryXMLSaveTest, WhateverIsSetTheFileCanBeReadAgain) {
    const std::pair<std::string, std::string> cases[] = {
        {"\001a\033\177", "a\177"},                                 // controls that XML can't hold
        {"\377\303(", "\357\277\275\357\277\275("},                 // no UTF-8
        {"\355\240\200b", "\357\277\275\357\277\275\357\277\275b"}, // half a surrogate pair
        {"\300\257", "\357\277\275\357\277\275"},                   // an overlong slash
        {"  a\r\nb  ", "a  b"},                                     // trimmed, line ends become blanks
        {"]]>&amp;<![CDATA[", "]]>&amp;<![CDATA["},
        {"気象", "気象"},
    };
    ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
    for (const auto& [text, expected] : cases) {
        RegistryXML store(path, "");
        store.set("Title", text);
        store.save(true);
        RegistryXML again(path, "");
        ASSERT_EQ(again.status(), 0) << again.statusText();
        std::string current;
        std::string standard;
        bool immediate = false;
        again.getText("Title", "", current, standard, immediate);
        EXPECT_EQ(current, expected);
    }
}

TEST_F(RegistryXMLSaveTest, FollowsLinks) {
    fs::create_directory(folder / "home");
    fs::create_symlink("../site.xml", folder / "home" / "inner.xml");
    fs::create_symlink(folder / "home" / "inner.xml", folder / "outer.xml");
    RegistryXML store(pathOf("outer.xml"), "");
    store.set("Length", 6.0);
    store.save(false);
    EXPECT_TRUE(fs::is_symlink(folder / "outer.xml") && fs::is_symlink(folder / "home" / "inner.xml"));
    EXPECT_EQ(readFile(path), replaced(kTwoSets, " 2.5 ", "6.000000"));
}

TEST_F(RegistryXMLSaveTest, AFailureIsSwallowedAndNotTriedAgain) {
    RegistryXML store(path, "");
    fs::rename(path, pathOf("kept.xml"));
    fs::create_directory(path);
    store.set("Length", 6.0);
    store.save(false);
    EXPECT_EQ(folder.size(), 2) << "no temporary file is left";
    fs::remove(path);
    fs::rename(pathOf("kept.xml"), path);
    store.save(false);
    EXPECT_TRUE(untouched());
    store.set("Switch", 1.0);
    store.save(false);
    EXPECT_THAT(readFile(path), ::testing::HasSubstr("6.000000")) << "nothing was lost in memory";
}

TEST_F(RegistryXMLSaveTest, AReadOnlyFileStaysAsItIs) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "the superuser may write anything";
    }
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    RegistryXML store(path, "");
    store.set("Length", 6.0);
    store.save(false);
    EXPECT_TRUE(untouched());
}

TEST_F(RegistryXMLSaveTest, AnOlderStoreLeavesTheActiveSetsToTheFile) {
    RegistryXML older(path, "");
    RegistryXML newer(path, "");
    newer.setActive1SetName("night");
    newer.setActive2SetName("day");
    newer.save(false);
    for (const bool immediateOnly : {true, false}) {
        older.set("Title", immediateOnly ? "now" : "then");
        older.save(immediateOnly);
        const RegistryXML file(path, "");
        EXPECT_EQ(file.getActive1SetName(), "night") << immediateOnly;
        EXPECT_EQ(file.getActive2SetName(), "day") << immediateOnly;
    }
    EXPECT_EQ(older.getActive1SetName(), "day") << "its own options are still those of its set";
    EXPECT_THAT(readFile(path), ::testing::HasSubstr("then"));
    older.setActive1SetName("night");
    older.save(false);
    older.setActive1SetName("day");
    older.save(false);
    EXPECT_EQ(RegistryXML(path, "").getActive1SetName(), "day") << "it gave a name itself";
}

TEST_F(RegistryXMLSaveTest, ASetThatOnlyTheFileKnowsIsNotNamedWithoutIt) {
    RegistryXML older(path, "");
    RegistryXML newer(path, "");
    ASSERT_TRUE(newer.cloneSet("day", "dusk"));
    newer.setActive1SetName("dusk");
    newer.save(false);
    older.set("Title", "now");
    older.save(true);
    EXPECT_EQ(RegistryXML(path, "").status(), RegistryXML::LOADED);
}

} // namespace
