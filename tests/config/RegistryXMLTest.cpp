#include "RegistryXML.h"
#include "ConfigFiles.h"

#include <gmock/gmock.h>
#include <ostream>
#include <sys/stat.h>

namespace {

using ::testing::ElementsAre;

struct Number {
    double current = -77.0;
    double standard = -77.0;
    bool immediate = false;
};

Number numberOf(RegistryXML& store, const std::string& key, double builtIn = -55.0) {
    Number number;
    store.getDouble(key, builtIn, number.current, number.standard, number.immediate);
    return number;
}

std::string textOf(RegistryXML& store, const std::string& key, const std::string& builtIn = "built-in") {
    std::string current;
    std::string standard;
    bool immediate = false;
    store.getText(key, builtIn, current, standard, immediate);
    return current + "|" + standard + (immediate ? "|now" : "");
}

/// A one-set configuration whose only option is the given element.
std::string withOption(const std::string& option) {
    return "<tarvoConfig><active1>s</active1><set name='s'>" + option + "</set></tarvoConfig>";
}

std::string withCurrent(const std::string& type, const std::string& current, const std::string& standard) {
    return withOption("<option name='K' type='" + type + "'><current>" + current + "</current><default>" + standard +
                      "</default></option>");
}

struct NumberCase {
    const char* name;
    const char* type;
    const char* current;
    const char* standard;
    double expectedCurrent;
    double expectedDefault;
};

void PrintTo(const NumberCase& testCase, std::ostream* out) {
    *out << testCase.name;
}

class OptionNumbers : public ::testing::TestWithParam<NumberCase> {};

TEST_P(OptionNumbers, ReadAsTheirTypeSays) {
    const NumberCase& c = GetParam();
    const auto store = RegistryXML::fromText(withCurrent(c.type, c.current, c.standard), "");
    ASSERT_EQ(store->status(), 0) << store->statusText();
    EXPECT_EQ(numberOf(*store, "K").current, c.expectedCurrent);
    EXPECT_EQ(numberOf(*store, "K").standard, c.expectedDefault);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, OptionNumbers,
    ::testing::Values(NumberCase{"EmptyIsTheDefault", "numeric", "", "6.5", 6.5, 6.5}, // empty reads as the default
                      NumberCase{"EmptyFlagIsTheDefault", "bool", "", "true", 1.0, 1.0},
                      NumberCase{"ZeroIsFalse", "bool", "0", "0", 0.0, 0.0},
                      NumberCase{"OnlyTrueIsTrue", "bool", "1", "TRUE", 0.0, 0.0}, // only "true" is true
                      NumberCase{"WhiteSpaceAround", "bool", "\n true\r\n", "", 1.0, 0.0},
                      NumberCase{"NoDigits", "numeric", "abc", "12 m", 0.0, 12.0},
                      NumberCase{"Signs", "numeric", "-1e2", "+0.25", -100.0, 0.25},
                      NumberCase{"UnknownTypeIsAString", "odd", "3", "4", 3.0, 4.0}, // an unknown type is a string
                      NumberCase{"CharacterDataAndComments", "numeric", "<![CDATA[5]]>", "<!-- was 9 -->8", 5.0, 8.0},
                      NumberCase{"CommentsAndElementsWithin", "numeric", "1<!-- - -->2", "<x>9</x>", 12.0, 0.0}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

TEST(RegistryXMLTest, OddOptionsAndSetsAreTakenAsTheyAre) {
    auto store = RegistryXML::fromText(
        "<tarvoConfig><active>s</active><set><option name='Lost' type='numeric'><current>1</current></option></set>"
        "<set name='s'>"
        "<option type='numeric'><current>1</current><default>1</default></option>"
        "<option name='Twice' type='numeric'><current>1</current><default>1</default></option>"
        "<option name='Untyped'><current>7</current><default>7</default></option>"
        "<option name='Twice' type='numeric' immediate='TRUE'><current>2</current><default>3</default></option>"
        "</set><set name='empty'/><set name=' s '><option name='More' type='string'><current>m</current></option>"
        "</set></tarvoConfig>",
        "");
    ASSERT_EQ(store->status(), 0) << store->statusText();
    EXPECT_THAT(store->getSetNames(), ElementsAre("empty", "s"));
    EXPECT_EQ(store->getActive2SetName(), "");
    EXPECT_EQ(numberOf(*store, "Twice").current, 2.0) << "the later one wins";
    EXPECT_FALSE(numberOf(*store, "Twice").immediate) << "only the exact word counts";
    EXPECT_EQ(numberOf(*store, "Untyped").current, 0.0) << "without a type nothing more of it is read";
    EXPECT_EQ(textOf(*store, "More"), "m|") << "sets of one name are one set";
    store->setActive1SetName("empty");
    EXPECT_EQ(numberOf(*store, "New", 1.5).current, 1.5);
    Option::OPTION_TYPE type = Option::BOOL;
    EXPECT_FALSE(store->getOptionType("New", type)) << "a set without options isn't added to";
}

TEST(RegistryXMLTest, MissingOptionIsAddedToTheActiveSetOnly) {
    const auto store = RegistryXML::fromText(kTwoSets, "");
    EXPECT_EQ(numberOf(*store, "New", 1.0000004).current, 1.0) << "through a text of six decimals";
    EXPECT_EQ(textOf(*store, "NewText", "w"), "w|w");
    Option::OPTION_TYPE type = Option::BOOL;
    EXPECT_TRUE(store->getOptionType("New", type));
    EXPECT_EQ(type, Option::NUMERIC);
    EXPECT_EQ(numberOf(*store, "New", 9.0).current, 1.0);
    store->setActive1SetName("night");
    EXPECT_FALSE(store->getOptionType("New", type));
}

TEST(RegistryXMLTest, ActiveOverride) {
    const std::string stray = replaced(kTwoSets, "    day\n", "nowhere");
    EXPECT_EQ(RegistryXML::fromText(stray, "")->status(), 2);
    EXPECT_EQ(RegistryXML::fromText(kTwoSets, "nowhere")->status(), 2);
    const auto rescued = RegistryXML::fromText(stray, "night");
    EXPECT_EQ(rescued->status(), 0);
    EXPECT_EQ(rescued->getActive1SetName(), "night");
}

TEST(RegistryXMLTest, CloneAndDelete) {
    auto store = RegistryXML::fromText(kTwoSets, "");
    EXPECT_FALSE(store->cloneSet("nowhere", "x"));
    EXPECT_FALSE(store->cloneSet("day", "night"));
    EXPECT_FALSE(store->cloneSet("day", ""));
    EXPECT_FALSE(store->cloneSet("day", " x")) << "it would read back as another name";
    EXPECT_FALSE(store->deleteSet("nowhere"));

    EXPECT_TRUE(store->cloneSet("day", "dusk"));
    EXPECT_THAT(store->getSetNames(), ElementsAre("day", "dusk", "night"));
    store->setActive1SetName("dusk");
    store->set("Length", 11.0);
    EXPECT_EQ(textOf(*store, "Title"), "one two|none|now");
    store->setActive1SetName("day");
    EXPECT_EQ(numberOf(*store, "Length").current, 2.5) << "the copy is independent";
    EXPECT_TRUE(store->deleteSet("day"));
    EXPECT_FALSE(store->deleteSet("day"));
    EXPECT_THAT(store->getSetNames(), ElementsAre("dusk", "night"));
    EXPECT_EQ(numberOf(*store, "Length", 3.0).current, 3.0) << "the active name now names nothing";
}

struct BadCase {
    const char* name;
    std::string (*xml)();
    const char* reason;
};

void PrintTo(const BadCase& testCase, std::ostream* out) {
    *out << testCase.name;
}

class BadConfiguration : public ::testing::TestWithParam<BadCase> {};

std::string entityBomb() {
    std::string xml = "<!DOCTYPE tarvoConfig [<!ENTITY e0 'lol'>";
    for (int i = 1; i < 12; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        xml += "<!ENTITY e" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j) {
            xml += inner;
        }
        xml += "'>";
    }
    return xml + "]>" + withCurrent("string", "&e11;", "");
}

std::string deep() {
    constexpr int levels = 200000;
    std::string xml;
    for (int i = 0; i < levels; ++i) {
        xml += "<set name='s'>";
    }
    for (int i = 0; i < levels; ++i) {
        xml += "</set>";
    }
    return "<tarvoConfig><active1>s</active1>" + xml + "</tarvoConfig>";
}

TEST_P(BadConfiguration, HasStatusTwoAndAReason) {
    const auto store = RegistryXML::fromText(GetParam().xml(), "");
    EXPECT_EQ(store->status(), 2);
    EXPECT_THAT(store->statusText(), ::testing::HasSubstr(GetParam().reason));
    EXPECT_TRUE(store->getSetNames().empty());
    EXPECT_EQ(numberOf(*store, "K", 1.5).current, 1.5);
    store->set("K", 1.0);
    store->save(false);
    EXPECT_FALSE(store->cloneSet("s", "t") || store->deleteSet("s"));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, BadConfiguration,
    ::testing::Values(
        BadCase{"Empty", [] { return std::string(""); }, "line 1"},
        BadCase{"NoXml", [] { return std::string("just words"); }, "line 1"},
        BadCase{"CutShort", [] { return std::string("<tarvoConfig>\n\n<active1>"); }, "line 3"},
        BadCase{"Garbage", [] { return std::string(1 << 20, '\x8f'); }, "line 1"},
        BadCase{"Zeros", [] { return std::string(1 << 20, '\0'); }, "line 1"},
        BadCase{"OtherRoot", [] { return std::string("<other/>"); }, "tarvoConfig"},
        BadCase{"NoActive", [] { return std::string("<tarvoConfig><set name='s'/></tarvoConfig>"); }, "active1"},
        BadCase{"EmptyActive", [] { return std::string("<tarvoConfig><active1/><set name='s'/></tarvoConfig>"); },
                "active1"},
        BadCase{"ActiveWithoutText",
                [] { return std::string("<tarvoConfig><active1><b>s</b></active1><set name='s'/></tarvoConfig>"); },
                "active1"},
        BadCase{"NoSets", [] { return std::string("<tarvoConfig><active1>s</active1></tarvoConfig>"); }, "no sets"},
        BadCase{"SetWithoutName", [] { return std::string("<tarvoConfig><active1>s</active1><set/></tarvoConfig>"); },
                "no set 's'"},
        BadCase{"EntityBomb", entityBomb, "entity"}, BadCase{"DeepNesting", deep, "deep"},
        BadCase{"ExternalEntity",
                [] {
                    return "<!DOCTYPE tarvoConfig [<!ENTITY x SYSTEM 'file:///proc/self/stat'>]>" +
                           withCurrent("string", "&x;", "");
                },
                "file:///proc/self/stat"}),
    [](const auto& testCase) { return std::string(testCase.param.name); });

TEST(RegistryXMLTest, TheDocumentTypeIsNeitherEnforcedNorFetched) {
    const std::string disorderly = replaced(kTwoSets, "  <set name=\"day\">", "  <extra/><set name=\"day\" note=\"\">");
    EXPECT_EQ(RegistryXML::fromText(disorderly, "")->status(), 0);
    const std::string elsewhere = replaced(kTwoSets, "tarvo.dtd", "http://127.0.0.1:9/nowhere.dtd");
    EXPECT_EQ(RegistryXML::fromText(elsewhere, "")->status(), 0);
}

class RegistryXMLFileTest : public InTemporaryDirectory {};

TEST_F(RegistryXMLFileTest, WhatIsNoFileHasStatusTwo) {
    ASSERT_EQ(::mkfifo(pathOf("pipe").c_str(), 0600), 0);
    std::filesystem::resize_file(write("huge.xml", ""), std::uintmax_t{65} * 1024 * 1024); // a hole, not bytes
    const std::pair<std::string, std::string> cases[] = {
        {pathOf("nowhere.xml"), "no file"}, {folder.path().string(), "not a file"}, {pathOf("pipe"), "not a file"},
        {write("empty.xml", ""), "line 1"}, {pathOf("huge.xml"), "too large"},      {"", "no file"}};
    for (const auto& [path, reason] : cases) {
        RegistryXML store(path, "");
        EXPECT_EQ(store.status(), 2) << path;
        EXPECT_THAT(store.statusText(), ::testing::HasSubstr(reason)) << path;
    }
}

} // namespace
