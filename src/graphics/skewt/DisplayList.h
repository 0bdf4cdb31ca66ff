#pragma once

#include "Geometry.h"
#include "SkewTAdapter.h"
#include "VectorPlus.h"

#include <string>
#include <vector>

namespace skewt {

struct Polyline {
    std::vector<Point> points;
    unsigned colour;
    LineType type;
};

enum class Alignment { Left, Centre, Right };

struct PageText {
    Point at;
    std::string text;
    unsigned colour;
    Alignment alignment;
};

struct Datum {
    Point at;
    unsigned colour;
    double size; ///< diameter of its mark, pixels
};

/// A drawing as an adapter keeps it: what the engine sent, in page coordinates, to be rendered at any size.
struct DisplayList {
    VectorPlus<Polyline> polylines;
    VectorPlus<Datum> tdry;
    VectorPlus<Datum> dp;
    VectorPlus<Datum> symbols;
    VectorPlus<PageText> texts;
    PageText title{};
    PageText subTitle{};

    void clear();
    void setDrawn();
    void resetDrawn();
    /// The traces and what lies over them have to be drawn again, the background not.
    void resetDrawnData();

    /// A line that goes on where the last one ended, and looks the same, becomes part of it.
    void addLine(const Line& line, unsigned colour, LineType type);
    /// Takes the alignment from the prefix of \p text: see SkewTAdapter::Text().
    void addText(const std::string& text, const Point& at, unsigned colour);
    void setTitle(const std::string& text);
    void setSubTitle(const std::string& text);
};

} // namespace skewt
