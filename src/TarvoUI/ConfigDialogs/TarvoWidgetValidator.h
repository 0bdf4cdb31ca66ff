#pragma once

#include "ConfigItem.h"

#include <QLineEdit>
#include <QRegExp>
#include <QWidget>

/// Guards a line edit of a form: a text that is refused is told in a box. An empty one is accepted, and stores nothing.
class TarvoWidgetValidator : public QWidget {
    Q_OBJECT

public:
    enum ValidatorType { IntValidator = 0, DoubleValidator = 1, RegExpValidator = 2 };

    /// Numbers from \p min to \p max, both included. \p label names the field in messages; \p item, which may be null,
    /// gives the number that a refused text falls back to, and takes an accepted one at once when it is saved at once.
    TarvoWidgetValidator(QLineEdit* edit, QString label, ConfigItem* item, ValidatorType type, double min, double max);
    /// Texts that match as a whole. A refused one stays where it is.
    TarvoWidgetValidator(QLineEdit* edit, QString label, ConfigItem* item, const QRegExp& pattern);

    /// The number of a text, blanks around it or not: a finite one from \p min to \p max, for an IntValidator an
    /// integer within the limits cut to integers. False for any other text.
    static bool number(const QString& text, ValidatorType type, double min, double max, double& value);

private slots:
    void intValidator() { check(IntValidator); }
    void doubleValidator() { check(DoubleValidator); }
    void regExpValidator();

private:
    void check(ValidatorType type);

    QLineEdit* _edit;
    QString _label;
    ConfigItem* _item;
    double _min = 0.0;
    double _max = 0.0;
    QRegExp _pattern;
    bool _telling = false; // a box takes the keys from the field, which would be checked once more
};
