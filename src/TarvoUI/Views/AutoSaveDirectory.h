#pragma once

#include <QString>

class ConfigSet;
class QWidget;

/// The directory that products are saved to by themselves, with its "/" at the end. One that is gone is replaced by the
/// home directory, in the configuration too, and a box says so.
QString autoSaveDirectory(ConfigSet& configSet, QWidget* parent);
