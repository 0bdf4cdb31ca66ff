#include "TarvoWidgetValidator.h"

#include <QMessageBox>
#include <QRegExpValidator>

TarvoWidgetValidator::TarvoWidgetValidator(QLineEdit* edit, QString label, ConfigItem* item, ValidatorType type,
                                           double min, double max)
    : QWidget(edit), _edit(edit), _label(std::move(label)), _item(item), _min(min), _max(max) {
    hide();
    connect(edit, &QLineEdit::editingFinished, this,
            type == IntValidator ? &TarvoWidgetValidator::intValidator : &TarvoWidgetValidator::doubleValidator);
}

TarvoWidgetValidator::TarvoWidgetValidator(QLineEdit* edit, QString label, ConfigItem* item, const QRegExp& pattern)
    : QWidget(edit), _edit(edit), _label(std::move(label)), _item(item), _pattern(pattern) {
    hide();
    connect(edit, &QLineEdit::editingFinished, this, &TarvoWidgetValidator::regExpValidator);
}

void TarvoWidgetValidator::intValidator() {
    bool isNumber = false;
    const int value = _edit->text().trimmed().toInt(&isNumber);
    check(isNumber && value >= static_cast<int>(_min) && value <= static_cast<int>(_max), value);
}

void TarvoWidgetValidator::doubleValidator() {
    bool isNumber = false;
    const double value = _edit->text().trimmed().toDouble(&isNumber);
    check(isNumber && value >= _min && value <= _max, value);
}

void TarvoWidgetValidator::check(bool isNumber, double value) {
    if (_edit->text().trimmed().isEmpty() || _telling) {
        return;
    }
    if (isNumber) {
        if (_item != nullptr && _item->isImmediateSave()) {
            _item->set(value);
        }
        return;
    }
    _telling = true;
    QMessageBox::warning(_edit, "ERROR",
                         QString("The %1 must be greater than %2 and less than %3!")
                             .arg(_label)
                             .arg(static_cast<int>(_min))
                             .arg(static_cast<int>(_max)));
    _edit->setText(_item == nullptr ? QString() : QString::number(_item->value(), 'g', 6));
    _telling = false;
}

void TarvoWidgetValidator::regExpValidator() {
    QString text = _edit->text().trimmed();
    if (text.isEmpty() || _telling) {
        return;
    }
    int position = 0;
    if (QRegExpValidator(_pattern).validate(text, position) == QValidator::Acceptable) {
        if (_item != nullptr && _item->isImmediateSave()) {
            _item->set(text.toStdString());
        }
        return;
    }
    _telling = true;
    QMessageBox::warning(_edit, "ERROR", QString("'%1' is not an acceptable value for the %2!").arg(text, _label));
    _telling = false;
}
