// The form of the Comm tab.

#include "CommView.h"

#include "ScrolledForm.h"
#include "SerialPorts.h"
#include "UiText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QStringList kStations{"KBIX", "KHIK", "KISX", "KNHC", "KTRR", "KWBC"};
const QStringList kEnvironments{"", "CENTER", "EYEWALL", "RAINBAND", "MXWNDBND"};
const QStringList kAzimuths{"0 (N)", "45 (NE)", "90 (E)", "135 (SE)", "180 (S)", "225 (SW)", "270 (W)", "315 (NW) "};
const QStringList kPorts{"com1", "com2", "com3", "com4", "com5", "com6", "com7", "com8"};
const QStringList kBaudRates{"1200", "2400", "4800", "9600", "19200", "38400"};

QPushButton* makeButton(const char* name, const char* text, QWidget* parent) {
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    return button;
}

QCheckBox* makeBox(const char* name, const char* text, QWidget* parent) {
    auto* box = new QCheckBox(text, parent);
    box->setObjectName(name);
    return box;
}

} // namespace

void CommView::makeForm() {
    setObjectName("CommView");
    _canSave = false;
    _canRecompute = false;
    _topLabel = makeTopLabel("_comm_topLabel");
    auto* left = new QVBoxLayout;
    for (QGroupBox* box : {makeHeader(), makeDoubtful(), makeMission()}) {
        left->addWidget(box);
    }
    left->addStretch();
    auto* right = new QVBoxLayout;
    right->addWidget(makeRemarks());
    right->addWidget(makeComm());
    right->addStretch();
    auto* form = new QWidget(this);
    auto* columns = new QHBoxLayout(form);
    columns->addLayout(left);
    columns->addLayout(right);
    columns->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_topLabel);
    layout->addWidget(scrolled(form, this));
    letStyleSheetsForget(*form);
}

QLineEdit* CommView::addEdit(QFormLayout* form, const char* label, const char* name, const char* mask,
                             void (CommView::*slot)()) {
    auto* edit = new QLineEdit(this);
    edit->setObjectName(name);
    edit->setInputMask(mask);
    edit->setAccessibleName(label);
    form->addRow(label, edit);
    connect(edit, &QLineEdit::editingFinished, this, slot);
    return edit;
}

QComboBox* CommView::addCombo(QFormLayout* form, const char* label, const char* name, const QStringList& items) {
    auto* combo = new QComboBox(this);
    combo->setObjectName(name);
    combo->addItems(items);
    combo->setAccessibleName(label);
    form->addRow(label, combo);
    return combo;
}

QGroupBox* CommView::makeHeader() {
    auto* box = new QGroupBox("Abbreviated Header", this);
    auto* form = new QFormLayout(box);
    _icao = addCombo(form, "ICAO id", "_icao", QStringList("") + kStations);
    _abrHdrOvr = addEdit(form, "Abbreviated Header Override", "_abrHdrOvr", ">nnnnnn; ", &CommView::changeAbrHdrOvr);
    _abrHdrOvrClear = makeButton("_abrHdrOvrClear", "Clear", this);
    form->addRow("", _abrHdrOvrClear);
    _correctionNum = addEdit(form, "Correction Number", "_correctionNum", "00; ", &CommView::changeCorrectionNum);
    return box;
}

QGroupBox* CommView::makeDoubtful() {
    auto* box = new QGroupBox("51515 Group", this);
    auto* form = new QFormLayout(box);
    _doubtfulHeights = makeBox("_doubtfulHeights", "Doubtful Heights", this);
    form->addRow(_doubtfulHeights);
    return box;
}

QGroupBox* CommView::makeMission() {
    auto* box = new QGroupBox("61616 Group", this);
    auto* form = new QFormLayout(box);
    _agencyAC = addEdit(form, "Agency/Aircraft", "_agencyAC", ">nnnnn; ", &CommView::changeAcAgency);
    _missionStorm = addEdit(form, "Mission ID", "_missionStorm", ">nnnnn; ", &CommView::changeMissionStorm);
    _missionId = addEdit(form, "Mission Storm System", "_missionId", ">nnnnnnnnnnnn; ", &CommView::changeMissionId);
    _obsNum = addEdit(form, "Observation Number", "_obsNum", "00; ", &CommView::changeObsNum);
    return box;
}

