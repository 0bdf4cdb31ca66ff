#include "SummaryText.h"

#include "EditorControl.h"

#include <string_view>

std::string plainItem(std::string item) {
    for (const std::string_view tag : {"<b>", "</b>", "<font color=\"red\">", "</font>"}) {
        for (std::size_t at = 0; (at = item.find(tag, at)) != std::string::npos;) {
            item.erase(at, tag.size());
        }
    }
    return item;
}

void saveSummaryText(EditorControl& editor, std::ostream& stream) {
    for (const std::string& topic : editor.summaryTopics()) {
        stream << topic << '\n';
        for (const std::string& item : editor.summaryItems(topic)) {
            stream << plainItem(item) << '\n';
        }
    }
}
