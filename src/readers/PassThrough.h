#pragma once

class ConfigSet;

/// For the reader of data that have been through quality control already: puts the item DoQC of \p config to
/// pass-through, in that set only: the item isn't bound to the store, so that nothing is left to save. False when it is
/// there already, so that there is nothing to tell the user.
bool forcePassThrough(ConfigSet& config);
