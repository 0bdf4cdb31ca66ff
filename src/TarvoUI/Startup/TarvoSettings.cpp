#include "TarvoSettings.h"

TarvoSettings::TarvoSettings(const QString& application) : QSettings(IniFormat, UserScope, kOrganisation, application) {
    // Without it a path that somebody wrote with an editor would be read as Latin-1.
    setIniCodec("UTF-8");
}
