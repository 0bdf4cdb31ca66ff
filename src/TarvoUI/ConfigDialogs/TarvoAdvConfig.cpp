#include "TarvoAdvConfig.h"

#include "ParameterTable.h"
#include "ScrolledForm.h"
#include "TarvoWidgetValidator.h"
#include "UiText.h"

#include <QFontComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QRegExpValidator>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <limits>
#include <set>

namespace {

TarvoWidgetValidator::ValidatorType validatorOf(const OptionField& field) {
    return field.kind == OptionField::Int ? TarvoWidgetValidator::IntValidator : TarvoWidgetValidator::DoubleValidator;
}

QWidget* addChoice(QFormLayout* form, QGroupBox* group, const OptionField& field) {
    auto* widget = new QWidget(group);
    auto* buttons = new QButtonGroup(widget);
    buttons->setObjectName(field.key);
    auto* line = new QVBoxLayout(widget);
    line->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < field.choices.size(); ++i) {
        auto* button = new QRadioButton(field.choices[i], widget);
        button->setObjectName(QString("%1_%2").arg(field.key).arg(i));
        buttons->addButton(button, static_cast<int>(i));
        line->addWidget(button);
    }
    if (*field.label == '\0') {
        form->addRow(widget); // the title of the group says it
    } else {
        form->addRow(field.label, widget);
    }
    return widget;
}

} // namespace

TarvoAdvConfig::TarvoAdvConfig(TarvoConfigSet* configSet, const char* title, const std::vector<OptionField>& fields)
    : _configSet(configSet), _fields(fields), _page(new QWidget(this)) {
    makePage(title);
}

void TarvoAdvConfig::begin() {
    connectSignals();
    resetValues();
    initializeValidators();
    updateFormFromConfig();
}

// --- The page.

/// The groups in two columns, in the order of the table.
void TarvoAdvConfig::makePage(const char* title) {
    setWindowTitle(title);
    _page->setObjectName(title);
    _banner = new QLabel(_page);
    _banner->setObjectName("_banner");
    _content = new QWidget;
    auto* columns = new QHBoxLayout(_content);
    std::array<QVBoxLayout*, 2> column{new QVBoxLayout, new QVBoxLayout};
    std::size_t rowsLeft = 0;
    std::map<std::string, QFormLayout*> forms;
    std::map<std::string, QGroupBox*> groups;
    for (const OptionField& field : _fields) {
        if (forms.count(field.group) == 0) {
            auto* group = new QGroupBox(field.group, _content);
            forms[field.group] = new QFormLayout(group);
            groups[field.group] = group;
            column[rowsLeft * 2 < _fields.size() ? 0 : 1]->addWidget(group);
        }
        rowsLeft += 1;
        addField(forms[field.group], groups[field.group], field);
    }
    for (QVBoxLayout* one : column) {
        const bool isUsed = one->count() > 0;
        one->addStretch();
        columns->addLayout(one, isUsed ? 1 : 0);
    }
    auto* layout = new QVBoxLayout(_page);
    layout->addWidget(_banner);
    layout->addWidget(scrolled(_content, _page), 1);
}

