#include "ShippedConfiguration.h"

#include "ConfigFiles.h"
#include "RegistryXML.h"
#include "TarvoConfigSet.h"
#include "TarvoEntityResolver.h"

#include <gmock/gmock.h>
#include <memory>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/PlatformUtils.hpp>

namespace {

const char* const kSetNames[] = {"sample",     "editsonde",   "research-dropsonde", "mini-dropsonde",
                                 "driftsonde", "upsonde-10s", "upsonde-1s",         "descending-PELO"};

TEST(ShippedConfigurationTest, TheCheckedInFileIsTheBuiltInText) {
    EXPECT_EQ(readFile(TARVO_SOURCE_DIR "/resources/tarvo.xml"), shippedConfiguration());
}

class XercesTest : public ::testing::Test {
protected:
    /// The errors of a validating parse, with the document type put into the text: the library leaks a little with
    /// every external one that it reads.
    std::size_t errorsOf(const std::string& configuration) {
        const std::string text = replaced(configuration, "SYSTEM \"tarvo.dtd\"", "[" + std::string(tarvoDtd()) + "]");
        parser.setValidationScheme(xercesc::XercesDOMParser::Val_Always);
        parser.parse(xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(text.data()), text.size(), u"text"));
        return parser.getErrorCount();
    }

    std::size_t countOf(const char16_t* name) { return parser.getDocument()->getElementsByTagName(name)->getLength(); }

    struct Library {
        Library() { xercesc::XMLPlatformUtils::Initialize(); }
        ~Library() { xercesc::XMLPlatformUtils::Terminate(); }
    };
    Library library;
    xercesc::XercesDOMParser parser;
};

TEST_F(XercesTest, FollowsItsDocumentType) {
    EXPECT_EQ(errorsOf(shippedConfiguration()), 0u);
    // 191 in "sample", 190 in the seven others, DisableKermit once more in five of those.
    EXPECT_EQ(countOf(u"option"), 191u + 7 * 190 + 5);
    EXPECT_EQ(countOf(u"set"), 8u);

    const char* const defects[][2] = {{"type=\"bool\"", "type=\"boolean\""},
                                      {"<active1>editsonde</active1>", ""},
                                      {"immediate=\"true\"", "immediate=\"yes\""},
                                      {"<set name=\"sample\">", "<set>"},
                                      {"<default>10.000000</default>", ""}};
    for (const auto& [from, to] : defects) {
        EXPECT_GT(errorsOf(replaced(shippedConfiguration(), from, to)), 0u) << from;
    }
}

TEST_F(XercesTest, ResolverKnowsOneTextOnly) {
    TarvoEntityResolver resolver;
    const std::unique_ptr<xercesc::InputSource> known(resolver.resolveEntity(nullptr, u"tarvo.dtd"));
    ASSERT_NE(known, nullptr);
    const std::unique_ptr<xercesc::BinInputStream> stream(known->makeStream());
    std::string text(100000, '\0');
    text.resize(stream->readBytes(reinterpret_cast<XMLByte*>(text.data()), text.size()));
    EXPECT_EQ(text, tarvoDtd());
    for (const XMLCh* other : {u"other.dtd", u"/x/tarvo.dtd", u""}) {
        EXPECT_EQ(resolver.resolveEntity(nullptr, other), nullptr);
    }
}

class ShippedSets : public ::testing::Test {
protected:
    std::unique_ptr<RegistryXML> store = RegistryXML::fromText(shippedConfiguration(), "");

    std::unique_ptr<TarvoConfigSet> configOf(const std::string& name) {
        store->setActive1SetName(name);
        return std::make_unique<TarvoConfigSet>(store.get());
    }
};

TEST_F(ShippedSets, NamesOrderAndDescriptions) {
    ASSERT_EQ(store->status(), 0) << store->statusText();
    EXPECT_EQ(store->getActive1SetName(), "editsonde");
    EXPECT_EQ(store->getActive2SetName(), "descending-PELO");
    std::size_t before = 0;
    for (std::size_t i = 0; i < kShippedSetCount; ++i) {
        EXPECT_EQ(shippedSets()[i].name, kSetNames[i]);
        const std::string prefix = "[ " + std::string(kSetNames[i]) + " ]:  ";
        EXPECT_THAT(std::string(shippedSets()[i].description), ::testing::StartsWith(i == 0 ? "" : prefix));
        const auto at = shippedConfiguration().find("<set name=\"" + std::string(kSetNames[i]) + "\">");
        ASSERT_NE(at, std::string::npos);
        EXPECT_GT(at, before);
        before = at;
    }
}

