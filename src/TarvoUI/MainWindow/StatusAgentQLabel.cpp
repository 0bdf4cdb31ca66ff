#include "StatusAgentQLabel.h"

#include <QCoreApplication>

void StatusAgentQLabel::SetStatus(const std::string& text) {
    _status = text;
    showStatus(_status);
}

void StatusAgentQLabel::AppendStatus(const std::string& text) {
    _appended = text;
    showStatus(_status + _appended);
}

void StatusAgentQLabel::showStatus(const std::string& text) {
    setText(QString::fromStdString(text));
    // Twice: what the first round lays out, the second one paints.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