int TarvoAdvConfig::wholeWidth() const {
    const QMargins margins = _page->layout()->contentsMargins();
    return _content->sizeHint().width() + margins.left() + margins.right() +
           _page->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

void TarvoAdvConfig::addField(QFormLayout* form, QGroupBox* group, const OptionField& field) {
    Row row{&field, group, {}};
    QWidget* widget = nullptr;
    if (field.kind == OptionField::Flag) {
        widget = new QCheckBox(field.label, group);
        widget->setObjectName(field.key);
        form->addRow(widget);
    } else if (field.kind == OptionField::Choice) {
        widget = addChoice(form, group, field);
    } else if (field.kind == OptionField::Font) {
        auto* fonts = new QFontComboBox(group);
        fonts->lineEdit()->setObjectName(field.key);
        fonts->setAccessibleName(field.label);
        widget = fonts;
        row.widgets.push_back(fonts->lineEdit());
        form->addRow(field.label, fonts);
    } else {
        widget = addText(form, group, row);
    }
    row.widgets.push_back(widget);
    if (QWidget* label = form->labelForField(widget)) {
        row.widgets.push_back(label);
    }
    const QString tip = toolTipOf(field);
    for (QWidget* part : row.widgets) {
        part->setToolTip(tip);
    }
    _rows.push_back(std::move(row));
}

QWidget* TarvoAdvConfig::addText(QFormLayout* form, QGroupBox* group, Row& row) {
    const OptionField& field = *row.field;
    auto* text = new QLineEdit(group);
    text->setObjectName(field.key);
    text->setAccessibleName(field.label);
    if (field.mask != nullptr) {
        text->setInputMask(field.mask);
    }
    if (field.kind == OptionField::Path) {
        auto* button = new QPushButton("Browse...", group);
        button->setObjectName(QString(field.key) + "_browse");
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, text, key = field.key] {
            const QString path = browse(key, text->text());
            if (!path.isEmpty()) {
                text->setText(path);
            }
        });
        auto* line = new QHBoxLayout;
        line->addWidget(text, 1);
        line->addWidget(button);
        form->addRow(field.label, line);
        row.widgets.push_back(button);
        row.widgets.push_back(form->labelForField(line));
    } else {
        form->addRow(field.label, text);
    }
    return text;
}

/// Key and meaning, which has the unit, and what the set and its defaults say.
QString TarvoAdvConfig::toolTipOf(const OptionField& field) const {
    const Parameter* parameter = findParameter(field.key);
    const ConfigItem* option = item(field.key);
    QString tip = field.key;
    if (parameter != nullptr) {
        tip += ": " + QString::fromUtf8(parameter->meaning.data(), static_cast<int>(parameter->meaning.size()));
    }
    if (option != nullptr) {
        const auto text = [&](double number, const std::string& words) {
            return option->isNumeric() ? QString::number(number, 'g', 6) : toQString(words);
        };
        tip += "\nSet: " + text(option->value(), option->text()) +
               "\nDefault: " + text(option->defaultValue(), option->defaultText());
    }
    return tip;
}

int TarvoAdvConfig::narrow(const QStringList& words) {
    int found = 0;
    for (Row& row : _rows) {
        const QString all = QString("%1 %2 %3").arg(row.field->group, row.field->label, toolTipOf(*row.field));
        row.found = std::all_of(words.begin(), words.end(),
                                [&](const QString& word) { return all.contains(word, Qt::CaseInsensitive); });
        found += row.found ? 1 : 0;
    }
    showRows();
    return found;
}

void TarvoAdvConfig::showOption(const char* key, bool show) {
    for (Row& row : _rows) {
        if (std::string(key) == row.field->key) {
            row.hidden = !show;
        }
    }
    showRows();
}

void TarvoAdvConfig::showRows() {
    std::set<QGroupBox*> shown;
    for (const Row& row : _rows) {
        for (QWidget* widget : row.widgets) {
            widget->setVisible(row.found && !row.hidden);
        }
        if (row.found) {
            shown.insert(row.group);
        }
    }
    for (const Row& row : _rows) {
        row.group->setVisible(shown.count(row.group) != 0);
    }
}

// --- The options and their widgets.

ConfigItem* TarvoAdvConfig::item(const char* key) const {
    return (*_configSet)[Id(key)];
}

QLineEdit* TarvoAdvConfig::edit(const char* key) const {
    return _page->findChild<QLineEdit*>(key);
}

QCheckBox* TarvoAdvConfig::box(const char* key) const {
    return _page->findChild<QCheckBox*>(key);
}

QButtonGroup* TarvoAdvConfig::choice(const char* key) const {
    return _page->findChild<QButtonGroup*>(key);
}

TarvoAdvConfig::setType TarvoAdvConfig::typeOf(const OptionField& field) {
    return field.kind == OptionField::Double || field.kind == OptionField::Int ? NUMBER : TEXT;
}

