"""A resting atmosphere in hydrostatic balance, built from a profile of temperature, humidity and wind.

The profile is given at a few heights and is linear between them. Small waves can be laid over the wind. Pressure
follows from the surface pressure by integrating the hydrostatic equation upward in steps of a few metres, with the
virtual temperature of each step. Heights are geopotential metres.
"""

import math
from bisect import bisect_right

GRAVITY = 9.80665
GAS_CONSTANT = 287.05  # dry air, J/(kg K)
ZERO_CELSIUS = 273.15
EPSILON = 0.62198  # molar mass of water over that of dry air
EARTH_RADIUS = 6356766.0  # of the geopotential height of the standard atmosphere
STEP = 5.0


def saturation_pressure(celsius):
    """Over water, in mb (Bolton's fit)."""
    return 6.112 * math.exp(17.67 * celsius / (celsius + 243.5))


def virtual_temperature(pressure, celsius, rh):
    """In kelvin."""
    vapour = rh / 100.0 * saturation_pressure(celsius)
    return (celsius + ZERO_CELSIUS) / (1.0 - vapour / pressure * (1.0 - EPSILON))


def air_density(pressure, celsius, rh):
    return pressure * 100.0 / (GAS_CONSTANT * virtual_temperature(pressure, celsius, rh))


def wind_components(direction, speed):
    """Eastward and northward wind from the direction it blows from."""
    angle = math.radians(direction)
    return -speed * math.sin(angle), -speed * math.cos(angle)


def wind_from_components(u, v):
    """Direction the wind blows from, and speed."""
    return math.degrees(math.atan2(-u, -v)) % 360.0, math.hypot(u, v)


def geometric_height(geopotential):
    return EARTH_RADIUS * geopotential / (EARTH_RADIUS - geopotential)


class Atmosphere:
    """``levels`` are tuples of height, temperature, RH, wind direction and wind speed, from the ground upward.

    ``waves`` are tuples of amplitude, vertical wavelength and phase; each turns with height in the two wind components.
    """

    def __init__(self, surface_pressure, levels, waves=()):
        self.surface_pressure = surface_pressure
        self.levels = levels
        self.waves = waves
        self.surface_height = levels[0][0]
        self._heights = [level[0] for level in levels]
        self._nodes = [(t, rh) + wind_components(direction, speed) for _, t, rh, direction, speed in levels]
        self._build_table()

    def _profile(self, z):
        """Temperature, RH and wind components from the levels alone."""
        upper = min(max(bisect_right(self._heights, z), 1), len(self._heights) - 1)
        below, above = self._heights[upper - 1], self._heights[upper]
        weight = (z - below) / (above - below)
        t, rh, u, v = (
            low + weight * (high - low) for low, high in zip(self._nodes[upper - 1], self._nodes[upper])
        )
        for amplitude, wavelength, phase in self.waves:
            turn = 2.0 * math.pi * z / wavelength + phase
            u += amplitude * math.sin(turn)
            v += amplitude * math.cos(turn)
        return t, rh, u, v

    def _slope(self, z, log_pressure):
        t, rh, _, _ = self._profile(z)
        return -GRAVITY / (GAS_CONSTANT * virtual_temperature(math.exp(log_pressure), t, rh))

    def _build_table(self):
        """Columns on a regular grid of heights: ln p, temperature, RH, u, v."""
        count = int((self._heights[-1] - self.surface_height) / STEP) + 1
        log_pressure = math.log(self.surface_pressure)
        self._table = []
        for index in range(count):
            z = self.surface_height + index * STEP
            self._table.append((log_pressure,) + self._profile(z))
            k1 = self._slope(z, log_pressure)
            k2 = self._slope(z + STEP / 2, log_pressure + k1 * STEP / 2)
            k3 = self._slope(z + STEP / 2, log_pressure + k2 * STEP / 2)
            k4 = self._slope(z + STEP, log_pressure + k3 * STEP)
            log_pressure += STEP / 6.0 * (k1 + 2.0 * k2 + 2.0 * k3 + k4)

    def at(self, z):
        """Pressure, temperature, RH, u and v at a height; below the ground those of the ground."""
        position = max((z - self.surface_height) / STEP, 0.0)
        index = min(int(position), len(self._table) - 2)
        weight = position - index
        low, high = self._table[index], self._table[index + 1]
        log_pressure, t, rh, u, v = (a + weight * (b - a) for a, b in zip(low, high))
        return math.exp(log_pressure), t, rh, u, v

    def height_of(self, pressure):
        low, high = self.surface_height, self._heights[-1]
        while high - low > 1e-4:
            middle = 0.5 * (low + high)
            if self.at(middle)[0] > pressure:
                low = middle
            else:
                high = middle
        return 0.5 * (low + high)
