#pragma once

#include "Geometry.h"
#include "SkewTAdapter.h"

namespace skewt {

/// A rectangle of the page with a space of its own in it, the data space: x and y from 0 to 1, from its lower left.
/// The adapter is borrowed.
class Rect {
public:
    Rect(SkewTAdapter& adapter, const PageBox& page) : _adapter(adapter), _page(page) {}
    virtual ~Rect() = default;
    Rect(const Rect&) = delete;
    Rect& operator=(const Rect&) = delete;

    // All of these in data space.

    /// A text of the adapter, wherever it lies.
    virtual void Text(const std::string& text, double x, double y, unsigned colour);
    /// With \p clipped only the part inside, and nothing when there is none.
    virtual void drawLine(const Line& line, unsigned colour, LineType type, bool clipped);
    virtual void symbol(double x, double y, unsigned colour, SymType type);
    /// A point of a trace; one outside is dropped.
    virtual void addTdry(double x, double y);
    virtual void addDp(double x, double y);

    Point convertToPage(const Point& data) const;
    Point convertToData(const Point& page) const;

    /// Cuts a line in data space down to what lies inside. False when nothing does. Cohen and Sutherland's algorithm.
    bool clip(Line& line) const;

    /// Height over width of the rectangle as it is seen.
    double aspectRatio() const;
    const PageBox& page() const { return _page; }

protected:
    bool isInside(const Point& data) const;
    /// From here on firstP1() and lastP2() are those of the next lines.
    void forgetEnds();
    bool hasLine() const { return _hasFirstP1 && _hasLastP2; }
    /// Where the first of the clipped lines begins and the last ends, in data space; only while hasLine().
    const Point& firstP1() const { return _firstP1; }
    const Point& lastP2() const { return _lastP2; }

private:
    unsigned outCode(const Point& data) const;
    static bool accept(unsigned code1, unsigned code2) { return (code1 | code2) == 0; }
    static bool reject(unsigned code1, unsigned code2) { return (code1 & code2) != 0; }
    Point moveToEdge(const Line& line, unsigned code) const;

    SkewTAdapter& _adapter;
    PageBox _page;
    double _xMin = 0.0;
    double _xMax = 1.0;
    double _yMin = 0.0;
    double _yMax = 1.0;
    bool _hasFirstP1 = false;
    bool _hasLastP2 = false;
    Point _firstP1{};
    Point _lastP2{};
};

} // namespace skewt
