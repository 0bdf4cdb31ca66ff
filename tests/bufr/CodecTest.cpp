#include "ShippedTables.h"

#include "TimeLimit.h"

#include <cerrno>
#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// One subset of a template, from its top-level descriptors to the octets of its message.
class Coded {
public:
    explicit Coded(const std::vector<int>& descriptors, int edition = 4)
        : _template(bufr_create_template(nullptr, 0, &_shipped.tables, edition)) {
        said.clear();
        bufr_set_debug_handler(&hear);
        for (const int descriptor : descriptors) {
            const BufrDescValue value{descriptor, {}};
            bufr_template_add_DescValue(_template, &value, 1);
        }
        finalized = bufr_finalize_template(_template);
        dataset = bufr_create_dataset(_template);
        subset = bufr_get_datasubset(dataset, bufr_create_datasubset(dataset));
    }
    ~Coded() {
        bufr_free_dataset(dataset);
        bufr_free_template(_template);
        bufr_set_debug_handler(nullptr);
    }
    Coded(const Coded&) = delete;
    Coded& operator=(const Coded&) = delete;

    bufr_desc* at(int position) const { return bufr_datasubset_get_descriptor(subset, position); }
    /// The codes of the list, those of skipped ones negative.
    std::vector<int> list() const {
        std::vector<int> codes;
        for (const bufr_desc& desc : subset->list) {
            codes.push_back(desc.skipped ? -desc.descriptor : desc.descriptor);
        }
        return codes;
    }
    std::string message() const {
        _DBufr* encoded = bufr_encode_message(dataset, 0);
        std::string octets(encoded->length, '\0');
        const int written = bufr_memwrite_message(octets.data(), octets.size(), encoded);
        EXPECT_EQ(bufr_memwrite_message(octets.data(), octets.size() - 1, encoded), -1);
        bufr_free_message(encoded);
        EXPECT_EQ(written, static_cast<int>(octets.size()));
        return octets;
    }
    /// The data of Section 4 of an edition 4 message without Section 2.
    std::string data() const {
        const std::string octets = message();
        const auto section3 = static_cast<std::size_t>(static_cast<std::uint8_t>(octets[32]));
        const std::size_t begin = 30 + section3 + 4;
        return octets.substr(begin, octets.size() - 4 - begin);
    }

private:
    ShippedTables _shipped;
    BufrTemplate* _template;

public:
    BufrDataset* dataset = nullptr;
    BufrSubset* subset = nullptr;
    int finalized = 0;
};

/// The octets of a 16-bit temperature.
std::string temperature(double kelvin) {
    const Coded coded({12101});
    bufr_descriptor_set_dvalue(coded.at(0), kelvin);
    return coded.data();
}

std::string octets(std::initializer_list<int> values) {
    std::string text;
    for (const int value : values) {
        text += static_cast<char>(value);
    }
    return text;
}

} // namespace

TEST(Descriptors, AreIntegersOfSixDigitsAndSixteenBits) {
    EXPECT_EQ(bufr_fxy_to_descriptor(3, 9, 52), 309052);
    EXPECT_EQ(bufr_fxy_to_descriptor_i16(3, 9, 52), 0b11'001001'00110100);
    EXPECT_TRUE(bufr_is_descriptor(363255));
    for (const int invalid : {400000, 12256, 164000, -1}) {
        EXPECT_FALSE(bufr_is_descriptor(invalid)) << invalid;
    }
}

TEST(Values, AreScaledIntegersAboveTheReference) {
    EXPECT_EQ(temperature(0.0), octets({0, 0}));
    EXPECT_EQ(temperature(655.34), octets({0xFF, 0xFE}));
    EXPECT_EQ(temperature(273.156), octets({0x6A, 0xB4})); // 27316
    for (const double outside : {655.35, 1e300, -0.01, std::nan("")}) {
        EXPECT_EQ(temperature(outside), octets({0xFF, 0xFF})) << outside;
    }
    // Reference -1000, 17 bits: 1000 is 2000. Scale -1, 14 bits: 101325 Pa is 10133. Reference -8192, 15 bits.
    const Coded coded({10009, 7004, 4086});
    EXPECT_EQ(bufr_descriptor_set_dvalue(coded.at(0), 1000.0), 1);
    EXPECT_EQ(bufr_descriptor_set_dvalue(coded.at(1), 101325.0), 1);
    EXPECT_EQ(bufr_descriptor_set_ivalue(coded.at(2), -8193), -1);
    EXPECT_THAT(said, HasSubstr("Warning: The value -8193.000000 of descriptor 4086 is out of range "
                                "[-8192.000000,24574.000000]\n"));
    EXPECT_EQ(bufr_descriptor_set_ivalue(coded.at(2), -8192), 1);
    // 00000011111010000 10011110010101 000000000000000 00
    EXPECT_EQ(coded.data(), octets({0x03, 0xE8, 0x4F, 0x2A, 0x00, 0x00}));
    EXPECT_EQ(bufr_descriptor_set_svalue(coded.at(0), "text"), -1);
    EXPECT_EQ(bufr_descriptor_set_dvalue(nullptr, 1.0), -1);
}

