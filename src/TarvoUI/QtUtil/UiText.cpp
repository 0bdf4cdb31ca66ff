#include "UiText.h"

#include "Missing.h"

QString numberText(double value, int decimals) {
    return value == kMissing ? QString() : QString::number(value, 'f', decimals);
}

QString textStyleSheet(int size, const QString& family) {
    return "* {font-size:" + QString::number(size) + QString("pt; font-family:\"%1\";}").arg(family);
}

QString durationText(double seconds) {
    return seconds < 1.0 ? QString("less than 1.0") : QString::asprintf("%4.1f", seconds);
}
