#include "BufrTables.h"

#include "BufrOutput.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>

namespace {

struct UnitType {
    const char* beginning;
    BufrType type;
};

constexpr std::array<UnitType, 11> kUnitTypes{{
    {"NUMERI", BufrType::Numeric},
    {"FLAG TABLE", BufrType::FlagTable},
    {"TABLE FLAG", BufrType::FlagTable},
    {"TABLEFLAG", BufrType::FlagTable},
    {"MARQUEURS", BufrType::FlagTable},
    {"TABLE CODE", BufrType::CodeTable},
    {"TABLECODE", BufrType::CodeTable},
    {"CODE TABLE", BufrType::CodeTable},
    {"CODETABLE", BufrType::CodeTable},
    {"CCITT IA5", BufrType::String},
    {"CCITTIA5", BufrType::String},
}};

template <typename Entry>
const Entry* fetch(const std::vector<Entry>& table, int descriptor) {
    const auto found = std::lower_bound(table.begin(), table.end(), descriptor,
                                        [](const Entry& entry, int sought) { return entry.descriptor < sought; });
    return found != table.end() && found->descriptor == descriptor ? &*found : nullptr;
}

} // namespace

BufrTables* bufr_create_tables() {
    return new BufrTables;
}

void bufr_free_tables(BufrTables* tables) {
    delete tables;
}

int bufr_load_cmc_tables(BufrTables* tables) {
    std::string folder;
    if (const char* afsisio = std::getenv("AFSISIO")) {
        folder = std::string(afsisio) + "/datafiles/constants";
    } else if (const char* named = std::getenv("BUFR_TABLES")) {
        folder = named;
    } else {
        bufr_print("Warning: env.var. BUFR_TABLES not defined\n");
        return -1;
    }
    const int loadedB = bufr_load_table_b(tables, folder + "/table_b_bufr");
    const int loadedD = bufr_load_table_d(tables, folder + "/table_d_bufr");
    return loadedB == 1 && loadedD == 1 ? 1 : 0;
}

bool bufr_unit_to_type(const std::string& unit, BufrType& type) {
    for (const UnitType& row : kUnitTypes) {
        if (unit.rfind(row.beginning, 0) == 0) {
            type = row.type;
            return true;
        }
    }
    type = BufrType::NumericWithScale;
    return unit.find_first_not_of(' ') != std::string::npos;
}

bool bufr_check_loop_tableD(const BufrTables& tables) {
    // Takes away, over and over, the sequences all of whose members have been taken away. What stays contains itself.
    std::map<int, int> openMembers;
    std::map<int, std::vector<int>> containers;
    std::vector<int> ready;
    for (const EntryTableD& entry : tables.tableD) {
        int& open = openMembers[entry.descriptor];
        for (const int member : entry.members) {
            if (fetch(tables.tableD, member) != nullptr) {
                ++open;
                containers[member].push_back(entry.descriptor);
            }
        }
        if (open == 0) {
            ready.push_back(entry.descriptor);
        }
    }
    std::size_t taken = 0;
    for (; !ready.empty(); ++taken) {
        const int sequence = ready.back();
        ready.pop_back();
        for (const int container : containers[sequence]) {
            if (--openMembers[container] == 0) {
                ready.push_back(container);
            }
        }
    }
    return taken < tables.tableD.size();
}

const EntryTableB* bufr_fetch_tableB(const BufrTables* tables, int descriptor) {
    return fetch(tables->tableB, descriptor);
}

const EntryTableD* bufr_fetch_tableD(const BufrTables* tables, int descriptor) {
    return fetch(tables->tableD, descriptor);
}
