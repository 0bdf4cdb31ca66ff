#include "PictureFiles.h"

#include <QColor>
#include <QDirIterator>
#include <QImageReader>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr int kOpaque = 255;

/// The colours that fill a picture, told apart coarsely, so that the soft edges of one colour don't count as many.
QSet<QRgb> coloursOf(const QImage& image) {
    constexpr QRgb kCoarse = 0xFFC0C0C0;
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) == kOpaque)
                colours.insert(image.pixel(x, y) & kCoarse);
    return colours;
}

double partCovered(const QImage& image) {
    int covered = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            covered += qAlpha(image.pixel(x, y)) > kOpaque / 2 ? 1 : 0;
    return double(covered) / (image.width() * image.height());
}

/// The picture as a grid cell shows it.
QImage shownAt(const QImage& image, int size, QColor ground = Qt::white) {
    QImage shown(size, size, QImage::Format_ARGB32);
    shown.fill(ground);
    if (image.isNull())
        return shown;
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

QColor meanColour(const QImage& image) {
    int red = 0;
    int green = 0;
    int blue = 0;
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qAlpha(pixel) < kOpaque)
                continue;
            red += qRed(pixel);
            green += qGreen(pixel);
            blue += qBlue(pixel);
            ++pixels;
        }
    return pixels == 0 ? QColor() : QColor(red / pixels, green / pixels, blue / pixels);
}

TEST(Pictures, EveryNameLoadsAndShowsADrawing) {
    for (const auto& name : PictureFiles::all()) {
        SCOPED_TRACE(name.toStdString());
        const QImage image = PictureFiles::load(name);
        ASSERT_FALSE(image.isNull());
        EXPECT_EQ(image.width(), image.height());
        EXPECT_GE(coloursOf(image).size(), 2);
        EXPECT_GT(partCovered(image), 0.25);
    }
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
    for (const QString& name : PictureFiles::all()) {
        if (name.endsWith(".png")) { // the other is for the system
            found.insert(name.section('/', -1).toStdString());
        }
    }
    EXPECT_EQ(found, askedFor());
}

TEST(Pictures, AreSharpAtTwiceTheSizeAtWhichTheyAreShown) {
    for (const QString& name : PictureFiles::named(":/tarvo_icons/", "*.png")) {
        EXPECT_EQ(PictureFiles::load(name).width(), name.endsWith("/tarvo.png") ? 256 : 48) << name.toStdString();
    }
    for (const QString& name : PictureFiles::named(":/Images/", "Flag*")) {
        EXPECT_EQ(PictureFiles::load(name).width(), 32) << name.toStdString();
    }
    for (const QString& name : PictureFiles::named(":/Images/", "Letter*")) {
        EXPECT_EQ(PictureFiles::load(name).width(), 64) << name.toStdString();
    }
}

TEST(Pictures, StandOutFromALightAndADarkWindow) {
    for (const auto& name : PictureFiles::all()) {
        const QImage image = PictureFiles::load(name);
        for (const QColor& ground : {QColor(Qt::white), QColor("#202020")}) {
            QImage empty(24, 24, QImage::Format_ARGB32);
            empty.fill(ground);
            EXPECT_GT(pixelsApart(shownAt(image, 24, ground), empty), 24 * 24 / 6)
                << name.toStdString() << " on " << ground.name().toStdString();
        }
    }
}

TEST(Pictures, NoTwoFlagsLookAlikeInAGridCell) {
    const QStringList flags = PictureFiles::named(":/Images/", "Flag*");
    ASSERT_EQ(flags.size(), 18);
    for (int i = 0; i < flags.size(); ++i)
        for (int j = 0; j < i; ++j)
            EXPECT_GE(pixelsApart(shownAt(PictureFiles::load(flags[i]), 16), shownAt(PictureFiles::load(flags[j]), 16)),
                      8)
                << flags[i].toStdString() << ' ' << flags[j].toStdString();
}

TEST(Pictures, TheLettersDiffer) {
    EXPECT_GT(pixelsApart(shownAt(PictureFiles::load(":/Images/LetterV.png"), 16),
                          shownAt(PictureFiles::load(":/Images/LetterQ.png"), 16)),
              100);
}

TEST(Pictures, TheAlarmOfRecomputeHasTheShapeOfItsCalmFaceInAnotherColour) {
    const QImage calm = PictureFiles::load(":/tarvo_icons/recompute1.png");
    const QImage alarm = PictureFiles::load(":/tarvo_icons/recompute2.png");
    EXPECT_EQ(calm.convertToFormat(QImage::Format_Alpha8), alarm.convertToFormat(QImage::Format_Alpha8));
    const QColor alarmColour = meanColour(alarm);
    EXPECT_GT(alarmColour.red(), alarmColour.blue() + 80);
    EXPECT_GE(meanColour(calm).blue(), meanColour(calm).red());
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
