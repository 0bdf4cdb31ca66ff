#pragma once

/// The value of pi that all wind and position formulas here share. It is short on purpose: products of earlier years
/// were made with it, and reprocessing must give the same digits.
constexpr double kShortPi = 3.14159;
