#include "Environment.h"

#include <cstdlib>
#include <ctime>
#include <fstream>

void setTimeZone(const std::string& text) {
    // putenv keeps the pointer, so the text has to outlive every later look at the environment.
    static std::string environmentEntry;
    environmentEntry = text;
    putenv(environmentEntry.data());
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
