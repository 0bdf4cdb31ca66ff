#include "TabWidget.h"

#include <QEvent>

namespace {

const QLoggingCategory& tabEvents() {
    static const QLoggingCategory category("tarvo.tabwidget.events", QtCriticalMsg);
    return category;
}

} // namespace

void TabWidget::keyPressEvent(QKeyEvent* event) {
    qCDebug(tabEvents) << "TabWidget::keyPressEvent()";
    QTabWidget::keyPressEvent(event);
}

bool TabWidget::event(QEvent* event) {
    qCDebug(tabEvents) << "TabWidget::event()" << event->type();
    return QTabWidget::event(event);
}
