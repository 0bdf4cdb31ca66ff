#include "BufrDataset.h"

#include "BufrExpansion.h"
#include "BufrOutput.h"

namespace {

constexpr std::size_t kMostSubsets = 65535;

double asNumber(const BufrValue& value) {
    struct Visitor {
        double operator()(std::monostate) const { return bufr_missing_double(); }
        double operator()(const std::string&) const { return bufr_missing_double(); }
        double operator()(std::int32_t v) const { return static_cast<double>(v); }
        double operator()(std::int64_t v) const { return static_cast<double>(v); }
        double operator()(float v) const { return static_cast<double>(v); }
        double operator()(double v) const { return v; }
    };
    return bufr_is_missing(value) ? bufr_missing_double() : std::visit(Visitor(), value);
}

void putDescriptor(_DBufr& message, const bufr_desc& desc) {
    const int bits = desc.bitsInData();
    if (bits == 0) {
        return;
    }
    if (desc.encoding.type == BufrType::String) {
        const auto* text = std::get_if<std::string>(&desc.value);
        bufr_put_padstring(&message, text != nullptr ? *text : std::string(static_cast<std::size_t>(bits / 8), '\xff'),
                           bits / 8);
        return;
    }
    const double value = desc.class31 && !desc.isSet() ? 0.0 : asNumber(desc.value);
    bufr_putbits(&message, static_cast<std::uint64_t>(bufr_cvt_dval_to_i64(desc.descriptor, desc.encoding, value)),
                 bits);
}

/// How many octets the values of all subsets take.
std::size_t dataOctets(const BufrDataset& dataset) {
    std::size_t bits = 0;
    for (const auto& subset : dataset.subsets) {
        for (const bufr_desc& desc : subset->list) {
            bits += static_cast<std::size_t>(desc.bitsInData());
        }
    }
    return (bits + 7) / 8;
}

} // namespace

BufrDataset* bufr_create_dataset(const BufrTemplate* bufrTemplate) {
    if (bufrTemplate == nullptr || !bufrTemplate->isFinalized) {
        bufr_print("Warning: cannot create dataset, template not finalized\n");
        return nullptr;
    }
    auto* dataset = new BufrDataset;
    dataset->bufrTemplate = *bufrTemplate;
    bufr_init_sect1(&dataset->section1);
    return dataset;
}

void bufr_free_dataset(BufrDataset* dataset) {
    delete dataset;
}

int bufr_create_datasubset(BufrDataset* dataset) {
    if (dataset == nullptr || dataset->subsets.size() >= kMostSubsets) {
        return -1;
    }
    const BufrTemplate& made = dataset->bufrTemplate;
    dataset->subsets.push_back(std::make_unique<BufrSubset>(BufrSubset{made.expanded, made.tables}));
    return static_cast<int>(dataset->subsets.size()) - 1;
}

BufrSubset* bufr_get_datasubset(BufrDataset* dataset, int index) {
    if (dataset == nullptr || index < 0 || static_cast<std::size_t>(index) >= dataset->subsets.size()) {
        return nullptr;
    }
    return dataset->subsets[static_cast<std::size_t>(index)].get();
}

bufr_desc* bufr_datasubset_get_descriptor(BufrSubset* subset, int position) {
    if (subset == nullptr || position < 0 || static_cast<std::size_t>(position) >= subset->list.size()) {
        return nullptr;
    }
    return &subset->list[static_cast<std::size_t>(position)];
}

int bufr_expand_datasubset(BufrSubset* subset, int /*flags*/) {
    return subset != nullptr && bufr_expand_sequence(subset->list, subset->tables, false) ? 1 : -1;
}

_DBufr* bufr_encode_message(const BufrDataset* dataset, int compress) {
    if (dataset == nullptr || compress != 0) {
        bufr_print("Error: cannot encode the message\n");
        return nullptr;
    }
    _DBufr* message = bufr_create_message(dataset->bufrTemplate.edition);
    message->section1 = dataset->section1;
    message->section3Flags = dataset->flags & 0xC0;
    message->subsets = static_cast<int>(dataset->subsets.size());
    for (const BufrDescValue& top : dataset->bufrTemplate.topLevel) {
        message->descriptors.push_back(top.descriptor);
    }
    const std::size_t octets = dataOctets(*dataset);
    if (octets > kLongestBufrMessage) {
        message->dataOctets = octets; // can't be written, so that nobody needs the data
    } else {
        message->data.reserve(octets);
        for (const auto& subset : dataset->subsets) {
            for (const bufr_desc& desc : subset->list) {
                putDescriptor(*message, desc);
            }
        }
    }
    bufr_end_message(message);
    return message;
}
