#pragma once

#include <QString>
#include <string>

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

/// \p seconds as the summary tells durations: "less than 1.0" below one second.
QString durationText(double seconds);
