#include "CommView.h"

#include "AbrHeader.h"
#include "Levels.h"
#include "RevisionInfo.h"
#include "UiText.h"
#include "WMO.h"
#include "WMOsection10.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryFile>
#include <ctime>

namespace {

constexpr int kHeaderSection = 0;
constexpr int kRemarksSection = 10;
constexpr int kLastFixedPort = 7; // "com8"; the index of a device is no place to find it again
constexpr int kNoObservation = 99;
constexpr double kHighestOfA = 100.0; // mb
constexpr double kLowestOfA = 2000.0;

std::vector<WMOsection*> sections(const WMO* wmo, int number) {
    std::vector<WMOsection*> found;
    if (wmo != nullptr) {
        wmo->findSection(number, found);
    }
    return found;
}

QString twoDigits(int number) {
    return QString("%1").arg(number, 2, 10, QChar('0'));
}

} // namespace

CommView::CommView(DocumentController* doc, QPrinter* printer, QWidget* parent) : TarvoView(doc, printer, parent) {
    makeForm();
    fillForm();
    configureSendToARWO();
    connectForm();
}

CommView::~CommView() {
    if (_process != nullptr) {
        _process->disconnect(this);
        _process->kill();
        _process->waitForFinished(1000);
    }
    cleanupWMOfile();
}

void CommView::setUpPage() {
    constexpr double kSide = 20.0; // mm
    constexpr double kRight = 15.0;
    _printer->setPageOrientation(QPageLayout::Landscape);
    _printer->setPageMargins(QMarginsF(kSide, kSide, kRight, kSide), QPageLayout::Millimeter);
}

void CommView::update() {
    setUpPage();
    if (_writtenVersion != _editor->WMOversion()) {
        _writtenVersion = _editor->WMOversion();
        updateAbrHeader();
        update61616();
        update62626();
    }
    updateDoubtfulHts();
    configureSendToARWO();
    _topLabel->setText(_description);
}

std::string CommView::forceLength(std::string text, int n) {
    text.resize(static_cast<std::size_t>(n), ' ');
    return text;
}

// --- The message.

void CommView::updateAbrHeader() {
    const auto headers = sections(_editor->wmo(), kHeaderSection);
    if (headers.empty()) {
        return;
    }
    const SndMetaData meta = _editor->getSndMetaData(true);
    const bool hasPlace = meta.launchLat.avail(false) && meta.launchLon.avail(false);
    const int correction = _correctionNum->text().trimmed().toInt();
    const std::string bbb = correction > 0 ? "COR " + twoDigits(correction).toStdString() : "";
    const std::time_t nominal = _doc->nominalTime();
    std::tm utc{};
    gmtime_r(&nominal, &utc);
    for (WMOsection* section : headers) {
        if (auto* header = dynamic_cast<AbrHeader*>(section)) {
            header->create(_icao->currentText().toStdString(), bbb, utc.tm_mday, utc.tm_hour, utc.tm_min,
                           hasPlace ? meta.launchLat.value() : 0.0, hasPlace ? meta.launchLon.value() : 0.0,
                           _abrHdrOvr->text().trimmed().toStdString());
        }
    }
}

void CommView::update61616() {
    const int given = _obsNum->text().trimmed().toInt();
    const auto field = [](const QLineEdit* edit, int length) {
        return forceLength(edit->text().trimmed().toStdString(), length) + " ";
    };
    const std::string text = field(_agencyAC, 5) + field(_missionStorm, 5) + field(_missionId, 12) + "OB " +
                             twoDigits(given < 1 ? kNoObservation : given).toStdString();
    for (WMOsection* section : sections(_editor->wmo(), kRemarksSection)) {
        if (auto* remarks = dynamic_cast<WMOsection10*>(section)) {
            remarks->set61616(text);
        }
    }
}

void CommView::update62626() {
    WMOsection10::Remarks remarks;
    remarks.text = _environment->currentText().toStdString();
    if (remarks.text == "EYEWALL") {
        const int azimuth = _azimuth->currentText().section(" (", 0, 0).toInt();
        remarks.text += QString(" %1").arg(azimuth, 3, 10, QChar('0')).toStdString();
    }
    const QString retransmitted = _retrans->text().simplified();
    remarks.retransmitObNum = retransmitted.isEmpty() ? -1 : retransmitted.toInt();
    remarks.corrected = _correctedReport->isChecked();
    remarks.lastReport = _lastReport->isChecked();
    remarks.aev = RevisionInfo().text("TARVO_AEV");
    remarks.atcf = _atcf->text().trimmed().toStdString();
    const SndMetaData meta = _editor->getSndMetaData(true);
    for (WMOsection* section : sections(_editor->wmo(), kRemarksSection)) {
        if (auto* found = dynamic_cast<WMOsection10*>(section)) {
            found->set62626(remarks, meta);
        }
    }
}

