#pragma once

#include "BatchJob.h"

#include <string>
#include <vector>

/// The jobs for \p paths: files as they are, directories with their direct files in order of name (hidden ones left
/// out), and those below with \p recursive. What can't be a job is one with a refusal: a path that isn't there or is
/// no regular file, and an input whose product would overwrite that of an earlier input, or an input.
std::vector<BatchJob> planBatch(const std::vector<std::string>& paths, bool recursive,
                                const std::vector<const BatchFormat*>& formats, const std::string& outDir);
