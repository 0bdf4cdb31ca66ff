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
    std::vector<std::string> products; ///< the paths written
    std::vector<std::string> qcResult; ///< what QC did, in a few lines for people; not part of the line itself
    std::string derived; ///< the second sounding that its reader made of the file; not part of the line itself
    std::string
        derivedFrom;    ///< the file that this one was made of, and the configuration set used for it in its place;
    std::string set;    ///< both empty, and not part of the line, for any other file
    bool failed = true; ///< invalid, or a product that was asked for is missing; not part of the line itself

    /// One JSON object on one line, without the line end. Bytes that aren't UTF-8 are replaced.
    std::string toJson() const;

    /// A report that failed before there was anything to tell but the reason.
    static FileReport failure(const std::string& file, const std::string& error);
};

/// The way of a report from a worker to the parent. False for a text that isn't a whole report.
std::string packReport(const FileReport& report);
bool unpackReport(const std::string& text, FileReport& report);
