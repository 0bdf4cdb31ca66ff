#pragma once

#include <cstdint>
#include <string>
#include <variant>

// Descriptors of BUFR (WMO FM 94), and one of them with its value. A descriptor is held as the decimal integer FXXYYY.

int bufr_fxy_to_descriptor(int f, int x, int y);
/// The 16 bits that stand in a message: F in the top 2, X in the next 6, Y in the low 8.
std::uint16_t bufr_fxy_to_descriptor_i16(int f, int x, int y);
void bufr_descriptor_to_fxy(int descriptor, int& f, int& x, int& y);
/// Whether F, X and Y fit in their bits.
bool bufr_is_descriptor(int descriptor);
/// An element of Table B.
bool bufr_is_table_b(int descriptor);
/// A replication; with Y = 0 its factor follows.
bool bufr_is_replication(int descriptor);
/// A sequence of Table D.
bool bufr_is_table_d(int descriptor);
/// Of class 31: a delayed replication factor.
bool bufr_is_class31(int descriptor);

enum class BufrType {
    Numeric,
    NumericWithScale, ///< a quantity with a unit
    CodeTable,
    FlagTable,
    String ///< of number of bits / 8 characters
};

/// How an element is written.
struct BufrEncoding {
    BufrType type = BufrType::Numeric;
    int scale = 0;
    std::int64_t reference = 0;
    int bits = 0;
};

/// std::monostate is a value that nobody has set.
using BufrValue = std::variant<std::monostate, std::int32_t, std::int64_t, float, double, std::string>;

/// The missing value: the largest double.
double bufr_missing_double();
bool bufr_is_missing_double(double value);
constexpr int kBufrMissingInt = -1;
/// Whether the value is set, and is the missing value of its type.
bool bufr_is_missing(const BufrValue& value);

/// One descriptor of a template or a subset.
struct bufr_desc {
    int descriptor = 0;
    BufrValue value;
    BufrEncoding encoding; ///< of an element
    bool class31 = false;  ///< a delayed replication factor
    bool expanded = false; ///< replaced by what follows it; of a factor: its group has been repeated
    bool skipped = false;  ///< only a marker, which puts nothing into Section 4

    bool isSet() const { return !std::holds_alternative<std::monostate>(value); }
    /// How many bits it puts into Section 4.
    int bitsInData() const { return skipped || !bufr_is_table_b(descriptor) ? 0 : encoding.bits; }
};

// Setting the value of an element. 1 on success. -1 for a descriptor that isn't an element of that kind and for a
// factor whose group has been repeated, which stay as they are, and for a number that the element can't hold, whose
// value becomes the missing one. A factor may have all its bits set; of other elements that is the missing value.

int bufr_descriptor_set_dvalue(bufr_desc* desc, double value);
int bufr_descriptor_set_ivalue(bufr_desc* desc, int value);
/// Stores at most as many characters as the field has, padded with blanks. Bytes that aren't IA5 become "?". Null is
/// the missing value.
int bufr_descriptor_set_svalue(bufr_desc* desc, const char* text);

/// Whether the factor can't be changed any more, since its group has been repeated.
bool bufr_check_class31_set(const bufr_desc& desc);

/// The integer of \p value as written: round(value * 10^scale) - reference. A number that isn't in the range, and the
/// missing value, give all bits set; one below it is warned of.
std::int64_t bufr_cvt_dval_to_i64(int descriptor, const BufrEncoding& encoding, double value);