QGroupBox* CommView::makeRemarks() {
    auto* box = new QGroupBox("62626 Group", this);
    auto* form = new QFormLayout(box);
    _environment = addCombo(form, "Environment", "_environment", kEnvironments);
    _azimuth = addCombo(form, "Azimuth", "_azimuth", kAzimuths);
    _azimuth->setEnabled(false);
    _atcf = addEdit(form, "ATCF Identifier", "_atcf", ">nnnnnnnn; ", &CommView::changeAtcf);
    _retrans = addEdit(form, "Retransmission of OB", "_retrans", "99; ", &CommView::changeRetransObnum);
    // Its mask wants both digits before it calls the entry finished.
    connect(_retrans, &QLineEdit::textEdited, this, &CommView::changeRetransObnum);
    _correctedReport = makeBox("_correctedReport", "Corrected Report", this);
    _lastReport = makeBox("_lastReport", "Last Report", this);
    form->addRow(_correctedReport);
    form->addRow(_lastReport);
    return box;
}

QGroupBox* CommView::makeComm() {
    auto* box = new QGroupBox("Comm", this);
    auto* form = new QFormLayout(box);
    _commPort = addCombo(form, "Com Port", "_commPort", kPorts + serialDevices());
    _commPort->setEditable(true);
    _commPort->setInsertPolicy(QComboBox::NoInsert);
    _commPort->setToolTip("A port, or the path of a device");
    _baudRate = addCombo(form, "Baud", "_baudRate", kBaudRates);
    _sendMsg = makeButton("_sendMsg", "Send TEMPDROP message to ARWO", this);
    form->addRow(_sendMsg);
    _sendStatus = new QLabel(this);
    _sendStatus->setObjectName("_sendStatus");
    _sendStatus->setWordWrap(true);
    _sendClear = makeButton("_sendClear", "Clear", this);
    form->addRow(_sendStatus);
    form->addRow(_sendClear);
    return box;
}

void CommView::fillForm() {
    const auto index = [this](const char* item) {
        int stored = 0;
        _configSet->intValue(item, stored);
        return stored;
    };
    _icao->setItemText(0, configText("OptIcao"));
    _icao->setCurrentIndex(index("IcaoIndex"));
    _agencyAC->setText(configText("ACagency"));
    _missionStorm->setText(configText("MissionStorm"));
    _missionId->setText(configText("MissionId"));
    _abrHdrOvr->setText(configText("AbrHdrOvr"));
    _atcf->setText(configText("AtcfId"));
    _commPort->setCurrentIndex(index("CommPortIndex"));
    _baudRate->setCurrentIndex(index("BaudRateIndex"));
}

void CommView::connectForm() {
    connect(_abrHdrOvrClear, &QPushButton::released, this, &CommView::clearAbrHdrOvr);
    connect(_doubtfulHeights, &QCheckBox::toggled, this, &CommView::changeDoubtfulHts);
    connect(_icao, qOverload<int>(&QComboBox::activated), this, &CommView::changeIcao);
    connect(_environment, qOverload<int>(&QComboBox::activated), this, &CommView::changeEnvironment);
    connect(_azimuth, &QComboBox::currentTextChanged, this, &CommView::changeAzimuth);
    connect(_correctedReport, &QCheckBox::toggled, this, &CommView::changeCorrected);
    connect(_lastReport, &QCheckBox::toggled, this, &CommView::changeLastReport);
    connect(_commPort, qOverload<int>(&QComboBox::activated), this, &CommView::changeCommPort);
    connect(_baudRate, qOverload<int>(&QComboBox::activated), this, &CommView::changeBaudRate);
    connect(_sendMsg, &QPushButton::clicked, this, &CommView::sendMessage);
    connect(_sendClear, &QPushButton::released, this, &CommView::clearSendStatus);
}
