#pragma once

#include "TarvoAdvConfig.h"

/// The parameters of quality control.
class TarvoQcConfig : public TarvoAdvConfig {
    Q_OBJECT

public:
    explicit TarvoQcConfig(TarvoConfigSet* configSet);
    void updateFormFromConfig() override;

private slots:
    void hideWindSatsLimit();
    void hideWindErrorLimit();

private:
    void connectSignals() override;
};
