#pragma once

#include <QImage>

#include <algorithm>
#include <cstdlib>

/// How many pixels of two pictures of one size differ by more than \p slack of 255 in any colour.
inline int differences(const QImage& one, const QImage& other, int slack) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            count += std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                               std::abs(qBlue(a) - qBlue(b))}) > slack;
        }
    }
    return count;
}

/// A picture as it was when people had looked at it and found it good. With TARVO_UPDATE_REFERENCE in the environment
/// \p drawn takes its place first.
inline QImage referencePicture(const char* path, const QImage& drawn) {
    if (qEnvironmentVariableIsSet("TARVO_UPDATE_REFERENCE")) {
        drawn.save(path);
    }
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}
