#include "MainView.h"

#include "UiText.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

constexpr int kDecimals = 1;
constexpr int kTimeDecimals = 2;
constexpr int kPositionDecimals = 4;
constexpr double kMarginMm = 20.0;

void showParameter(QLineEdit* edit, const LaunchParameter& parameter, int decimals) {
    edit->setText(parameter.avail(false) ? QString::number(parameter.value(), 'f', decimals) : QString());
}

/// Zero for what is no number.
double numberOf(const QString& text) {
    const double number = text.toDouble();
    return std::isfinite(number) ? number : 0.0;
}

} // namespace

MainView::Row& MainView::row(const char* item) {
    const auto isItem = [item](const char* name) { return name != nullptr && std::strcmp(name, item) == 0; };
    const auto found = std::find_if(_rows.begin(), _rows.end(), [&](const Row& candidate) {
        return isItem(candidate.overrideItem) || isItem(candidate.ignoreItem);
    });
    Q_ASSERT(found != _rows.end());
    return *found;
}

void MainView::connectRow(std::size_t index) {
    const Row& r = _rows[index];
    connect(r.overrideEdit, &QLineEdit::textEdited, this,
            [this, index](const QString& text) { overrideEdited(index, text); });
    connect(r.clearButton, &QPushButton::released, this, [this, index] { clear(index); });
    if (r.ignoreBox != nullptr) {
        connect(r.ignoreBox, &QCheckBox::released, this, [this, index] { ignore(index); });
    }
}

void MainView::initForm() {
    const SndMetaData meta = _editor->getSndMetaData(false);
    if (meta.ascending) {
        _hitSurface->setEnabled(false);
        _sfcAltUnknown->setEnabled(false);
        for (const MainViewRow& plan : kSurfaceRows) {
            row(plan.overrideItem).overrideEdit->setEnabled(false);
            row(plan.overrideItem).clearButton->setEnabled(false);
        }
    }
    showReported();
    if (_editor->numRhChan() == 1) {
        _rhChannels->hide();
    } else {
        updateRHSelection();
    }
}

void MainView::showReported() {
    const SndMetaData meta = _editor->getSndMetaData(false);
    showParameter(row("LaunchPresOverride").reported, meta.launchPres, kDecimals);
    showParameter(row("LaunchTdryOverride").reported, meta.launchTdry, kDecimals);
    showParameter(row("LaunchRHOverride").reported, meta.launchRH, kDecimals);
    showParameter(row("LaunchWspdOverride").reported, meta.launchWspd, kDecimals);
    showParameter(row("LaunchWdirOverride").reported, meta.launchWdir, kDecimals);
    showParameter(row("LaunchLatOverride").reported, meta.launchLat, kPositionDecimals);
    showParameter(row("LaunchLonOverride").reported, meta.launchLon, kPositionDecimals);
    showParameter(row("LaunchAltOverride").reported, meta.launchAlt, kDecimals);
    row("LastDataTimeOverride").reported->setText(QString::number(_editor->MaxLastDataTime(), 'f', kTimeDecimals));
}

void MainView::setUpPage() {
    _printer->setPageOrientation(QPageLayout::Landscape);
    _printer->setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm), QPageLayout::Millimeter);
}

int MainView::printPreview() {
    setUpPage();
    return previewGrab("Tarvo - Print Preview Main");
}

int MainView::print() {
    setUpPage();
    return printGrab("Tarvo - Print Main");
}

/// The whole form, also what large type has pushed out of sight, and no ground: paper has its own.
QPixmap MainView::picture() {
    const QRect form = _form->childrenRect();
    const QFontMetrics type = _topLabel->fontMetrics();
    const QSize head(type.horizontalAdvance(_topLabel->text()), 2 * type.height());
    const QSize size(std::max(form.width(), head.width()), head.height() + form.height());
    const qreal dots = devicePixelRatioF();
    QPixmap whole(size * dots);
    whole.setDevicePixelRatio(dots);
    const bool isDark = palette().color(QPalette::Window).lightness() < palette().color(QPalette::Text).lightness();
    whole.fill(isDark ? palette().color(QPalette::Window) : Qt::white);
    QPainter painter(&whole);
    painter.setFont(_topLabel->font());
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(0, 0, size.width(), head.height()), Qt::AlignHCenter | Qt::AlignTop, _topLabel->text());
    _form->render(&painter, {0, head.height()}, form, QWidget::DrawChildren);
    return whole;
}

