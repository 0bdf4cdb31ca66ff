#pragma once

#include <string>

/// Hears how an analysis gets on. This base takes no notice; a shell shows the texts in its own way.
class StatusAgent {
public:
    virtual ~StatusAgent() = default;

    /// A phase begins: "Loading Data...", "QC processing...", "Ready".
    virtual void SetStatus(const std::string& text);
    /// A step begins inside of the phase.
    virtual void AppendStatus(const std::string& text);

protected:
    std::string _status;
    std::string _appended;
};
