#pragma once

#include <string>

// What the process environment decides. For the main thread.

/// Puts \p text (such as "TZ=GMT0") into the process environment and makes the time functions take it up. A text
/// without "=" changes nothing.
void setTimeZone(const std::string& text);

/// Looks for a file of the configuration: \p fileName in the folder named by the environment variable \p envVar (or
/// TARVOCONFIG when that is empty), then in the working directory. True when it can be opened for reading there;
/// \p fullPath is the last place looked at either way.
bool checkTarvoFile(std::string& fullPath, const std::string& fileName, const std::string& envVar);

/// Makes \p directory the one that the BUFR tables are read from, whatever the environment said before.
void setBufrTables(const std::string& directory);

/// Lets the process keep the memory that it frees, up to 64 MiB. The splines of a long sounding take megabytes and give
/// them back again and again, and fetching them from the system anew each time costs more than the fits.
void keepFreedMemory();
