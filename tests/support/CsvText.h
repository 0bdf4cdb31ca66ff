#pragma once

#include <string>
#include <vector>

/// The text of a CSV sounding, put together line by line by a test.
class CsvText {
public:
    explicit CsvText(bool ascending) {
        _text = "FileFormat,CSV\nYear,2021\nMonth,8\nDay,1\nHour,12\nMinute,0\nSecond,3\n";
        _text += std::string("Ascending,\"") + (ascending ? "true" : "false") + "\"\n";
    }

    /// A keyed line, such as line("Pressure,400.0").
    CsvText& line(const std::string& text) {
        _text += text + "\n";
        return *this;
    }
    CsvText& fields(const std::string& columns) { return line("Fields," + columns); }
    CsvText& data(const std::string& cells) { return line("Data," + cells); }

    const std::string& text() const { return _text; }

private:
    std::string _text;
};
