#pragma once

#include <map>
#include <string>

/// The facts of this build, by key: REPO_REVISION (the version, such as "V3.4.8"), REPO_TAG (the same), TARVO_AEV, and
/// from a git checkout REPO_DATE, REPO_URL, REPO_COMMITS, REPO_HASH and REPO_BRANCH. A key that the build could not
/// answer is absent: ask with count() or find().
class RevisionInfo : public std::map<std::string, std::string> {
public:
    RevisionInfo();
    virtual ~RevisionInfo() = default;

    /// The value of \p key, or an empty text when it is absent.
    std::string text(const std::string& key) const;

    /// The five characters that follow "AEV" in a message, from a version text: "V3.4.8" is "30408". A text that isn't
    /// made of three tokens between "." and "-" gives "/////".
    static std::string aev(const std::string& revision);
};

/// How the program names itself in its products: "Tarvo V3.4.8".
std::string programText();
