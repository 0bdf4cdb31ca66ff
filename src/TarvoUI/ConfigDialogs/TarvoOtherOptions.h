#pragma once

#include "TarvoAdvConfig.h"

/// How soundings are processed, and how the program behaves.
class TarvoOtherOptions : public TarvoAdvConfig {
    Q_OBJECT

public:
    /// While soundings are open the QC mode can't be changed.
    TarvoOtherOptions(TarvoConfigSet* configSet, int numberOfOpenSoundings);
    void updateFormFromConfig() override;

signals:
    void qcMode(int mode);

private slots:
    void syncQcOptions();

private:
    void connectSignals() override;
    QString browse(const std::string& key, const QString& current) override;
    QString changeDirectory(const QString& current);
    QString changeKermitPath(const QString& current);
};
