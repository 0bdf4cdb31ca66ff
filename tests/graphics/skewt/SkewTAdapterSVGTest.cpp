#include "SkewTAdapterSVG.h"
#include "MadeDiagram.h"
#include "SvgText.h"
#include "TextEdits.h"

#include <gmock/gmock.h>

#include <clocale>
#include <sstream>

using namespace skewt;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::string svgOf(const MadeDiagram& diagram, int width = 1000, int height = 700, const char* title = "title") {
    std::ostringstream out;
    SkewTAdapterSVG adapter(out, width, height, 4);
    const auto skewT = diagram.on(adapter, title);
    adapter.setSkewT(skewT.get());
    skewT->brandNewPlot();
    return out.str();
}

/// One plot whose elements a test sends itself.
struct Page {
    std::string document() {
        adapter.draw_finished();
        return out.str();
    }
    std::ostringstream out;
    SkewTAdapterSVG adapter{out, 800, 600, 12};
};

} // namespace

TEST(SkewTAdapterSVG, beginsAsADocument) {
    const std::string svg = svgOf(MadeDiagram(10), 800, 600);
    EXPECT_THAT(svg, StartsWith("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n"
                                "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\"\n"));
    EXPECT_THAT(svg, HasSubstr("\"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\">\n<svg \nxmlns="
                               "\"http://www.w3.org/2000/svg\""));
    EXPECT_THAT(svg, HasSubstr(" version=\"1.0\" width=\"800\" height=\"600\">\n"));
    EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
}

TEST(SkewTAdapterSVG, elements) {
    Page page;
    page.adapter.line(0.25, 0.0, 0.5, 1.0, kGreen, LineType::Solid);
    page.adapter.line(0.5, 1.0, 0.75, 0.5, kGreen, LineType::Solid);
    page.adapter.line(0.0, 0.5, 1.0, 0.5, kGrey, LineType::Dashed);
    page.adapter.Text("|rright", 0.5, 0.25, kRed);
    page.adapter.Text("|ccentre", 0.5, 0.5, 7);
    page.adapter.Text("|lleft", 0.5, 0.75, kBlue);
    const std::string svg = page.document();
    EXPECT_THAT(svg, HasSubstr("<path d=\n\"M 200 600\nL 400 0\nL 600 300\" "
                               "stroke=\"green\" stroke-width=\"0.5\" fill=\"none\" />\n"));
    EXPECT_THAT(svg, HasSubstr("stroke-dasharray=\"4,3\" stroke=\"grey\" stroke-width=\"0.5\" fill=\"none\" />\n"));
    EXPECT_EQ(countOf(svg, "stroke-dasharray"), 1);
    // The base line is 0.36 of the size below the middle of the text.
    EXPECT_THAT(svg, HasSubstr("<text x=\"400\" y=\"454.32\" font-size=\"12\" text-anchor=\"end\" "
                               "fill=\"red\">right</text>\n"));
    EXPECT_THAT(svg, HasSubstr(" text-anchor=\"middle\" fill=\"black\">centre</text>\n"));
    EXPECT_THAT(svg, HasSubstr("font-size=\"12\" fill=\"blue\">left</text>\n"));
}

TEST(SkewTAdapterSVG, titles) {
    Page page;
    page.adapter.title("one");
    page.adapter.subTitle("two");
    const std::string svg = page.document();
    EXPECT_THAT(svg, HasSubstr("<text x=\"400\" y=\"30.48\" font-size=\"18\" text-anchor=\"middle\" "
                               "fill=\"blue\">one</text>\n")); // 600 - 0.96 * 600 + 0.36 * 18
    EXPECT_THAT(svg, HasSubstr("<text x=\"400\" y=\"47.4\" font-size=\"15\" text-anchor=\"middle\" "
                               "fill=\"blue\">two</text>\n"));
}