TEST(Values, BelowTheRangeAreWarnedOf) {
    Coded coded({12101});
    coded.at(0)->value = -5.0; // past the check
    EXPECT_EQ(coded.data(), octets({0xFF, 0xFF}));
    EXPECT_THAT(said, HasSubstr("Warning: UNDERFLOW with element 12101 : value = -5.000000e+00, giving 65535"));
}

TEST(Values, UnsetAndMissingOnesHaveAllBitsSet) {
    const Coded coded({12101, 1006, 2003, 8002}); // 16 + 64 + 4 + 6 bits, 6 to fill up
    bufr_descriptor_set_dvalue(coded.at(0), bufr_missing_double());
    bufr_descriptor_set_ivalue(coded.at(2), kBufrMissingInt);
    EXPECT_EQ(coded.data(), std::string(11, '\xff') + octets({0xC0}));
    EXPECT_EQ(said, "");
}

TEST(Values, StringsArePaddedAndCut) {
    const Coded coded({1006, 1006, 1006, 1006});
    const char* const texts[] = {"AF100", "", "123456789",
                                 "\xc3\x84"
                                 "b"};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(bufr_descriptor_set_svalue(coded.at(i), texts[i]), 1);
    }
    EXPECT_EQ(coded.data(), "AF100           12345678??b     ");
    EXPECT_EQ(bufr_descriptor_set_dvalue(coded.at(0), 1.0), -1);
}

TEST(Message, HasItsSections) {
    const Coded coded({309053, 2191});
    coded.dataset->section1 = BufrSection1();
    coded.dataset->section1.year = 2021;
    coded.dataset->section1.month = 8;
    coded.dataset->section1.second = 300; // doesn't fit
    coded.dataset->section1.masterTable = 3;
    coded.dataset->flags = 0xFF;
    const std::string message = coded.message();
    // 309053 without rows: 64+8+4+7+4, 5+22+17, 51+34+17+4, the factors 16 and 8; 2191: 4. 265 bits, 34 octets.
    EXPECT_EQ(message.size(), 8U + 22 + 11 + 4 + 34 + 4);
    EXPECT_EQ(message.substr(0, 41),
              "BUFR" + octets({0, 0, 83, 4}) +
                  octets({0, 0, 22, 0, 0, 54, 0, 0, 0, 0, 0, 0, 0, 17, 0, 0x07, 0xE5, 8, 0, 0, 0, 255}) +
                  octets({0, 0, 11, 0, 0, 1, 0xC0, 0xC9, 0x35, 0x02, 0xBF}));
    EXPECT_EQ(message.substr(41, 4), octets({0, 0, 38, 0}));
    EXPECT_EQ(message.substr(79), "7777");
    EXPECT_THAT(said, HasSubstr("master table number 3"));
}

TEST(Message, OfAnOlderEditionHasEvenSections) {
    const Coded coded({12101, 2003}, 3);
    coded.dataset->section1.year = 2000;
    coded.dataset->section1.flags = 0x80;
    const std::string message = coded.message();
    EXPECT_EQ(message.size(), 8U + 18 + 4 + 12 + 8 + 4);
    EXPECT_EQ(message[7], 3);
    EXPECT_EQ(message[8 + 12], 100) << "year of the century";
    EXPECT_EQ(message.substr(26, 7), octets({0, 0, 4, 0, 0, 0, 12}));
    const Coded odd({12101}, 7);
    EXPECT_EQ(odd.message()[7], 4);
    EXPECT_THAT(said, HasSubstr("Warning: unsupported BUFR edition=7, default=4\n"));
}

TEST(Replication, ACountRepeatsTheGroup) {
    const Coded coded({103002, 301001, 101002, 2003, 2011});
    EXPECT_THAT(coded.list(), ElementsAre(-103002, -301001, 1001, 1002, -101002, 2003, 2003, -301001, 1001, 1002,
                                          -101002, 2003, 2003, 2011));
}

TEST(Replication, AFactorRepeatsItsGroupInProportionalTime) {
    const auto start = std::chrono::steady_clock::now();
    for (const int count : {0, 1, 3, 65535}) {
        const Coded coded({101000, 31002, 301001, 12101});
        ASSERT_THAT(coded.list(), ElementsAre(101000, 31002, -301001, 12101));
        EXPECT_EQ(bufr_descriptor_set_ivalue(coded.at(1), count), 1);
        ASSERT_EQ(bufr_expand_datasubset(coded.subset, 0), 1);
        const std::size_t group = count == 0 ? 1 : static_cast<std::size_t>(count) * 3;
        ASSERT_EQ(coded.subset->list.size(), 3 + group);
        EXPECT_EQ(coded.at(2)->skipped, true);
        if (count > 0) {
            EXPECT_EQ(coded.at(3 * count)->descriptor, 1001);
            EXPECT_EQ(coded.at(3 * count + 1)->descriptor, 1002);
        }
        EXPECT_EQ(bufr_descriptor_set_ivalue(coded.at(1), 5), -1) << "it is settled";
        EXPECT_EQ(bufr_expand_datasubset(coded.subset, 0), 1);
        EXPECT_EQ(coded.subset->list.size(), 3 + group) << "once only";
        const std::string data = coded.data();
        EXPECT_EQ(data.size(), (16 + static_cast<std::size_t>(count) * 17 + 16 + 7) / 8);
        EXPECT_EQ(data.substr(0, 2), octets({count >> 8, count & 0xFF}));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(timeLimit(5000)));
}

