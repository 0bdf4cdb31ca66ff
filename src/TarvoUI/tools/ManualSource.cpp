#include "ManualSource.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <stdexcept>

namespace {

QString textOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("can't read " + path.toStdString());
    }
    return QString::fromUtf8(file.readAll());
}

} // namespace

ManualSource ManualSource::read(const QString& indexPath) {
    static const QRegularExpression chapterLink(R"(^[-*] \[[^\]]*\]\(([^)#]+\.md)\))");
    ManualSource manual;
    manual.folder = QFileInfo(indexPath).absolutePath();
    for (const QString& line : textOf(indexPath).split('\n')) {
        const QRegularExpressionMatch link = chapterLink.match(line);
        if (link.hasMatch()) {
            const QString name = link.captured(1);
            manual.chapters.append({name, textOf(manual.folder + "/" + name)});
        } else if (line.startsWith("# ")) {
            manual.title = line.mid(2).trimmed();
        } else if (manual.subtitle.isEmpty()) {
            manual.subtitle = line.trimmed();
        }
    }
    if (manual.chapters.isEmpty()) {
        throw std::runtime_error(indexPath.toStdString() + " names no chapter");
    }
    return manual;
}
