#pragma once

#include <QSettings>
#include <QString>

/// The settings that the desktop keeps for each user: an INI file, ~/.config/Tarvo/TarvoQt.ini where the desktop has no
/// other folder for configuration. A user may edit it, in UTF-8.
class TarvoSettings : public QSettings {
public:
    static constexpr char kOrganisation[] = "Tarvo";
    static constexpr char kApplication[] = "TarvoQt";

    /// The folder of the user's tarvo.xml, with its slash at the end: names of files are appended as they are.
    static constexpr char kXmlDir[] = "XMLdir";
    /// The paths of the user's copies of the manual and of the change log of the configuration file.
    static constexpr char kManual[] = "TarvoManual";
    static constexpr char kConfigLog[] = "ConfigLog";
    /// The folder of the BUFR tables.
    static constexpr char kBufrDir[] = "BufrDir";
    /// Paths, most recent first.
    static constexpr char kRecentFiles[] = "Recent_Files";

    explicit TarvoSettings(const QString& application = kApplication);
};
