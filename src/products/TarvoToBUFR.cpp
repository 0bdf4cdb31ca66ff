#include "TarvoToBUFR.h"

#include "AbrHeader.h"
#include "Levels.h"
#include "Missing.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <sstream>

namespace {

constexpr std::size_t kDirBufferSize = 500;
const char* const kDirVariable = "BUFR_TABLES=";

/// The entry of the environment that names the directory of the tables, once an object has put it there.
std::array<char, kDirBufferSize> dirBuffer{"BUFR_TABLES= ./"};

constexpr int kDropsondeSubCategory = 7;
constexpr std::array<int, 3> kUpsondeSubCategories{4, 5, 6}; // TEMP, TEMP SHIP, TEMP MOBIL
constexpr int kVerticalSoundings = 2;
constexpr int kMasterTableVersion = 25;
constexpr int kDefaultCentre = 60;

/// An integer that no field can hold for a number that no integer can.
int truncated(double number) {
    return number > -1e9 && number < 1e9 ? static_cast<int>(number) : -1;
}

} // namespace

TarvoToBUFR::TarvoToBUFR()
    : _tables(bufr_create_tables(), &bufr_free_tables), _template(nullptr, &bufr_free_template),
      _dataset(nullptr, &bufr_free_dataset), _launchLat(kMissing), _launchLon(kMissing) {
    if (std::getenv("BUFR_TABLES") == nullptr) {
        putenv(dirBuffer.data());
    }
    bufr_load_cmc_tables(_tables.get());
}

TarvoToBUFR::~TarvoToBUFR() = default;

void TarvoToBUFR::set_bufr_table_dir(const std::string& dir) {
    const std::string entry = kDirVariable + dir;
    if (entry.size() >= dirBuffer.size()) {
        std::cerr << "static void TarvoToBUFR::set_bufr_table_dir(std::string): BUFR_TABLES directory location string ("
                  << dir << ") is too long and cannot be used.\n";
        return;
    }
    std::memcpy(dirBuffer.data(), entry.c_str(), entry.size() + 1);
}

void TarvoToBUFR::fault(const std::string& text) {
    std::cerr << text << "\n";
    _faulty = true;
}

void TarvoToBUFR::create_template(const std::vector<int>& descriptors) {
    const std::string unable = "void TarvoToBUFR::create_template(std::vector<int>): Internal error, unable to ";
    _template.reset(bufr_create_template(nullptr, 0, _tables.get(), kBufrEdition));
    if (_template == nullptr) {
        return fault(unable + "create the BUFR template");
    }
    for (const int descriptor : descriptors) {
        BufrDescValue value;
        bufr_init_DescValue(&value);
        value.descriptor = descriptor;
        bufr_template_add_DescValue(_template.get(), &value, 1);
    }
    if (bufr_finalize_template(_template.get()) < 0) {
        _template.reset();
        return fault(unable + "finalize the BUFR template");
    }
    _dataset.reset(bufr_create_dataset(_template.get()));
    if (_dataset == nullptr) {
        return fault(unable + "create the BUFR dataset");
    }
    const int index = bufr_create_datasubset(_dataset.get());
    if (index < 0) {
        _dataset.reset();
        _template.reset();
        return fault(unable + "create the BUFR datasubset");
    }
    _subset = bufr_get_datasubset(_dataset.get(), index);
}

bool TarvoToBUFR::process(int n, const SndMetaData& metaData, const Attributes& attributes, const Levels* levels,
                          const double* time, const double* pres, const double* tdry, const double* rh,
                          const double* wspd, const double* wdir, const double* lat, const double* lon,
                          const double* alt) {
    if (_template == nullptr || _dataset == nullptr) {
        fault("void TarvoToBUFR::process(): Internal error, template and/or dataset are undefined, unable to process "
              "the BUFR");
        return false;
    }
    const auto copy = [n](const double* column) { return std::vector<double>(column, column + n); };
    _rows = BufrRows(copy(time),
                     {copy(pres), copy(tdry), copy(rh), copy(wspd), copy(wdir), copy(lat), copy(lon), copy(alt)});
    _metaData = metaData;
    _attributes = attributes;
    _levels = levels;
    settleLaunchPosition();
    _active = true;
    makeRows();
    codeDescriptors();
    _active = false;
    return !_faulty;
}

void TarvoToBUFR::settleLaunchPosition() {
    if (_metaData.launchLat.avail(false) && _metaData.launchLon.avail(false)) {
        _launchLat = _metaData.launchLat.value();
        _launchLon = _metaData.launchLon.value();
    } else if (!_metaData.ascending && _levels != nullptr) {
        _levels->highestPos(_launchLat, _launchLon);
    }
}