bool TarvoAdvConfig::accepts(const OptionField& field, QString text) {
    if (field.kind == OptionField::Pattern) {
        int position = 0;
        return text.isEmpty() ||
               QRegExpValidator(QRegExp(field.pattern)).validate(text, position) == QValidator::Acceptable;
    }
    constexpr double kMost = std::numeric_limits<double>::max();
    double value = 0.0;
    return typeOf(field) == TEXT ||
           TarvoWidgetValidator::number(text, validatorOf(field), field.hasLimits() ? field.min : -kMost,
                                        field.hasLimits() ? field.max : kMost, value);
}

void TarvoAdvConfig::setText(QLineEdit* edit, const ConfigItem* item, setType type) {
    if (item != nullptr) {
        edit->setText(type == NUMBER ? QString::number(item->value(), 'g', 6) : toQString(item->text()));
    }
}

void TarvoAdvConfig::setChecked(QCheckBox* box, const ConfigItem* item) {
    if (item != nullptr) {
        box->setChecked(item->boolValue());
    }
}

void TarvoAdvConfig::setValue(ConfigItem* item, const QLineEdit* edit, setType type) {
    if (item == nullptr) {
        return;
    }
    const QString text = edit->text().trimmed();
    if (type == TEXT) {
        QLineEdit untouched; // a mask may not show all of a text, and needn't take it away for that
        untouched.setInputMask(edit->inputMask());
        setText(&untouched, item, TEXT);
        if (untouched.text() != edit->text()) {
            item->set(text.toStdString());
        }
        return;
    }
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (isNumber && text != QString::number(item->value(), 'g', 6)) {
        item->set(value);
    }
}

void TarvoAdvConfig::setValue(ConfigItem* item, const QCheckBox* box) {
    if (item != nullptr && item->boolValue() != box->isChecked()) {
        item->set(box->isChecked() ? 1.0 : 0.0);
    }
}

void TarvoAdvConfig::setValue(ConfigItem* item, int value) {
    if (item != nullptr && value >= 0) {
        item->set(static_cast<double>(value));
    }
}

void TarvoAdvConfig::resetBanner() {
    _banner->setText(QString("Configuration set name: %1").arg(toQString(_configSet->getSetName())));
}

void TarvoAdvConfig::updateFormFromConfig() {
    resetBanner();
    for (const OptionField& field : _fields) {
        const ConfigItem* option = item(field.key);
        if (field.kind == OptionField::Flag) {
            setChecked(box(field.key), option);
        } else if (field.kind == OptionField::Choice) {
            QAbstractButton* chosen = option == nullptr ? nullptr : choice(field.key)->button(option->intValue());
            if (chosen != nullptr) {
                chosen->setChecked(true);
            }
        } else {
            setText(edit(field.key), option, typeOf(field));
        }
    }
}

void TarvoAdvConfig::updateConfigFromForm() {
    for (const OptionField& field : _fields) {
        ConfigItem* option = item(field.key);
        if (field.kind == OptionField::Flag) {
            setValue(option, box(field.key));
        } else if (field.kind == OptionField::Choice) {
            setValue(option, choice(field.key)->checkedId());
        } else if (accepts(field, edit(field.key)->text().trimmed())) {
            setValue(option, edit(field.key), typeOf(field));
        }
    }
}

void TarvoAdvConfig::initializeValidators() {
    for (const OptionField& field : _fields) {
        const char* label = field.inMessages == nullptr ? field.label : field.inMessages;
        if (field.kind == OptionField::Pattern) {
            new TarvoWidgetValidator(edit(field.key), label, item(field.key), QRegExp(field.pattern));
        } else if (field.hasLimits()) {
            new TarvoWidgetValidator(edit(field.key), label, item(field.key), validatorOf(field), field.min, field.max);
        }
    }
}

void TarvoAdvConfig::resetValues() {
    for (const OptionField& field : _fields) {
        if (field.kind == OptionField::Flag) {
            box(field.key)->setChecked(false);
        } else if (field.kind != OptionField::Choice) {
            edit(field.key)->clear();
        }
    }
}

QString TarvoAdvConfig::browse(const std::string& /*key*/, const QString& /*current*/) {
    return {};
}
