#include "TarvoAdvConfigController.h"

#include "OptionSearch.h"
#include "TarvoAutoSave.h"
#include "TarvoGraphConfig.h"
#include "TarvoOtherOptions.h"
#include "TarvoQcConfig.h"
#include "TarvoSynopticMap.h"
#include "WMOConfigForm.h"
#include "WaitCursor.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr QSize kUsualSize(1000, 700);
constexpr int kFrames = 8; // pixels, of the tabs around a page

} // namespace

TarvoAdvConfigController::TarvoAdvConfigController(QDialog* dialog, TarvoConfigSet* configSet, SoundingDB* soundingDB,
                                                   int numberOfOpenSoundings)
    : QWidget(dialog), _dialog(dialog), _soundingDB(soundingDB), _openSoundings(numberOfOpenSoundings),
      _tabs(new QTabWidget(this)) {
    _dialog->setWindowTitle("Options");
    auto* search = new QLineEdit(this);
    search->setObjectName("_search");
    search->setPlaceholderText("Find an option (Ctrl+F)");
    search->setAccessibleName("Find an option");
    search->setClearButtonEnabled(true);
    auto* nothing = new QLabel("No option has all of these words.", this);
    nothing->setObjectName("_nothingFound");
    nothing->hide();
    _tabs->setObjectName("_tabs");
    initializeTabs(configSet);
    connect(search, &QLineEdit::textChanged, this, [this, nothing](const QString& text) {
        std::vector<TarvoAdvConfig*> forms;
        for (const auto& form : _forms) {
            forms.push_back(form.get());
        }
        nothing->setHidden(searchOptions(text, _tabs, forms));
    });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, search, [search] {
        search->setFocus();
        search->selectAll();
    });
    auto* buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this,
            &TarvoAdvConfigController::applySelected);
    connect(buttons, &QDialogButtonBox::accepted, this, &TarvoAdvConfigController::okSelected);
    connect(buttons, &QDialogButtonBox::rejected, this, &TarvoAdvConfigController::cancelSelected);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(search);
    layout->addWidget(nothing);
    layout->addWidget(_tabs, 1);
    layout->addWidget(buttons);
    auto* around = new QVBoxLayout(_dialog);
    around->addWidget(this);
    resizeDialog();
    _dialog->installEventFilter(this);
}

TarvoAdvConfigController::~TarvoAdvConfigController() {
    // The pages go with the forms that made them.
    while (_tabs->count() > 0) {
        QWidget* page = _tabs->widget(0);
        _tabs->removeTab(0);
        page->setParent(nullptr);
        delete page;
    }
}

/// Every form whole in its width if the screen has room, whatever the size of its type.
void TarvoAdvConfigController::resizeDialog() {
    QSize size = kUsualSize;
    for (const auto& form : _forms) {
        for (QWidget* widget : form->widget()->findChildren<QWidget*>()) {
            widget->ensurePolished(); // or its type hasn't the size of the style sheet yet
        }
        const QMargins around = _dialog->layout()->contentsMargins();
        size.setWidth(std::max(size.width(), form->wholeWidth() + kFrames + around.left() + around.right()));
    }
    size.setHeight(size.width() * kUsualSize.height() / kUsualSize.width());
    const QScreen* screen = QGuiApplication::primaryScreen();
    _dialog->resize(screen == nullptr ? size : size.boundedTo(screen->availableSize() * 9 / 10));
}

bool TarvoAdvConfigController::eventFilter(QObject* watched, QEvent* event) {
    if (watched == _dialog && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        return key == Qt::Key_Return || key == Qt::Key_Enter;
    }
    return QWidget::eventFilter(watched, event);
}

void TarvoAdvConfigController::initializeTabs(TarvoConfigSet* configSet) {
    auto processing = std::make_unique<TarvoOtherOptions>(configSet, _openSoundings);
    auto autoSave = std::make_unique<TarvoAutoSave>(configSet);
    connect(processing.get(), &TarvoOtherOptions::qcMode, autoSave.get(), &TarvoAutoSave::enAutoSave);
    double mode = TarvoConfigSet::DOQC_NORMAL;
    configSet->value("DoQC", mode);
    autoSave->enAutoSave(static_cast<int>(mode));
    _forms.push_back(std::make_unique<TarvoQcConfig>(configSet));
    _forms.push_back(std::move(processing));
    _forms.push_back(std::make_unique<WMOConfigForm>(configSet));
    _forms.push_back(std::move(autoSave));
    _forms.push_back(std::make_unique<TarvoSynopticMap>(configSet, _soundingDB));
    _forms.push_back(std::make_unique<TarvoGraphConfig>(configSet));
    const char* const texts[] = {"&QC Parameters", "&Processing", "&WMO", "&Auto Save", "&Synoptic Map", "&Visual"};
    for (std::size_t i = 0; i < _forms.size(); ++i) {
        _tabs->addTab(_forms[i]->widget(), texts[i]);
    }
}

void TarvoAdvConfigController::applySelected() {
    if (auto* edited = qobject_cast<QLineEdit*>(_dialog->focusWidget())) {
        edited->clearFocus(); // a refusal is told ahead
        edited->setFocus();
    }
    {
        const WaitCursor wait;
        for (const std::size_t form : {0U, 5U, 1U, 2U, 3U, 4U}) {
            _forms[form]->updateConfigFromForm();
        }
    }
    emit saveConfiguration(true);
}

void TarvoAdvConfigController::okSelected() {
    applySelected();
    _dialog->accept();
}

void TarvoAdvConfigController::cancelSelected() {
    _dialog->reject();
}
