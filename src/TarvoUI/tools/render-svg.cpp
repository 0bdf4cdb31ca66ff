// Renders one drawing into the pictures of the program while it is built. Needs no display.
//
//   render-svg IN.svg OUT.png SIZE          one square picture
//   render-svg IN.svg OUT.ico SIZE SIZE...  an icon file of several sizes, each stored as PNG

#include <QBuffer>
#include <QByteArray>
#include <QDataStream>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kLargestSize = 256; // what an icon file can hold

QByteArray renderedPng(QSvgRenderer& drawing, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();

    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!image.convertToFormat(QImage::Format_ARGB32).save(&buffer, "PNG"))
        throw std::runtime_error("can't encode PNG");
    return png;
}

/// An icon file: a directory of pictures and the pictures, little-endian.
QByteArray iconFile(const std::vector<std::pair<int, QByteArray>>& pictures) {
    constexpr quint32 kHeaderBytes = 6;
    constexpr quint32 kEntryBytes = 16;
    constexpr quint16 kIsIcon = 1;
    constexpr quint16 kPlanes = 1;
    constexpr quint16 kBitsPerPixel = 32;
    constexpr quint8 kNone = 0; // palette colours, reserved byte

    QByteArray file;
    QDataStream out(&file, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint16(0) << kIsIcon << quint16(pictures.size());
    auto offset = kHeaderBytes + kEntryBytes * quint32(pictures.size());
    for (const auto& [size, png] : pictures) {
        const auto side = quint8(size == kLargestSize ? 0 : size); // 0 stands for 256
        out << side << side << kNone << kNone << kPlanes << kBitsPerPixel << quint32(png.size()) << offset;
        offset += quint32(png.size());
    }
    for (const auto& picture : pictures)
        file += picture.second;
    return file;
}

int sizeFrom(const std::string& text) {
    const int size = QString::fromStdString(text).toInt();
    if (size < 1 || size > kLargestSize)
        throw std::runtime_error("not a size from 1 to 256: " + text);
    return size;
}

void render(const std::vector<std::string>& arguments) {
    if (arguments.size() < 3)
        throw std::runtime_error("usage: render-svg IN.svg OUT.png|OUT.ico SIZE...");
    QSvgRenderer drawing(QString::fromStdString(arguments[0]));
    if (!drawing.isValid())
        throw std::runtime_error("can't read " + arguments[0]);

    std::vector<std::pair<int, QByteArray>> pictures;
    for (std::size_t i = 2; i < arguments.size(); ++i) {
        const int size = sizeFrom(arguments[i]);
        pictures.emplace_back(size, renderedPng(drawing, size));
    }
    const auto name = QString::fromStdString(arguments[1]);
    const bool isIcon = name.endsWith(".ico");
    if (!isIcon && pictures.size() > 1)
        throw std::runtime_error("only an icon file holds several sizes: " + arguments[1]);
    const auto bytes = isIcon ? iconFile(pictures) : pictures.front().second;
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw std::runtime_error("can't write " + arguments[1]);
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        render({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << "render-svg: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
