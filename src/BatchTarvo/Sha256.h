#pragma once

#include <string>

/// The SHA-256 (FIPS 180-4) of the file's bytes as 64 hexadecimal digits; empty when it can't be read.
std::string sha256OfFile(const std::string& path);
