// Pictures of the map: saved, printed.

#include "SynopticWidget.h"

#include "AtomicFile.h"
#include "Boxes.h"

#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFrame>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>

Q_LOGGING_CATEGORY(synopticLog, "tarvo.synoptic", QtWarningMsg)

namespace {

const char* const kFilters = "JPEG Image (*.jpg);;PNG Image (*.png)";
const char* const kPngFilter = "PNG Image (*.png)";
constexpr QSize kSmallestPreview(750, 600);

/// Whole or not at all.
bool saveImage(const QImage& image, const QString& path, const char* format) {
    AtomicFile file(path.toStdString());
    return file.isOpen() && image.save(QString::fromStdString(file.temporaryPath()), format) && file.commit();
}

bool isPng(const QString& filter) {
    return filter == kPngFilter;
}

} // namespace

QImage SynopticWidget::grabMap(const char* purpose) {
    const QPixmap picture = _mapFrame->grab();
    if (picture.isNull()) {
        qCWarning(synopticLog) << "Failed to capture the synoptic map for" << purpose;
    }
    return picture.toImage();
}

QString SynopticWidget::suggestedName(const QString& rest) const {
    return QDir::homePath() + "/SynMap_" + rest;
}

void SynopticWidget::save() {
    const QImage image = grabMap("saving");
    if (image.isNull()) {
        return;
    }
    QString filter = kPngFilter;
    const QString title = "Tarvo - Save Synoptic Map";
    const QString chosen = QFileDialog::getSaveFileName(
        this, title, suggestedName(_levelSelect->currentText().remove(' ')), kFilters, &filter);
    const QString path = Boxes::withExtension(this, chosen, filter, title);
    if (path.isEmpty()) {
        return;
    }
    if (!saveImage(image, path, isPng(filter) ? "PNG" : "JPEG")) {
        QMessageBox::critical(this, "File Save Error", "Tarvo can't save the file.");
    }
}

void SynopticWidget::saveAll() {
    QString filter = kPngFilter;
    const QString suggested = suggestedName(QDateTime::currentDateTimeUtc().toString("yyyyMMdd_hhmmss") + "_LevelName");
    QString prefix = QFileDialog::getSaveFileName(this, "Tarvo - Save Synoptic Maps", suggested, kFilters, &filter);
    if (prefix.isEmpty()) {
        return;
    }
    for (const char* text : {"LevelName", ".jpg", ".png"}) {
        prefix.remove(text);
    }
    const QString extension = isPng(filter) ? "png" : "jpg";
    QProgressDialog progress("Saving levels...", "Cancel", 0, _levelSelect->count(), this);
    progress.setWindowTitle("Saving Levels...");
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);
    _levelHasData = false;
    bool failed = false;
    for (int i = 0; i < _levelSelect->count() && !failed; ++i) {
        progress.setValue(i);
        if (progress.wasCanceled()) {
            break;
        }
        const QString text = _levelSelect->itemText(i);
        _level = stationLevel(text);
        updateStationModel();
        _map->setTopRightAnnotation(text);
        if (_levelHasData) {
            progress.setLabelText("Saving \"" + text + "\" level ...");
            QApplication::processEvents();
            const QImage image = grabMap("printing");
            failed = image.isNull() || !saveImage(image, prefix + QString(text).remove(' ') + "." + extension,
                                                  isPng(filter) ? "PNG" : "JPEG");
        }
    }
    progress.setValue(_levelSelect->count());
    _level = stationLevel(_levelSelect->currentText());
    updateStationModel();
    if (failed) {
        QMessageBox::critical(this, "File Save Error", "Tarvo can't save the file.");
    }
}

void SynopticWidget::drawOn(QPrinter* printer, const QImage& image) const {
    QPainter painter(printer);
    const QRect page = painter.viewport();
    const QSize size = image.size().scaled(page.size(), Qt::KeepAspectRatio);
    painter.setViewport(page.x(), page.y(), size.width(), size.height());
    painter.setWindow(image.rect());
    painter.drawImage(0, 0, image);
}

void SynopticWidget::print() {
    QPrintDialog dialog(_printer, this);
    dialog.setWindowTitle("Tarvo - Print Synoptic Map");
    if (dialog.exec() == QDialog::Accepted) {
        mapPreview(_printer);
    }
}

void SynopticWidget::printPreview() {
    QPrintPreviewDialog dialog(_printer, this);
    dialog.setWindowTitle("Tarvo - Print Preview Synoptic Map");
    dialog.setMinimumSize(kSmallestPreview);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this, &SynopticWidget::mapPreview);
    dialog.exec();
}

void SynopticWidget::mapPreview(QPrinter* printer) {
    const QImage image = grabMap("printing");
    if (!image.isNull()) {
        drawOn(printer, image);
    }
}
