#pragma once

#include "TarvoAdvConfig.h"

class SoundingDB;

/// The databases of the synoptic map.
class TarvoSynopticMap : public TarvoAdvConfig {
    Q_OBJECT

public:
    /// \p soundingDB, which may be null, is the one that can be cleared.
    TarvoSynopticMap(TarvoConfigSet* configSet, SoundingDB* soundingDB);

private slots:
    void clearSoundingDB();

private:
    QString browse(const std::string& key, const QString& current) override;
    QString changeGeoDBPath(const QString& current);
    QString changeSoundingDBPath(const QString& current);

    SoundingDB* _soundingDB;
};
