#pragma once

#include "TarvoConfigSet.h"

#include <QDialog>
#include <QTabWidget>
#include <memory>
#include <vector>

class SoundingDB;
class TarvoAdvConfig;
class TarvoOtherOptions;
class TarvoAutoSave;

/// Edits the options of one set, in six tabs with a field that finds them.
class TarvoAdvConfigController : public QWidget {
    Q_OBJECT

public:
    /// Fills \p dialog, which owns it. The set is borrowed.
    TarvoAdvConfigController(QDialog* dialog, TarvoConfigSet* configSet, SoundingDB* soundingDB,
                             int numberOfOpenSoundings);
    ~TarvoAdvConfigController() override;

signals:
    /// The set has new values.
    void saveConfiguration(bool immediateOnly);

public slots:
    void applySelected();
    void okSelected();
    void cancelSelected();

protected:
    /// The key that ends a field doesn't end the dialog too.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void initializeTabs(TarvoConfigSet* configSet);
    void resizeDialog();

    QDialog* _dialog;
    SoundingDB* _soundingDB;
    int _openSoundings;
    QTabWidget* _tabs;
    std::vector<std::unique_ptr<TarvoAdvConfig>> _forms; // in the order of the tabs
};
