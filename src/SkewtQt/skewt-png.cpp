// Draws an SVG document from standard input as a PNG picture, for the batch tool, which knows no toolkit:
//     tarvo-skewt-png OUTPUT.png < picture.svg

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSvgRenderer>

#include <iostream>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::cerr << "Usage: tarvo-skewt-png OUTPUT.png < picture.svg\n";
        return 2;
    }
    QFile input;
    QSvgRenderer renderer;
    if (!input.open(stdin, QIODevice::ReadOnly) || !renderer.load(input.readAll())) {
        std::cerr << "Standard input is no SVG document.\n";
        return 1;
    }
    QImage image(renderer.defaultSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
        renderer.render(&painter);
    }
    QImageWriter writer(argv[1], "png");
    return writer.write(image) ? 0 : 1;
}
