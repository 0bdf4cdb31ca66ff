#pragma once

#include <QStringList>

/// The serial devices that this machine has, such as "/dev/ttyUSB0", in order of name.
QStringList serialDevices();
