#pragma once

#include <fstream>
#include <ios>
#include <string>

/// The diagnostics stream: what each QC algorithm did, in words and numbers, for the analyst.
///
/// Writers send to DCapture::dcout with no care for the flag: while capture is off nothing is formatted. The first
/// output after enable(true) opens "TarvoDebug-<local date and time>.txt" in the working directory; that one file
/// serves every sounding of the process. A file that can't be opened loses the output without a report.
class DCapture : public std::ofstream {
public:
    /// The handle that every writer uses.
    class Stream {
    public:
        template <typename T>
        const Stream& operator<<(const T& value) const {
            if (_enabled) {
                static_cast<std::ostream&>(instance()) << value;
            }
            return *this;
        }
        void width(int n) const;
        void precision(int n) const;
        void flags(std::ios_base::fmtflags f) const;
        void fill(char c) const;
    };

    static void enable(bool on) { _enabled = on; }
    static bool enabled() { return _enabled; }

    /// The single instance, made on first use.
    static DCapture& instance();

    const std::string& fileName() const { return _fileName; }

    static const Stream dcout;

private:
    DCapture();

    static bool _enabled;
    std::string _fileName;
};
