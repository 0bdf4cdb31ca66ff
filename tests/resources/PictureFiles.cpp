#include "PictureFiles.h"

namespace {

QStringList named(const QString& folder, const QString& names) {
    QStringList files;
    for (const auto& name : names.split(' '))
        files << folder + name;
    return files;
}

} // namespace

namespace PictureFiles {

QStringList toolbar() {
    return named(":/tarvo_icons/",
                 "open.png save.png saveAll.png print.png about.png pdf.png document.png settings.png "
                 "recompute1.png recompute2.png World.png");
}

QStringList flags() {
    return named(":/Images/", "FlagF.png FlagS.png FlagP.png FlagG.png FlagIg.png FlagKp.png FlagAe.png FlagLc.png "
                              "FlagSc.png FlagBc.png FlagOc.png FlagFc.png FlagPc.png FlagVc.png FlagRh.png FlagDb.png "
                              "FlagWe.png FlagNone.png");
}

QStringList letters() {
    return named(":/Images/", "LetterV.png LetterQ.png");
}

QStringList all() {
    return toolbar() + flags() + letters() + named(":/tarvo_icons/", "tarvo.png tarvo.ico") +
           named(":/Images/", "World.png Skewt.png");
}

QImage load(const QString& name) {
    return QImage(name).convertToFormat(QImage::Format_ARGB32);
}

} // namespace PictureFiles
