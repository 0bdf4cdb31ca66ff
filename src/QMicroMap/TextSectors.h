#pragma once

#include <array>

/// Where the four text fields of a station model stand, so that they keep clear of the staff of the wind. The circle is
/// divided into sixteen sectors, counted counter-clockwise from the east.
class TextSectors {
public:
    enum TEXT_TYPE { TDRY = 0, DP = 1, PRESHT = 2, TIME = 3 };
    enum TEXT_JUST {
        LEFT = 0,   ///< starts at the anchor
        RIGHT = 1,  ///< ends at the anchor
        TOP = 2,    ///< hangs from the anchor
        BOTTOM = 3, ///< stands with its base line on the anchor
    };

    /// \p wdir is where the wind comes from, degrees; \p radius that of the circle of anchors, pixels.
    TextSectors(double wdir, double radius);
    virtual ~TextSectors() = default;

    /// The sector of the staff, 0 to 15.
    int windSector() const { return _windSector; }
    int sector(TEXT_TYPE type) const { return _fields[type].sector; }
    TEXT_JUST horizontal(TEXT_TYPE type) const { return type == TDRY || type == DP ? RIGHT : LEFT; }
    TEXT_JUST vertical(TEXT_TYPE type) const { return _fields[type].vertical; }
    /// Pixels to the right of the centre and below it.
    double x(TEXT_TYPE type) const { return _fields[type].x; }
    double y(TEXT_TYPE type) const { return _fields[type].y; }

private:
    struct Field {
        int sector;
        TEXT_JUST vertical;
        double x;
        double y;
    };
    void createCoordinates(double radius);

    int _windSector;
    std::array<Field, 4> _fields;
};
