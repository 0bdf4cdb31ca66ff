#include "DataFileSave.h"

#include "LaunchParameter.h"
#include "Missing.h"
#include "Text.h"

#include <cmath>

DataFileSave::DataFileSave(std::string fileName) : _fileName(std::move(fileName)) {}

std::string DataFileSave::formatVal(const char* format, double v) const {
    return stringFormat(format, v);
}

std::string DataFileSave::formatVal(const char* format, int a, int b) const {
    return stringFormat(format, a == static_cast<int>(kMissing) ? b : a);
}

std::string DataFileSave::formatVal(const char* format, double a, double b) const {
    return stringFormat(format, a == kMissing ? b : a);
}

std::string DataFileSave::formatVal(const char* format, double a, double b, bool useFirst) const {
    return stringFormat(format, useFirst ? a : b);
}

std::string DataFileSave::formatLoc(double v) const {
    const double magnitude = std::abs(v);
    const double degrees = std::trunc(magnitude);
    return stringFormat("%.0f ", degrees) + stringFormat("%05.2f", (magnitude - degrees) * 60.0);
}

std::string DataFileSave::formatLaunch(const char* format, const LaunchParameter& launch,
                                       const std::string& missing) const {
    return launch.avail(false) ? formatVal(format, launch.value()) : missing;
}

std::string DataFileSave::formatLaunchLoc(const LaunchParameter& angle, const char* positive,
                                          const char* negative) const {
    return angle.avail(false) ? formatLoc(angle.value()) + (angle.value() < 0.0 ? negative : positive) : "-999";
}
