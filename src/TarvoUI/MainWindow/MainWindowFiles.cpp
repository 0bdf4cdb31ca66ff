// How the main window opens and closes files.

#include "FileDialogKeys.h"
#include "TarvoMainWindow.h"
#include "TarvoSettings.h"
#include "TarvoViewController.h"
#include "UiText.h"

#include <QCoreApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QStatusBar>
#include <QUrl>
#include <algorithm>

namespace {

constexpr int kLoadedMessage = 2500; // ms
constexpr int kProgressPlace = 1;    // among the permanent widgets of the status bar
constexpr int kProgressWidth = 160;  // pixels
const char* const kOpenFilters = "OMBRA D files (D*.?);;OMBRA P files (D*_P.?);;OMBRA P1 files (D*_P1.?);;"
                                 "All D files (D*);;X files (X*.*);;All files (*)";

} // namespace

void TarvoMainWindow::open() {
    if (_busy > 0) {
        return;
    }
    const Busy busy(_busy); // the timer must not put a second dialog over this one
    initConfigSet();
    QString directory = isOn("FixedSrcEnabled") ? configText("FixedSrcDir") : configText("DataDir");
    if (directory.isEmpty() || !QDir(directory).exists()) {
        directory = QDir::homePath();
    }
    _recentFiles.read();
    QFileDialog dialog(this, "Tarvo - Open Sounding File", directory, kOpenFilters);
    dialog.setFileMode(QFileDialog::ExistingFile);
    reachFileTypesByKeys(dialog);
    dialog.selectNameFilter(configText("OpenFileSeleFilter"));
    const QString path = dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
    // Kept also when no file was chosen.
    _configSet->set("OpenFileSeleFilter", dialog.selectedNameFilter().toStdString());
    _configSet->save(false);
    QCoreApplication::processEvents(); // the dialog goes ahead of a long run
    if (path.isEmpty()) {
        return;
    }
    _configSet->set("DataDir", path.left(path.lastIndexOf('/') + 1).toStdString());
    _configSet->save(false);
    processFile(path);
}

void TarvoMainWindow::openRecentFile() {
    const auto* sender = qobject_cast<QAction*>(this->sender());
    if (sender != nullptr && _busy == 0) {
        processFile(sender->data().toString());
    }
}

int TarvoMainWindow::soundingCount() const {
    const auto windows = _mdiArea->subWindowList();
    return static_cast<int>(std::count_if(windows.begin(), windows.end(),
                                          [this](const QMdiSubWindow* window) { return viewOf(window) != nullptr; }));
}

bool TarvoMainWindow::isFull(const QString& path) {
    if (soundingCount() < kMostSoundings) {
        return false;
    }
    QMessageBox::critical(this, "ERROR",
                          "Cannot open file \"" + path + "\". Maximum of " + QString::number(kMostSoundings) +
                              " soundings can be open at a time.\nYou must close one before opening another.");
    return true;
}

TarvoViewController* TarvoMainWindow::findView(const QString& path) const {
    const QString canonical = QFileInfo(path).canonicalFilePath();
    for (const QMdiSubWindow* window : _mdiArea->subWindowList()) {
        TarvoViewController* view = viewOf(window);
        if (view != nullptr && !canonical.isEmpty() && view->currentFile() == canonical) {
            return view;
        }
    }
    return nullptr;
}

void TarvoMainWindow::processFile(const QString& path) {
    const Busy busy(_busy);
    initConfigSet();
    if (isFull(path)) {
        return;
    }
    _recentFiles.read();
    if (_recentFiles.contains(path)) {
        _recentFiles.add(path);
        _recentFiles.write();
    }
    if (TarvoViewController* view = findView(path)) {
        qCInfo(mainWindowLog) << "Open already:" << path;
        raiseWindow(subWindowOf(view));
        return;
    }
    const TarvoViewController* view = createViewsAndProcessFile(path);
    if (view != nullptr && isOn("descendingPELO")) {
        processDerivedFile(toQString(view->editor()->derivedSndFile()));
    }
}

/// An icon wouldn't show what the user asked for.
void TarvoMainWindow::raiseWindow(QMdiSubWindow* window) {
    _mdiArea->setActiveSubWindow(window);
    if (window->isMinimized()) {
        window->showMaximized();
    }
}

/// A reader may have made a second sounding out of its file. It is processed with the second active set, or with the
/// first where the configuration has no second one. One that couldn't be written is passed over.
void TarvoMainWindow::processDerivedFile(const QString& derived) {
    if (derived.isEmpty() || !QFileInfo::exists(derived) || findView(derived) != nullptr || isFull(derived)) {
        return;
    }
    const std::string first = _registry->getActive1SetName();
    std::string second = _registry->getActive2SetName();
    const std::vector<std::string> names = _registry->getSetNames();
    if (std::find(names.begin(), names.end(), second) == names.end()) {
        second = first; // a file that names an unknown set could not be read again
    }
    _registry->setActive1SetName(second);
    _registry->save(false);
    QMessageBox::information(
        this, "Descending PELO Sounding Processing",
        QString("Tarvo will now process the descending PELO sounding '%1' using configuration set '%2'.")
            .arg(derived, toQString(second)));
    createViewsAndProcessFile(derived);
    initConfigSet();
    _registry->setActive1SetName(first);
    _registry->save(false);
}

