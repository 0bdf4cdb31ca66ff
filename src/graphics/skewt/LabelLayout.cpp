#include "LabelLayout.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace skewt {

namespace {

// Pixels around a text: beside it there is enough to keep two numbers apart.
constexpr double kMarginX = 2.0;
constexpr double kMarginY = 1.0;
// How far a text may move, in its heights and widths.
constexpr std::array<double, 7> kMovesDown{0.0, -0.5, 0.5, -1.0, 1.0, -1.5, 1.5};
constexpr std::array<double, 5> kMovesRight{0.0, -0.5, 0.5, -1.0, 1.0};

/// All moves of a text of the size \p width by \p height, the shortest first.
std::vector<Point> movesOf(double width, double height) {
    std::vector<Point> moves;
    for (const double right : kMovesRight) {
        for (const double down : kMovesDown) {
            moves.push_back({right * width, down * height});
        }
    }
    std::stable_sort(moves.begin(), moves.end(),
                     [](const Point& a, const Point& b) { return std::hypot(a.x, a.y) < std::hypot(b.x, b.y); });
    return moves;
}

bool overlap(const LabelLayout::Label& a, const LabelLayout::Label& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

LabelLayout::Label moved(LabelLayout::Label label, const Point& by) {
    label.anchor = {label.anchor.x + by.x, label.anchor.y + by.y};
    label.left += by.x;
    label.top += by.y;
    return label;
}

} // namespace

LabelLayout::LabelLayout(const std::vector<PageText>& texts, double width, double height, const PageStyle& style)
    : _pageWidth(width), _pageHeight(height) {
    _labels.reserve(texts.size());
    for (const PageText& text : texts) {
        const double size = style.labelSize();
        const double wide = PageStyle::textWidth(text.text, size);
        const double high = PageStyle::kCapHeight * size;
        const Point anchor{text.at.x * width, height - text.at.y * height};
        const double share = text.alignment == Alignment::Left ? 0.0 : text.alignment == Alignment::Right ? 1.0 : 0.5;
        place({true, anchor, anchor.x - share * wide - kMarginX, anchor.y - high / 2.0 - kMarginY,
               wide + 2.0 * kMarginX, high + 2.0 * kMarginY});
    }
}

bool LabelLayout::isFree(const Label& label) const {
    return std::none_of(_labels.begin(), _labels.end(),
                        [&label](const Label& other) { return other.visible && overlap(label, other); });
}

void LabelLayout::place(const Label& wanted) {
    if (isFree(wanted)) {
        _labels.push_back(wanted);
        return;
    }
    for (const Point& move : movesOf(wanted.width, wanted.height)) {
        const Label label = moved(wanted, move);
        const bool onPage = label.left >= 0.0 && label.left + label.width <= _pageWidth && label.top >= 0.0 &&
                            label.top + label.height <= _pageHeight;
        if (onPage && isFree(label)) {
            _labels.push_back(label);
            return;
        }
    }
    _labels.push_back(wanted);
    _labels.back().visible = false;
}

} // namespace skewt
