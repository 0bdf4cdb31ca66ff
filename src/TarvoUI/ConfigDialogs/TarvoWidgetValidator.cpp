#include "TarvoWidgetValidator.h"

#include <QMessageBox>
#include <QRegExpValidator>
#include <cmath>

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

bool TarvoWidgetValidator::number(const QString& text, ValidatorType type, double min, double max, double& value) {
    bool isNumber = false;
    if (type == IntValidator) {
        value = text.trimmed().toInt(&isNumber);
        return isNumber && value >= std::trunc(min) && value <= std::trunc(max);
    }
    value = text.trimmed().toDouble(&isNumber);
    return isNumber && std::isfinite(value) && value >= min && value <= max;
}

void TarvoWidgetValidator::check(ValidatorType type) {
    if (_edit->text().trimmed().isEmpty() || _telling) {
        return;
    }
    double value = 0.0;
    if (number(_edit->text(), type, _min, _max, value)) {
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
        // A field that is only passed by may show less than the item holds.
        if (_item != nullptr && _item->isImmediateSave() && _edit->isModified()) {
            _item->set(text.toStdString());
        }
        return;
    }
    _telling = true;
    QMessageBox::warning(_edit, "ERROR", QString("'%1' is not an acceptable value for the %2!").arg(text, _label));
    _telling = false;
}
