#pragma once

#include <string>
#include <vector>

/// What became of one input file: a line of the report.
struct FileReport {
    std::string file;
    std::string type;    ///< the kind of sounding; empty when it couldn't be read
    bool valid = false;  ///< whether the file is a sounding
    std::string error;   ///< why the file failed, or what its reader warns of
    std::string qcError; ///< what QC found wrong
    double seconds = 0.0;
    std::vector<std::string> products;      ///< the paths written
    std::string version;                    ///< of the program, with its commit
    std::string set;                        ///< the configuration set in force
    std::vector<std::string> overrides;     ///< KEY=VALUE
    std::string sha256;                     ///< of the file; empty when it can't be read
    std::vector<std::string> productSha256; ///< of each of the products
    std::string derivedFrom; ///< the file that this one was made of; empty, and not part of the line, for any other
    bool failed = true;      ///< invalid, or a product that was asked for is missing

    // Not part of the line.
    std::vector<std::string> qcResult; ///< what QC did, in a few lines for people
    std::string derived;               ///< the second sounding that its reader made of the file
    bool skipped = false;              ///< done by an earlier run

    /// One JSON object on one line, without the line end. Bytes that aren't UTF-8 are replaced.
    std::string toJson() const;
    /// What toJson() made. False for a text that isn't a whole line of a report.
    static bool fromJson(const std::string& line, FileReport& report);

    /// A report that failed before there was anything to tell but the reason.
    static FileReport failure(const std::string& file, const std::string& error);
};

/// The way of a report from a worker to the parent. False for a text that isn't a whole report.
std::string packReport(const FileReport& report);
bool unpackReport(const std::string& text, FileReport& report);
