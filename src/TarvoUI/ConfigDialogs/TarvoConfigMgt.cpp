#include "TarvoConfigMgt.h"

#include "FilePathDialog.h"
#include "ShippedConfiguration.h"
#include "TarvoAdvConfigController.h"
#include "TarvoSettings.h"
#include "UiText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRegExpValidator>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

namespace {

const char* const kTitle = "Configuration Management";
const char* const kSample = "sample";
const char* const kDescending = "descending-PELO";
constexpr int kNamePicture = 20; // pixels
constexpr int kCharacters = 80;  // of a line of the dialog, at least

QString descriptionOf(const QString& name) {
    for (const ShippedSet& set : shippedSets()) {
        if (name == QString::fromUtf8(set.name.data(), static_cast<int>(set.name.size()))) {
            return QString::fromUtf8(set.description.data(), static_cast<int>(set.description.size()));
        }
    }
    return name.isEmpty() ? QString() : "[ " + name + " ]";
}

} // namespace

TarvoConfigMgt::TarvoConfigMgt(const QString& settings, QDialog* parent, SoundingDB* soundingDB)
    : QDialog(parent), _settings(settings), _soundingDB(soundingDB) {
    makeForm();
    letStyleSheetsForget(*this);
    initConfigSet();
    updateConfigCombo();
}

TarvoConfigMgt::~TarvoConfigMgt() = default;

// --- The form.

void TarvoConfigMgt::makeForm() {
    setWindowTitle(kTitle);
    _gbxActive1 =
        makeActive(1, "Select Active Configuration Set 1", _selectActive1, _editActive1, _restoreActive1, _despActive1);
    _gbxActive1->setToolTip("This is the configuration set that Tarvo uses to process the loaded sounding files.");
    _gbxActive2 =
        makeActive(2, "Select Active Configuration Set 2", _selectActive2, _editActive2, _restoreActive2, _despActive2);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_gbxActive1);
    layout->addWidget(_gbxActive2);
    layout->addWidget(makeOther("_gbxDelete", "Delete Configuration Set",
                                "Delete the selected configuration set.  It cannot be the currently active set.",
                                "Select the Configuration Set to Delete", "_selectDelete", "_delete", "Delete",
                                _selectDelete, &TarvoConfigMgt::deleteConfig));
    layout->addWidget(makeOther("_gbxNew", "Create Configuration Set",
                                "Create a new configuration set, cloned from the selected set. Enter the new set name "
                                "when prompted.",
                                "Select the Configuration Set to Clone", "_selectClone", "_clone", "Clone",
                                _selectClone, &TarvoConfigMgt::cloneConfig));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName("_configButtonBox");
    connect(buttons, &QDialogButtonBox::accepted, this, &TarvoConfigMgt::okSelected);
    connect(buttons, &QDialogButtonBox::rejected, this, &TarvoConfigMgt::cancelSelected);
    layout->addStretch();
    layout->addWidget(buttons);
}

/// Whole with the description of any set, whatever the size of its type, where the screen has room for it.
void TarvoConfigMgt::showEvent(QShowEvent* event) {
    layout()->invalidate(); // the type came after the form
    const QSize screenSize = screen()->availableSize() * 9 / 10;
    const int wanted = std::max(kCharacters * fontMetrics().averageCharWidth(), layout()->minimumSize().width());
    resize(std::min(wanted, screenSize.width()), height());
    layout()->activate();
    for (QLabel* description : {_despActive1, _despActive2}) {
        const QRect room(0, 0, _despActive1->width(), 0);
        int high = 0;
        for (const ShippedSet& set : shippedSets()) {
            const QString text = QString::fromUtf8(set.description.data(), static_cast<int>(set.description.size()));
            high = std::max(high, description->fontMetrics().boundingRect(room, Qt::TextWordWrap, text).height());
        }
        description->setMinimumHeight(high);
    }
    resize(width(), std::min(layout()->totalHeightForWidth(width()), screenSize.height()));
    QDialog::showEvent(event);
}

