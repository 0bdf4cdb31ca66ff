#pragma once

#include <string>

class EditorControl;

/// The database of soundings that a batch run fills. Every process opens it for itself.
namespace BatchDatabase {

/// Makes it when it isn't there. Why it can't be used; empty when it can.
std::string prepare(const std::string& path);

/// Enters the sounding of \p editor, processed from the file \p input, with its levels, or neither of the two. Why that
/// failed; empty when it didn't.
std::string enter(const std::string& path, const std::string& input, const EditorControl& editor);

} // namespace BatchDatabase
