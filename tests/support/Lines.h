#pragma once

#include <utility>
#include <vector>

using Knots = std::vector<std::pair<double, double>>; // x and y, x ascending

/// y at \p x on the straight lines through the knots; the end values outside of them.
inline double onLines(const Knots& knots, double x) {
    if (x <= knots.front().first) {
        return knots.front().second;
    }
    for (std::size_t i = 0; i + 1 < knots.size(); ++i) {
        const auto& [x0, y0] = knots[i];
        const auto& [x1, y1] = knots[i + 1];
        if (x < x1) {
            return y0 + (y1 - y0) * ((x - x0) / (x1 - x0));
        }
    }
    return knots.back().second;
}