QGroupBox* TarvoConfigMgt::makeActive(int number, const QString& label, QComboBox*& select, QPushButton*& edit,
                                      QPushButton*& restore, QLabel*& description) {
    auto* group = new QGroupBox(QString("Active Configuration Set %1").arg(number), this);
    group->setObjectName(QString("_gbxActive%1").arg(number));
    select = new QComboBox(group);
    select->setObjectName(QString("_selectActive%1").arg(number));
    select->setAccessibleName(label);
    edit = new QPushButton("Edit", group);
    edit->setObjectName(QString("_editActive%1").arg(number));
    edit->setToolTip("Edit options within the selected configuration set");
    restore = new QPushButton("Restore Defaults", group);
    restore->setObjectName(QString("_restoreActive%1").arg(number));
    restore->setToolTip("Restore the default values");
    description = new QLabel(group);
    description->setObjectName(QString("_despActive%1").arg(number));
    description->setWordWrap(true);
    auto* layout = new QVBoxLayout(group);
    auto* line = new QHBoxLayout;
    line->addWidget(new QLabel(label, group));
    line->addWidget(select, 1);
    for (QPushButton* button : {edit, restore}) {
        button->setAutoDefault(false);
        line->addWidget(button);
    }
    layout->addLayout(line);
    layout->addWidget(description);
    connect(edit, &QPushButton::clicked, this, &TarvoConfigMgt::displayAdvConfig);
    connect(restore, &QPushButton::clicked, this, &TarvoConfigMgt::restoreDefaults);
    for (const auto signal : {&QComboBox::currentTextChanged, &QComboBox::textHighlighted}) {
        connect(select, signal, this, &TarvoConfigMgt::setConfigDesp);
    }
    return group;
}

QGroupBox* TarvoConfigMgt::makeOther(const char* name, const char* title, const char* tip, const char* label,
                                     const char* selectName, const char* buttonName, const char* button,
                                     QComboBox*& select, void (TarvoConfigMgt::*slot)()) {
    auto* group = new QGroupBox(title, this);
    group->setObjectName(name);
    group->setToolTip(tip);
    select = new QComboBox(group);
    select->setObjectName(selectName);
    select->setAccessibleName(label);
    auto* push = new QPushButton(button, group);
    push->setObjectName(buttonName);
    push->setAutoDefault(false);
    auto* line = new QHBoxLayout(group);
    line->addWidget(new QLabel(label, group));
    line->addWidget(select, 1);
    line->addWidget(push);
    connect(push, &QPushButton::clicked, this, slot);
    return group;
}

// --- The sets.

void TarvoConfigMgt::initConfigSet() {
    _configSet.reset();
    const QString directory = TarvoSettings(_settings).value(TarvoSettings::kXmlDir).toString();
    _registry = std::make_unique<RegistryXML>((directory + "/tarvo.xml").toStdString(), "");
    _configSet = std::make_unique<TarvoConfigSet>(_registry.get());
    bool descends = false;
    _configSet->boolValue("descendingPELO", descends);
    _gbxActive2->setVisible(descends);
}

void TarvoConfigMgt::updateConfigCombo() {
    QStringList names;
    QStringList withDescending;
    for (const std::string& name : _registry->getSetNames()) {
        if (name != kSample) {
            withDescending << toQString(name);
            if (name != kDescending) {
                names << toQString(name);
            }
        }
    }
    for (QComboBox* combo : {_selectActive1, _selectActive2, _selectDelete, _selectClone}) {
        const QSignalBlocker quiet(combo);
        combo->clear();
        combo->addItems(combo == _selectActive2 ? withDescending : names);
        combo->setCurrentIndex(0);
    }
    const QSignalBlocker quiet1(_selectActive1);
    const QSignalBlocker quiet2(_selectActive2);
    // A set that isn't listed can be active all the same: none is shown then, rather than another one.
    _selectActive1->setCurrentIndex(_selectActive1->findText(activeName(false)));
    _selectActive2->setCurrentIndex(_selectActive2->findText(activeName(true)));
    disconnect(_selectActive1, &QComboBox::currentTextChanged, this, &TarvoConfigMgt::setActive1Config);
    disconnect(_selectActive2, &QComboBox::currentTextChanged, this, &TarvoConfigMgt::setActive2Config);
    connect(_selectActive1, &QComboBox::currentTextChanged, this, &TarvoConfigMgt::setActive1Config);
    connect(_selectActive2, &QComboBox::currentTextChanged, this, &TarvoConfigMgt::setActive2Config);
    _despActive1->setText(descriptionOf(activeName(false)));
    _despActive2->setText(descriptionOf(activeName(true)));
}

void TarvoConfigMgt::setActive1Config(const QString& name) {
    _registry->setActive1SetName(name.toStdString());
    _changed = true;
}

void TarvoConfigMgt::setActive2Config(const QString& name) {
    _registry->setActive2SetName(name.toStdString());
    _changed = true;
}

void TarvoConfigMgt::setConfigDesp(const QString& name) {
    (sender() == _selectActive2 ? _despActive2 : _despActive1)->setText(descriptionOf(name));
}

bool TarvoConfigMgt::isSecond(const QObject* from) const {
    return from == _editActive2 || from == _restoreActive2;
}

QString TarvoConfigMgt::activeName(bool second) const {
    return toQString(second ? _registry->getActive2SetName() : _registry->getActive1SetName());
}

