#include "TarvoViewController.h"

#include "Boxes.h"
#include "CommView.h"
#include "LevelsView.h"
#include "MainView.h"
#include "QCView.h"
#include "RawView.h"
#include "SkewTView.h"
#include "SoundingDB.h"
#include "SummaryView.h"
#include "TarvoAdvConfigController.h"
#include "TarvoSettings.h"
#include "UiText.h"
#include "WMOView.h"
#include "WaitCursor.h"
#include "XYgraphView.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMdiArea>
#include <QMessageBox>
#include <QVBoxLayout>
#include <algorithm>

namespace {

const char* const kSteps = "Processing Steps";
const char* const kConfigurationTitle = "Configuration Management";

QString elapsedText(const QElapsedTimer& timer) {
    constexpr double kMillisecondsPerSecond = 1000.0;
    return durationText(static_cast<double>(timer.elapsed()) / kMillisecondsPerSecond);
}

template <typename View>
TarvoView* make(DocumentController* doc, QPrinter* printer, QWidget* parent) {
    return new View(doc, printer, parent);
}

} // namespace

struct TarvoViewController::Tab {
    const char* text;
    const char* status;         ///< while it is updated
    const char* autoSaveStatus; ///< null for a tab that saves nothing by itself
    int autoSaveOrder;
    int updateOrder;
    enum Condition { Always, WithQC, DropWithQC } condition;
    TarvoView* (*make)(DocumentController* doc, QPrinter* printer, QWidget* parent);
};

/// In the order in which they stand.
const std::vector<TarvoViewController::Tab>& TarvoViewController::tabTable() {
    static const std::vector<Tab> tabs{
        {"&Main", "Main ", nullptr, 0, 1, Tab::Always, &make<MainView>},
        {"&Raw", "Raw ", nullptr, 0, 2, Tab::Always, &make<RawView>},
        {"&QC", "QC ", "QC autosaving", 1, 3, Tab::WithQC, &make<QCView>},
        {"&XY Graph", "XY ", nullptr, 0, 4, Tab::Always, &make<XYgraphView>},
        {"Skew-&T", "SkewT ", "SkewT autosaving", 2, 5, Tab::Always, &make<SkewTView>},
        {"&Levels", "levels ", "Levels autosaving", 4, 6, Tab::WithQC, &make<LevelsView>},
        {"&WMO", "WMO ", "WMO autosaving", 3, 8, Tab::WithQC, &make<WMOView>},
        {"&Comm", "Comm ", nullptr, 0, 7, Tab::DropWithQC, &make<CommView>},
        {"&Summary", "Summary ", "Summary autosaving", 5, 9, Tab::WithQC, &make<SummaryView>},
    };
    return tabs;
}

TarvoViewController::TarvoViewController(QPrinter* printer, SoundingDB* soundingDB, StatusAgent& statusAgent,
                                         QWidget* parent)
    : QWidget(parent), _soundingDB(soundingDB), _statusAgent(&statusAgent), _viewWidget(new TabWidget(this)),
      _registry(std::make_unique<RegistryXML>(TarvoSettings::configFile().toStdString(), "")),
      _configSet(std::make_unique<TarvoConfigSet>(_registry.get())), _printer(printer) {
    setAttribute(Qt::WA_DeleteOnClose);
    _viewWidget->setObjectName("_viewWidget");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(_viewWidget);
}

TarvoViewController::~TarvoViewController() {
    // The tabs go ahead of the document and the configuration that they borrow. Connections of Qt itself must stay: by
    // them its style sheets and screen readers hear that a widget goes, and forget it.
    disconnect(_viewWidget, &QTabWidget::currentChanged, nullptr, nullptr);
    delete _viewWidget;
}

bool TarvoViewController::isOn(const char* key) const {
    bool on = false;
    _configSet->boolValue(key, on);
    return on;
}

bool TarvoViewController::openFile(const QString& path, QString& message) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        message = "Unable to open sounding file!";
        return false;
    }
    if (file.atEnd()) {
        message = "Sounding file is empty!";
        return false;
    }
    file.close();
    setCurrentFile(path);
    std::string error;
    {
        const WaitCursor wait;
        _doc = std::make_unique<DocumentController>(_curFile.toStdString(), _configSet.get());
        const bool valid = _doc->initializeDocument(*_statusAgent, error);
        message = toQString(error);
        if (!valid) {
            return false;
        }
    }
    createTabs();
    addTabs();
    connectSignals();
    return true;
}

void TarvoViewController::setCurrentFile(const QString& path) {
    _curFile = QFileInfo(path).canonicalFilePath();
    setWindowTitle(QFileInfo(_curFile).fileName());
    setWindowModified(false);
}