TarvoViewController* TarvoMainWindow::createViewsAndProcessFile(const QString& path) {
    if (_printer == nullptr) {
        _printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    }
    const QString configuration = TarvoSettings::configFile();
    if (RegistryXML(configuration.toStdString(), "").status() != RegistryXML::LOADED) {
        qCWarning(mainWindowLog) << "Not opened:" << path << "without" << configuration;
        QMessageBox::warning(this, "File Open Error",
                             QString("The sounding\n\"%1\"\nwasn't opened, because the configuration file\n\"%2\"\n"
                                     "can't be read.")
                                 .arg(path, configuration));
        return nullptr;
    }
    qCInfo(mainWindowLog) << "Opening" << path;
    auto* view = new TarvoViewController(_printer.get(), _soundingDB.get(), *_statusAgent, this);
    QString message;
    if (!view->openFile(path, message)) {
        qCWarning(mainWindowLog) << "Not opened:" << path << message;
        _statusAgent->SetStatus("Ready"); // nothing is being loaded any more
        QMessageBox::critical(this, "File Open Error", message);
        delete view;
        return nullptr;
    }
    if (!message.isEmpty()) {
        qCInfo(mainWindowLog) << "Opened with a warning:" << message;
        QMessageBox::warning(this, "File Open Warning", message);
    }
    connect(view->tabs(), &QTabWidget::currentChanged, this, &TarvoMainWindow::updateMenus);
    connect(view, &TarvoViewController::processRequested, this, &TarvoMainWindow::processRequested);
    connect(view, &TarvoViewController::quitRequested, this, [this] { _quitting = true; });
    connect(view, &TarvoViewController::processDone, this, &TarvoMainWindow::updateSounding);
    connect(view, &TarvoViewController::databaseFailed, this, &TarvoMainWindow::showDatabaseError);
    _mdiArea->addSubWindow(view);
    _recentFiles.read();
    if (!_recentFiles.contains(path)) {
        _recentFiles.add(path);
    }
    showView(view);
    updateStatusBar(QString("File '%1' loaded.").arg(QFileInfo(path).fileName()), kLoadedMessage);
    QElapsedTimer timer;
    timer.start();
    view->process();
    qCDebug(mainWindowLog) << "Processed in" << timer.elapsed() << "ms:" << path;
    updateMenus();
    _recentFiles.write();
    return view;
}

void TarvoMainWindow::showView(TarvoViewController* view) {
    // Otherwise each change of a window goes through all widgets of all windows, twice.
    _mdiArea->setUpdatesEnabled(false);
    view->show();
    arrangeIcons();
    QMdiSubWindow* window = subWindowOf(view);
    _mdiArea->setActiveSubWindow(window);
    window->showMaximized();
    _mdiArea->setUpdatesEnabled(true);
}

void TarvoMainWindow::closeFile() {
    if (_busy == 0) {
        _mdiArea->closeActiveSubWindow();
    }
}

void TarvoMainWindow::closeAll() {
    if (_busy == 0) {
        closeSoundings();
    }
}

/// Each window may ask what becomes of its options, and an answer for all of them ends the asking.
void TarvoMainWindow::closeSoundings() {
    for (QMdiSubWindow* window : _mdiArea->subWindowList()) {
        if (_quitting) {
            return;
        }
        const TarvoViewController* view = viewOf(window);
        if (view != nullptr && view->configSet()->changed()) {
            raiseWindow(window); // the question doesn't say which sounding it is about
        }
        window->close();
    }
}

void TarvoMainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (_busy == 0 && event->mimeData()->hasFormat("text/uri-list")) {
        event->acceptProposedAction();
    }
}

void TarvoMainWindow::dragMoveEvent(QDragMoveEvent* /*event*/) {}

QStringList TarvoMainWindow::droppedFiles(const QMimeData* dropped) const {
    QStringList files;
    for (const QUrl& url : dropped->urls()) {
        const QFileInfo info(url.toLocalFile());
        if (info.isFile()) {
            files << info.filePath();
        } else if (!url.toLocalFile().isEmpty() && info.isDir()) {
            for (const QFileInfo& entry : QDir(info.filePath()).entryInfoList(QDir::Files, QDir::Name)) {
                files << entry.absoluteFilePath();
            }
        }
    }
    return files;
}

void TarvoMainWindow::dropEvent(QDropEvent* event) {
    const QStringList files = droppedFiles(event->mimeData());
    event->acceptProposedAction();
    if (files.isEmpty() || _busy > 0) {
        return;
    }
    const Busy busy(_busy);
    auto* progress = new QProgressBar(this);
    progress->setObjectName("_progressBar");
    progress->setRange(0, files.size());
    progress->setValue(0);
    progress->setTextVisible(true);
    progress->setFixedSize(kProgressWidth, _statusAgent->sizeHint().height());
    statusBar()->insertPermanentWidget(kProgressPlace, progress);
    for (int i = 0; i < files.size() && !isFull(files[i]); ++i) {
        progress->setFormat(QString("Opening %1 of %2").arg(i + 1).arg(files.size()));
        progress->setValue(i);
        processFile(files[i]);
    }
    statusBar()->removeWidget(progress);
    delete progress;
}
