#pragma once

#include <string>
#include <vector>

class EditorControl;

/// What the last QC run did, in a few lines for people: how much of the data it kept, how many samples each check
/// removed, and the surface pressure that it worked out.
std::vector<std::string> qcResultLines(EditorControl& editor);