void TarvoViewController::createTabs() {
    QElapsedTimer timer;
    timer.start();
    _viewWidget->setUpdatesEnabled(false);
    int doQC = 0;
    _configSet->intValue("DoQC", doQC);
    std::string type;
    const bool isDrop = editor()->soundingType(type) == SoundingType::Ombra;
    for (const Tab& tab : tabTable()) {
        if (tab.condition == Tab::Always || (doQC != 0 && (tab.condition == Tab::WithQC || isDrop))) {
            TarvoView* view = tab.make(_doc.get(), _printer, _viewWidget);
            connect(view, &TarvoView::processRequest, this, &TarvoViewController::processRequest);
            _tabs.emplace_back(&tab, view);
        }
    }
    _viewWidget->setUpdatesEnabled(true);
    _doc->summaryAddItem(kSteps, "Tabs created (in " + elapsedText(timer).toStdString() + "s)");
}

void TarvoViewController::addTabs() {
    for (const auto& [tab, view] : _tabs) {
        _viewWidget->addTab(view, tab->text);
    }
    _activeTab = _tabs.front().second;
    _viewWidget->setCurrentIndex(0);
}

void TarvoViewController::connectSignals() {
    connect(_viewWidget, &QTabWidget::currentChanged, this, &TarvoViewController::tabChanged);
    connect(_viewWidget, &QTabWidget::tabBarClicked, this, &TarvoViewController::tabClicked);
    if (LevelsView* levels = levelsView()) {
        connect(levels, &LevelsView::levelsChanged, this, &TarvoViewController::levelsChanged);
        connect(levels, &LevelsView::databaseFailed, this, &TarvoViewController::databaseFailed);
    }
}

LevelsView* TarvoViewController::levelsView() const {
    return _viewWidget->findChild<LevelsView*>();
}

void TarvoViewController::setSoundingDB(SoundingDB* soundingDB) {
    _soundingDB = soundingDB;
    if (LevelsView* levels = levelsView()) {
        levels->setSoundingDB(soundingDB);
    }
}

void TarvoViewController::process() {
    _running = true;
    _needsRun = false;
    const WaitCursor wait;
    const std::string problems = _doc->process();
    if (!problems.empty()) {
        Boxes::displayErrorMessage(toQString(problems), false, "Processing Alert");
    }
    addSoundingToDB();
    _statusAgent->SetStatus("Updating tabs...");
    updateTabs();
    emit processDone(_curFile);
    if (isOn("QCAutoSaveEnable")) {
        _statusAgent->SetStatus("Autosaving...");
        autoSave();
    }
    _lastOptions = runOptions();
    _statusAgent->SetStatus("Ready");
    _running = false;
}

void TarvoViewController::addSoundingToDB() {
    if (_soundingDB == nullptr) {
        return;
    }
    std::string type;
    editor()->soundingType(type);
    const int id = _soundingDB->addSounding(_curFile.toStdString(), editor()->getSndMetaData(true), type);
    if (LevelsView* levels = levelsView()) {
        levels->setSoundingDB(id == -1 ? nullptr : _soundingDB); // which would only fail once more
    }
    if (id == -1) {
        QMessageBox::information(this, "Sounding Database Error",
                                 "Unable to add sounding \"" + _curFile +
                                     "\" to the database.\n"
                                     "This can happen if the synoptic map database version has been upgraded\n"
                                     "in a newer version of Tarvo. You will need to delete your old database,\n"
                                     "or change to a new database file name, in order start saving results in the\n"
                                     "new database format.\n");
    }
}

void TarvoViewController::updateTabs() {
    QElapsedTimer timer;
    timer.start();
    if (_rawChanged) {
        _doc->editor()->changeRawVer();
        _rawChanged = false;
    }
    auto updated = _tabs; // the message that is shown has what is entered for it
    std::sort(updated.begin(), updated.end(),
              [](const auto& a, const auto& b) { return a.first->updateOrder < b.first->updateOrder; });
    for (const auto& [tab, view] : updated) {
        _statusAgent->AppendStatus(tab->status);
        view->update();
    }
    _doc->summaryAddItem(kSteps, "Tabs updated (in " + elapsedText(timer).toStdString() + "s)");
}

void TarvoViewController::autoSave() {
    auto saving = _tabs;
    std::stable_sort(saving.begin(), saving.end(),
                     [](const auto& a, const auto& b) { return a.first->autoSaveOrder < b.first->autoSaveOrder; });
    for (const auto& [tab, view] : saving) {
        if (tab->autoSaveStatus != nullptr) {
            _statusAgent->AppendStatus(tab->autoSaveStatus);
            view->autoSave();
        }
    }
}

