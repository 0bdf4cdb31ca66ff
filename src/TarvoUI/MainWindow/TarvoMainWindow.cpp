#include "TarvoMainWindow.h"

#include "AboutMsgBox.h"
#include "InitTarvoFiles.h"
#include "RevisionInfo.h"
#include "SynopticWidget.h"
#include "TarvoConfigMgt.h"
#include "TarvoSettings.h"
#include "TarvoViewController.h"
#include "UiText.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDesktopServices>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimerEvent>
#include <QToolBar>
#include <QUrl>
#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kLetterSize = 20;        // pixels
constexpr int kAutoOpenDelay = 1000;   // ms
constexpr int kFlashPeriod = 700;      // ms
constexpr int kTextSizeMessage = 1000; // ms
constexpr int kSmallestText = 4;       // points
constexpr int kLargestText = 60;
const char* const kBoxTitle = "TARVO";
const char* const kRecomputeNeeded = "Data or QC parameter(s) modified, recompute is needed.";
const char* const kRecompute = "Recompute";

} // namespace

const QLoggingCategory& mainWindowLog() {
    static const QLoggingCategory category("tarvo.mainwindow", QtWarningMsg);
    return category;
}

TarvoMainWindow::TarvoMainWindow(QWidget* parent)
    : QMainWindow(parent), _mdiArea(new QMdiArea(this)), _recomputeIconA(":/tarvo_icons/recompute1.png"),
      _recomputeIconB(":/tarvo_icons/recompute2.png"),
      _letterV(QPixmap(":/Images/LetterV.png")
                   .scaled(kLetterSize, kLetterSize, Qt::KeepAspectRatio, Qt::SmoothTransformation)),
      _letterQ(QPixmap(":/Images/LetterQ.png")
                   .scaled(kLetterSize, kLetterSize, Qt::KeepAspectRatio, Qt::SmoothTransformation)) {
    setObjectName("TarvoMainWindow");
    QApplication::setWindowIcon(QIcon(":/tarvo_icons/tarvo.png")); // of boxes without a parent too
    setWindowTitle("Tarvo " + toQString(RevisionInfo().text("REPO_REVISION")));
    setCentralWidget(_mdiArea);
    _mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    _mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setAcceptDrops(true);
    makeActions();
    makeMenus();
    makeToolBar();
    makeStatusBar();
    InitTarvoFiles files(TarvoSettings::kApplication);
    qCInfo(mainWindowLog) << "Configuration file:" << TarvoSettings::configFile();
    connect(_mdiArea, &QMdiArea::subWindowActivated, this, &TarvoMainWindow::updateMenus);
    connect(this, &TarvoMainWindow::appFontSize, this, &TarvoMainWindow::setAppStyleSheet);
    updateMenus();
    _recentFiles.read();
    updateRecentFileActions();
    fillMenuFile();
    if (!checkConfigFile()) {
        std::exit(1);
    }
    updateStatusBar("Ready");
    openSoundingDB();
    initConfigSet();
    if (isOn("OpenMaximized")) {
        showMaximized();
    }
    _autoOpenTimer = startTimer(kAutoOpenDelay, Qt::CoarseTimer);
    _configSet->intValue("TextSizePt", _textSizePt);
    _fontFamily = configText("FontFamily");
    setAppStyleSheet(NoChange);
}

TarvoMainWindow::~TarvoMainWindow() {
    // The windows go ahead of the printer and the database that they borrow.
    _mdiArea->disconnect(this);
    if (_synoptic != nullptr) {
        _synoptic->disconnect(this);
    }
    delete _mdiArea;
}

bool TarvoMainWindow::checkConfigFile() {
    const QString path = TarvoSettings::configFile();
    if (!QFile(path).open(QIODevice::ReadOnly)) {
        QMessageBox::critical(
            this, kBoxTitle,
            QString("Unable to access the configuration file:\n\n'%1'\n\nTerminating the application!").arg(path));
        return false;
    }
    if (RegistryXML(path.toStdString(), "").status() != RegistryXML::LOADED) {
        QMessageBox::critical(this, kBoxTitle,
                              "There is a problem with the XML configuration file.\n"
                              "It needs to be fixed before Tarvo can proceed\n\n"
                              "Sorry, but Tarvo has to exit. :-(\n\n"
                              "(Hint - after a new Tarvo install, you may need to logoff\n"
                              "and login again several times to correct this.\n"
                              "Another Hint - try opening the XML file in a web browser.)");
        return false;
    }
    return true;
}