/// Parts A and C each say it of their standard levels, once in each message.
void CommView::updateDoubtfulHts() {
    WMO* wmo = _editor->wmo();
    const Levels* levels = _editor->levels();
    const bool said = _doubtfulVersion == _editor->WMOversion();
    if (wmo == nullptr || levels == nullptr || said == _doubtfulHeights->isChecked()) {
        return;
    }
    struct Part {
        WMOpartType part;
        double from;
        double below;
    };
    for (const Part& part : {Part{WMOpartType::A, kHighestOfA, kLowestOfA}, Part{WMOpartType::C, 0.0, kHighestOfA}}) {
        const auto standard = levels->subsetByType(LevelType::Standard, part.from, part.below, true);
        double lowest = part.from;
        double highest = part.below;
        for (const Level& level : standard) {
            const double pressure = level.getField(LFpres)->value();
            lowest = &level == &standard.front() ? pressure : std::min(lowest, pressure);
            highest = &level == &standard.front() ? pressure : std::max(highest, pressure);
        }
        if (!standard.empty()) {
            wmo->doubtfulHts(_doubtfulHeights->isChecked(), lowest, highest, part.part, *levels);
        }
    }
    _doubtfulVersion = _doubtfulHeights->isChecked() ? _editor->WMOversion() : -1;
}

std::vector<std::string> CommView::textFromWMO() const {
    return _editor->wmo() == nullptr ? std::vector<std::string>() : _editor->wmo()->textLines();
}

// --- The entries.

bool CommView::storeText(const char* item, const QLineEdit* edit) {
    const QString text = edit->text().trimmed();
    if (text == configText(item)) {
        return false;
    }
    _configSet->set(item, text.toStdString());
    saveConfig();
    return true;
}

void CommView::storeNumber(const char* item, int value) {
    _configSet->set(item, static_cast<double>(value));
    saveConfig();
}

bool CommView::takeModified(QLineEdit* edit) {
    const bool modified = edit->isModified();
    edit->setModified(false);
    return modified;
}

void CommView::changeAbrHdrOvr() {
    if (storeText("AbrHdrOvr", _abrHdrOvr)) {
        updateAbrHeader();
    }
}

void CommView::clearAbrHdrOvr() {
    _abrHdrOvr->clear();
    changeAbrHdrOvr();
}

void CommView::changeCorrectionNum() {
    if (takeModified(_correctionNum)) {
        updateAbrHeader();
    }
}

void CommView::changeDoubtfulHts() {
    updateDoubtfulHts();
}

void CommView::changeAcAgency() {
    if (storeText("ACagency", _agencyAC)) {
        update61616();
    }
}

void CommView::changeMissionStorm() {
    if (storeText("MissionStorm", _missionStorm)) {
        update61616();
    }
}

void CommView::changeMissionId() {
    if (storeText("MissionId", _missionId)) {
        update61616();
    }
}

void CommView::changeObsNum() {
    if (!takeModified(_obsNum)) {
        return;
    }
    bool isNumber = false;
    const int number = _obsNum->text().trimmed().toInt(&isNumber);
    if (!isNumber) {
        _obsNum->clear();
        _obsNum->setModified(false);
    }
    _configSet->set("ObsNum", static_cast<double>(isNumber ? number : kNoObservation));
    update61616();
    update62626();
}

void CommView::changeIcao(int index) {
    storeNumber("IcaoIndex", index);
    updateAbrHeader();
}

void CommView::changeEnvironment(int /*index*/) {
    const bool eyewall = _environment->currentText() == "EYEWALL";
    _azimuth->setEnabled(eyewall);
    if (!eyewall) {
        _azimuth->setCurrentIndex(0);
    }
    update62626();
}

void CommView::changeAzimuth(const QString& /*text*/) {
    update62626();
}

void CommView::changeAtcf() {
    if (storeText("AtcfId", _atcf)) {
        update62626();
    }
}

void CommView::changeRetransObnum() {
    if (takeModified(_retrans)) {
        update62626();
    }
}

void CommView::changeCorrected() {
    update62626();
}

