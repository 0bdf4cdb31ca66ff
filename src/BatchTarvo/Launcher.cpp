// The program tarvo-batch itself: tells its version and its options at once, and becomes tarvo-batch-engine for all
// else. The engine has some fifty libraries behind it, of the XML of the configuration and of netCDF, and loading these
// takes longer than telling a version to a script that asks for it.

#include "BatchOptions.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

bool asksForText(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        for (const char* flag : {"--version", "--help", "-h"}) {
            if (std::strcmp(argv[i], flag) == 0) {
                return true;
            }
        }
    }
    return false;
}

/// Beside this program where it was built, in libexec beside its folder where it is installed.
fs::path engine() {
    constexpr const char* kName = "tarvo-batch-engine";
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    const fs::path installed = folder.parent_path() / "libexec" / kName;
    return fs::exists(folder / kName, error) ? folder / kName : installed;
}

} // namespace

int main(int argc, char** argv) {
    if (asksForText(argc, argv)) {
        BatchOptions options;
        int status = kUsageError;
        if (!parseBatchOptions(argc, argv, options, status)) {
            return status;
        }
    }
    // A long sounding touches some ten thousand pages of the heap, and each costs a fault unless they are large ones.
    setenv("GLIBC_TUNABLES", "glibc.malloc.hugetlb=1", 0);
    const std::string program = engine().string();
    execv(program.c_str(), argv);
    std::cerr << "tarvo-batch: " << program << " can't be started: " << std::strerror(errno) << "\n";
    return kUsageError;
}