TEST(Replication, AFactorWithoutAValueIsZero) {
    const Coded coded({101000, 31001, 12101, 101000, 31000, 12101, 101000, 31001, 12101});
    EXPECT_EQ(bufr_descriptor_set_ivalue(coded.at(1), kBufrMissingInt), 1);
    EXPECT_EQ(bufr_descriptor_set_ivalue(coded.at(7), 255), 1) << "no bits are kept for missing";
    EXPECT_EQ(bufr_descriptor_set_ivalue(coded.at(7), 256), -1);
    EXPECT_EQ(bufr_expand_datasubset(coded.subset, 0), 1);
    EXPECT_THAT(coded.list(), ElementsAre(-101000, 31001, -12101, 101000, 31000, -12101, -101000, 31001, -12101));
    EXPECT_EQ(coded.data(), octets({0, 0, 0})); // 8 + 1 + 8 bits
}

TEST(Replication, NestsAndIsExpandedStepByStep) {
    const Coded coded({104000, 31001, 2003, 101000, 31001, 2011});
    bufr_descriptor_set_ivalue(coded.at(1), 2);
    ASSERT_EQ(bufr_expand_datasubset(coded.subset, 0), 1);
    ASSERT_THAT(coded.list(), ElementsAre(-104000, 31001, 2003, 101000, 31001, -2011, 2003, 101000, 31001, -2011));
    bufr_descriptor_set_ivalue(coded.at(8), 2);
    ASSERT_EQ(bufr_expand_datasubset(coded.subset, 0), 1);
    EXPECT_THAT(coded.list(),
                ElementsAre(-104000, 31001, 2003, 101000, 31001, -2011, 2003, -101000, 31001, 2011, 2011));
}

TEST(Template, SaysWhatIsWrongWithIt) {
    struct {
        std::vector<int> descriptors;
        const char* says;
    } const cases[] = {
        {{12256}, "Error: not a valid descriptor 12256\n"},
        {{12199}, "12199"}, // not in Table B
        {{309250}, "309250"},
        {{101000, 12101, 12101}, "Error: delayed replication not followed by class 31 code=12101\n"},
        {{101000}, "Error: delayed replication not followed by class 31 code=0\n"},
        {{103002, 12101, 12101}, "Error: Template definition contains error(s)\n"},
        {{102002, 301001, 101002, 2003, 2011}, "the group of replication 101002 is not whole"},
        {{201129, 12101}, "operator 201129 is not supported"},
        {{101000, 31001}, "not whole"},
        {{103255, 102255, 101255, 12101}, "Error: Template definition contains error(s)\n"}, // 16 million
    };
    for (const auto& c : cases) {
        const Coded coded(c.descriptors);
        EXPECT_EQ(coded.finalized, -1) << c.says;
        EXPECT_EQ(coded.dataset, nullptr);
        EXPECT_THAT(said, HasSubstr(c.says));
        EXPECT_THAT(said, HasSubstr("Warning: cannot create dataset, template not finalized\n"));
    }
    EXPECT_EQ(bufr_create_template(nullptr, 0, nullptr, 4), nullptr);
    EXPECT_EQ(bufr_datasubset_get_descriptor(nullptr, 0), nullptr);
    EXPECT_EQ(bufr_create_datasubset(nullptr), -1);
    EXPECT_EQ(bufr_encode_message(nullptr, 0), nullptr);
    EXPECT_EQ(bufr_memwrite_message(nullptr, 0, nullptr), -1);
}

TEST(Message, TooLongForItsLengthIsRefused) {
    // Nine strings of 32 octets, 65535 times, and the factor; 8 + 22 + 29 + 4 + 4 octets around them.
    const Coded coded({109000, 31002, 2, 2, 2, 2, 2, 2, 2, 2, 2});
    bufr_descriptor_set_ivalue(coded.at(1), 65535);
    ASSERT_EQ(bufr_expand_datasubset(coded.subset, 0), 1);
    _DBufr* message = bufr_encode_message(coded.dataset, 0);
    ASSERT_NE(message, nullptr);
    EXPECT_THAT(said, HasSubstr("Warning: BUFR message length is 18874149 octets. It exceeds the maximum allowed of "
                                "16777215 octets\n"));
    std::string octets(message->length, 'x');
    errno = 0;
    EXPECT_EQ(bufr_memwrite_message(octets.data(), octets.size(), message), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(octets[0], 'x') << "nothing is written";
    EXPECT_THAT(said, HasSubstr("Error: cannot create BUFR message with a length of 18874149 octet\n"));
    bufr_free_message(message);
}
