#include "BufrMessage.h"

#include "BufrLengths.h"
#include "BufrOutput.h"

#include <ctime>

namespace {

constexpr int kSection2Flag = 0x80;

std::size_t padded(std::size_t octets, int edition) {
    return edition < 4 ? octets + octets % 2 : octets;
}

} // namespace

void bufr_init_sect1(BufrSection1* section1) {
    *section1 = BufrSection1();
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    if (gmtime_r(&now, &utc) != nullptr) {
        section1->year = utc.tm_year + 1900;
        section1->month = utc.tm_mon + 1;
        section1->day = utc.tm_mday;
        section1->hour = utc.tm_hour;
        section1->minute = utc.tm_min;
        section1->second = utc.tm_sec;
    }
}

_DBufr* bufr_create_message(int edition) {
    auto* message = new _DBufr;
    message->edition = edition;
    if (edition < 2 || edition > 5) {
        bufr_printf("Warning: unsupported BUFR edition=%d, default=4\n", edition);
        message->edition = 4;
    }
    return message;
}

void bufr_free_message(_DBufr* message) {
    delete message;
}

void bufr_putbits(_DBufr* message, std::uint64_t value, int bits) {
    while (bits > 0) {
        if (message->freeBits == 0) {
            message->data.push_back(0);
            message->freeBits = 8;
        }
        const int taken = bits < message->freeBits ? bits : message->freeBits;
        const auto chunk = (value >> (bits - taken)) & ((1U << taken) - 1U);
        message->freeBits -= taken;
        message->data.back() = static_cast<std::uint8_t>(message->data.back() | chunk << message->freeBits);
        bits -= taken;
    }
    message->dataOctets = message->data.size();
}

void bufr_put_padstring(_DBufr* message, const std::string& text, int octets) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(octets); ++i) {
        bufr_putbits(message, static_cast<std::uint8_t>(i < text.size() ? text[i] : ' '), 8);
    }
}

std::size_t bufr_section1_length(const _DBufr& message) {
    return message.edition < 4 ? 18 : 22;
}

bool bufr_has_section2(const _DBufr& message) {
    return (message.section1.flags & kSection2Flag) != 0;
}

std::size_t bufr_section2_length(const _DBufr& message) {
    return bufr_has_section2(message) ? padded(4 + message.section2.size(), message.edition) : 0;
}

std::size_t bufr_section3_length(const _DBufr& message) {
    return padded(7 + 2 * message.descriptors.size(), message.edition);
}

std::size_t bufr_section4_length(const _DBufr& message) {
    return padded(4 + message.dataOctets, message.edition);
}

void bufr_end_message(_DBufr* message) {
    message->length = 8 + bufr_section1_length(*message) + bufr_section2_length(*message) +
                      bufr_section3_length(*message) + bufr_section4_length(*message) + 4;
    if (message->length > kLongestBufrMessage) {
        bufr_printf("Warning: BUFR message length is %u octets. ", static_cast<unsigned>(message->length));
        bufr_printf("It exceeds the maximum allowed of %d octets\n", static_cast<int>(kLongestBufrMessage));
    }
}
