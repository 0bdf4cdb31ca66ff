#pragma once

#include <QImage>
#include <QStringList>

/// The pictures of the program as a library that is linked statically sees them: resources that register only in
/// programs that link them directly would be missing here.
namespace PictureFiles {

QStringList named(const QString& folder, const QString& pattern = "*");
QStringList all();

QImage load(const QString& name);

} // namespace PictureFiles
