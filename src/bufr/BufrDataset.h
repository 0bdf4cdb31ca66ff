#pragma once

#include "BufrMessage.h"
#include "BufrTemplate.h"

#include <memory>
#include <vector>

/// One set of values: a flat list of descriptors.
struct BufrSubset {
    std::vector<bufr_desc> list;
    const BufrTables* tables = nullptr;
};

/// Subsets made like one template, and what stands in Section 1 of their message.
struct BufrDataset {
    BufrTemplate bufrTemplate; ///< a copy
    BufrSection1 section1;
    std::vector<std::unique_ptr<BufrSubset>> subsets;
    int flags = 0; ///< the top two of its eight bits are the flags of Section 3
};

/// A new dataset, its Section 1 filled with the defaults and the present time; null for a template that isn't
/// finalised. Given back with bufr_free_dataset(). The tables of the template outlive it.
BufrDataset* bufr_create_dataset(const BufrTemplate* bufrTemplate);
void bufr_free_dataset(BufrDataset* dataset);

/// Appends a subset without values. Returns its index, or -1 when the dataset is full.
int bufr_create_datasubset(BufrDataset* dataset);
/// The subset, which stays the dataset's; null for an index that isn't one.
BufrSubset* bufr_get_datasubset(BufrDataset* dataset, int index);

/// The descriptor at a position, null past the end. It stays the subset's, and is good until the subset is expanded.
bufr_desc* bufr_datasubset_get_descriptor(BufrSubset* subset, int position);

/// Expands the delayed replications whose factors are now set. 1, or -1, and the subset is as it was, when that can't
/// be done. \p flags is 0.
int bufr_expand_datasubset(BufrSubset* subset, int flags);

/// A new message of the values of all subsets, given back with bufr_free_message(). Null when \p compress isn't 0:
/// there is no compression. A factor without a value is written as 0.
_DBufr* bufr_encode_message(const BufrDataset* dataset, int compress);
