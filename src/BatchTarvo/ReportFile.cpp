#include "ReportFile.h"

#include "AtomicFile.h"
#include "BatchJob.h"
#include "Provenance.h"
#include "Sha256.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace fs = std::filesystem;

namespace {

bool mayBeReplaced(const std::string& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) {
        return true;
    }
    std::ifstream file(path);
    const int first = file.get();
    return first == std::ifstream::traits_type::eof() || first == '{';
}

/// Whether \p product is what the report says that it is, and was written after the input.
bool isWhole(const std::string& product, const std::string& sha256, fs::file_time_type inputTime) {
    std::error_code error;
    const auto time = fs::last_write_time(product, error);
    return !error && time >= inputTime && !sha256.empty() && sha256OfFile(product) == sha256;
}

std::string placeOf(const std::string& path) {
    std::error_code error;
    const fs::path place = fs::weakly_canonical(path, error);
    return error ? path : place.string();
}

} // namespace

bool ReportFile::open(const std::string& path, bool resume) {
    _path = path;
    _resume = resume;
    if (path.empty()) {
        return true;
    }
    if (path == "-") {
        _out = &std::cout;
        return true;
    }
    if (!mayBeReplaced(path)) {
        _error = "the report would replace a file that is no report: " + path;
        return false;
    }
    if (!resume || (readEarlier() && rewrite())) {
        _file.open(path, resume ? std::ios::app : std::ios::trunc);
    }
    if (!_file.is_open()) {
        _error = "the report can't be written: " + path;
        return false;
    }
    _out = &_file;
    return true;
}

bool ReportFile::readEarlier() {
    _order.clear();
    _earlier.clear();
    std::error_code error;
    if (!fs::exists(_path, error)) {
        return true;
    }
    std::ifstream file(_path);
    std::string line;
    while (std::getline(file, line)) {
        FileReport report;
        if (!FileReport::fromJson(line, report)) {
            continue; // the torn last line of a run that was killed
        }
        if (!report.derivedFrom.empty()) {
            _descent[report.derivedFrom] = report.file;
        }
        for (const std::string& product : report.products) {
            _products.insert(placeOf(product));
        }
        if (_earlier.count(report.file) == 0) {
            _order.push_back(report.file);
        }
        _earlier[report.file] = std::move(report);
    }
    return file.eof();
}

bool ReportFile::rewrite() {
    AtomicFile file(_path);
    if (!file.isOpen()) {
        return false;
    }
    for (const std::string& name : _order) {
        file.stream() << _earlier.at(name).toJson() << '\n';
    }
    return file.commit();
}

bool ReportFile::isDone(const BatchJob& job) const {
    const auto found = _earlier.find(job.input);
    if (found == _earlier.end() || job.provenance == nullptr) {
        return false;
    }
    const FileReport& earlier = found->second;
    if (earlier.failed || earlier.version != job.provenance->version || earlier.set != job.provenance->set ||
        earlier.overrides != job.provenance->overrides || earlier.productSha256.size() != earlier.products.size()) {
        return false;
    }
    std::error_code error;
    const auto inputTime = fs::last_write_time(job.input, error);
    if (error || earlier.sha256.empty() || sha256OfFile(job.input) != earlier.sha256) {
        return false;
    }
    return std::all_of(job.products.begin(), job.products.end(), [&](const BatchJob::Product& product) {
        const auto listed = std::find(earlier.products.begin(), earlier.products.end(), product.path);
        return listed != earlier.products.end() &&
               isWhole(product.path, earlier.productSha256[static_cast<std::size_t>(listed - earlier.products.begin())],
                       inputTime);
    });
}

std::string ReportFile::descentOf(const std::string& input) const {
    const auto found = _descent.find(input);
    return found == _descent.end() ? "" : found->second;
}

bool ReportFile::isProduct(const std::string& path) const {
    return _products.count(placeOf(path)) != 0;
}

void ReportFile::add(std::size_t index, const FileReport& report) {
    if (_out == nullptr) {
        return;
    }
    _waiting[index] = report.skipped ? "" : report.toJson();
    for (auto line = _waiting.find(_next); line != _waiting.end(); line = _waiting.find(_next)) {
        if (!line->second.empty()) {
            *_out << line->second << std::endl;
        }
        _waiting.erase(line);
        ++_next;
    }
}

bool ReportFile::close() {
    if (_out == nullptr) {
        return true;
    }
    for (const auto& [index, line] : _waiting) {
        if (!line.empty()) {
            *_out << line << std::endl;
        }
    }
    _waiting.clear();
    const bool whole = _out->good();
    if (_file.is_open()) {
        _file.close();
    }
    return whole && (!_resume || (readEarlier() && rewrite()));
}
