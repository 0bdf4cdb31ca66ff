#include "Rect.h"

namespace skewt {

namespace {

constexpr unsigned kAbove = 1;
constexpr unsigned kBelow = 2;
constexpr unsigned kRight = 4;
constexpr unsigned kLeft = 8;

} // namespace

void Rect::Text(const std::string& text, double x, double y, unsigned colour) {
    const Point at = convertToPage({x, y});
    _adapter.Text(text, at.x, at.y, colour);
}

void Rect::drawLine(const Line& line, unsigned colour, LineType type, bool clipped) {
    Line drawn = line;
    if (clipped) {
        if (!clip(drawn)) {
            return;
        }
        if (!_hasFirstP1) {
            _firstP1 = drawn.p1;
            _hasFirstP1 = true;
        }
        _lastP2 = drawn.p2;
        _hasLastP2 = true;
    }
    const Point p1 = convertToPage(drawn.p1);
    const Point p2 = convertToPage(drawn.p2);
    _adapter.line(p1.x, p1.y, p2.x, p2.y, colour, type);
}

void Rect::symbol(double x, double y, unsigned colour, SymType type) {
    const Point at = convertToPage({x, y});
    _adapter.symbol(at.x, at.y, colour, type);
}

void Rect::addTdry(double x, double y) {
    if (isInside({x, y})) {
        const Point at = convertToPage({x, y});
        _adapter.addTdry(at.x, at.y);
    }
}

void Rect::addDp(double x, double y) {
    if (isInside({x, y})) {
        const Point at = convertToPage({x, y});
        _adapter.addDp(at.x, at.y);
    }
}

Point Rect::convertToPage(const Point& data) const {
    return {_page.left + (data.x - _xMin) / (_xMax - _xMin) * (_page.right - _page.left),
            _page.bottom + (data.y - _yMin) / (_yMax - _yMin) * (_page.top - _page.bottom)};
}

Point Rect::convertToData(const Point& page) const {
    return {_xMin + (page.x - _page.left) / (_page.right - _page.left) * (_xMax - _xMin),
            _yMin + (page.y - _page.bottom) / (_page.top - _page.bottom) * (_yMax - _yMin)};
}

double Rect::aspectRatio() const {
    return _adapter.aspectRatio() * (_page.top - _page.bottom) / (_page.right - _page.left);
}

bool Rect::isInside(const Point& data) const {
    return data.x >= _xMin && data.x <= _xMax && data.y >= _yMin && data.y <= _yMax;
}

void Rect::forgetEnds() {
    _hasFirstP1 = false;
    _hasLastP2 = false;
}

bool Rect::clip(Line& line) const {
    unsigned code1 = outCode(line.p1);
    unsigned code2 = outCode(line.p2);
    while (!accept(code1, code2)) {
        if (reject(code1, code2)) {
            return false;
        }
        if (code1 != 0) {
            line.p1 = moveToEdge(line, code1);
            code1 = outCode(line.p1);
        } else {
            line.p2 = moveToEdge(line, code2);
            code2 = outCode(line.p2);
        }
    }
    return true;
}

unsigned Rect::outCode(const Point& data) const {
    return (data.y > _yMax ? kAbove : 0) | (data.y < _yMin ? kBelow : 0) | (data.x > _xMax ? kRight : 0) |
           (data.x < _xMin ? kLeft : 0);
}

/// Where \p line crosses one of the edges that its end with \p code lies beyond.
Point Rect::moveToEdge(const Line& line, unsigned code) const {
    const double dx = line.p2.x - line.p1.x;
    const double dy = line.p2.y - line.p1.y;
    if ((code & (kAbove | kBelow)) != 0) {
        const double y = (code & kAbove) != 0 ? _yMax : _yMin;
        return {line.p1.x + dx * (y - line.p1.y) / dy, y};
    }
    const double x = (code & kRight) != 0 ? _xMax : _xMin;
    return {x, line.p1.y + dy * (x - line.p1.x) / dx};
}

} // namespace skewt
