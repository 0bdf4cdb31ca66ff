#pragma once

#include "BufrDescriptor.h"

#include <string>
#include <vector>

/// An element: a row of Table B.
struct EntryTableB {
    int descriptor = 0;
    std::string description;
    std::string unit; ///< 11 characters at most
    BufrEncoding encoding;
};

/// A sequence: a row of Table D.
struct EntryTableD {
    int descriptor = 0;
    std::string description;
    std::vector<int> members;
};

/// The master tables, sorted by descriptor.
struct BufrTables {
    std::vector<EntryTableB> tableB;
    std::vector<EntryTableD> tableD;
    int version = 0; ///< 0 before Table B is loaded, or when it doesn't tell
    std::string dataCategory;
    std::string dataDescription;
};

/// New, empty tables; given back with bufr_free_tables(). They outlive the templates that are made with them.
BufrTables* bufr_create_tables();
void bufr_free_tables(BufrTables* tables);

/// Loads "table_b_bufr" and "table_d_bufr" from the directory that the environment names: that in AFSISIO +
/// "/datafiles/constants", or else BUFR_TABLES. Returns 1, 0 when a table failed to load, -1 when no directory is
/// named.
int bufr_load_cmc_tables(BufrTables* tables);

/// Loads one file in place of what the table held. Returns 1, or 0, and the table is empty, when the file can't be
/// read, has no entry, or has a sequence that contains itself. Lines that can't be used are left out.
int bufr_load_table_b(BufrTables* tables, const std::string& path);
int bufr_load_table_d(BufrTables* tables, const std::string& path);

/// The columns at which the fields of Table B begin, when \p line is a ruler: runs of one punctuation character ("=",
/// "-", "_" or "+") with blanks between them, one run above each field. Empty for any other line.
std::vector<std::size_t> bufr_parse_columns(const std::string& line);

/// The data type of a unit; false, and \p type is that of a quantity, for a unit that is blank.
bool bufr_unit_to_type(const std::string& unit, BufrType& type);

/// Whether a sequence of the table contains itself, by however many steps.
bool bufr_check_loop_tableD(const BufrTables& tables);

/// The row of a descriptor; null when there is none.
const EntryTableB* bufr_fetch_tableB(const BufrTables* tables, int descriptor);
const EntryTableD* bufr_fetch_tableD(const BufrTables* tables, int descriptor);