int TarvoViewController::save() {
    return _activeTab == nullptr ? 0 : _activeTab->save();
}

int TarvoViewController::print() {
    return _activeTab == nullptr ? 0 : _activeTab->print();
}

int TarvoViewController::printPreview() {
    return _activeTab == nullptr ? 0 : _activeTab->printPreview();
}

QString TarvoViewController::activeConfigSet() const {
    return toQString(_configSet->getSetName());
}

void TarvoViewController::processRequest(bool onlySignal) {
    // The mark comes first: a request that recomputes at once has run to its end when the signal returns.
    _rawChanged = true;
    request(onlySignal);
}

void TarvoViewController::request(bool onlySignal) {
    _needsRun = true;
    emit processRequested(onlySignal);
}

void TarvoViewController::saveConfiguration(bool immediateOnly) {
    const bool changed = _configSet->changed();
    if (changed) {
        _configSet->save(immediateOnly);
    }
    optionsChanged(changed);
}

std::map<std::string, std::pair<double, std::string>> TarvoViewController::runOptions() const {
    std::map<std::string, std::pair<double, std::string>> all;
    for (const auto& [id, item] : *_configSet) {
        if (!item->isImmediateSave()) {
            all[item->id()] = {item->value(), item->text()};
        }
    }
    return all;
}

void TarvoViewController::optionsChanged(bool runNeeded) {
    if (_activeTab != nullptr) {
        _activeTab->update(); // or its entries would be written back over the options
    }
    if (runNeeded || runOptions() != _lastOptions) {
        request(true);
    }
}

void TarvoViewController::tabChanged(int index) {
    auto* view = qobject_cast<TarvoView*>(_viewWidget->widget(index));
    if (view == nullptr) {
        return;
    }
    if (_activeTab != nullptr) {
        _activeTab->leavingView();
    }
    _activeTab = view;
    _activeTab->update();
}

/// What the user withdrew from coding, or took back, needs a new message.
void TarvoViewController::levelsChanged() {
    _doc->editor()->doWMO();
    if (auto* comm = _viewWidget->findChild<CommView*>()) {
        comm->update();
    }
}

void TarvoViewController::tabClicked(int index) {
    if (QWidget* view = _viewWidget->widget(index)) {
        _viewWidget->setCurrentIndex(index);
        view->show();
    }
}

void TarvoViewController::options(int windows) {
    QDialog dialog;
    dialog.setStyleSheet(window()->findChild<QMdiArea*>() == nullptr ? QString()
                                                                     : window()->findChild<QMdiArea*>()->styleSheet());
    const TarvoAdvConfigController controller(&dialog, _configSet.get(), _soundingDB, windows);
    connect(&controller, &TarvoAdvConfigController::saveConfiguration, this, &TarvoViewController::saveConfiguration);
    dialog.exec();
}

void TarvoViewController::restoreConfigDefaults() {
    const auto answer =
        QMessageBox::warning(this, kConfigurationTitle,
                             QString("Are you sure that you want to restore the defaults for the configuration '%1'?")
                                 .arg(activeConfigSet()),
                             QMessageBox::Ok | QMessageBox::Cancel);
    if (answer == QMessageBox::Ok) {
        _configSet->restoreDefault();
        optionsChanged(false);
        QMessageBox::information(this, "Tarvo",
                                 "QC Processing options have been set to default values."
                                 "You can save them when you close this sounding.");
    }
}

void TarvoViewController::closeEvent(QCloseEvent* event) {
    if (_running) {
        event->ignore(); // a run that lets events through must find its window when it goes on
        return;
    }
    promptAndSaveConfig();
    event->accept();
}

void TarvoViewController::promptAndSaveConfig() {
    if (!_configSet->changed()) {
        return;
    }
    const auto answer = QMessageBox::warning(
        nullptr, kConfigurationTitle,
        "QC processing options were changed.\nDo you want to save them as the current processing\noptions for the '" +
            activeConfigSet() + "' configuration set?",
        QMessageBox::Yes | QMessageBox::No | QMessageBox::NoToAll);
    if (answer == QMessageBox::NoToAll) {
        emit quitRequested();
        QCoreApplication::quit();
    } else if (answer == QMessageBox::Yes) {
        QMessageBox::information(nullptr, kConfigurationTitle,
                                 "The configuration '" + activeConfigSet() + "' is being saved...");
        _configSet->save(false);
    }
}
