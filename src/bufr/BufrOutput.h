#pragma once

#include <string>

// Where the codec says what went wrong. By default nowhere.

/// Takes a message text, which ends in a line feed unless another one goes on with its line.
using BufrTextHandler = void (*)(const char* text);

/// Who hears of warnings and errors; null for nobody. Both handlers hear everything.
void bufr_set_debug_handler(BufrTextHandler handler);
void bufr_set_output_handler(BufrTextHandler handler);

/// Says \p text to the handlers.
void bufr_print(const std::string& text);

/// The same through a printf-style format.
[[gnu::format(printf, 1, 2)]] void bufr_printf(const char* format, ...);
