#include "Provenance.h"

#include "Sha256.h"
#include "Text.h"

#include <algorithm>
#include <filesystem>

namespace {

/// Without what would end a line or a quoted text of a product.
std::string onOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '"' || c == '\x7F'; },
        ' ');
    return text;
}

} // namespace

EditorControl::Attributes Provenance::attributes(const std::string& input) const {
    std::string given;
    for (const std::string& override : overrides) {
        given += (given.empty() ? "" : "; ") + override;
    }
    return {{"ProvenanceInputFile", onOneLine(std::filesystem::path(input).filename().string())},
            {"ProvenanceInputSHA256", sha256OfFile(input)},
            {"ProvenanceOverrides", given.empty() ? "none" : onOneLine(given)},
            {"ProvenanceSet", onOneLine(set)},
            {"ProvenanceVersion", version}};
}
