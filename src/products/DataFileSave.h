#pragma once

#include <string>

class LaunchParameter;

/// The base of all product writers. A writer does all its work in its constructor, on an open stream, and looks at no
/// stream error: whoever opened the stream decides whether the product stands.
class DataFileSave {
public:
    explicit DataFileSave(std::string fileName);
    DataFileSave(const DataFileSave&) = delete;
    DataFileSave& operator=(const DataFileSave&) = delete;
    virtual ~DataFileSave() = default;

    /// The text of \p v through the C \p format.
    virtual std::string formatVal(const char* format, double v) const;
    /// \p a through the format, or \p b when \p a is missing (-999).
    virtual std::string formatVal(const char* format, int a, int b) const;
    virtual std::string formatVal(const char* format, double a, double b) const;
    /// \p a through the format when \p useFirst, else \p b.
    virtual std::string formatVal(const char* format, double a, double b, bool useFirst) const;

    /// Degrees and minutes of the magnitude of \p v (degrees): 104.5 is "104 30.00". The caller adds the hemisphere.
    std::string formatLoc(double v) const;

protected:
    const std::string& fileName() const { return _fileName; }
    /// A launch value through the format; \p missing when there is none.
    std::string formatLaunch(const char* format, const LaunchParameter& launch, const std::string& missing) const;
    /// formatLoc() and the mark of the hemisphere, in which zero is positive; "-999" without a launch value.
    std::string formatLaunchLoc(const LaunchParameter& angle, const char* positive, const char* negative) const;

private:
    std::string _fileName;
};