void TarvoToBUFR::makeRows() {
    std::string resample;
    const bool isResampled = findAttribute("ResampleBufr", resample) && resample.substr(0, 1) == "1";
    if (isResampled) {
        _rows.resample_data();
    }
    if (!_metaData.ascending) {
        _rows.flagLaunch();
    }
    if (_levels != nullptr) {
        _rows.merge_levels(*_levels, isResampled);
    }
    _rows.remove_missing();
}

void TarvoToBUFR::codeDescriptors() {
    int position = 0;
    for (int index = 0;; ++index) {
        bufr_desc* descriptor = bufr_datasubset_get_descriptor(_subset, position);
        if (descriptor == nullptr) {
            return;
        }
        position += process_descriptor(index, descriptor, position);
    }
}

int TarvoToBUFR::process_descriptor(int index, bufr_desc* descriptor, int position) {
    if (static_cast<std::size_t>(index) >= _actions.size()) {
        return 1;
    }
    const Action& action = _actions[static_cast<std::size_t>(index)];
    if (action.handler == nullptr) {
        return 1;
    }
    if (action.descriptor != descriptor->descriptor) {
        fault("TarvoToBUFR is expecting descriptor " + std::to_string(action.descriptor) +
              ", which doesn't match descriptor " + std::to_string(descriptor->descriptor) + " in the BUFR tables");
    }
    return (this->*action.handler)(descriptor, position);
}

bool TarvoToBUFR::findAttribute(const std::string& name, std::string& text) const {
    const auto found = _attributes.find(name);
    if (found == _attributes.end()) {
        return false;
    }
    text = found->second;
    return true;
}

bool TarvoToBUFR::findAttribute(const std::string& name, int& number) const {
    std::string text;
    if (!findAttribute(name, text)) {
        return false;
    }
    std::istringstream(text) >> number;
    return true;
}

bool TarvoToBUFR::save(std::ostream* stream) {
    if (_template == nullptr || _dataset == nullptr) {
        fault("void TarvoToBUFR::save(std::ostream*): Internal error, template and/or dataset are undefined, unable to "
              "process the BUFR");
        return false;
    }
    int addHeader = 0;
    if (findAttribute("BufrAddAbrHdr", addHeader) && addHeader != 0) {
        *stream << makeBufrHeader();
    }
    const std::unique_ptr<_DBufr, void (*)(_DBufr*)> message(bufr_encode_message(_dataset.get(), 0),
                                                             &bufr_free_message);
    if (message == nullptr) {
        return false;
    }
    set_section1(message.get());
    std::vector<char> buffer(message->length, 0);
    const int octets = bufr_memwrite_message(buffer.data(), buffer.size(), message.get());
    if (octets < 0) {
        return false;
    }
    stream->write(buffer.data(), octets);
    stream->flush();
    return stream->good();
}

std::string TarvoToBUFR::makeBufrHeader() const {
    std::string icao = "KWBC";
    std::string start = "IUDA01";
    findAttribute("BufrOrigCenterICAO", icao);
    findAttribute("BufrAbrHdr", start);
    return AbrHeader::build(icao, "", _metaData.day, _metaData.hour, _metaData.min, _metaData.launchLat.value(),
                            _metaData.launchLon.value(), start) +
           "\r\r\n";
}

void TarvoToBUFR::set_section1(_DBufr* message) const {
    BufrSection1& section1 = message->section1;
    std::string centre;
    section1.originCentre =
        findAttribute("BufrOrigCenter", centre) ? truncated(std::strtod(centre.c_str(), nullptr)) : kDefaultCentre;
    section1.dataCategory = kVerticalSoundings;
    section1.internationalSubCategory = internationalSubCategory();
    section1.masterTableVersion = kMasterTableVersion;
    section1.year = _metaData.year;
    section1.month = _metaData.month;
    section1.day = _metaData.day;
    section1.hour = _metaData.hour;
    section1.minute = _metaData.min;
    section1.second = _metaData.sec;
}

int TarvoToBUFR::internationalSubCategory() const {
    if (!_metaData.ascending) {
        return kDropsondeSubCategory;
    }
    std::string text;
    if (!findAttribute("TempMsgType", text)) {
        return 0;
    }
    const long type = std::strtol(text.c_str(), nullptr, 10);
    return type >= 0 && type < static_cast<long>(kUpsondeSubCategories.size())
               ? kUpsondeSubCategories[static_cast<std::size_t>(type)]
               : 0;
}
