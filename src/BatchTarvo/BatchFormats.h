#pragma once

#include "ProductColumns.h"

#include <optional>
#include <string>
#include <vector>

class ConfigSet;
class EditorControl;

/// The item that says where the BUFR tables are. It belongs to the run and to no configuration file.
inline constexpr const char* kBufrTablesItem = "BufrTables";

/// An analysed sounding, as the products of one run see it: the columns are made once for all of them. Nothing is
/// owned; the analysis doesn't change meanwhile.
class AnalysedSounding {
public:
    AnalysedSounding(EditorControl& analysis, const ConfigSet& configuration)
        : editor(analysis), config(configuration) {}

    const ProductColumns& rawColumns();
    const ProductColumns& qcColumns();

    EditorControl& editor;
    const ConfigSet& config;

private:
    std::optional<ProductColumns> _raw;
    std::optional<ProductColumns> _qc;
};

/// One product that the batch tool knows.
struct BatchFormat {
    const char* name;   ///< as in --formats
    const char* suffix; ///< follows the input's name cut at its last "."
    const char* item;   ///< the configuration item that asks for it by default; null when there is none
    enum Needs { Nothing, QcData, LevelSet, Message } needs; ///< what it is made of, and not every sounding has
    /// Writes the product whole or not at all.
    bool (*write)(AnalysedSounding& sounding, const std::string& path);

    /// Why this sounding can't have the product; empty when it can.
    std::string hindrance(const EditorControl& editor) const;
};

/// All of them, in the order in which they are listed and written.
const std::vector<BatchFormat>& batchFormats();

/// The format of that name, or null.
const BatchFormat* findBatchFormat(const std::string& name);
