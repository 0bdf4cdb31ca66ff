#include "DCapture.h"

#include <array>
#include <ctime>

bool DCapture::_enabled = false;
const DCapture::Stream DCapture::dcout{};

DCapture::DCapture() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 32> stamp{};
    std::strftime(stamp.data(), stamp.size(), "%Y-%m-%d-%H%M%S", &local);
    _fileName = std::string("TarvoDebug-") + stamp.data() + ".txt";
    open(_fileName, std::ios::out);
}

DCapture& DCapture::instance() {
    static DCapture capture;
    return capture;
}

void DCapture::Stream::width(int n) const {
    if (_enabled) {
        instance().std::ofstream::width(n);
    }
}

void DCapture::Stream::precision(int n) const {
    if (_enabled) {
        instance().std::ofstream::precision(n);
    }
}

void DCapture::Stream::flags(std::ios_base::fmtflags f) const {
    if (_enabled) {
        instance().std::ofstream::flags(f);
    }
}

void DCapture::Stream::fill(char c) const {
    if (_enabled) {
        instance().std::ofstream::fill(c);
    }
}