void CommView::changeLastReport() {
    update62626();
}

void CommView::changeCommPort(int index) {
    if (index <= kLastFixedPort) {
        storeNumber("CommPortIndex", index);
    }
}

void CommView::changeBaudRate(int index) {
    storeNumber("BaudRateIndex", index);
}

// --- The transfer.

void CommView::configureSendToARWO() {
    if (_process == nullptr) {
        _kermitPath = configText("KermitPath").toStdString();
    }
    const QFileInfo kermit(toQString(_kermitPath));
    const bool isProgram = kermit.isFile() && kermit.isExecutable();
    QString hindrance;
    if (isOn("DisableKermit")) {
        hindrance = "The transfer is switched off in the configuration";
    } else if (!isProgram) {
        hindrance = "There is no program at " + toQString(_kermitPath);
    } else if (textFromWMO().empty()) {
        hindrance = "There is no message to send";
    }
    _sendMsg->setEnabled(hindrance.isEmpty() && _process == nullptr);
    _sendMsg->setToolTip(hindrance);
}

void CommView::tellFailure(const QString& detail) {
    auto* box = new QMessageBox(QMessageBox::Warning, "ARWO Error", "The WMO message transfer to the ARWO failed.",
                                QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(detail);
    box->setModal(false);
    box->show();
}

void CommView::sendMessage() {
    if (_process != nullptr) {
        return;
    }
    QTemporaryFile file(QDir::tempPath() + "/tarvo_XXXXXX.txt");
    file.setAutoRemove(false);
    std::string text;
    for (const std::string& line : textFromWMO()) {
        text += line + "\r\n";
    }
    const bool opened = file.open();
    if (opened) {
        _messageFile = file.fileName();
    }
    if (!opened || file.write(text.data(), static_cast<qint64>(text.size())) != static_cast<qint64>(text.size()) ||
        !file.flush()) {
        file.close();
        cleanupWMOfile();
        tellFailure("Cannot create temporary file to hold the WMO message.");
        return;
    }
    file.close();
    _process =
        new ZmodemProcess(_kermitPath, _messageFile.toStdString(), _commPort->currentText().trimmed().toStdString(),
                          _baudRate->currentText().toStdString(), this);
    connect(_process, &QProcess::errorOccurred, this, &CommView::zmodemError);
    connect(_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this, &CommView::zmodemFinished);
    connect(_process, &QProcess::started, this, &CommView::zmodemStarted);
    _sendStatus->setText("Starting ARWO message transfer");
    _sendMsg->setEnabled(false);
    _process->transmit();
}

void CommView::zmodemStarted() {
    _sendStatus->setText("ARWO message transfer started");
    _sendClear->setText("Cancel");
}

void CommView::forgetProcess() {
    if (_process != nullptr) {
        _process->disconnect(this);
        _process->deleteLater();
        _process = nullptr;
    }
    cleanupWMOfile();
    _sendClear->setText("Clear");
    configureSendToARWO();
}

void CommView::clearSendStatus() {
    if (_process != nullptr) {
        _process->disconnect(this);
        _process->kill();
        forgetProcess();
    }
    _sendClear->setText("Clear");
    _sendStatus->clear();
}

void CommView::zmodemFinished(int exitCode, QProcess::ExitStatus status) {
    const bool success =
        exitCode == 0 && status == QProcess::NormalExit && (_process == nullptr || _process->hasSent());
    _sendStatus->setText(success ? "ARWO message transfer success" : "ARWO message transfer failed");
    if (!success) {
        tellFailure("Is the ARWO computer available? \n\nAre the com port and baud rate set correctly? \n\n"
                    "Is kermit installed and the correct path set?");
    }
    forgetProcess();
}

void CommView::zmodemError(QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) {
        tellFailure("Is the ARWO computer available? \n\nAre the com port and baud rate set correctly? \n\n"
                    "Is kermit installed and the correct path set?");
    }
    forgetProcess();
    _sendStatus->setText("ARWO message transfer failed");
}

void CommView::cleanupWMOfile() {
    if (!_messageFile.isEmpty()) {
        QFile::remove(_messageFile);
        _messageFile.clear();
    }
}

// --- Printing.

int CommView::printPreview() {
    setUpPage();
    return previewGrab("Tarvo - Print Preview Comm");
}

void CommView::commPreview(QPrinter* printer) {
    paintGrab(printer);
}

int CommView::print() {
    setUpPage();
    return printGrab("Tarvo - Print Comm");
}
