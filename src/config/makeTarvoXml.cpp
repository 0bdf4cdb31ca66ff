#include "ShippedConfiguration.h"

#include <iostream>
#include <string_view>

// Prints the shipped configuration, or its document type definition with --dtd.
int main(int argc, char** argv) {
    const bool dtd = argc == 2 && std::string_view(argv[1]) == "--dtd";
    if (argc > 1 && !dtd) {
        std::cerr << "usage: make-tarvo-xml [--dtd]\n";
        return 2;
    }
    if (dtd) {
        std::cout << tarvoDtd();
    } else {
        std::cout << shippedConfiguration();
    }
    return std::cout.flush() ? 0 : 1;
}
