#include "MadeDiagram.h"
#include "Pictures.h"
#include "SkewTAdapterQt.h"
#include "SkewTAdapterSVG.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <gtest/gtest.h>

#include <sstream>

using namespace skewt;

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr int kCell = 8;   // pixels; what is finer depends on the rasteriser
constexpr int kSlack = 25; // of 255

QImage coarse(const QImage& image) {
    return image.scaled(kWidth / kCell, kHeight / kCell, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGB32);
}

QImage asSvg(const MadeDiagram& diagram) {
    std::ostringstream out;
    SkewTAdapterSVG adapter(out, kWidth, kHeight, 4);
    diagram.on(adapter)->brandNewPlot();
    QSvgRenderer renderer(QByteArray::fromStdString(out.str()));
    EXPECT_TRUE(renderer.isValid());
    EXPECT_EQ(renderer.defaultSize(), QSize(kWidth, kHeight));
    QImage image(kWidth, kHeight, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    return coarse(image);
}

QImage asWidget(const MadeDiagram& diagram) {
    SkewTAdapterQt adapter(nullptr, kWidth, kHeight, 5, 500);
    diagram.on(adapter)->brandNewPlot();
    return coarse(adapter.grab().toImage());
}

} // namespace

TEST(SkewTAgreement, documentAndWidgetShowTheSame) {
    const MadeDiagram diagram(400);
    const QImage svg = asSvg(diagram);
    EXPECT_LT(differences(svg, asWidget(diagram), kSlack), 75) << "of 7500 cells";
    MadeDiagram colder = diagram;
    for (double& t : colder.tdry) {
        t -= 3.0;
    }
    EXPECT_GT(differences(svg, asWidget(colder), kSlack), 100) << "the comparison sees a trace that is elsewhere";
}
