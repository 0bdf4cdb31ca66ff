#include "FileReport.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;

Json fields(const FileReport& report) {
    return {{"file", report.file},        {"type", report.type},       {"valid", report.valid},
            {"error", report.error},      {"qcError", report.qcError}, {"seconds", report.seconds},
            {"products", report.products}};
}

} // namespace

std::string FileReport::toJson() const {
    Json json = fields(*this);
    if (!derivedFrom.empty()) {
        json["derivedFrom"] = derivedFrom;
        json["set"] = set;
    }
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

FileReport FileReport::failure(const std::string& file, const std::string& error) {
    FileReport report;
    report.file = file;
    report.error = error;
    return report;
}

std::string packReport(const FileReport& report) {
    Json json = fields(report);
    json["failed"] = report.failed;
    json["qcResult"] = report.qcResult;
    json["derived"] = report.derived;
    const std::vector<std::uint8_t> bytes = Json::to_cbor(json);
    return {bytes.begin(), bytes.end()};
}

bool unpackReport(const std::string& text, FileReport& report) {
    const Json json = Json::from_cbor(text.begin(), text.end(), true, false);
    if (!json.is_object()) {
        return false;
    }
    report.file = json.value("file", "");
    report.type = json.value("type", "");
    report.valid = json.value("valid", false);
    report.error = json.value("error", "");
    report.qcError = json.value("qcError", "");
    report.seconds = json.value("seconds", 0.0);
    report.products = json.value("products", std::vector<std::string>());
    report.failed = json.value("failed", true);
    report.derived = json.value("derived", "");
    report.qcResult = json.value("qcResult", std::vector<std::string>());
    return true;
}
