#pragma once

#include <QImage>
#include <QStringList>

/// The pictures of the program as a library that is linked statically sees them: resources that register only in
/// programs that link them directly would be missing here.
namespace PictureFiles {

QStringList toolbar();
QStringList flags();
QStringList letters();
/// Every name that the program may ask for.
QStringList all();

QImage load(const QString& name);

} // namespace PictureFiles
