// Writing a message, section by section.

#include "BufrDescriptor.h"
#include "BufrLengths.h"
#include "BufrMessage.h"
#include "BufrOutput.h"

#include <cerrno>
#include <cstring>

namespace {

constexpr int kYearsOfCentury = 100;

class OctetWriter {
public:
    OctetWriter(BufrWriteFunction write, void* context) : _write(write), _context(context) {}

    void text(const std::string& octets) {
        if (_result >= 0) {
            _result = _write(_context, octets.size(), octets.data());
        }
    }
    /// A length, or another number that fits.
    void number(std::size_t value, int octets) {
        std::string bytes;
        for (int i = octets - 1; i >= 0; --i) {
            bytes += static_cast<char>(value >> (8 * i) & 0xFF);
        }
        text(bytes);
    }
    /// A field, all of whose bits are set when it can't hold the number.
    void field(int value, int octets) {
        const long long greatest = (1LL << (8 * octets)) - 1;
        number(static_cast<std::size_t>(value < 0 || value > greatest ? greatest : value), octets);
    }
    void octets(std::initializer_list<int> values) {
        for (const int value : values) {
            field(value, 1);
        }
    }
    void zeros(std::size_t count) { text(std::string(count, '\0')); }
    int result() const { return _result < 0 ? _result : 1; }

private:
    BufrWriteFunction _write;
    void* _context;
    int _result = 0;
};

void writeSection1(OctetWriter& out, const _DBufr& message) {
    const BufrSection1& s = message.section1;
    if (s.masterTable != 0) {
        bufr_printf("Warning: unsupported master table number %d, written as 0\n", s.masterTable);
    }
    out.number(bufr_section1_length(message), 3);
    out.field(0, 1);
    if (message.edition < 4) {
        out.octets({s.originSubCentre, s.originCentre, s.updateSequence, s.flags, s.dataCategory, s.localSubCategory,
                    s.masterTableVersion, s.localTableVersion, (s.year - 1) % kYearsOfCentury + 1, s.month, s.day,
                    s.hour, s.minute, 0});
        return;
    }
    out.field(s.originCentre, 2);
    out.field(s.originSubCentre, 2);
    out.octets({s.updateSequence, s.flags, s.dataCategory, s.internationalSubCategory, s.localSubCategory,
                s.masterTableVersion, s.localTableVersion});
    out.field(s.year, 2);
    out.octets({s.month, s.day, s.hour, s.minute, s.second});
}

void writeSection2(OctetWriter& out, const _DBufr& message) {
    if (bufr_has_section2(message)) {
        const std::size_t length = bufr_section2_length(message);
        out.number(length, 3);
        out.field(0, 1);
        out.text(message.section2);
        out.zeros(length - 4 - message.section2.size());
    }
}

void writeSection3(OctetWriter& out, const _DBufr& message) {
    const std::size_t length = bufr_section3_length(message);
    out.number(length, 3);
    out.field(0, 1);
    out.field(message.subsets, 2);
    out.field(message.section3Flags, 1);
    for (const int descriptor : message.descriptors) {
        int f = 0;
        int x = 0;
        int y = 0;
        bufr_descriptor_to_fxy(descriptor, f, x, y);
        out.number(bufr_fxy_to_descriptor_i16(f, x, y), 2);
    }
    out.zeros(length - 7 - 2 * message.descriptors.size());
}

void writeSection4(OctetWriter& out, const _DBufr& message) {
    const std::size_t length = bufr_section4_length(message);
    out.number(length, 3);
    out.field(0, 1);
    out.text(std::string(message.data.begin(), message.data.end()));
    out.zeros(length - 4 - message.data.size());
}

struct Buffer {
    char* octets;
    std::size_t size;
    std::size_t used;
};

int writeToBuffer(void* context, std::size_t size, const char* octets) {
    auto& buffer = *static_cast<Buffer*>(context);
    if (size > buffer.size - buffer.used) {
        return -1;
    }
    std::memcpy(buffer.octets + buffer.used, octets, size);
    buffer.used += size;
    return static_cast<int>(size);
}

} // namespace

int bufr_callback_write_message(BufrWriteFunction write, void* context, const _DBufr* message) {
    if (message == nullptr || message->length > kLongestBufrMessage) {
        bufr_printf("Error: cannot create BUFR message with a length of %d octet\n",
                    message == nullptr ? 0 : static_cast<int>(message->length));
        errno = EINVAL;
        return -1;
    }
    OctetWriter out(write, context);
    out.text("BUFR");
    out.number(message->length, 3);
    out.field(message->edition, 1);
    writeSection1(out, *message);
    writeSection2(out, *message);
    writeSection3(out, *message);
    writeSection4(out, *message);
    out.text("7777");
    return out.result();
}

int bufr_memwrite_message(char* buffer, std::size_t size, const _DBufr* message) {
    Buffer taken{buffer, size, 0};
    const int result = bufr_callback_write_message(&writeToBuffer, &taken, message);
    return result < 0 ? result : static_cast<int>(taken.used);
}
