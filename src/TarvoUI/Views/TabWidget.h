#pragma once

#include <QLoggingCategory>
#include <QTabWidget>

/// The tabs of a sounding window. It writes key presses and events to the log category tarvo.tabwidget.events, when
/// that is on.
class TabWidget : public QTabWidget {
    Q_OBJECT

public:
    explicit TabWidget(QWidget* parent = nullptr) : QTabWidget(parent) {}

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
};
