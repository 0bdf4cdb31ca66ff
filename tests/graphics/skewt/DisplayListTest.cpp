#include "DisplayList.h"
#include "LabelLayout.h"

#include <gtest/gtest.h>

using namespace skewt;

TEST(DisplayList, linesThatGoOnAreOne) {
    DisplayList list;
    list.addLine({{0.1, 0.1}, {0.2, 0.2}}, kRed, LineType::Solid);
    list.addLine({{0.2, 0.2}, {0.3, 0.1}}, kRed, LineType::Solid);
    list.addLine({{0.3, 0.1}, {0.4, 0.1}}, kBlue, LineType::Solid);
    list.addLine({{0.4, 0.1}, {0.5, 0.1}}, kBlue, LineType::Dashed);
    list.addLine({{0.6, 0.1}, {0.7, 0.1}}, kBlue, LineType::Dashed);
    ASSERT_EQ(list.polylines.size(), 4U);
    EXPECT_EQ(list.polylines[0].points.size(), 3U);
    EXPECT_EQ(list.polylines[1].points.size(), 2U);
}

TEST(DisplayList, whatIsDrawnIsClosed) {
    DisplayList list;
    list.addLine({{0.1, 0.1}, {0.2, 0.2}}, kRed, LineType::Solid);
    list.setDrawn();
    EXPECT_EQ(list.polylines.drawn(), 1U);
    list.addLine({{0.2, 0.2}, {0.3, 0.1}}, kRed, LineType::Solid);
    EXPECT_EQ(list.polylines.size(), 2U);
    list.resetDrawn();
    EXPECT_EQ(list.polylines.drawn(), 0U);
    list.setDrawn();
    list.clear();
    EXPECT_EQ(list.polylines.drawn(), 0U);
}

TEST(DisplayList, alignmentOfTexts) {
    DisplayList list;
    for (const char* text : {"|lleft", "|rright", "|ccentre", "plain", "|xodd", "|", "", "|r"}) {
        list.addText(text, {0.5, 0.5}, kBlack);
    }
    ASSERT_EQ(list.texts.size(), 6U);
    const Alignment expected[] = {Alignment::Left,   Alignment::Right,  Alignment::Centre,
                                  Alignment::Centre, Alignment::Centre, Alignment::Right};
    const char* words[] = {"left", "right", "centre", "plain", "odd", ""};
    for (std::size_t i = 0; i < list.texts.size(); ++i) {
        EXPECT_EQ(list.texts[i].alignment, expected[i]) << words[i];
        EXPECT_EQ(list.texts[i].text, words[i]);
    }
}

namespace {

std::vector<LabelLayout::Label> layoutOf(std::vector<PageText> texts) {
    return LabelLayout(texts, 1000.0, 700.0, PageStyle(1000, 700, 10.0)).labels();
}

} // namespace

TEST(LabelLayout, whatHasRoomStays) {
    const auto labels =
        layoutOf({{{0.1, 0.5}, "-40", kBlue, Alignment::Right}, {{0.1, 0.5}, "12", kRed, Alignment::Left}});
    EXPECT_DOUBLE_EQ(labels[0].anchor.x, 100.0);
    EXPECT_DOUBLE_EQ(labels[0].anchor.y, 350.0);
    // 10 pixels of size: two digits and a hyphen are 14.45 wide; two pixels are left beside them, one above.
    EXPECT_NEAR(labels[0].left, 100.0 - 14.45 - 2.0, 0.01);
    EXPECT_NEAR(labels[0].width, 18.45, 0.01);
    EXPECT_NEAR(labels[0].top, 350.0 - 3.6 - 1.0, 0.01);
    EXPECT_LT(std::abs(labels[1].anchor.x - 100.0) + std::abs(labels[1].anchor.y - 350.0), 12.0);
}

TEST(LabelLayout, noneCoversAnother) {
    std::vector<PageText> texts(8, {{0.5, 0.5}, "100", kBlack, Alignment::Centre});
    texts.resize(40, texts.front());
    const auto labels = layoutOf(texts);
    int visible = 0;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        visible += labels[i].visible;
        for (std::size_t k = 0; k < i; ++k) {
            const auto& a = labels[i];
            const auto& b = labels[k];
            EXPECT_FALSE(a.visible && b.visible && a.left < b.left + b.width && b.left < a.left + a.width &&
                         a.top < b.top + b.height && b.top < a.top + a.height)
                << i << " and " << k;
        }
    }
    EXPECT_GE(visible, 9) << "three rows of three";
    EXPECT_LT(visible, 20) << "what finds no place is hidden";
    EXPECT_TRUE(labels[0].visible);
    EXPECT_DOUBLE_EQ(labels[0].anchor.x, 500.0);
}

TEST(LabelLayout, nothingMovesOffThePage) {
    const auto labels = layoutOf(std::vector<PageText>(6, {{0.001, 0.999}, "100", kBlack, Alignment::Left}));
    for (std::size_t i = 1; i < labels.size(); ++i) {
        EXPECT_TRUE(!labels[i].visible || (labels[i].left >= 0.0 && labels[i].top >= 0.0)) << i;
    }
}

TEST(PageStyle, readableAtEverySize) {
    for (const auto& [height, asked, size] : {std::tuple(600, 4.0, 9.0), {1200, 4.0, 16.0}, {600, 14.0, 14.0}}) {
        EXPECT_DOUBLE_EQ(PageStyle(800, height, asked).labelSize(), size);
    }
    for (const int height : {100, 400, 700}) {
        const PageStyle style(800, height, 4.0);
        const double between = (0.96 - 0.93) * height; // the middles of the two
        EXPECT_LE(PageStyle::kCapHeight * (style.titleSize("T") + style.subTitleSize("S")) / 2.0, between) << height;
    }
    const std::string wide(200, 'x');
    EXPECT_NEAR(PageStyle::textWidth(wide, PageStyle(800, 600, 4.0).titleSize(wide)), 750.0, 50.0);
}
