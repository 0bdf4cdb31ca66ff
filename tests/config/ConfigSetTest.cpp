#include "ConfigSet.h"
#include "Registry.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

namespace {

using ::testing::ElementsAre;

/// A store that has "Stored" with current 2, default 3, immediate, and notes what is set and saved.
class NotingRegistry : public Registry {
public:
    void getDouble(const std::string& key, double builtIn, double& current, double& standard,
                   bool& immediate) override {
        Registry::getDouble(key, builtIn, current, standard, immediate);
        if (key == "Stored") {
            current = 2.0;
            standard = 3.0;
            immediate = true;
        }
    }
    void set(const std::string& key, double value) override { numbers.emplace_back(key, value); }
    void set(const std::string& key, const std::string& value) override { texts.emplace_back(key, value); }
    void save(bool immediateOnly) override { saves.push_back(immediateOnly); }

    std::vector<std::pair<std::string, double>> numbers;
    std::vector<std::pair<std::string, std::string>> texts;
    std::vector<bool> saves;
};

class ConfigSetTest : public ::testing::Test {
protected:
    double number(const std::string& key) const {
        double value = -77.0;
        EXPECT_TRUE(set.value(key, value)) << key;
        return value;
    }

    NotingRegistry store;
    ConfigSet set{&store};
};

TEST_F(ConfigSetTest, BoundItemTakesValueDefaultAndImmediateFlagFromTheStore) {
    set.add("Stored", 9.0, true, false, true);
    set.add("Fresh", 9.0, true, true, false);
    EXPECT_EQ(number("Stored"), 2.0);
    EXPECT_TRUE(set[Id("Stored")]->isImmediateSave());
    EXPECT_FALSE(set[Id("Fresh")]->isImmediateSave()) << "the store decides, not the caller";
    EXPECT_FALSE(set.changed());
    set.restoreDefault();
    EXPECT_EQ(number("Stored"), 3.0);
    EXPECT_EQ(number("Fresh"), 9.0);
}

TEST_F(ConfigSetTest, UnboundItemNeverReachesTheStoreAndKeepsItsFlags) {
    set.add("Stored", 9.0, false, true, true);
    EXPECT_EQ(number("Stored"), 9.0);
    EXPECT_TRUE(set[Id("Stored")]->isImmediateSave());
    EXPECT_TRUE(set.set("Stored", 5.0));
    EXPECT_TRUE(set.changed());
    EXPECT_TRUE(store.numbers.empty());
    set.restoreDefault();
    EXPECT_EQ(number("Stored"), 9.0);
}

TEST_F(ConfigSetTest, OnlyARealChangeIsWrittenThroughAndMarked) {
    set.add("Stored", 0.0, true, false, false);
    set.add("Word", "a", true, false, false);
    set.set("Stored", 2.0);
    set.set("Word", "a");
    EXPECT_TRUE(store.numbers.empty());
    EXPECT_TRUE(store.texts.empty());

    set.set("Stored", 5.0);
    set.set("Word", "b");
    EXPECT_TRUE(set[Id("Stored")]->changed());
    EXPECT_TRUE(set[Id("Word")]->changed());
    set.set("Stored", 2.0);
    set.set("Word", "a");
    EXPECT_FALSE(set.changed()) << "back at the saved values";
    EXPECT_THAT(store.numbers, ElementsAre(std::pair("Stored", 5.0), std::pair("Stored", 2.0)));
    EXPECT_THAT(store.texts, ElementsAre(std::pair("Word", "b"), std::pair("Word", "a")));
}

TEST_F(ConfigSetTest, ImmediateSaveLeavesOtherItemsChanged) {
    set.add("Stored", 0.0, true, false, false);
    set.add("Fresh", 1.0, true, false, false);
    set.set("Stored", 6.0);
    set.set("Fresh", 6.0);
    set.save(true);
    EXPECT_FALSE(set[Id("Stored")]->changed());
    EXPECT_TRUE(set[Id("Fresh")]->changed());
    EXPECT_TRUE(set.changed());
    set.save(false);
    EXPECT_FALSE(set.changed());
    EXPECT_THAT(store.saves, ElementsAre(true, false));
    set.set("Stored", 2.0);
    EXPECT_TRUE(set.changed()) << "6 is the saved value now";
}

TEST_F(ConfigSetTest, UnknownKeyAnswersFalseAndLeavesTheArgument) {
    set.add("Known", 1.0, false, false, false);
    set.remove("Known");
    set.remove("Known");
    double value = 1.5;
    int whole = 7;
    bool flag = true;
    std::string text = "kept";
    for (const char* key : {"Known", "known", ""}) {
        EXPECT_FALSE(set.exists(key));
        EXPECT_FALSE(set.value(key, value) || set.intValue(key, whole) || set.boolValue(key, flag) ||
                     set.text(key, text));
        EXPECT_FALSE(set.set(key, 3.0) || set.set(key, "x"));
        EXPECT_EQ(set[Id(key)], nullptr);
    }
    EXPECT_EQ(value, 1.5);
    EXPECT_EQ(whole, 7);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "kept");
}

TEST_F(ConfigSetTest, WholeNumbersAreCutTowardZeroAndNeverOverflow) {
    const struct {
        double value;
        int whole;
        bool flag;
    } cases[] = {{2.9, 2, true},
                 {-2.9, -2, true},
                 {0.0, 0, false},
                 {-0.0, 0, false},
                 {0.4, 0, true},
                 {std::nan(""), 0, true},
                 {1e300, std::numeric_limits<int>::max(), true},
                 {-1e300, std::numeric_limits<int>::min(), true}};
    for (const auto& c : cases) {
        set.add("N", c.value, false, false, false);
        int whole = -77;
        bool flag = !c.flag;
        EXPECT_TRUE(set.intValue("N", whole) && set.boolValue("N", flag));
        EXPECT_EQ(whole, c.whole) << c.value;
        EXPECT_EQ(flag, c.flag) << c.value;
    }
}

TEST_F(ConfigSetTest, ItemsComeInByteOrder) {
    for (const char* key : {"b", "ab", "B", "a"}) {
        set.add(key, 0.0, false, false, false);
    }
    std::vector<std::string> keys;
    for (const auto& [id, item] : set) {
        keys.push_back(item->id());
    }
    EXPECT_THAT(keys, ElementsAre("B", "a", "ab", "b"));
    EXPECT_THAT(set.dump(), ::testing::Contains(::testing::StartsWith("Config Item ab  val:0 regGet: 0")));
}

TEST(RegistryTest, BaseKeepsWhatIsSetAndKnowsOneSet) {
    Registry registry;
    ConfigSet first(&registry);
    first.add("N", 1.0, true, true, false);
    first.add("T", "t", true, true, false);
    first.set("N", 2.0);
    first.set("T", "u");

    ConfigSet second(&registry);
    second.add("N", 5.0, true, true, false);
    second.add("T", "v", true, true, false);
    EXPECT_EQ(second[Id("N")]->value(), 2.0);
    EXPECT_EQ(second[Id("T")]->text(), "u");
    second.restoreDefault();
    EXPECT_EQ(second[Id("N")]->value(), 5.0) << "the built-in value is the default";
    EXPECT_EQ(second[Id("T")]->text(), "v");
    EXPECT_EQ(second.getSetName(), "internal");
    EXPECT_THAT(second.getSetNames(), ElementsAre("internal"));
    Option::OPTION_TYPE type = Option::STRING;
    EXPECT_FALSE(registry.getOptionType("N", type));
}

} // namespace
