#include "BatchJob.h"

#include "BatchDatabase.h"
#include "EditorControl.h"
#include "Provenance.h"
#include "QcResult.h"
#include "RevisionInfo.h"
#include "Sha256.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>

namespace {

void addLine(std::string& text, const std::string& line) {
    if (!text.empty() && text.back() != '\n') {
        text += '\n';
    }
    text += line;
}

/// Takes note of the second sounding that the reader made of the file, if it did.
void takeDerived(const EditorControl& editor, FileReport& report) {
    const std::string derived = editor.derivedSndFile();
    std::error_code error;
    if (std::filesystem::exists(derived, error)) {
        report.derived = derived;
    } else if (!derived.empty()) {
        addLine(report.error, "The descent can't be written: " + derived);
    }
}

void process(const BatchJob& job, ConfigSet& config, const std::string& database, FileReport& report) {
    errno = 0;
    std::ifstream stream(job.input);
    if (!stream) {
        report.error = std::string("The file can't be opened: ") + std::strerror(errno);
        return;
    }
    EditorControl editor(config, programText());
    editor.getSounding(job.input, &stream);
    report.valid = editor.isValid();
    report.error = editor.getSndfileErrorMsg();
    if (!report.valid) {
        return;
    }
    editor.soundingType(report.type);
    editor.qcProcess();
    editor.qcError(report.qcError);
    if (editor.QCready()) {
        editor.doLevels();
        editor.doWMO();
        report.qcResult = qcResultLines(editor);
    }
    report.failed = false;
    takeDerived(editor, report);
    if (job.provenance != nullptr && job.provenance->inProducts) {
        editor.provenance(job.provenance->attributes(job.input));
    }
    AnalysedSounding sounding(editor, config);
    for (const BatchJob::Product& product : job.products) {
        const std::string hindrance = product.format->hindrance(editor);
        if (!hindrance.empty()) {
            addLine(report.error, hindrance);
            report.failed = true;
        } else if (product.format->write(sounding, product.path)) {
            report.products.push_back(product.path);
        } else {
            addLine(report.error, "The product can't be written: " + product.path);
            report.failed = true;
        }
    }
    if (!database.empty()) {
        const std::string failure = BatchDatabase::enter(database, job.input, editor);
        if (!failure.empty()) {
            addLine(report.error, failure);
            report.failed = true;
        }
    }
}

void tellHashes(FileReport& report) {
    report.sha256 = sha256OfFile(report.file);
    for (const std::string& product : report.products) {
        report.productSha256.push_back(sha256OfFile(product));
    }
}

} // namespace

FileReport runBatchJob(const BatchJob& job, ConfigSet& config, const std::string& database) {
    const auto start = std::chrono::steady_clock::now();
    FileReport report;
    report.file = job.input;
    try {
        process(job, config, database, report);
    } catch (const std::exception& failure) {
        addLine(report.error, failure.what());
        report.failed = true;
    }
    if (job.provenance != nullptr && job.provenance->withHashes) {
        tellHashes(report);
    }
    report.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return report;
}
