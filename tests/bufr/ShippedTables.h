#pragma once

#include "bufr.h"

#include <string>

/// The tables that come with the program.
struct ShippedTables {
    ShippedTables() {
        const std::string folder = TARVO_SOURCE_DIR "/resources/bufr";
        bufr_load_table_b(&tables, folder + "/table_b_bufr");
        bufr_load_table_d(&tables, folder + "/table_d_bufr");
    }
    BufrTables tables;
};

/// What the library has said to hear().
inline std::string said;

inline void hear(const char* text) {
    said += text;
}
