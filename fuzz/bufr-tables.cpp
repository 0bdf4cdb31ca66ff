// The files of Table B and Table D, and templates of what they hold.

#include "Require.h"
#include "bufr.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

/// A file in memory, of this process alone.
const std::string& tableFile() {
    static const std::string path = [] {
        std::string made = "/dev/shm/tarvo-fuzz-" + std::to_string(getpid());
        static std::string atEnd;
        atEnd = made;
        std::atexit([] { std::remove(atEnd.c_str()); });
        return made;
    }();
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ofstream(tableFile(), std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    BufrTables* tables = bufr_create_tables();
    bufr_load_table_b(tables, tableFile());
    bufr_load_table_d(tables, tableFile());
    require(!bufr_check_loop_tableD(*tables));
    constexpr std::size_t kMostTried = 20;
    for (std::size_t i = 0; i < tables->tableD.size() && i < kMostTried; ++i) {
        BufrDescValue top;
        bufr_init_DescValue(&top);
        top.descriptor = tables->tableD[i].descriptor;
        BufrTemplate* made = bufr_create_template(&top, 1, tables, kBufrEdition);
        require(made != nullptr);
        bufr_finalize_template(made);
        bufr_free_template(made);
    }
    bufr_free_tables(tables);
    return 0;
}
