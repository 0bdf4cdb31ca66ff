#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What the three octets of a length can hold.
constexpr std::size_t kLongestBufrMessage = 0xFFFFFF;

/// Section 1. A number that its field can't hold is written with all bits set.
struct BufrSection1 {
    int masterTable = 0; ///< any other number is written as 0, with a warning
    int originCentre = 54;
    int originSubCentre = 0;
    int updateSequence = 0;
    int flags = 0; ///< bit 1, the top one of eight: there is a Section 2
    int dataCategory = 0;
    int internationalSubCategory = 0;
    int localSubCategory = 0;
    int masterTableVersion = 17;
    int localTableVersion = 0;
    int year = 0; ///< four digits
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// The defaults, with the present UTC time.
void bufr_init_sect1(BufrSection1* section1);

/// A message. It is independent of the dataset that it was made of, and may be changed until it is written.
struct _DBufr { // NOLINT(bugprone-reserved-identifier)
    int edition = 4;
    std::size_t length = 0; ///< octets, once bufr_end_message() has run
    BufrSection1 section1;
    std::string section2; ///< written when the flag says so
    int subsets = 0;
    int section3Flags = 0;
    std::vector<int> descriptors;   ///< of Section 3
    std::vector<std::uint8_t> data; ///< of Section 4
    int freeBits = 0;               ///< of the last octet of the data
    std::size_t dataOctets = 0;
};

/// A new, empty message. An edition outside 2 to 5 gives 4, with a warning.
_DBufr* bufr_create_message(int edition);
void bufr_free_message(_DBufr* message);

/// Appends the low \p bits of \p value to the data, most significant first; 64 at most.
void bufr_putbits(_DBufr* message, std::uint64_t value, int bits);
/// Appends the characters, cut or padded with blanks to \p octets.
void bufr_put_padstring(_DBufr* message, const std::string& text, int octets);

/// Settles the lengths.
void bufr_end_message(_DBufr* message);

/// Takes \p size octets; negative when it can't.
using BufrWriteFunction = int (*)(void* context, std::size_t size, const char* octets);

/// Writes the message. 1, or negative: -1 with errno EINVAL, and nothing is written, for a message whose length the
/// format can't express.
int bufr_callback_write_message(BufrWriteFunction write, void* context, const _DBufr* message);
/// Writes into \p buffer of \p size octets. The number of octets, or negative; -1 also when they don't fit.
int bufr_memwrite_message(char* buffer, std::size_t size, const _DBufr* message);
