#pragma once

#include <string>
#include <vector>

/// The descent of a radiosonde that came down again after its balloon burst, as the lines of a PELO D file of its own:
/// those ahead of the launch, a launch line with the time of the burst, the burst as launch observation, and all lines
/// from the burst on. The burst is the data line of the smallest pressure.
class PeloDescent {
public:
    enum class State {
        None,      ///< there is no descent to speak of
        Malformed, ///< a line that has to be changed isn't laid out in the columns that it needs
        Whole
    };
    enum class Outcome {
        Saved,
        Foreign, ///< what stands there isn't ours, and stays
        Failed   ///< it can't be written
    };

    /// \p lines: all lines of the sounding.
    explicit PeloDescent(const std::vector<std::string>& lines);

    State state() const { return _state; }
    /// The geopotential altitude (m) of the burst, in place of what the sounding says.
    void setAltitude(double altitude);

    /// The content of the file.
    std::string text() const;
    /// Writes the file, whole or not at all. A file that stands at \p path is replaced only when it is a regular one
    /// that holds what we would write or the beginning of it, at least up to the time of the burst, and whatever the
    /// altitude of the burst: such a one we wrote ourselves, of this sounding as it is or as it was when less had been
    /// received.
    Outcome save(const std::string& path) const;

private:
    State _state = State::None;
    std::vector<std::string> _lines;
};
