#pragma once

#include "Geometry.h"
#include "SkewTAdapter.h"

#include <string>
#include <vector>

/// A page that keeps what is drawn on it, in order and as it came.
class RecordingAdapter : public skewt::SkewTAdapter {
public:
    struct DrawnLine {
        skewt::Line line;
        unsigned colour;
        skewt::LineType type;
    };
    struct DrawnText {
        std::string text;
        skewt::Point at;
        unsigned colour;
    };

    void init() override {
        ++inits;
        lines.clear();
        texts.clear();
        tdry.clear();
        dp.clear();
        symbols.clear();
        events.clear();
    }
    void draw_finished() override {
        ++finished;
        note("finished");
    }
    void addDp(double x, double y) override {
        dp.push_back({x, y});
        note("dp");
    }
    void addTdry(double x, double y) override {
        tdry.push_back({x, y});
        note("tdry");
    }
    void symbol(double x, double y, unsigned /*colour*/, skewt::SymType type) override {
        symbols.push_back({x, y});
        symbolType = type;
        note("symbol");
    }
    void Text(const std::string& text, double x, double y, unsigned colour) override {
        texts.push_back({text, {x, y}, colour});
    }
    void extents(double& x1, double& x2, double& y1, double& y2) override {
        x1 = box.left;
        x2 = box.right;
        y1 = box.bottom;
        y2 = box.top;
    }
    void line(double x1, double y1, double x2, double y2, unsigned colour, skewt::LineType type) override {
        lines.push_back({{{x1, y1}, {x2, y2}}, colour, type});
        note(colourName(colour));
    }
    void title(std::string text) override {
        titleText = text;
        note("title");
    }
    void subTitle(std::string text) override {
        subTitleText = text;
        note("subTitle");
    }
    void markPoints(bool /*on*/) override {}
    double aspectRatio() override { return aspect; }
    void maximize() override {}
    void unzoom() override {}
    void print() override { ++prints; }
    bool savePlot(std::string /*file*/, int /*w*/, int /*h*/, skewt::PlotFileType /*type*/) override { return false; }

    std::vector<std::string> textsOf(unsigned colour) const {
        std::vector<std::string> found;
        for (const DrawnText& text : texts) {
            if (text.colour == colour) {
                found.push_back(text.text);
            }
        }
        return found;
    }

    std::vector<DrawnLine> lines;
    std::vector<DrawnText> texts;
    std::vector<skewt::Point> tdry, dp, symbols;
    skewt::SymType symbolType{};
    std::vector<std::string> events; ///< without repetitions in a row
    std::string titleText, subTitleText;
    skewt::PageBox box{0.0, 1.0, 0.0, 1.0};
    double aspect = 0.7;
    int inits = 0;
    int finished = 0;
    int prints = 0;

private:
    void note(const std::string& event) {
        if (events.empty() || events.back() != event) {
            events.push_back(event);
        }
    }
};
