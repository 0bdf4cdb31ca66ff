"""From the states of a flight to the records of its receiver: noise, and no GPS at the start."""

import math
from dataclasses import dataclass

from .atmosphere import (
    GAS_CONSTANT,
    GRAVITY,
    geometric_height,
    virtual_temperature,
    wind_from_components,
)
from .sounding import Frame, LaunchObservation


@dataclass(frozen=True)
class Noise:
    """Standard deviations of the single samples."""

    pressure: float = 0.1
    temperature: float = 0.05
    rh: float = 0.3
    wind: float = 0.2
    ascent: float = 0.1
    position: float = 2e-6
    gps_altitude: float = 1.2


UPSONDE_NOISE = Noise(pressure=0.02)  # pressure far up has to be finer than that of a falling sonde
GPS_LOCK = 4.0  # s after release until a dropsonde reports its first wind


def dry_bias(rh, celsius):
    """What a sensor of the dry-biased generation shows of the true RH at a temperature."""
    offset = 0.5227 - 0.0284 * celsius + 2.86e-4 * celsius**2 + 8.97e-7 * celsius**3 - 1.26e-9 * celsius**4
    loss = 1.0757 - 0.204 * celsius + 9.009e-3 * celsius**2 - 5.83e-5 * celsius**3 - 1.04e-6 * celsius**4
    return rh * ((offset - loss) / 100.0 + 1.0) - offset


def launch_observation(atmosphere, height, position, with_gps=True):
    pressure, temperature, rh, u, v = atmosphere.at(height)
    direction, speed = wind_from_components(u, v)
    gps = geometric_height(height) if with_gps else None
    return LaunchObservation(pressure, temperature, rh, direction, speed, position[1], position[0], height, gps)


def _channels(frame, rng, equal):
    """Two humidity elements read apart; with ``equal`` both report the value in use."""
    if equal:
        frame.rh1 = frame.rh2 = frame.rh
    else:
        frame.rh1 = max(frame.rh + rng.gauss(0.25, 0.15), 0.0)
        frame.rh2 = max(frame.rh + rng.gauss(-0.35, 0.15), 0.0)


def prelaunch(rng, times, cabin_pressure, cabin_temperature, cabin_rh, equal_channels):
    """Records of the sonde in the cabin, with no GPS reception."""
    frames = []
    for time in times:
        frame = Frame(time, in_flight=False)
        frame.pressure = cabin_pressure + rng.gauss(0.0, 0.1)
        frame.temperature = cabin_temperature + rng.gauss(0.0, 0.05)
        frame.rh = cabin_rh + rng.gauss(0.0, 0.2)
        _channels(frame, rng, equal_channels)
        frame.satellites = 0
        frames.append(frame)
    return frames


class _Satellites:
    def __init__(self, rng):
        self._rng = rng
        self._count = 9

    def next(self):
        step = self._rng.random()
        if step < 0.04:
            self._count = max(self._count - 1, 7)
        elif step > 0.96:
            self._count = min(self._count + 1, 12)
        return self._count


class _OnboardAltitude:
    """Height as a receiver works it out on the way, layer by layer from the launch altitude."""

    def __init__(self, launch):
        self._altitude = launch.altitude
        self._last = (launch.pressure, launch.temperature, launch.rh)

    def next(self, pressure, temperature, rh):
        rh = max(rh, 0.0)
        mean = 0.5 * (virtual_temperature(*self._last) + virtual_temperature(pressure, temperature, rh))
        self._altitude += GAS_CONSTANT / GRAVITY * mean * math.log(self._last[0] / pressure)
        self._last = (pressure, temperature, rh)
        return self._altitude


def measure(states, rng, sensor, launch, noise, lock=0.0, equal_channels=False):
    satellites = _Satellites(rng)
    onboard = _OnboardAltitude(launch)
    frames = []
    for state in states:
        frame = Frame(state.time)
        frame.pressure = state.pressure + rng.gauss(0.0, noise.pressure)
        frame.temperature = state.felt_temperature + rng.gauss(0.0, noise.temperature)
        shown = dry_bias(state.felt_rh, state.felt_temperature) if sensor.dry_bias else state.felt_rh
        frame.rh = max(shown + rng.gauss(0.0, noise.rh), 0.0)
        _channels(frame, rng, equal_channels)
        frame.altitude = onboard.next(frame.pressure, frame.temperature, frame.rh)
        if state.time >= lock:
            u = state.sonde_u + rng.gauss(0.0, noise.wind)
            v = state.sonde_v + rng.gauss(0.0, noise.wind)
            frame.direction, frame.speed = wind_from_components(u, v)
            height = geometric_height(state.z)
            stretch = (height / state.z) ** 2 if state.z > 0 else 1.0
            frame.ascent = state.sonde_w * stretch + rng.gauss(0.0, noise.ascent)
            frame.longitude = state.longitude + rng.gauss(0.0, noise.position)
            frame.latitude = state.latitude + rng.gauss(0.0, noise.position)
            frame.gps_altitude = height + rng.gauss(0.0, noise.gps_altitude)
            frame.satellites = satellites.next()
            frame.wind_error = 0.15 + abs(rng.gauss(0.1, 0.1))
        else:
            frame.satellites = min(int(state.time / 0.8), 4)
        frames.append(frame)
    return frames
