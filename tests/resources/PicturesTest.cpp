#include <QColor>
#include <QDirIterator>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace {

QStringList named(const QString& folder, const QString& pattern = "*") {
    QStringList files;
    for (const QString& file : QDir(folder).entryList({pattern})) {
        files << folder + file;
    }
    return files;
}

QStringList all() {
    return named(":/tarvo_icons/") + named(":/Images/");
}

/// The picture as a grid cell shows it.
QImage shownAt(const QImage& image, int size, QColor ground = Qt::white) {
    QImage shown(size, size, QImage::Format_ARGB32);
    shown.fill(ground);
    QPainter painter(&shown);
    painter.drawImage(0, 0, image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    return shown;
}

int difference(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

/// How many pixels the eye sees differ.
int pixelsApart(const QImage& a, const QImage& b) {
    constexpr int kSeen = 40;
    int apart = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            apart += difference(a.pixel(x, y), b.pixel(x, y)) > kSeen ? 1 : 0;
    return apart;
}

/// The names that end in ".png" in the source of the desktop, without their folders.
std::set<std::string> askedFor() {
    std::set<std::string> names;
    for (QDirIterator files(TARVO_SOURCE_DIR "/src/TarvoUI", {"*.cpp", "*.h"}, QDir::Files,
                            QDirIterator::Subdirectories);
         files.hasNext();) {
        QFile source(files.next());
        EXPECT_TRUE(source.open(QIODevice::ReadOnly));
        const QRegularExpression name("[\"/](\\w+\\.png)\"");
        for (auto found = name.globalMatch(QString::fromUtf8(source.readAll())); found.hasNext();) {
            names.insert(found.next().captured(1).toStdString());
        }
    }
    return names;
}

TEST(Pictures, WhatTheProgramAsksForIsThereAndNothingElse) {
    std::set<std::string> found;
    for (const QString& name : all()) {
        if (name.endsWith(".png")) { // the other is for the system
            found.insert(name.section('/', -1).toStdString());
        }
    }
    EXPECT_EQ(found, askedFor());
}

TEST(Pictures, StandOutFromALightAndADarkWindow) {
    for (const auto& name : all()) {
        const QImage image(name);
        EXPECT_EQ(image.width(), image.height()) << name.toStdString();
        for (const QColor& ground : {QColor(Qt::white), QColor("#202020")}) {
            QImage empty(24, 24, QImage::Format_ARGB32);
            empty.fill(ground);
            EXPECT_GT(pixelsApart(shownAt(image, 24, ground), empty), 24 * 24 / 6)
                << name.toStdString() << " on " << ground.name().toStdString();
        }
    }
}

TEST(Pictures, NoTwoMarksLookAlikeInAGridCell) {
    const QStringList marks = named(":/Images/", "Flag*") + named(":/Images/", "Letter*");
    ASSERT_EQ(marks.size(), 18 + 2);
    for (int i = 0; i < marks.size(); ++i)
        for (int j = 0; j < i; ++j)
            EXPECT_GE(pixelsApart(shownAt(QImage(marks[i]), 16), shownAt(QImage(marks[j]), 16)), 8)
                << marks[i].toStdString() << ' ' << marks[j].toStdString();
}

TEST(Pictures, TheIconFileHoldsTheSizesOfWindowAndTaskBar) {
    QImageReader reader(":/tarvo_icons/tarvo.ico");
    ASSERT_EQ(reader.format(), "ico");
    std::vector<int> sizes;
    for (int i = 0; i < reader.imageCount(); ++i) {
        ASSERT_TRUE(reader.jumpToImage(i));
        sizes.push_back(reader.read().width());
    }
    EXPECT_THAT(sizes, testing::ElementsAre(16, 32, 48, 256));
}

} // namespace