bool TarvoConfigMgt::getUserSelection(const QString& question) {
    return QMessageBox::question(this, kTitle, question) == QMessageBox::Yes;
}

void TarvoConfigMgt::displayErrorMessage(const QString& text, bool critical) {
    critical ? QMessageBox::critical(this, "ERROR", text) : QMessageBox::warning(this, "ERROR", text);
}

QString TarvoConfigMgt::styleSheetOf(const TarvoConfigSet& set) const {
    int size = 0;
    std::string family;
    return set.intValue("TextSizePt", size) && set.text("FontFamily", family) && size > 0
               ? textStyleSheet(size, toQString(family))
               : QString();
}

/// The dialog works on the set that is active in the store.
void TarvoConfigMgt::displayAdvConfig() {
    const bool second = isSecond(sender());
    const std::string first = _registry->getActive1SetName();
    if (second) {
        _registry->setActive1SetName(_registry->getActive2SetName());
    }
    {
        TarvoConfigSet set(_registry.get());
        QDialog dialog(this);
        dialog.setStyleSheet(styleSheetOf(set));
        const TarvoAdvConfigController controller(&dialog, &set, _soundingDB, 0);
        dialog.exec();
    }
    if (second) {
        _registry->setActive1SetName(first);
    }
    _changed = true;
    if (!second) {
        saveNow();
    }
}

/// The file has it from now on, however this dialog is left.
void TarvoConfigMgt::saveNow() {
    _registry->save(false);
    emit configChanged();
    initConfigSet();
    updateConfigCombo();
}

void TarvoConfigMgt::restoreDefaults() {
    const bool second = isSecond(sender());
    const QString name = activeName(second);
    if (!getUserSelection(
            QString("Are you sure that you want to restore the defaults\nfor the configuration '%1'?").arg(name))) {
        return;
    }
    const std::string first = _registry->getActive1SetName();
    _registry->setActive1SetName(name.toStdString());
    TarvoConfigSet(_registry.get()).restoreDefault();
    _registry->setActive1SetName(first);
    _changed = true;
    saveNow(); // or reading the file again would undo it
}

void TarvoConfigMgt::deleteConfig() {
    const QString name = _selectDelete->currentText();
    if (name.toStdString() == _registry->getActive1SetName() || name.toStdString() == _registry->getActive2SetName()) {
        displayErrorMessage(
            "You cannot delete the currently active configuration set.\nChange the active configuration "
            "set before deleting this one!",
            false);
        return;
    }
    if (!getUserSelection(QString("Are you sure that you want to delete the configuration '%1'?").arg(name))) {
        return;
    }
    if (_registry->deleteSet(name.toStdString())) {
        _changed = true;
    } else {
        displayErrorMessage(QString("Internal error: unable to delete the configuration '%1'!").arg(name), true);
    }
    updateConfigCombo();
}

QString TarvoConfigMgt::askForName() {
    FilePathDialog dialog("New Configuration Set Name", "", false, this);
    dialog.setSubTitle("Enter the name for the new configuration set.");
    dialog.setPixmap(QPixmap(":/tarvo_icons/tarvo.png"), kNamePicture, kNamePicture);
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    QString name = dialog.getFilePath();
    if (name.isEmpty()) {
        displayErrorMessage("No name is entered. You must give a name\nfor the newly created configuration set.",
                            false);
        return {};
    }
    int position = 0;
    if (QRegExpValidator(QRegExp("[a-zA-Z0-9]{,20}")).validate(name, position) != QValidator::Acceptable) {
        displayErrorMessage(QString("'%1' is an invalid name. The name must begin with a\nletter or number and the "
                                    "maximum length is 20.")
                                .arg(name),
                            false);
        return {};
    }
    const auto names = _registry->getSetNames();
    if (std::find(names.begin(), names.end(), name.toStdString()) != names.end()) {
        displayErrorMessage(
            QString("'%1' is already an existing configuration set.\nPlease choose a unique name.").arg(name), false);
        return {};
    }
    return name;
}

void TarvoConfigMgt::cloneConfig() {
    const QString from = _selectClone->currentText();
    const QString name = askForName();
    if (name.isEmpty() ||
        !getUserSelection(QString("Are you sure that you want to create a new configuration named '%1' from '%2'?")
                              .arg(name, from))) {
        return;
    }
    if (_registry->cloneSet(from.toStdString(), name.toStdString())) {
        _changed = true;
    } else {
        displayErrorMessage("Internal error: unable to create the named configuration set.", true);
    }
    updateConfigCombo();
}

void TarvoConfigMgt::okSelected() {
    if (_changed) {
        _registry->save(false);
        emit configChanged();
    }
    accept();
}

void TarvoConfigMgt::cancelSelected() {
    reject();
}
