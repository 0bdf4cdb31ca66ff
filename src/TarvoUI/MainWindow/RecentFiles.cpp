#include "RecentFiles.h"

#include "TarvoSettings.h"

#include <QFile>
#include <algorithm>

void RecentFiles::read() {
    _paths = TarvoSettings().value(TarvoSettings::kRecentFiles).toStringList();
}

void RecentFiles::write() const {
    TarvoSettings().setValue(TarvoSettings::kRecentFiles, _paths);
}

void RecentFiles::add(const QString& path) {
    _paths.removeAll(path);
    _paths.prepend(path);
    while (_paths.size() > kMost) {
        _paths.removeLast();
    }
}

void RecentFiles::dropMissing() {
    const auto isMissing = [](const QString& path) { return !QFile(path).open(QIODevice::ReadOnly); };
    _paths.erase(std::remove_if(_paths.begin(), _paths.end(), isMissing), _paths.end());
}