TEST(SkewTAdapterSVG, dataAreMarkedAndJoined) {
    Page page;
    page.adapter.addTdry(0.5, 0.5);
    page.adapter.addTdry(0.25, 0.75);
    page.adapter.addDp(0.125, 1.0);
    page.adapter.symbol(0.95, 0.1, kBlue, SymType::Base);
    const std::string svg = page.document();
    EXPECT_THAT(svg, HasSubstr("\"M 400 300\nL 200 150\" stroke=\"red\" stroke-width=\"1.5\" "));
    EXPECT_THAT(svg, HasSubstr("<circle cx=\"400\" cy=\"300\" r=\"0.38\" stroke=\"none\" fill=\"red\"/>\n"));
    EXPECT_THAT(svg, HasSubstr("<circle cx=\"100\" cy=\"0\" r=\"0.38\" stroke=\"none\" fill=\"blue\"/>\n"));
    EXPECT_THAT(svg, HasSubstr("<circle cx=\"760\" cy=\"540\" r=\"2\" stroke=\"none\" fill=\"blue\"/>\n"));
    EXPECT_EQ(countOf(svg, "<path"), 1) << "a single dew point is no line";
}

TEST(SkewTAdapterSVG, initForgetsEverything) {
    Page page;
    page.adapter.addTdry(0.5, 0.5);
    page.adapter.title("old");
    page.adapter.line(0.0, 0.0, 1.0, 1.0, kRed, LineType::Solid);
    page.adapter.init();
    const std::string svg = page.document();
    EXPECT_EQ(countOf(svg, "<circle"), 0);
    EXPECT_EQ(countOf(svg, "<path"), 0);
    EXPECT_EQ(countOf(svg, "old"), 0);
}

TEST(SkewTAdapterSVG, aWholeDiagram) {
    const std::string svg = svgOf(MadeDiagram(4));
    // 4 samples of temperature and dew point; of the 4 winds one is in the plot for each, all in their own segments.
    EXPECT_EQ(countOf(svg, "<circle"), 12);
    EXPECT_EQ(countOf(svg, "fill=\"red\">"), 10) << "labels of the isobars";
    EXPECT_EQ(countOf(svg, "stroke-width=\"1.75\""), 2) << "two traces";
    // The first sample: 1010 mb, 24 deg C. y is 0.016517, x 0.8 + y / 1.125.
    EXPECT_THAT(svg, HasSubstr("<circle cx=\"748.04\" cy=\"641.4\" r=\"0.44\" stroke=\"none\" fill=\"red\"/>"));
}

TEST(SkewTAdapterSVG, sameBytesInEveryLocale) {
    const std::string svg = svgOf(MadeDiagram(500));
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    const std::string again = svgOf(MadeDiagram(500));
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(svg, again);
    EXPECT_EQ(countOf(svg, "nan") + countOf(svg, "inf"), 0);
}

TEST(SkewTAdapterSVG, hostileTexts) {
    const std::string svg = svgOf(MadeDiagram(3), 800, 600, "a<b & \"c\">\x01 \xE9 \xC3\xA9");
    EXPECT_THAT(svg, HasSubstr(">a&lt;b &amp; \"c\"&gt;  \xEF\xBF\xBD \xC3\xA9</text>"));
}

TEST(SvgText, onlyWhatXmlAllows) {
    EXPECT_EQ(svgEscaped("\xC0\xAF"), "\xEF\xBF\xBD\xEF\xBF\xBD") << "a longer form than needed";
    EXPECT_EQ(svgEscaped("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD") << "half a surrogate";
    EXPECT_EQ(svgEscaped("x\xE2\x82"), "x\xEF\xBF\xBD\xEF\xBF\xBD") << "cut off";
    EXPECT_EQ(svgEscaped("\xE2\x82\xAC \xF0\x9F\x98\x80\t\n"), "\xE2\x82\xAC \xF0\x9F\x98\x80  ");
    EXPECT_EQ(svgEscaped("\xEF\xBF\xBF"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD") << "U+FFFF";
}

TEST(SvgText, numbersAsShortAsTheyAre) {
    const auto textOf = [](double value) {
        std::string out;
        appendNumber(out, value);
        return out;
    };
    EXPECT_EQ(textOf(500.0), "500");
    EXPECT_EQ(textOf(0.0), "0");
    EXPECT_EQ(textOf(-0.001), "0");
    EXPECT_EQ(textOf(-0.126), "-0.13");
    EXPECT_EQ(textOf(10.5), "10.5");
    EXPECT_EQ(textOf(9.999), "10");
    EXPECT_EQ(textOf(1e300).size(), 301U);
}