void MainView::update() {
    setUpPage();
    _topLabel->setText(_description);
    setFormFromConfig();
    double value = 0.0;
    const auto show = [&](QLineEdit* edit, bool have) {
        setEditValue(edit, value, kDecimals, !have || value == kMissing);
    };
    show(_estLaunchAlt, _editor->estLaunchAlt(value));
    show(_estTermAlt, _editor->estTermAlt(value));
    show(row("SfcPresOverride").reported, _editor->getRawTermPres(value));
    show(row("SfcAltOverride").reported, _editor->getSfcAlt(value));
    updateLaunchTime();
    updateRHSelection();
}

void MainView::setFormFromConfig() {
    _sfcAltUnknown->setChecked(isOn("SfcAltUnknown"));
    _heightsMissing->setChecked(isOn("SetHtsMissing"));
    _hitSurface->setChecked(isOn("DropsondeHitSfc"));
    for (const Row& r : _rows) {
        if (r.ignoreBox != nullptr) {
            r.ignoreBox->setChecked(isOn(r.ignoreItem));
        }
    }
    double endTime = 0.0;
    if (_configSet->value("LastDataTimeOverride", endTime)) {
        setEditValue(row("LastDataTimeOverride").overrideEdit, endTime, kTimeDecimals, false);
    }
}

void MainView::setConfigFromForm() {
    for (const Row& r : _rows) {
        const QString text = r.overrideEdit->text().trimmed();
        if (text.isEmpty()) {
            _configSet->remove(r.overrideItem);
        } else {
            _configSet->add(r.overrideItem, numberOf(text), false, false, true);
        }
    }
    const auto setFlag = [this](const char* item, const QCheckBox* box) {
        _configSet->set(item, box->isChecked() ? 1.0 : 0.0);
    };
    for (const Row& r : _rows) {
        if (r.ignoreBox != nullptr) {
            setFlag(r.ignoreItem, r.ignoreBox);
        }
    }
    setFlag("SfcAltUnknown", _sfcAltUnknown);
    setFlag("SetHtsMissing", _heightsMissing);
    setFlag("DropsondeHitSfc", _hitSurface);
    saveConfig();
}

void MainView::misc() {
    setConfigFromForm();
    emit processRequest(true);
}

void MainView::recompute() {
    setConfigFromForm();
    emit processRequest(false);
}

/// Wind speed and direction are ignored together, as are latitude and longitude. Without the temperature there is no
/// RH, but the temperature may stay without the RH.
void MainView::ignore(std::size_t index) {
    const Row& sender = _rows[index];
    const bool on = sender.ignoreBox->isChecked();
    struct Follower {
        const char* of;
        const char* item;
    };
    constexpr std::array<Follower, 5> kFollowers{{{"IgnoreLaunchTdry", "IgnoreLaunchRH"},
                                                  {"IgnoreLaunchWspd", "IgnoreLaunchWdir"},
                                                  {"IgnoreLaunchWdir", "IgnoreLaunchWspd"},
                                                  {"IgnoreLaunchLat", "IgnoreLaunchLon"},
                                                  {"IgnoreLaunchLon", "IgnoreLaunchLat"}}};
    std::vector<Row*> ignored{&_rows[index]};
    for (const Follower& follower : kFollowers) {
        if (std::strcmp(follower.of, sender.ignoreItem) == 0) {
            ignored.push_back(&row(follower.item));
        }
    }
    for (Row* r : ignored) {
        r->ignoreBox->setChecked(on);
        if (on) {
            r->overrideEdit->clear();
        }
    }
    misc();
}

void MainView::clear(std::size_t index) {
    _rows[index].overrideEdit->clear();
    misc();
}

void MainView::overrideEdited(std::size_t index, const QString& text) {
    if (!text.isEmpty() && _rows[index].ignoreBox != nullptr) {
        _rows[index].ignoreBox->setChecked(false);
    }
    misc();
}

void MainView::updateLaunchTime() {
    const SndMetaData meta = _editor->getSndMetaData(true);
    const QChar zero('0');
    _date->setText(QString("%1-%2-%3").arg(meta.year, 4).arg(meta.month, 2, 10, zero).arg(meta.day, 2, 10, zero));
    _time->setText(
        QString("%1:%2:%3").arg(meta.hour, 2, 10, zero).arg(meta.min, 2, 10, zero).arg(meta.sec, 2, 10, zero));
}

void MainView::updateRHSelection() {
    const int selection = _editor->RHselection();
    const bool heating = _editor->rhHeatingOn();
    if (selection == 0) {
        _rhOmbraSelected->setChecked(true);
    } else if (!heating) {
        (selection == 1 ? _rhChannel1 : _rhChannel2)->setChecked(true);
    }
    if (heating) {
        _rhChannels->setTitle("RH Channel for QC Use (Heating On)");
        _rhChannel1->setEnabled(false);
        _rhChannel2->setEnabled(false);
    }
}

void MainView::selectRH(int channel) {
    _editor->selectRH(channel);
    emit processRequest(true);
}
