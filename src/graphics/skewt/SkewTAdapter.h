#pragma once

#include <string>

namespace skewt {

enum class LineType { Solid = 0, Dashed = 1 };

/// The marks of an adapter: of a datum, and of the base of a wind barb.
enum class SymType { Datum = 0, Base = 1 };

enum class PlotFileType { Png = 0, Jpeg = 1 };

// The colours of the diagram, as the adapters know them.
constexpr unsigned kBlack = 0;
constexpr unsigned kRed = 1;
constexpr unsigned kGreen = 2;
constexpr unsigned kBlue = 3;
constexpr unsigned kGrey = 4;

/// What the diagram is drawn on. All coordinates are page coordinates: 0 to 1, from the lower left.
class SkewTAdapter {
public:
    virtual ~SkewTAdapter() = default;

    /// A new plot begins: the page is empty.
    virtual void init() = 0;
    /// The plot is complete: now it has to appear.
    virtual void draw_finished() = 0;

    /// The next point of the dew point trace, which is joined to the one before.
    virtual void addDp(double x, double y) = 0;
    /// The next point of the temperature trace, which is joined to the one before.
    virtual void addTdry(double x, double y) = 0;
    virtual void symbol(double x, double y, unsigned colour, SymType type) = 0;
    /// A text whose vertical middle is at \p y. A text that begins with "|l" begins at \p x, "|r" ends there, "|c" or
    /// none of these is centred; "|" alone is no text.
    virtual void Text(const std::string& text, double x, double y, unsigned colour) = 0;
    /// The part of the page that was chosen for zooming; the whole page without a choice.
    virtual void extents(double& x1, double& x2, double& y1, double& y2) = 0;
    virtual void line(double x1, double y1, double x2, double y2, unsigned colour, LineType type) = 0;
    virtual void title(std::string text) = 0;
    virtual void subTitle(std::string text) = 0;

    /// Whether each datum of the traces gets a mark.
    virtual void markPoints(bool on) = 0;
    /// Height over width of the page.
    virtual double aspectRatio() = 0;
    virtual void maximize() = 0;
    virtual void unzoom() = 0;
    virtual void print() = 0;
    /// Saves the plot as a picture of \p width by \p height pixels. False when the file can't be written.
    virtual bool savePlot(std::string file, int width, int height, PlotFileType type) = 0;

    /// The name of a colour, which SVG and Qt share; an unknown number is black.
    static const char* colourName(unsigned colour);
};

} // namespace skewt
