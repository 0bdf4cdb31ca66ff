#include "Sha256.h"

#include <array>
#include <fstream>
#include <nettle/sha2.h>

std::string sha256OfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    sha256_ctx context;
    sha256_init(&context);
    std::array<char, 65536> block;
    while (file) {
        file.read(block.data(), block.size());
        sha256_update(&context, static_cast<std::size_t>(file.gcount()),
                      reinterpret_cast<const std::uint8_t*>(block.data()));
    }
    if (!file.eof()) {
        return {};
    }
    std::array<std::uint8_t, SHA256_DIGEST_SIZE> digest;
    sha256_digest(&context, digest.size(), digest.data());
    const char* const digits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : digest) {
        text += digits[byte >> 4];
        text += digits[byte & 0xF];
    }
    return text;
}