TEST_F(ShippedSets, OneSetByItselfIsTheSame) {
    for (const std::string name : kSetNames) {
        const auto alone = RegistryXML::fromText(shippedConfiguration(name), name);
        ASSERT_EQ(alone->status(), 0) << alone->statusText();
        EXPECT_EQ(alone->getSetNames().size(), name == "descending-PELO" ? 1U : 2U);
        EXPECT_EQ(alone->getActive2SetName(), "descending-PELO");
        EXPECT_EQ(TarvoConfigSet(alone.get()).dump(), configOf(name)->dump()) << name;
    }
    EXPECT_LT(shippedConfiguration("").size(), shippedConfiguration().size() / 3);
    EXPECT_EQ(shippedConfiguration("nosuchset"), shippedConfiguration());
}

TEST_F(ShippedSets, ACopyOfASetIsASetOfItsOwn) {
    const auto original = configOf("editsonde");
    const auto copy = original->copy();
    EXPECT_EQ(copy->dump(), original->dump());
    EXPECT_EQ(copy->getSetName(), "editsonde");
    const auto before = original->dump();
    copy->set("PresOffset", 1.5);
    copy->add("LastDataTimeOverride", 100.0, false, false, true);
    EXPECT_EQ(original->dump(), before);
    double offset = 0.0;
    EXPECT_TRUE(copy->value("PresOffset", offset));
    EXPECT_EQ(offset, 1.5);
}

TEST_F(ShippedSets, OptionsOfASet) {
    for (const char* name : kSetNames) {
        store->setActive1SetName(name);
        const bool sample = std::string(name) == "sample";
        Option::OPTION_TYPE type = Option::STRING;
        EXPECT_EQ(store->getOptionType("xyGraphDzDtMax", type), sample) << name;
        EXPECT_TRUE(store->getOptionType("BatchSaveLevels", type)) << name;
        EXPECT_FALSE(store->getOptionType("SfcAltUnknown", type)) << name;
        configOf(name);
        EXPECT_TRUE(store->getOptionType("xyGraphDzDtMax", type)) << name << ": added on the first read";
    }
}

// A few rows by hand from the table of the sets; the checked-in file holds all of it.
struct SetValues {
    const char* key;
    std::array<double, kShippedSetCount> current;
    std::array<double, kShippedSetCount> standard;
};

const SetValues kSetValues[] = {
    {"WindSmoothWL", {10, 10, 10, 10, 10, 60, 40, 10}, {10, 10, 10, 10, 10, 60, 40, 10}},
    {"WindSats", {6, 6, 6, 6, 6, 5, 4, 5}, {6, 6, 6, 6, 6, 5, 4, 4}},
    {"PresQCDev", {1.5, 1.5, 3, 3, 3, 3, 3, 3}, {1.5, 1.5, 1.5, 1.5, 1.5, 3, 3, 1.5}},
    {"TdryQCDev", {0.8, 0.8, 3, 3, 3, 3, 0.5, 3}, {0.8, 0.8, 0.8, 0.8, 0.8, 3, 0.5, 0.8}},
    {"xyGraphPresMin", {50, 50, 50, 50, 50, 50, 50, 50}, {500, 500, 500, 500, 500, 50, 50, 500}},
};

TEST_F(ShippedSets, ValuesOfEverySet) {
    for (std::size_t i = 0; i < kShippedSetCount; ++i) {
        SCOPED_TRACE(kSetNames[i]);
        const auto set = configOf(kSetNames[i]);
        for (const SetValues& row : kSetValues) {
            EXPECT_DOUBLE_EQ((*set)[Id(row.key)]->value(), row.current[i]) << row.key;
        }
        const bool upsonde = std::string(kSetNames[i]).find("upsonde") == 0;
        EXPECT_EQ((*set)[Id("ACagency")]->text(), upsonde ? "AF001" : "AF100");
        EXPECT_EQ((*set)[Id("UpsondeICAO")]->text(), upsonde ? "" : "KWBC") << "empty reads as the default";
        set->restoreDefault();
        for (const SetValues& row : kSetValues) {
            EXPECT_DOUBLE_EQ((*set)[Id(row.key)]->value(), row.standard[i]) << row.key;
        }
        EXPECT_EQ((*set)[Id("ACagency")]->text(), "AF001");
    }
}

class ShippedFileTest : public InTemporaryDirectory {};

TEST_F(ShippedFileTest, AChangedOptionIsAChangedLine) {
    const std::string path = write("tarvo.xml", shippedConfiguration());
    RegistryXML store(path, "upsonde-10s");
    store.setActive1SetName("editsonde");
    store.set("MissionId", "FLIGHT 7");
    store.save(true);
    const auto set = shippedConfiguration().find("<set name=\"editsonde\">");
    std::string expected = shippedConfiguration();
    expected = expected.substr(0, set) + replaced(expected.substr(set), "<current>TRAIN", "<current>FLIGHT 7");
    EXPECT_EQ(readFile(path), expected);
}

} // namespace
