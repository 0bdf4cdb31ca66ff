#pragma once

#include <string>

/// What stands at the foot of pages and pictures: program, version, and the time they were made, UTC.
std::string creditText();
