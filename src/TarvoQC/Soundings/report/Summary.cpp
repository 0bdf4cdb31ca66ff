#include "Summary.h"

void Summary::addItem(const std::string& topic, const std::string& item) {
    _topics[topic].push_back(item);
}

void Summary::addItem(const std::string& topic, const std::string& item, int n) {
    addItem(topic, item + " " + std::to_string(n));
}

std::vector<std::string> Summary::topics() const {
    std::vector<std::string> names;
    names.reserve(_topics.size());
    for (const auto& [topic, items] : _topics) {
        names.push_back(topic);
    }
    return names;
}

const std::vector<std::string>& Summary::items(const std::string& topic) {
    return _topics[topic];
}

void Summary::clear() {
    _topics.clear();
}
