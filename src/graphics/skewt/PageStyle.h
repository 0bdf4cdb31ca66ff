#pragma once

#include <string>

namespace skewt {

/// The sizes that make a page of a given height readable, in pixels; adapters share them, so that their pictures agree.
class PageStyle {
public:
    /// \p fontSize is the least size of the labels that is asked for.
    PageStyle(int width, int height, double fontSize);

    /// The labels grow with the page, and never become smaller than what can be read.
    double labelSize() const { return _labelSize; }
    /// 18 and 15, less for a text that is too long for the page, and where the two lines would touch.
    double titleSize(const std::string& text) const;
    double subTitleSize(const std::string& text) const;

    /// The lines of the background and of the barbs.
    static constexpr double kLineWidth = 0.5;
    static constexpr double kDash = 4.0;
    static constexpr double kDashGap = 3.0;
    double traceWidth() const { return _traceWidth; }
    /// Points of a trace that lie closer than this in both directions can't be told apart, pixels.
    static constexpr double kSmallestStep = 0.25;

    /// The families of the type, the best first, as CSS has them.
    static constexpr const char* kFontFamilies = "Liberation Sans, Arial, Helvetica, sans-serif";
    /// The height of digits and capitals of that type, per size.
    static constexpr double kCapHeight = 0.72;
    /// The width of \p text in that type, in pixels: exact for numbers, an estimate from above for the rest.
    static double textWidth(const std::string& text, double size);

private:
    double fitted(const std::string& text, double size) const;

    double _width;
    double _height;
    double _labelSize;
    double _traceWidth;
};

} // namespace skewt
