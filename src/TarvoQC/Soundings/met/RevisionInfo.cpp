#include "RevisionInfo.h"

#include "RevisionFacts.h"
#include "Text.h"

RevisionInfo::RevisionInfo() {
    for (const auto& [key, value] : kRevisionFacts) {
        emplace(key, value);
    }
    emplace("TARVO_AEV", aev(text("REPO_REVISION")));
}

std::string RevisionInfo::text(const std::string& key) const {
    const auto found = find(key);
    return found == end() ? std::string() : found->second;
}

std::string RevisionInfo::aev(const std::string& revision) {
    const auto tokens = tokenize(revision, ".-");
    if (tokens.size() != 3) {
        return "/////";
    }
    const auto twoDigits = [](const std::string& token) { return token.size() < 2 ? "0" + token : token; };
    return tokens[0].substr(tokens[0].empty() ? 0 : 1) + twoDigits(tokens[1]) + twoDigits(tokens[2]);
}

std::string programText() {
    return "Tarvo " + RevisionInfo().text("REPO_REVISION");
}
