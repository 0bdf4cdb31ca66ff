#include "Environment.h"

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <malloc.h>

void setTimeZone(const std::string& text) {
    // setenv keeps a copy of its own: an entry stays good for the whole process, also when this is called again.
    const auto equals = text.find('=');
    if (equals != std::string::npos) {
        setenv(text.substr(0, equals).c_str(), text.substr(equals + 1).c_str(), 1);
    }
    tzset();
}

bool checkTarvoFile(std::string& fullPath, const std::string& fileName, const std::string& envVar) {
    const char* folder = std::getenv(envVar.empty() ? "TARVOCONFIG" : envVar.c_str());
    if (folder != nullptr) {
        fullPath = std::string(folder) + "/" + fileName;
        if (std::ifstream(fullPath)) {
            return true;
        }
    }
    fullPath = "./" + fileName;
    return static_cast<bool>(std::ifstream(fullPath));
}

void setBufrTables(const std::string& directory) {
    unsetenv("AFSISIO"); // would win
    setenv("BUFR_TABLES", directory.c_str(), 1);
}

void keepFreedMemory() {
    constexpr int kKept = 64 * 1024 * 1024;        // B
    constexpr int kFromTheHeap = 32 * 1024 * 1024; // B, the greatest block that the library allows for this
    mallopt(M_TRIM_THRESHOLD, kKept);
    mallopt(M_MMAP_THRESHOLD, kFromTheHeap);
}
