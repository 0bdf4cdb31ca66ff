// Sets the manual: make-manual INDEX.md VERSION MANUAL.pdf. The same chapters make the same bytes.

#include "ManualPages.h"
#include "ManualSource.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QHash>
#include <QPdfWriter>
#include <QSaveFile>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace {

QByteArray manualPdf(const ManualSource& source, const QString& version) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter paper(&buffer);
    paper.setResolution(600);
    paper.setPageSize(QPageSize(QPageSize::A4));
    paper.setPageMargins(QMarginsF());
    paper.setTitle(source.title + " " + version + ": manual");
    paper.setCreator("make-manual");
    ManualPages(source, version, paper).paint();
    return buffer.data();
}

/// Takes the time out of the file; everything stays where it is, as the table at its end wants it.
void removeDate(QByteArray& pdf) {
    const int begin = pdf.indexOf("/CreationDate (");
    const int end = begin < 0 ? -1 : pdf.indexOf(')', begin);
    for (int i = begin; i >= 0 && i <= end; ++i) {
        pdf[i] = ' ';
    }
}

void make(const QString& index, const QString& version, const QString& path) {
    QByteArray pdf = manualPdf(ManualSource::read(index), version);
    removeDate(pdf);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size() || !file.commit()) {
        throw std::runtime_error("can't write " + path.toStdString());
    }
}

} // namespace

int main(int argc, char** argv) {
    qSetGlobalQHashSeed(0);
    QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("usage: make-manual INDEX.md VERSION MANUAL.pdf\n", stderr);
        return EXIT_FAILURE;
    }
    try {
        make(arguments[1], arguments[2], arguments[3]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make-manual: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
