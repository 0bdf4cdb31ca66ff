#pragma once

#include <ostream>
#include <string>

class ConfigSet;

/// Processes the file \p path and tells on \p out, in plain words, what each step of QC removed from it and why, and
/// what else QC found and changed. Returns why that can't be done; empty when it was.
std::string explain(const std::string& path, ConfigSet& config, std::ostream& out);
