#pragma once

class ConfigSet;

/// For the reader of data that have been through quality control already: puts the item DoQC of \p config to
/// pass-through, in that set only. False when it is there already, so that there is nothing to tell the user.
bool forcePassThrough(ConfigSet& config);
