#include "Progress.h"

#include "Text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <unistd.h>

namespace {

constexpr std::size_t kBarWidth = 30;

/// The lines of \p text as one, without the blanks around each.
std::string onOneLine(const std::string& text) {
    std::string joined;
    for (const std::string& line : tokenize(text, "\n")) {
        joined += (joined.empty() || line.empty() ? "" : " ") + line;
    }
    return joined;
}

std::string clockText(double seconds) {
    const long whole = std::lround(seconds);
    char text[32];
    std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60, whole % 60);
    return text;
}

} // namespace

Progress::Progress(std::size_t total, bool quiet, bool onErrorStream)
    : _total(total), _quiet(quiet), _lines(onErrorStream ? stderr : stdout), _start(std::chrono::steady_clock::now()) {
    const bool reportOnTerminal = onErrorStream && isatty(STDOUT_FILENO) != 0; // its lines would run into the bar
    _bar = !quiet && !reportOnTerminal && isatty(STDERR_FILENO) != 0;
    _listsFiles = !quiet && (!_bar || isatty(fileno(_lines)) == 0);
    if (_bar) {
        drawBar();
    }
}

Progress::~Progress() {
    if (_bar) {
        clearBar();
    }
}

double Progress::elapsed() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - _start).count();
}

void Progress::clearBar() const {
    std::fputs("\r\033[K", stderr);
}

void Progress::drawBar() const {
    const std::size_t filled = _total == 0 ? kBarWidth : _done * kBarWidth / _total;
    const double seconds = std::max(elapsed(), 1e-3);
    const double rate = static_cast<double>(_done) / seconds;
    const std::string left = _done == 0 ? "-:--:--" : clockText(static_cast<double>(_total - _done) / rate);
    std::fprintf(stderr, "\r[%s%s] %zu/%zu  %.1f files/s  %s left", std::string(filled, '#').c_str(),
                 std::string(kBarWidth - filled, '.').c_str(), _done, _total, rate, left.c_str());
    std::fflush(stderr);
}

void Progress::fileDone(const FileReport& report) {
    ++_done;
    _failed += report.failed ? 1 : 0;
    _skipped += report.skipped ? 1 : 0;
    if (_bar) {
        clearBar();
    }
    if (report.failed) {
        std::fprintf(stderr, "%s: %s\n", report.file.c_str(), onOneLine(report.error).c_str());
    } else if (!_quiet && !report.skipped) {
        if (_listsFiles) {
            std::string products;
            for (const std::string& product : report.products) {
                products += " " + product;
            }
            std::fprintf(_lines, "%s: %s ->%s\n", report.file.c_str(), report.type.c_str(), products.c_str());
            if (!report.derivedFrom.empty()) {
                std::fprintf(_lines, "    the descent of %s, with the configuration set %s\n",
                             report.derivedFrom.c_str(), report.set.c_str());
            }
            for (const std::string& line : report.qcResult) {
                std::fprintf(_lines, "    %s\n", line.c_str());
            }
        }
        for (const std::string& text : {report.error, report.qcError}) {
            if (!text.empty()) {
                std::fprintf(_listsFiles ? _lines : stderr, "%s: warning: %s\n", report.file.c_str(),
                             onOneLine(text).c_str());
            }
        }
    }
    if (_bar) {
        drawBar();
    }
}

void Progress::finish() {
    if (_bar) {
        clearBar();
        _bar = false;
    }
    if (!_quiet) {
        const std::string earlier = _skipped == 0 ? "" : ", " + std::to_string(_skipped) + " of them by an earlier run";
        std::fprintf(_lines, "%zu of %zu files processed in %.1f s%s\n", _done - _failed, _total, elapsed(),
                     earlier.c_str());
    }
}
