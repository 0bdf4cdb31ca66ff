#include "SummaryText.h"

#include "EditorControl.h"

#include <string>

void saveSummaryText(EditorControl& editor, std::ostream& stream) {
    for (const std::string& topic : editor.summaryTopics()) {
        stream << topic << '\n';
        for (const std::string& item : editor.summaryItems(topic)) {
            stream << item << '\n';
        }
    }
}
