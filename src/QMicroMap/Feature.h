#pragma once

#include <string>
#include <vector>

/// A table of the geographic database and how the map draws it. Colours are names that QColor knows.
struct Feature {
    enum Kind { Polygon, Line, Point };

    Kind kind;
    std::string table;
    std::string geometryColumn;
    std::string color; ///< of lines
    std::string fill;  ///< of polygons and points; empty for none
    std::string label; ///< the column with the names of points; empty for none
};

/// What the map draws, in drawing order.
const std::vector<Feature>& mapFeatures();
