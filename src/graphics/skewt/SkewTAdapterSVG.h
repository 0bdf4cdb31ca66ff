#pragma once

#include "DisplayList.h"
#include "LabelLayout.h"
#include "PageStyle.h"

#include <ostream>

namespace skewt {

class SkewT;

/// Writes one diagram as a standalone SVG document, when its plot is finished. The same plot gives the same bytes. The
/// stream is borrowed; whether all could be written is for its owner to ask of it.
class SkewTAdapterSVG : public SkewTAdapter {
public:
    /// \p width and \p height of the document in pixels. \p fontSize is the least size of the labels, in pixels; it is
    /// raised to what can be read.
    SkewTAdapterSVG(std::ostream& stream, int width, int height, int fontSize);

    /// A document asks nothing of its diagram.
    void setSkewT(SkewT* /*skewT*/) {}

    void init() override { _list.clear(); }
    void draw_finished() override { drawElements(); }
    void addDp(double x, double y) override;
    void addTdry(double x, double y) override;
    void symbol(double x, double y, unsigned colour, SymType type) override;
    void Text(const std::string& text, double x, double y, unsigned colour) override;
    /// The whole page.
    void extents(double& x1, double& x2, double& y1, double& y2) override;
    void line(double x1, double y1, double x2, double y2, unsigned colour, LineType type) override;
    void title(std::string text) override { _list.setTitle(text); }
    void subTitle(std::string text) override { _list.setSubTitle(text); }
    void markPoints(bool on) override { _marksPoints = on; }
    double aspectRatio() override { return static_cast<double>(_height) / _width; }

    // What a document has no use for.
    void maximize() override {}
    void unzoom() override {}
    void print() override {}
    bool savePlot(std::string /*file*/, int /*width*/, int /*height*/, PlotFileType /*type*/) override { return false; }

private:
    void drawElements();
    void begin();
    void path(const std::vector<Point>& points, unsigned colour, LineType type, double width);
    void trace(const VectorPlus<Datum>& data);
    std::vector<Point> distinctPoints(const VectorPlus<Datum>& data) const;
    void circles(const VectorPlus<Datum>& data);
    void title(const PageText& text, double size);
    void patch(const LabelLayout::Label& label);
    void text(const PageText& text, const Point& anchor, double size);
    void attribute(const char* before, double value);
    Point toPixels(const Point& page) const { return {page.x * _width, _height - page.y * _height}; }

    std::ostream& _stream;
    int _width;
    int _height;
    PageStyle _style;
    bool _marksPoints = true;
    DisplayList _list;
    std::string _document;
};

} // namespace skewt
