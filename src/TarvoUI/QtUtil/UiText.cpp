#include "UiText.h"

#include "Missing.h"
#include "Text.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <algorithm>

QString numberText(double value, int decimals) {
    return value == kMissing ? QString() : QString::number(value, 'f', decimals);
}

std::string convertData(double value, int width, const char* format) {
    constexpr int kWidest = 12;
    return value == kMissing ? std::string(static_cast<std::size_t>(std::min(width, kWidest) + 1), ' ')
                             : stringFormat(format, value) + " ";
}

QString textStyleSheet(int size, const QString& family) {
    return "* {font-size:" + QString::number(size) + QString("pt; font-family:\"%1\";}").arg(family);
}

void letStyleSheetsForget(const QWidget& form) {
    const QString nothing = "/* */";
    for (QComboBox* combo : form.findChildren<QComboBox*>()) {
        combo->view()->parentWidget()->setStyleSheet(nothing);
        if (combo->isEditable()) {
            combo->lineEdit()->setStyleSheet(nothing);
        }
    }
}

QString durationText(double seconds) {
    return seconds < 1.0 ? QString("less than 1.0") : QString::asprintf("%4.1f", seconds);
}
