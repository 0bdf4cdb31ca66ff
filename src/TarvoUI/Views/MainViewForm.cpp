// The form of the Main tab.

#include "MainView.h"

#include "ScrolledForm.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

constexpr int kEditCharacters = 11;

/// Never too narrow for a number, whatever the size of the text.
class NumberEdit : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    QSize minimumSizeHint() const override {
        return QLineEdit::minimumSizeHint().expandedTo(
            {fontMetrics().horizontalAdvance(QString(kEditCharacters, '0')), 0});
    }
};

} // namespace

MainView::MainView(DocumentController* doc, QPrinter* printer, QWidget* parent) : TarvoView(doc, printer, parent) {
    setObjectName("MainView");
    _canSave = false;
    _topLabel = makeTopLabel("_main_topLabel");

    auto* left = new QVBoxLayout;
    left->addWidget(makeLaunchParameters());
    left->addWidget(makeHeightResults());
    left->addWidget(makeRhChannels());
    left->addStretch();
    auto* right = new QVBoxLayout;
    right->addWidget(makeComputations());
    right->addWidget(makeLaunchTime());
    right->addWidget(makeHeightOverrides());
    right->addWidget(makeDropSurface());
    right->addStretch();
    _form = new QWidget(this);
    auto* columns = new QHBoxLayout(_form);
    columns->addLayout(left);
    columns->addLayout(right);
    columns->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(_topLabel);
    layout->addWidget(scrolled(_form, this));

    for (std::size_t index = 0; index < _rows.size(); ++index) {
        connectRow(index);
    }
    setTabOrder();
    initForm();
}

/// Down the overrides, which are typed one after the other, then down the boxes and the buttons beside them.
void MainView::setTabOrder() {
    std::vector<QWidget*> order;
    const auto addRows = [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            order.push_back(_rows[i].overrideEdit);
        }
        for (std::size_t i = first; i < last; ++i) {
            if (_rows[i].ignoreBox != nullptr) {
                order.push_back(_rows[i].ignoreBox);
            }
        }
        for (std::size_t i = first; i < last; ++i) {
            order.push_back(_rows[i].clearButton);
        }
    };
    addRows(0, kLaunchRows.size());
    order.insert(order.end(), {_rhOmbraSelected, _rhChannel1, _rhChannel2, _recompute, _hitSurface, _heightsMissing,
                               _sfcAltUnknown});
    addRows(kLaunchRows.size(), _rows.size());
    for (std::size_t i = 1; i < order.size(); ++i) {
        QWidget::setTabOrder(order[i - 1], order[i]);
    }
}

QLineEdit* MainView::makeReadOnly(const char* name) {
    auto* edit = new NumberEdit(this);
    edit->setObjectName(name);
    edit->setReadOnly(true);
    edit->setFocusPolicy(Qt::ClickFocus);
    QPalette shaded = edit->palette();
    shaded.setColor(QPalette::Base, shaded.color(QPalette::Window));
    edit->setPalette(shaded);
    return edit;
}

QCheckBox* MainView::makeFlag(const char* name, const char* text) {
    auto* box = new QCheckBox(text, this);
    box->setObjectName(name);
    connect(box, &QCheckBox::released, this, &MainView::misc);
    return box;
}

void MainView::addRow(const MainViewRow& plan, QLineEdit* reported) {
    Row row{plan.overrideItem, plan.ignoreItem,      reported,
            nullptr,           new NumberEdit(this), new QPushButton("Clear", this)};
    const QString quoted = QString(" \"%1\"").arg(plan.quoted);
    reported->setToolTip("Reported" + quoted);
    reported->setAccessibleName(QString("Reported ") + plan.quoted);
    row.overrideEdit->setObjectName(plan.overrideName);
    row.overrideEdit->setToolTip("Override" + quoted);
    row.overrideEdit->setAccessibleName(QString("Override ") + plan.quoted);
    row.clearButton->setObjectName(plan.clearName);
    row.clearButton->setToolTip("Clear" + quoted + " manual override");
    row.clearButton->setAccessibleName(QString("Clear ") + plan.quoted);
    row.clearButton->setAutoDefault(false);
    if (plan.ignoreName != nullptr) {
        row.ignoreBox = new QCheckBox(this);
        row.ignoreBox->setObjectName(plan.ignoreName);
        row.ignoreBox->setAccessibleName(QString("Ignore ") + plan.quoted);
    }
    _rows.push_back(row);
}

QGroupBox* MainView::makeLaunchParameters() {
    auto* box = new QGroupBox("Launch Parameters", this);
    box->setObjectName("_mainGroupBox_launchParameters");
    auto* grid = new QGridLayout(box);
    const auto head = [&](const char* name, const char* text, int column) {
        auto* label = new QLabel(text, box);
        label->setObjectName(name);
        grid->addWidget(label, 0, column, Qt::AlignHCenter);
    };
    head("_mainLabel_Reported", "Reported", 1);
    head("_mainLabel_Ignore", "Ignore", 2);
    head("_mainLabel_Override", "Override", 3);
    int line = 1;
    for (const MainViewRow& plan : kLaunchRows) {
        addRow(plan, makeReadOnly(plan.reportedName));
        const Row& row = _rows.back();
        auto* label = new QLabel(plan.label, box);
        if (plan.labelName != nullptr) {
            label->setObjectName(plan.labelName);
        }
        label->setBuddy(row.overrideEdit);
        grid->addWidget(label, line, 0);
        grid->addWidget(row.reported, line, 1);
        if (row.ignoreBox != nullptr) {
            grid->addWidget(row.ignoreBox, line, 2, Qt::AlignHCenter);
        }
        grid->addWidget(row.overrideEdit, line, 3);
        grid->addWidget(row.clearButton, line, 4);
        ++line;
    }
    return box;
}

