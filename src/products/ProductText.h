#pragma once

#include "EditorControl.h"

#include <string>
#include <vector>

// What the headers of several products have in common.

/// The pairs that a product lists in full. A sounding that normal QC hasn't worked on names no configuration.
EditorControl::Attributes documentedAttributes(const EditorControl& editor);

/// The attribute of that key; empty without one.
std::string attributeText(const EditorControl::Attributes& attributes, const std::string& key);

/// "TDDryBiasCorrApplied" when the dry bias of the humidity sensor was corrected, else empty.
std::string dryBiasRemark(const EditorControl::Attributes& attributes);

/// The texts that aren't empty, with \p separator between them.
std::string joinTexts(const std::vector<std::string>& texts, const std::string& separator);

/// \p name, and ", " and \p detail when there is one.
std::string withDetail(const std::string& name, const std::string& detail);

/// "2021, 08, 01, 12:00:03"
std::string launchTimeText(const SndMetaData& metaData);

/// The text cut, or padded with blanks on the right, to \p width characters.
std::string fitWidth(const std::string& text, std::size_t width);

/// The RH (%) that a dew point is worked out from where there has to be one: at least 0.1 %, unless it is missing.
double atLeastMoist(double rh);
