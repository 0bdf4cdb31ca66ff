// Draws an SVG document from standard input as a PNG picture, for the batch tool, which knows no toolkit:
//     tarvo-skewt-png OUTPUT.png < picture.svg

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSvgRenderer>

#include <iostream>

#if defined(__SANITIZE_ADDRESS__)
// What Qt's platform without a screen keeps to the end isn't ours to free. Read by AddressSanitizer.
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}
#endif

namespace {

/// What Qt tells of the machine, such as that a server has no session, is nothing to the user of the batch tool.
void tellErrorsOnly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        std::cerr << message.toStdString() << '\n';
    }
}

/// The first of the document's families that the machine has: the renderer takes a list of them for one name.
void nameFamily(QByteArray& svg) {
    const QByteArray begin = "font-family=\"";
    const int at = svg.indexOf(begin) + begin.size();
    const int length = svg.indexOf('"', at) - at;
    if (at < begin.size() || length <= 0) {
        return;
    }
    const QStringList there = QFontDatabase().families();
    for (const QString& family : QString::fromUtf8(svg.mid(at, length)).split(", ")) {
        if (there.contains(family)) {
            svg.replace(at, length, family.toUtf8());
            return;
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(&tellErrorsOnly);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::cerr << "Usage: tarvo-skewt-png OUTPUT.png < picture.svg\n";
        return 2;
    }
    QFile input;
    QSvgRenderer renderer;
    QByteArray svg = input.open(stdin, QIODevice::ReadOnly) ? input.readAll() : QByteArray();
    nameFamily(svg);
    if (!renderer.load(svg)) {
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
