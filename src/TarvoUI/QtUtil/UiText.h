#pragma once

#include <QString>
#include <string>

class QWidget;

/// Texts of the core are UTF-8.
inline QString toQString(const std::string& text) {
    return QString::fromStdString(text);
}

/// A number in fixed notation, the C locale's; nothing for the missing value (-999.0).
QString numberText(double value, int decimals);

/// A value of a listing: \p format, then a blank; width + 1 blanks, 13 at most, for the missing value.
std::string convertData(double value, int width, const char* format);

/// The style sheet of the displays: font size in points and family.
QString textStyleSheet(int size, const QString& family);

/// For a filled \p form with combo boxes: Qt's style sheets keep what they know of the inside of one that has gone,
/// unless it had a sheet of its own.
void letStyleSheetsForget(const QWidget& form);

/// \p seconds as the summary tells durations: "less than 1.0" below one second.
QString durationText(double seconds);
