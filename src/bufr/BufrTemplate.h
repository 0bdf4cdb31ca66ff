#pragma once

#include "BufrDescriptor.h"
#include "BufrTables.h"

#include <vector>

constexpr int kBufrEdition = 4; ///< the one that is made by default

/// A top-level descriptor of a template, with the value that it has in every subset, if any.
struct BufrDescValue {
    int descriptor = 0;
    BufrValue value;
};

/// What the subsets of a dataset are made like.
struct BufrTemplate {
    std::vector<BufrDescValue> topLevel;
    int edition = kBufrEdition;
    const BufrTables* tables = nullptr;
    bool isFinalized = false;
    std::vector<bufr_desc> expanded; ///< once finalised
};

/// A new template with these top-level descriptors; \p descriptors may be null when \p count is 0. Null without tables.
/// Given back with bufr_free_template().
BufrTemplate* bufr_create_template(const BufrDescValue* descriptors, int count, const BufrTables* tables, int edition);
void bufr_free_template(BufrTemplate* bufrTemplate);

/// Empties \p value.
void bufr_init_DescValue(BufrDescValue* value);

/// Appends top-level descriptors; the template then has to be finalised (again).
void bufr_template_add_DescValue(BufrTemplate* bufrTemplate, const BufrDescValue* values, int count);

/// Expands and checks the template. 1, or -1 on error.
int bufr_finalize_template(BufrTemplate* bufrTemplate);
