#include "FileReport.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;
using Texts = std::vector<std::string>;

Json fields(const FileReport& report) {
    return {{"file", report.file},
            {"type", report.type},
            {"valid", report.valid},
            {"failed", report.failed},
            {"error", report.error},
            {"qcError", report.qcError},
            {"seconds", report.seconds},
            {"products", report.products},
            {"version", report.version},
            {"set", report.set},
            {"overrides", report.overrides},
            {"sha256", report.sha256},
            {"productSha256", report.productSha256}};
}

/// False when a field has a value of another kind.
bool take(const Json& json, FileReport& report) {
    if (!json.is_object()) {
        return false;
    }
    try {
        report.file = json.value("file", "");
        report.type = json.value("type", "");
        report.valid = json.value("valid", false);
        report.failed = json.value("failed", true);
        report.error = json.value("error", "");
        report.qcError = json.value("qcError", "");
        report.seconds = json.value("seconds", 0.0);
        report.products = json.value("products", Texts());
        report.version = json.value("version", "");
        report.set = json.value("set", "");
        report.overrides = json.value("overrides", Texts());
        report.sha256 = json.value("sha256", "");
        report.productSha256 = json.value("productSha256", Texts());
        report.derivedFrom = json.value("derivedFrom", "");
    } catch (const Json::exception&) {
        return false;
    }
    return true;
}

} // namespace

std::string FileReport::toJson() const {
    Json json = fields(*this);
    if (!derivedFrom.empty()) {
        json["derivedFrom"] = derivedFrom;
    }
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

bool FileReport::fromJson(const std::string& line, FileReport& report) {
    report = {};
    return take(Json::parse(line, nullptr, false), report) && !report.file.empty();
}

FileReport FileReport::failure(const std::string& file, const std::string& error) {
    FileReport report;
    report.file = file;
    report.error = error;
    return report;
}

std::string packReport(const FileReport& report) {
    Json json = fields(report);
    json["qcResult"] = report.qcResult;
    json["derived"] = report.derived;
    const std::vector<std::uint8_t> bytes = Json::to_cbor(json);
    return {bytes.begin(), bytes.end()};
}

bool unpackReport(const std::string& text, FileReport& report) {
    const Json json = Json::from_cbor(text.begin(), text.end(), true, false);
    if (!take(json, report)) {
        return false;
    }
    report.derived = json.value("derived", "");
    report.qcResult = json.value("qcResult", Texts());
    return true;
}
