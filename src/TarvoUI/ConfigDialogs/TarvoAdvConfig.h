#pragma once

#include "ConfigForms.h"
#include "TarvoConfigSet.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <map>
#include <string>
#include <vector>

class QFormLayout;
class QGroupBox;

/// The base of the six forms that edit the options of a set. A form is made from its table; its widgets are named after
/// the keys of the options.
class TarvoAdvConfig : public QDialog {
    Q_OBJECT

public:
    /// Both are borrowed and outlive the form.
    TarvoAdvConfig(TarvoConfigSet* configSet, const char* title, const std::vector<OptionField>& fields);

    /// The page of the form for a tab.
    virtual QWidget* widget() { return _page; }
    /// Tells the name of the set.
    virtual void resetBanner();
    virtual void updateFormFromConfig();
    virtual void updateConfigFromForm();
    virtual void initializeValidators();
    /// Clears the form.
    virtual void resetValues();

    /// Shows the options alone of which every word of \p words is a part of key, label, group or meaning; all for none.
    /// Returns how many there are.
    int narrow(const QStringList& words);
    /// Width of the page in pixels at which nothing of it is cut off at the side.
    int wholeWidth() const;

protected:
    enum setType { NUMBER, TEXT };

    /// What a form does once it is made: signals, empty values, validators, the values of the set.
    void begin();
    virtual void connectSignals() {}
    /// Asks for the path of an option; empty when the user gives it up.
    virtual QString browse(const std::string& key, const QString& current);

    static void setText(QLineEdit* edit, const ConfigItem* item, setType type);
    static void setChecked(QCheckBox* box, const ConfigItem* item);
    /// An empty number stores nothing, and so does a text that is what the item shows anyway.
    static void setValue(ConfigItem* item, const QLineEdit* edit, setType type);
    static void setValue(ConfigItem* item, const QCheckBox* box);
    static void setValue(ConfigItem* item, int value);

    ConfigItem* item(const char* key) const;
    QLineEdit* edit(const char* key) const;
    QCheckBox* box(const char* key) const;
    QButtonGroup* choice(const char* key) const;
    /// Shows or hides an option with its label, search or no search.
    void showOption(const char* key, bool show);

    TarvoConfigSet* _configSet;

private:
    struct Row {
        const OptionField* field;
        QGroupBox* group;
        std::vector<QWidget*> widgets; // of the option, with its label
        bool hidden = false;           // by another option
        bool found = true;             // by the search
    };

    void makePage(const char* title);
    void addField(QFormLayout* form, QGroupBox* group, const OptionField& field);
    QWidget* addText(QFormLayout* form, QGroupBox* group, Row& row);
    QString toolTipOf(const OptionField& field) const;
    static setType typeOf(const OptionField& field);
    /// Whether a text may go into the option of a field.
    static bool accepts(const OptionField& field, QString text);
    void showRows();

    const std::vector<OptionField>& _fields;
    QWidget* _page;
    QWidget* _content = nullptr; // of the page, which scrolls
    QLabel* _banner = nullptr;
    std::vector<Row> _rows;
};
