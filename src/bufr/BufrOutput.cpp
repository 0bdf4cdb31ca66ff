#include "BufrOutput.h"

#include <array>
#include <cstdarg>
#include <cstdio>

namespace {

BufrTextHandler debugHandler = nullptr;
BufrTextHandler outputHandler = nullptr;

} // namespace

void bufr_set_debug_handler(BufrTextHandler handler) {
    debugHandler = handler;
}

void bufr_set_output_handler(BufrTextHandler handler) {
    outputHandler = handler;
}

void bufr_print(const std::string& text) {
    for (const BufrTextHandler handler : {debugHandler, outputHandler}) {
        if (handler != nullptr) {
            handler(text.c_str());
        }
    }
}

void bufr_printf(const char* format, ...) {
    if (debugHandler == nullptr && outputHandler == nullptr) {
        return;
    }
    std::array<char, 1024> text{};
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    bufr_print(text.data());
}
