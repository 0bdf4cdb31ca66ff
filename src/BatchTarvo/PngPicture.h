#pragma once

#include <string>

/// Draws an SVG document as a PNG picture in the file \p path, through the program tarvo-skewt-png that stands beside
/// this one: the toolkit would make every start of the batch tool slow. False when it isn't there or can't do it.
bool drawAsPng(const std::string& svg, const std::string& path);
