#pragma once

#include "BufrMessage.h"

// The lengths of the sections of a message, octets. Editions below 4 have sections of an even length.

std::size_t bufr_section1_length(const _DBufr& message);
bool bufr_has_section2(const _DBufr& message);
std::size_t bufr_section2_length(const _DBufr& message);
std::size_t bufr_section3_length(const _DBufr& message);
std::size_t bufr_section4_length(const _DBufr& message);
