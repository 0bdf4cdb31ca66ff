#include "SerialPorts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/// The ports that a PC might have are listed whether they are there or not; the type of one that isn't is 0.
bool isThere(const QString& name) {
    QFile type("/sys/class/tty/" + name + "/type");
    return !type.open(QIODevice::ReadOnly) || type.readAll().trimmed() != "0";
}

} // namespace

QStringList serialDevices() {
    QStringList devices;
    for (const QFileInfo& entry : QDir("/sys/class/tty").entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString device = "/dev/" + entry.fileName();
        if (QFileInfo::exists(entry.filePath() + "/device") && isThere(entry.fileName()) && QFileInfo::exists(device)) {
            devices << device;
        }
    }
    return devices;
}