QGroupBox* MainView::makeDropSurface() {
    auto* box = new QGroupBox("Dropsonde Surface Parameters", this);
    box->setObjectName("_mainGroupBox_dropSurface");
    auto* grid = new QGridLayout(box);
    int line = 0;
    for (const MainViewRow& plan : kSurfaceRows) {
        addRow(plan, makeReadOnly(plan.reportedName));
        const Row& row = _rows.back();
        grid->addWidget(new QLabel(plan.label, box), line, 0, Qt::AlignBottom);
        auto* overrideLabel = new QLabel(plan.overrideLabel, box);
        overrideLabel->setBuddy(row.overrideEdit);
        grid->addWidget(overrideLabel, line, 1, Qt::AlignBottom);
        grid->addWidget(row.reported, line + 1, 0);
        grid->addWidget(row.overrideEdit, line + 1, 1);
        grid->addWidget(row.clearButton, line + 1, 2);
        line += 2;
    }
    return box;
}

QGroupBox* MainView::makeComputations() {
    auto* box = new QGroupBox("Computations", this);
    _recompute = new QPushButton("RECOMPUTE", box);
    _recompute->setObjectName("_recompute");
    _recompute->setToolTip("Reprocess the sounding");
    _recompute->setAutoDefault(false);
    connect(_recompute, &QPushButton::clicked, this, &MainView::recompute);
    (new QHBoxLayout(box))->addWidget(_recompute);
    return box;
}

QGroupBox* MainView::makeLaunchTime() {
    auto* box = new QGroupBox("Launch Time", this);
    box->setObjectName("_mainGroupBox_launchTime");
    _date = new QLabel(box);
    _date->setObjectName("_date");
    _time = new QLabel(box);
    _time->setObjectName("_time");
    auto* layout = new QHBoxLayout(box);
    layout->addWidget(_date);
    layout->addWidget(_time);
    layout->addStretch();
    return box;
}

QGroupBox* MainView::makeHeightOverrides() {
    auto* box = new QGroupBox("Height Overrides", this);
    box->setObjectName("_mainGroupBox_heightOverrides");
    _hitSurface = makeFlag("_hitSurface", "Hit Surface?");
    _heightsMissing = makeFlag("_heightsMissing", "Set Heights Missing?");
    _sfcAltUnknown = makeFlag("_sfcAltUnknown", "Surface Altitude Unknown (Dropsonde over land)");
    auto* layout = new QVBoxLayout(box);
    for (QCheckBox* flag : {_hitSurface, _heightsMissing, _sfcAltUnknown}) {
        layout->addWidget(flag);
    }
    return box;
}

QGroupBox* MainView::makeRhChannels() {
    _rhChannels = new QGroupBox("RH Channel for QC Use", this);
    _rhChannels->setObjectName("_mainGroupBox_rhchannels");
    auto* layout = new QHBoxLayout(_rhChannels);
    const auto channel = [&](const char* name, const char* text, void (MainView::*slot)()) {
        auto* button = new QRadioButton(text, _rhChannels);
        button->setObjectName(name);
        connect(button, &QRadioButton::released, this, slot);
        layout->addWidget(button);
        return button;
    };
    _rhOmbraSelected = channel("_rhOmbraSelected", "RH0 (OMBRA Selected)", &MainView::rh0);
    _rhChannel1 = channel("_rhChannel1", "RH1", &MainView::rh1);
    _rhChannel2 = channel("_rhChannel2", "RH2", &MainView::rh2);
    return _rhChannels;
}

QGroupBox* MainView::makeHeightResults() {
    auto* box = new QGroupBox("Dropsonde Height Integration Results", this);
    box->setObjectName("_mainGroupBox_dhir");
    _estLaunchAlt = makeReadOnly("_estLaunchAlt");
    _estLaunchAlt->setAccessibleName("Launch Altitude, Upward");
    _estTermAlt = makeReadOnly("_estTermAlt");
    _estTermAlt->setAccessibleName("Low Altitude, Downward");
    auto* grid = new QGridLayout(box);
    grid->addWidget(new QLabel("Launch Altitude (m)", box), 0, 1);
    grid->addWidget(new QLabel("Low Altitude (m)     ", box), 0, 2);
    grid->addWidget(new QLabel("Upward", box), 1, 0);
    grid->addWidget(_estLaunchAlt, 1, 1);
    grid->addWidget(new QLabel("Downward", box), 2, 0);
    grid->addWidget(_estTermAlt, 2, 2);
    return box;
}
