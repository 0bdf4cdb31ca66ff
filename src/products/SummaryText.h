#pragma once

#include <ostream>

class EditorControl;

/// Writes the report of an analysis: each topic on a line of its own, and its items on the lines below.
void saveSummaryText(EditorControl& editor, std::ostream& stream);
