#include "PictureFiles.h"

#include <QDir>

namespace PictureFiles {

QStringList named(const QString& folder, const QString& pattern) {
    QStringList files;
    for (const QString& file : QDir(folder).entryList({pattern})) {
        files << folder + file;
    }
    return files;
}

QStringList all() {
    return named(":/tarvo_icons/") + named(":/Images/");
}

QImage load(const QString& name) {
    return QImage(name).convertToFormat(QImage::Format_ARGB32);
}

} // namespace PictureFiles