void TarvoMainWindow::initConfigSet() {
    _configSet.reset();
    _registry = std::make_unique<RegistryXML>(TarvoSettings::configFile().toStdString(), "");
    _configSet = std::make_unique<TarvoConfigSet>(_registry.get());
}

bool TarvoMainWindow::isOn(const char* key) const {
    bool on = false;
    _configSet->boolValue(key, on);
    return on;
}

QString TarvoMainWindow::configText(const char* key) const {
    std::string text;
    _configSet->text(key, text);
    return toQString(text);
}

TarvoViewController* TarvoMainWindow::viewOf(const QMdiSubWindow* window) const {
    return window == nullptr ? nullptr : qobject_cast<TarvoViewController*>(window->widget());
}

TarvoViewController* TarvoMainWindow::activeView() const {
    // Also while another program has the keys, as when files are dropped from it.
    return viewOf(_mdiArea->currentSubWindow());
}

QMdiSubWindow* TarvoMainWindow::subWindowOf(const TarvoViewController* view) {
    return qobject_cast<QMdiSubWindow*>(view->parentWidget());
}

void TarvoMainWindow::updateStatusBar(const QString& message, int timeoutMs) {
    initConfigSet();
    statusBar()->showMessage(message, timeoutMs);
    showConfigName();
    _configDirLabel->setText("CONFIG DIR: " + QFileInfo(TarvoSettings().fileName()).path() + " ");
    int doQC = 0;
    _configSet->intValue("DoQC", doQC);
    _modeLabel->setPixmap(doQC == 0 ? _letterV : _letterQ);
    const QString mode =
        doQC == 0 ? "Tarvo is in visualization mode (no QC is performed)" : "Tarvo is in QC processing mode";
    _modeLabel->setToolTip(mode);
    _modeLabel->setAccessibleName(mode);
}

void TarvoMainWindow::showConfigName() {
    const TarvoViewController* view = activeView();
    QString name = view == nullptr ? QString() : view->activeConfigSet();
    if (name.isEmpty() && _registry != nullptr) {
        name = toQString(_registry->getActive1SetName());
    }
    _configLabel->setText("ACTIVE CONFIG: " + name + " ");
}

void TarvoMainWindow::processRequested(bool onlySignal) {
    if (!onlySignal) {
        recompute();
    } else {
        startFlash();
    }
}

void TarvoMainWindow::startFlash() {
    if (_recomputeTimer == 0) {
        _recomputeTimer = startTimer(kFlashPeriod, Qt::CoarseTimer);
        action("_actionRecompute")->setToolTip(kRecomputeNeeded);
    }
}

void TarvoMainWindow::stopFlash() {
    if (_recomputeTimer != 0) {
        killTimer(_recomputeTimer);
        _recomputeTimer = 0;
        _recomputeFlash = 0;
        action("_actionRecompute")->setIcon(_recomputeIconA);
        action("_actionRecompute")->setToolTip(kRecompute);
    }
}

void TarvoMainWindow::recompute() {
    TarvoViewController* view = activeView();
    if (_busy > 0 || view == nullptr) {
        return;
    }
    stopFlash();
    qCInfo(mainWindowLog) << "Recomputing" << view->currentFile();
    const Busy busy(_busy);
    view->process();
}

void TarvoMainWindow::timerEvent(QTimerEvent* event) {
    if (event->timerId() == _autoOpenTimer) {
        killTimer(_autoOpenTimer);
        _autoOpenTimer = 0;
        // Who was quicker than the timer isn't asked twice.
        if (isOn("AutoFile") && _busy == 0 && activeView() == nullptr) {
            open();
        }
    } else if (event->timerId() == _recomputeTimer) {
        action("_actionRecompute")->setIcon(_recomputeFlash % 2 != 0 ? _recomputeIconA : _recomputeIconB);
        ++_recomputeFlash;
    } else {
        QMainWindow::timerEvent(event);
    }
}

/// Asks the widget that has the keys for its menu, as the menu key does, which many keyboards lack.
void TarvoMainWindow::showContextMenu() {
    if (QWidget* widget = QApplication::focusWidget()) {
        const QPoint place = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
        QContextMenuEvent request(QContextMenuEvent::Keyboard, place, widget->mapToGlobal(place));
        QApplication::sendEvent(widget, &request);
    }
}

void TarvoMainWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        showContextMenu();
        return;
    }
    if (event->isAutoRepeat() || !event->modifiers().testFlag(Qt::ControlModifier)) {
        QMainWindow::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Minus:
        emit appFontSize(Smaller);
        break;
    case Qt::Key_Equal:
    case Qt::Key_Plus:
        emit appFontSize(Larger);
        break;
    default:
        QMainWindow::keyPressEvent(event);
    }
}

void TarvoMainWindow::setAppStyleSheet(TEXTCHANGE change) {
    if (change != NoChange) {
        _textSizePt += change == Larger ? 1 : -1;
    }
    _textSizePt = std::clamp(_textSizePt, kSmallestText, kLargestText);
    const QString sheet = textStyleSheet(_textSizePt, _fontFamily);
    for (QWidget* widget : {static_cast<QWidget*>(_mdiArea), static_cast<QWidget*>(menuBar()),
                            static_cast<QWidget*>(statusBar()), static_cast<QWidget*>(_toolBar)}) {
        widget->setStyleSheet(sheet);
    }
    if (change != NoChange) {
        statusBar()->showMessage(QString("                 %1:%2").arg(_fontFamily).arg(_textSizePt), kTextSizeMessage);
    }
}

void TarvoMainWindow::closeEvent(QCloseEvent* event) {
    if (_busy > 0) {
        event->ignore(); // a run that lets events through must find its window when it goes on
        return;
    }
    closeSoundings();
    event->accept();
}

void TarvoMainWindow::options() {
    TarvoViewController* view = activeView();
    if (_busy == 0 && view != nullptr) {
        const Busy busy(_busy);
        view->options(_mdiArea->subWindowList().size());
        readSynopticAnew();
    }
}

void TarvoMainWindow::configuration() {
    if (_busy > 0) {
        return;
    }
    const Busy busy(_busy);
    QDialog parent(this);
    TarvoConfigMgt management(TarvoSettings::kApplication, &parent, _soundingDB.get());
    management.setStyleSheet(textStyleSheet(_textSizePt, _fontFamily));
    connect(&management, &TarvoConfigMgt::configChanged, this, [this] { updateStatusBar(); });
    connect(&management, &TarvoConfigMgt::configChanged, this, &TarvoMainWindow::updateSynopticMapTitle);
    management.exec();
    readSynopticAnew();
}

void TarvoMainWindow::restoreDefaults() {
    if (TarvoViewController* view = activeView()) {
        view->restoreConfigDefaults();
    }
}

void TarvoMainWindow::save() {
    if (TarvoViewController* view = activeView()) {
        view->save();
    } else if (SynopticWidget* map = activeSynoptic()) {
        map->save();
    }
}

void TarvoMainWindow::print() {
    if (TarvoViewController* view = activeView()) {
        view->print();
    } else if (SynopticWidget* map = activeSynoptic()) {
        map->print();
    }
}

void TarvoMainWindow::printPreview() {
    if (TarvoViewController* view = activeView()) {
        view->printPreview();
    } else if (SynopticWidget* map = activeSynoptic()) {
        map->printPreview();
    }
}

void TarvoMainWindow::about() {
    AboutMsgBox(":/tarvo_icons/tarvo.png", _soundingDB.get(), _geoDB.get(), this).exec();
}

void TarvoMainWindow::openDocument(const QString& path, const QString& failure) {
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path))) {
        qCWarning(mainWindowLog) << "No program opens" << path;
        QMessageBox::critical(this, "ERROR", failure);
    }
}

void TarvoMainWindow::UserManual() {
    openDocument(TarvoSettings().value(TarvoSettings::kManual).toString(), "Unable to open the Tarvo User Manual!");
}

void TarvoMainWindow::ConfigLog() {
    openDocument(TarvoSettings().value(TarvoSettings::kConfigLog).toString(), "Unable to open the Tarvo Config Log!");
}

void TarvoMainWindow::TarvoDocs() {
    const QUrl site(toQString(RevisionInfo().text("REPO_URL")));
    if (!site.scheme().startsWith("http") || !QDesktopServices::openUrl(site)) {
        QMessageBox::critical(this, "ERROR", "Unable to open the TarvoDocs website!");
    }
}
