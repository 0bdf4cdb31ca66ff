#include "DisplayList.h"

namespace skewt {

namespace {

constexpr double kMiddle = 0.5;
constexpr double kTitleY = 0.96;
constexpr double kSubTitleY = 0.93;

Alignment alignmentOf(char letter) {
    return letter == 'l' ? Alignment::Left : letter == 'r' ? Alignment::Right : Alignment::Centre;
}

} // namespace

void DisplayList::clear() {
    polylines.reset();
    tdry.reset();
    dp.reset();
    symbols.reset();
    texts.reset();
    title = {};
    subTitle = {};
}

void DisplayList::setDrawn() {
    polylines.setDrawn();
    tdry.setDrawn();
    dp.setDrawn();
    symbols.setDrawn();
    texts.setDrawn();
}

void DisplayList::resetDrawn() {
    polylines.resetDrawn();
    resetDrawnData();
}

void DisplayList::resetDrawnData() {
    tdry.resetDrawn();
    dp.resetDrawn();
    symbols.resetDrawn();
    texts.resetDrawn();
}

void DisplayList::addLine(const Line& line, unsigned colour, LineType type) {
    const bool lastIsOpen = polylines.size() > polylines.drawn();
    if (lastIsOpen && polylines.back().points.back() == line.p1 && polylines.back().colour == colour &&
        polylines.back().type == type) {
        polylines.back().points.push_back(line.p2);
    } else {
        polylines.push_back({{line.p1, line.p2}, colour, type});
    }
}

void DisplayList::addText(const std::string& text, const Point& at, unsigned colour) {
    if (text.empty() || text == "|") {
        return;
    }
    const bool prefixed = text.front() == '|';
    texts.push_back(
        {at, prefixed ? text.substr(2) : text, colour, prefixed ? alignmentOf(text[1]) : Alignment::Centre});
}

void DisplayList::setTitle(const std::string& text) {
    title = {{kMiddle, kTitleY}, text, kBlue, Alignment::Centre};
}

void DisplayList::setSubTitle(const std::string& text) {
    subTitle = {{kMiddle, kSubTitleY}, text, kBlue, Alignment::Centre};
}

} // namespace skewt
