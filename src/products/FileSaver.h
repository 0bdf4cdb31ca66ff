#pragma once

#include <string>

class EditorControl;
class Levels;
class ProductColumns;
struct SndMetaData;

/// The one place that turns a file name and a filter into a product writer.
namespace FileSaver {

/// Writes the product whose extension stands in \p filterText (".csv", ...) to \p filePath, whole or not at all. False
/// when the file can't be written or no writer has the extension. \p levels may be null. \p bufrTableDir is where the
/// BUFR tables are, which BUFR alone needs.
bool saveFile(const std::string& revision, const std::string& filePath, const std::string& filterText,
              const SndMetaData& metaData, const EditorControl& editor, const ProductColumns& columns,
              const Levels* levels, const std::string& bufrTableDir = {});

} // namespace FileSaver
