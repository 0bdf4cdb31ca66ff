#pragma once

#include <QString>

#include <ostream>

/// How GoogleTest prints a QString.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
