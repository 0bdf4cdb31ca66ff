#include "BufrDescriptor.h"

#include "BufrOutput.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int kPerF = 100000;
constexpr int kPerX = 1000;
constexpr char kLastIa5 = 126;

double timesPowerOfTen(double value, int exponent) {
    // A negative power of ten isn't exact in binary; dividing by its inverse is.
    return exponent >= 0 ? value * std::pow(10.0, exponent) : value / std::pow(10.0, -exponent);
}

std::int64_t allOnes(int bits) {
    return (std::int64_t{1} << bits) - 1;
}

struct Range {
    double least;
    double greatest;
};

Range rangeOf(const bufr_desc& desc) {
    const BufrEncoding& encoding = desc.encoding;
    const std::int64_t top = allOnes(encoding.bits) - (desc.class31 ? 0 : 1) + encoding.reference;
    return {timesPowerOfTen(static_cast<double>(encoding.reference), -encoding.scale),
            timesPowerOfTen(static_cast<double>(top), -encoding.scale)};
}

bool takesNumber(const bufr_desc* desc) {
    return desc != nullptr && bufr_is_table_b(desc->descriptor) && desc->encoding.type != BufrType::String &&
           !bufr_check_class31_set(*desc);
}

template <typename Number>
int setNumber(bufr_desc& desc, Number value, Number missing) {
    const auto number = static_cast<double>(value);
    const Range range = rangeOf(desc);
    if (value == missing || (number >= range.least && number <= range.greatest)) {
        desc.value = value;
        return 1;
    }
    desc.value = missing;
    bufr_printf("Warning: The value %f of descriptor %d is out of range [%f,%f]\n", number, desc.descriptor,
                range.least, range.greatest);
    return -1;
}

} // namespace

int bufr_fxy_to_descriptor(int f, int x, int y) {
    return f * kPerF + x * kPerX + y;
}

std::uint16_t bufr_fxy_to_descriptor_i16(int f, int x, int y) {
    return static_cast<std::uint16_t>((f & 3) << 14 | (x & 63) << 8 | (y & 255));
}

void bufr_descriptor_to_fxy(int descriptor, int& f, int& x, int& y) {
    f = descriptor / kPerF;
    x = descriptor / kPerX % (kPerF / kPerX);
    y = descriptor % kPerX;
}

bool bufr_is_descriptor(int descriptor) {
    int f = 0;
    int x = 0;
    int y = 0;
    bufr_descriptor_to_fxy(descriptor, f, x, y);
    return descriptor >= 0 && f <= 3 && x < 64 && y < 256;
}

bool bufr_is_table_b(int descriptor) {
    return descriptor / kPerF == 0;
}

bool bufr_is_replication(int descriptor) {
    return descriptor / kPerF == 1;
}

bool bufr_is_table_d(int descriptor) {
    return descriptor / kPerF == 3;
}

bool bufr_is_class31(int descriptor) {
    return descriptor >= 31000 && descriptor <= 31002;
}

double bufr_missing_double() {
    return std::numeric_limits<double>::max();
}

bool bufr_is_missing_double(double value) {
    return value == bufr_missing_double();
}

bool bufr_is_missing(const BufrValue& value) {
    struct Visitor {
        bool operator()(std::monostate) const { return false; }
        bool operator()(std::int32_t v) const { return v == kBufrMissingInt; }
        bool operator()(std::int64_t v) const { return v == kBufrMissingInt; }
        bool operator()(float v) const { return v == std::numeric_limits<float>::max(); }
        bool operator()(double v) const { return bufr_is_missing_double(v); }
        bool operator()(const std::string& v) const {
            return std::all_of(v.begin(), v.end(), [](char c) { return c == '\xff'; });
        }
    };
    return std::visit(Visitor(), value);
}

bool bufr_check_class31_set(const bufr_desc& desc) {
    return desc.class31 && desc.expanded;
}

int bufr_descriptor_set_dvalue(bufr_desc* desc, double value) {
    return takesNumber(desc) ? setNumber(*desc, value, bufr_missing_double()) : -1;
}

int bufr_descriptor_set_ivalue(bufr_desc* desc, int value) {
    return takesNumber(desc) ? setNumber<std::int32_t>(*desc, value, kBufrMissingInt) : -1;
}

int bufr_descriptor_set_svalue(bufr_desc* desc, const char* text) {
    if (desc == nullptr || !bufr_is_table_b(desc->descriptor) || desc->encoding.type != BufrType::String) {
        return -1;
    }
    const auto length = static_cast<std::size_t>(desc->encoding.bits / 8);
    std::string field = text != nullptr ? text : std::string(length, '\xff');
    if (text != nullptr) {
        field.resize(length, ' ');
        std::replace_if(
            field.begin(), field.end(), [](char c) { return c < 0 || c > kLastIa5; }, '?');
    }
    desc->value = field;
    return 1;
}

std::int64_t bufr_cvt_dval_to_i64(int descriptor, const BufrEncoding& encoding, double value) {
    const std::int64_t missing = allOnes(encoding.bits);
    const double scaled = std::round(timesPowerOfTen(value, encoding.scale)) - static_cast<double>(encoding.reference);
    if (bufr_is_missing_double(value) || !(scaled <= static_cast<double>(missing))) {
        return missing;
    }
    if (scaled < 0.0) {
        bufr_printf("Warning: UNDERFLOW with element %d : value = %e, giving %lld", descriptor, value,
                    static_cast<long long>(missing));
        return missing;
    }
    return static_cast<std::int64_t>(scaled);
}
