#pragma once

#include "StatusAgent.h"

#include <QLabel>

/// Shows on the status bar how an analysis gets on, and keeps the windows painted while it runs on their thread. What
/// the user clicks and types meanwhile waits until it is over.
class StatusAgentQLabel : public QLabel, public StatusAgent {
    Q_OBJECT

public:
    using QLabel::QLabel;

    void SetStatus(const std::string& text) override;
    void AppendStatus(const std::string& text) override;

private:
    void showStatus(const std::string& text);
};
