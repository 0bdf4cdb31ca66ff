#pragma once

#include "DisplayList.h"
#include "PageStyle.h"

#include <vector>

namespace skewt {

/// Where the texts of a drawing stand on a page of given size, so that none covers another: a text whose place is taken
/// by an earlier one moves aside, by less than twice its height, and one that finds no place is hidden. In pixels, y
/// downward.
class LabelLayout {
public:
    struct Label {
        bool visible;
        Point anchor; ///< where the text begins, ends or has its middle, and its vertical middle
        double left, top, width, height;
    };

    LabelLayout(const std::vector<PageText>& texts, double width, double height, const PageStyle& style);

    /// One for each text, in their order.
    const std::vector<Label>& labels() const { return _labels; }

private:
    bool isFree(const Label& label) const;
    void place(const Label& wanted);

    double _pageWidth;
    double _pageHeight;
    std::vector<Label> _labels;
};

} // namespace skewt
