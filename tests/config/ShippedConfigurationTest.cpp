#include "ShippedConfiguration.h"

#include "ConfigFiles.h"
#include "RegistryXML.h"
#include "TarvoConfigSet.h"
#include "TarvoEntityResolver.h"

#include <gtest/gtest.h>
#include <memory>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

namespace {

TEST(ShippedConfigurationTest, TheCheckedInFileIsTheBuiltInText) {
    EXPECT_EQ(readFile(TARVO_SOURCE_DIR "/resources/tarvo.xml"), shippedConfiguration());
}

TEST(ShippedConfigurationTest, FollowsItsDocumentType) {
    const struct Library {
        Library() { xercesc::XMLPlatformUtils::Initialize(); }
        ~Library() { xercesc::XMLPlatformUtils::Terminate(); }
    } library;
    xercesc::XercesDOMParser parser;
    parser.setValidationScheme(xercesc::XercesDOMParser::Val_Always);
    const auto errorsOf = [&](const std::string& configuration) {
        // The document type is put into the text: the library leaks a little with every external one that it reads.
        const std::string text = replaced(configuration, "SYSTEM \"tarvo.dtd\"", "[" + std::string(tarvoDtd()) + "]");
        parser.parse(xercesc::MemBufInputSource(reinterpret_cast<const XMLByte*>(text.data()), text.size(), u"text"));
        return parser.getErrorCount();
    };
    const auto countOf = [&](const char16_t* name) {
        return parser.getDocument()->getElementsByTagName(name)->getLength();
    };
    EXPECT_NE(std::unique_ptr<xercesc::InputSource>(TarvoEntityResolver().resolveEntity(nullptr, u"tarvo.dtd")),
              nullptr);
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

class ShippedSets : public ::testing::Test {
protected:
    std::unique_ptr<RegistryXML> store = RegistryXML::fromText(shippedConfiguration(), "");

    std::unique_ptr<TarvoConfigSet> configOf(const std::string& name) {
        store->setActive1SetName(name);
        return std::make_unique<TarvoConfigSet>(store.get());
    }
};

TEST_F(ShippedSets, OneSetByItselfIsTheSame) {
    for (const std::string& name : store->getSetNames()) {
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
    const auto before = original->dump();
    EXPECT_EQ(copy->dump(), before);
    EXPECT_EQ(copy->getSetName(), "editsonde");
    copy->set("PresOffset", 1.5);
    EXPECT_NE(copy->dump(), before);
    EXPECT_EQ(original->dump(), before);
}

} // namespace
