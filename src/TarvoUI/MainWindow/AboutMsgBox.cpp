#include "AboutMsgBox.h"

#include "InitTarvoFiles.h"
#include "RevisionInfo.h"
#include "SpatiaLiteDB.h"
#include "UiText.h"

#include <QFile>
#include <QPixmap>

namespace {

constexpr int kImageWidth = 100;

QString paragraph(const char* label, const QString& value) {
    return QString("<p>%1 <b>%2</b></p>").arg(label, value.toHtmlEscaped());
}

QString placeOf(const SQLiteDB* db) {
    return db == nullptr ? QString("not open") : toQString(db->dbPath());
}

} // namespace

AboutMsgBox::AboutMsgBox(const QString& image, const SQLiteDB* soundingDB, const SQLiteDB* geoDB, QWidget* parent)
    : QMessageBox(parent) {
    setWindowTitle("About Tarvo");
    setIconPixmap(QPixmap(image).scaledToWidth(kImageWidth, Qt::SmoothTransformation));
    const RevisionInfo info;
    const auto fact = [&info](const char* key) { return toQString(info.text(key)); };
    QFile shipped(":tarvo.xml");
    setTextFormat(Qt::RichText);
    setText("<h2>Tarvo " + fact("REPO_TAG").toHtmlEscaped() + "</h2><p>Sounding Quality Workbench</p>" +
            paragraph("Revision:", fact("REPO_REVISION")) + paragraph("Last Change Date:", fact("REPO_DATE")) +
            paragraph("Qt Version:", qVersion()) +
            paragraph("Tarvo Config Version:", QString::number(InitTarvoFiles::configVersion(&shipped), 'f', 2)) +
            paragraph("Sounding Database:", placeOf(soundingDB)) + paragraph("Geo Database:", placeOf(geoDB)) +
            paragraph("SpatiaLiteDB:", toQString(SpatiaLiteDB::libraryVersion())) +
            paragraph("Repository id:", fact("REPO_HASH")) + paragraph("Repository branch:", fact("REPO_BRANCH")));
    setStandardButtons(QMessageBox::Ok);
}
