#pragma once

#include <array>
#include <cstdint>
#include <vector>

class Level;
class Levels;
enum class LevelType;

/// The rows of a BUFR product: the samples of a sounding, its significant levels among them.
class BufrRows {
public:
    enum Column {
        Pres, ///< mb
        Tdry, ///< deg C
        RH,   ///< %
        Wspd, ///< m/s
        Wdir, ///< degrees
        Lat,  ///< degrees
        Lon,  ///< degrees
        Alt,  ///< m
        NumColumns
    };
    /// The values of a row; -999.0 is missing.
    using Columns = std::array<std::vector<double>, NumColumns>;

    BufrRows() = default;
    BufrRows(std::vector<double> time, Columns columns);

    std::size_t size() const { return _time.size(); }
    double time(std::size_t row) const { return _time[row]; }
    double value(Column column, std::size_t row) const { return _columns[column][row]; }
    /// The significance flags of descriptor 008042.
    std::uint32_t flags(std::size_t row) const { return _flags[row]; }

    /// Reduces the samples to one row for each second: the means of its values, and of its winds as components.
    void resample_data();
    /// Flags the launch row, which is the first at exactly -1 s.
    void flagLaunch();
    /// Gives each level that is coded a row of its own unless there is one at its time, and the row its flags. Of a row
    /// with flags the values of the level replace those of the samples. \p floorTimes puts levels on whole seconds.
    void merge_levels(const Levels& levels, bool floorTimes);
    /// Takes away the rows that hold neither values nor flags.
    void remove_missing();

    /// The flag bits of a kind of level; 0 for one that 008042 doesn't know.
    static std::uint32_t flagsOf(LevelType type);
    /// Bit \p n of the 18, of which bit 1 is the most significant.
    static constexpr std::uint32_t set_flag(int n) { return 1U << (18 - n); }

    /// \p degrees of longitude brought into [-180, 180) by a turn. More than a turn lies between no two places: such
    /// degrees stay as they are, so that a longitude that is none can't pass for one.
    static double halfTurn(double degrees);
    /// The mean of longitudes, none of them more than half a turn from the first; otherwise as average_values().
    static double average_longitudes(std::vector<double>& values);
    /// The mean of the values that aren't missing; missing without any. Empties \p values.
    static double average_values(std::vector<double>& values);
    /// Appends the direction (degrees) and speed of the mean vector of the winds that have both; missing without any.
    /// Empties \p dirs and \p speeds.
    static void average_wind(std::vector<double>& dirs, std::vector<double>& speeds, std::vector<double>& outDirs,
                             std::vector<double>& outSpeeds);

private:
    std::size_t rowAt(double time);
    void takeFields(const Level& level, std::size_t row);

    std::vector<double> _time; // s; a dropsonde's launch row has -1
    Columns _columns;
    std::vector<std::uint32_t> _flags;
};
