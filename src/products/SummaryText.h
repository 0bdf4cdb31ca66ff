#pragma once

#include <ostream>
#include <string>

class EditorControl;

/// An item of the report without the tags that are meant for a window.
std::string plainItem(std::string item);

/// Writes the report of an analysis: each topic on a line of its own, and its items on the lines below.
void saveSummaryText(EditorControl& editor, std::ostream& stream);
