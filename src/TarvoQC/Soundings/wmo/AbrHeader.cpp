#include "AbrHeader.h"

#include "GroupCoders.h"
#include "ProcessingTime.h"
#include "UtcTime.h"

namespace {

constexpr int kNumber = 0;
const char* const kUnknownStation = "UZxx13";

} // namespace

AbrHeader::AbrHeader(const Levels& levels, WMOpartType part) : WMOsection(levels, part, kNumber) {
    create(kUnknownStation, "", 0, 0, 0, 0.0, 0.0, "");
}

void AbrHeader::create(const std::string& icao, const std::string& bbb, int day, int hour, int minute, double lat,
                       double lon, const std::string& override) {
    _groups.clear();
    add(build(icao, bbb, day, hour, minute, lat, lon, override));
}

std::string AbrHeader::build(const std::string& icao, const std::string& bbb, int day, int hour, int minute, double lat,
                             double lon, const std::string& override) {
    std::int64_t prescribed = 0;
    const std::string time =
        prescribedProcessingTime(prescribed) ? utcText(prescribed, "%d%H%M") : YYGGgg(day, hour, minute);
    const std::string start = override.empty() ? "UZ" + region(lat, lon) + "13" : override;
    return start + " " + icao + " " + time + (bbb.empty() ? "" : " " + bbb);
}

std::string AbrHeader::YYGGgg(int day, int hour, int minute) {
    return WMOgroup::YYGGgg(day, hour, minute);
}

std::string AbrHeader::region(double lat, double lon) {
    return WMOgroup::GeoRegion(lat, lon);
}
