#pragma once

#include "RegistryXML.h"
#include "TarvoConfigSet.h"

#include <QDialog>
#include <memory>

class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class SoundingDB;

/// Manages the sets of the user's configuration file: which are active, and editing, restoring, cloning and deleting
/// them. OK writes the file.
class TarvoConfigMgt : public QDialog {
    Q_OBJECT

public:
    /// \p settings is the name of the settings that tell where the file is; \p soundingDB may be null.
    TarvoConfigMgt(const QString& settings, QDialog* parent, SoundingDB* soundingDB);
    ~TarvoConfigMgt() override;

signals:
    /// The file has changed.
    void configChanged();

protected:
    void showEvent(QShowEvent* event) override;

private slots:
    void setActive1Config(const QString& name);
    void setActive2Config(const QString& name);
    void setConfigDesp(const QString& name);
    void displayAdvConfig();
    void restoreDefaults();
    void deleteConfig();
    void cloneConfig();
    void okSelected();
    void cancelSelected();

private:
    void makeForm();
    QGroupBox* makeActive(int number, const QString& label, QComboBox*& select, QPushButton*& edit,
                          QPushButton*& restore, QLabel*& description);
    QGroupBox* makeOther(const char* name, const char* title, const char* tip, const char* label,
                         const char* selectName, const char* buttonName, const char* button, QComboBox*& select,
                         void (TarvoConfigMgt::*slot)());
    void initConfigSet();
    void updateConfigCombo();
    void saveNow();
    /// Whether the button belongs to the second active set.
    bool isSecond(const QObject* sender) const;
    QString activeName(bool second) const;
    bool getUserSelection(const QString& question);
    void displayErrorMessage(const QString& text, bool critical);
    QString styleSheetOf(const TarvoConfigSet& set) const;
    QString askForName();

    QString _settings;
    SoundingDB* _soundingDB;
    std::unique_ptr<RegistryXML> _registry;
    std::unique_ptr<TarvoConfigSet> _configSet;
    bool _changed = false;

    QGroupBox* _gbxActive1 = nullptr;
    QGroupBox* _gbxActive2 = nullptr;
    QComboBox* _selectActive1 = nullptr;
    QComboBox* _selectActive2 = nullptr;
    QComboBox* _selectDelete = nullptr;
    QComboBox* _selectClone = nullptr;
    QPushButton* _editActive1 = nullptr;
    QPushButton* _editActive2 = nullptr;
    QPushButton* _restoreActive1 = nullptr;
    QPushButton* _restoreActive2 = nullptr;
    QLabel* _despActive1 = nullptr;
    QLabel* _despActive2 = nullptr;
};
