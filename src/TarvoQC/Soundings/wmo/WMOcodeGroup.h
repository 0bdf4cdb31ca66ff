#pragma once

#include <string>

/// One group of a message. It remembers the text it was made with, whatever is done to it.
class WMOcodeGroup {
public:
    explicit WMOcodeGroup(bool newLine) : _newLine(newLine) {}
    WMOcodeGroup(std::string text, bool newLine) : _text(std::move(text)), _newLine(newLine), _original(_text) {}

    const std::string& text() const { return _text; }
    /// Whether the group starts a line of the message.
    bool newLine() const { return _newLine; }
    void newLine(bool on) { _newLine = on; }

    /// Takes another text. Blanks at either end make no difference to modified().
    void modify(const std::string& text);
    /// Back to the text it was made with.
    void revert();
    bool modified() const { return _modified; }

    /// A mark for whoever edits the message; 0 at first.
    int special() const { return _special; }
    void special(int mark) { _special = mark; }

private:
    std::string _text;
    bool _newLine = false;
    std::string _original;
    bool _modified = false;
    int _special = 0;
};
