#pragma once

#include <map>
#include <string>
#include <vector>

/// The report of one analysis: topics, sorted as byte strings, each with its item texts in order of arrival.
class Summary {
public:
    void addItem(const std::string& topic, const std::string& item);
    /// The item text, a blank, and \p n.
    void addItem(const std::string& topic, const std::string& item, int n);

    std::vector<std::string> topics() const;
    /// The items of \p topic; an unknown topic is made, with none.
    const std::vector<std::string>& items(const std::string& topic);

    void clear();

private:
    std::map<std::string, std::vector<std::string>> _topics;
};
