#pragma once

#include <string>
#include <utility>

/// A text at a point of a plot. One without a text isn't shown.
class Decoration {
public:
    Decoration() = default;
    Decoration(double x, double y, std::string label) : _x(x), _y(y), _label(std::move(label)) {}

    double x() const { return _x; }
    double y() const { return _y; }
    const std::string& label() const { return _label; }

private:
    double _x = 0.0;
    double _y = 0.0;
    std::string _label;
};
