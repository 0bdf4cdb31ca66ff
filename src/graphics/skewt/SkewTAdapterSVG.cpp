#include "SkewTAdapterSVG.h"

#include "SvgText.h"

#include <algorithm>
#include <cmath>

namespace skewt {

namespace {

constexpr const char* kProlog = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n"
                                "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\"\n"
                                "  \"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">\n";
constexpr const char* kNamespace = "http://www.w3.org/2000/svg";
constexpr double kBaseSize = 4.0;  // diameter of the base of a barb
constexpr double kMarkShare = 0.5; // of the width of a trace: marks that lie in its line don't make it ragged

} // namespace

SkewTAdapterSVG::SkewTAdapterSVG(std::ostream& stream, int width, int height, int fontSize)
    : _stream(stream), _width(std::max(width, 1)), _height(std::max(height, 1)), _style(_width, _height, fontSize) {}

void SkewTAdapterSVG::addDp(double x, double y) {
    _list.dp.push_back({{x, y}, kBlue, kMarkShare * _style.traceWidth()});
}

void SkewTAdapterSVG::addTdry(double x, double y) {
    _list.tdry.push_back({{x, y}, kRed, kMarkShare * _style.traceWidth()});
}

void SkewTAdapterSVG::symbol(double x, double y, unsigned colour, SymType type) {
    _list.symbols.push_back({{x, y}, colour, type == SymType::Base ? kBaseSize : _style.traceWidth()});
}

void SkewTAdapterSVG::Text(const std::string& text, double x, double y, unsigned colour) {
    _list.addText(text, {x, y}, colour);
}

void SkewTAdapterSVG::extents(double& x1, double& x2, double& y1, double& y2) {
    x1 = y1 = 0.0;
    x2 = y2 = 1.0;
}

void SkewTAdapterSVG::line(double x1, double y1, double x2, double y2, unsigned colour, LineType type) {
    _list.addLine({{x1, y1}, {x2, y2}}, colour, type);
}

void SkewTAdapterSVG::drawElements() {
    begin();
    title(_list.title, _style.titleSize(_list.title.text));
    title(_list.subTitle, _style.subTitleSize(_list.subTitle.text));
    for (const Polyline& polyline : _list.polylines) {
        path(polyline.points, polyline.colour, polyline.type, PageStyle::kLineWidth);
    }
    const LabelLayout layout(_list.texts, _width, _height, _style);
    for (const LabelLayout::Label& label : layout.labels()) {
        patch(label);
    }
    trace(_list.tdry);
    trace(_list.dp);
    circles(_list.symbols);
    for (std::size_t i = 0; i < _list.texts.size(); ++i) {
        if (layout.labels()[i].visible) {
            text(_list.texts[i], layout.labels()[i].anchor, _style.labelSize());
        }
    }
    _document += "</g>\n</svg>\n";
    _stream << _document << std::flush;
    _document.clear();
}

void SkewTAdapterSVG::begin() {
    const std::string width = std::to_string(_width);
    const std::string height = std::to_string(_height);
    _document = kProlog;
    _document += std::string("<svg \nxmlns=\"") + kNamespace + "\" viewBox=\"0 0 " + width + " " + height +
                 "\" version=\"1.0\" width=\"" + width + "\" height=\"" + height + "\">\n";
    _document += "<rect width=\"" + width + "\" height=\"" + height + "\" fill=\"white\"/>\n";
    _document += std::string("<g font-family=\"") + PageStyle::kFontFamilies + "\" stroke-linejoin=\"round\">\n";
}

void SkewTAdapterSVG::path(const std::vector<Point>& points, unsigned colour, LineType type, double width) {
    const char* before = "<path d=\n\"M ";
    for (const Point& point : points) {
        const Point at = toPixels(point);
        attribute(before, at.x);
        attribute(" ", at.y);
        before = "\nL ";
    }
    _document += "\" ";
    if (type == LineType::Dashed) {
        attribute("stroke-dasharray=\"", PageStyle::kDash);
        attribute(",", PageStyle::kDashGap);
        _document += "\" ";
    }
    _document += std::string("stroke=\"") + colourName(colour);
    attribute("\" stroke-width=\"", width);
    _document += "\" fill=\"none\" />\n";
}

/// The data joined into a line, and their marks.
void SkewTAdapterSVG::trace(const VectorPlus<Datum>& data) {
    if (data.size() > 1) {
        path(distinctPoints(data), data.front().colour, LineType::Solid, _style.traceWidth());
    }
    if (_marksPoints) {
        circles(data);
    }
}

/// The first, the last, and those between that can be told apart.
std::vector<Point> SkewTAdapterSVG::distinctPoints(const VectorPlus<Datum>& data) const {
    const auto isNear = [this](const Point& a, const Point& b) {
        return std::abs(a.x - b.x) * _width < PageStyle::kSmallestStep &&
               std::abs(a.y - b.y) * _height < PageStyle::kSmallestStep;
    };
    std::vector<Point> points;
    for (std::size_t i = 0; i < data.size(); ++i) {
        if (points.empty() || i + 1 == data.size() || !isNear(data[i].at, points.back())) {
            points.push_back(data[i].at);
        }
    }
    return points;
}

void SkewTAdapterSVG::circles(const VectorPlus<Datum>& data) {
    for (const Datum& datum : data) {
        const Point at = toPixels(datum.at);
        attribute("<circle cx=\"", at.x);
        attribute("\" cy=\"", at.y);
        attribute("\" r=\"", datum.size / 2.0);
        _document += std::string("\" stroke=\"none\" fill=\"") + colourName(datum.colour) + "\"/>\n";
    }
}

void SkewTAdapterSVG::title(const PageText& title, double size) {
    text(title, toPixels(title.at), size);
}

/// White under a label, so that no line of the background runs through it.
void SkewTAdapterSVG::patch(const LabelLayout::Label& label) {
    if (label.visible) {
        attribute("<rect x=\"", label.left);
        attribute("\" y=\"", label.top);
        attribute("\" width=\"", label.width);
        attribute("\" height=\"", label.height);
        _document += "\" fill=\"white\"/>\n";
    }
}

void SkewTAdapterSVG::text(const PageText& text, const Point& anchor, double size) {
    attribute("<text x=\"", anchor.x);
    attribute("\" y=\"", anchor.y + size * PageStyle::kCapHeight / 2.0);
    attribute("\" font-size=\"", size);
    _document += '"';
    if (text.alignment != Alignment::Left) {
        _document += text.alignment == Alignment::Right ? " text-anchor=\"end\"" : " text-anchor=\"middle\"";
    }
    _document += std::string(" fill=\"") + colourName(text.colour) + "\">" + svgEscaped(text.text) + "</text>\n";
}

void SkewTAdapterSVG::attribute(const char* before, double value) {
    _document += before;
    appendNumber(_document, value);
}

} // namespace skewt
