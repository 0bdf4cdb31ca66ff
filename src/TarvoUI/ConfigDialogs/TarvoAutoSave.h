#pragma once

#include "TarvoAdvConfig.h"

/// What is saved after each processing.
class TarvoAutoSave : public TarvoAdvConfig {
    Q_OBJECT

public:
    explicit TarvoAutoSave(TarvoConfigSet* configSet);

public slots:
    /// Without QC nothing is saved by itself.
    void enAutoSave(int mode);

private:
    QString browse(const std::string& key, const QString& current) override;
};
