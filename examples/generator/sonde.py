"""The motion of a sonde through the atmosphere and what its sensors feel on the way.

A dropsonde falls under its parachute by the drag law: the drag acts along its motion relative to the air, so that the
sonde also takes on the wind with the small delay of its inertia. An upsonde rises with its balloon and goes with the
wind. The temperature sensor is a ventilated cylinder with first order lag. The humidity sensor lags as well, the more
the colder it is.
"""

import math
from dataclasses import dataclass

from .atmosphere import ZERO_CELSIUS, air_density

FALL_GRAVITY = 9.8
STEP = 0.05  # s, of the motion
LAST_FRAME = 0.29  # s ahead of the splash; a frame begun later is lost with the sonde
EQUATOR_RADIUS = 6378137.0
ECCENTRICITY_SQUARED = 0.00669437999014


@dataclass(frozen=True)
class Parachute:
    area: float = 900.0  # cm2
    mass: float = 320.0  # g, of the sonde with its parachute
    drag: float = 0.61


@dataclass(frozen=True)
class SensorType:
    """``lag`` is the time constant of temperature at the density and ventilation of a fall near the sea surface."""

    name: str
    lag: float
    dry_bias: bool = False


THIN_SENSOR = SensorType("RSS421", 0.62)
BEAD_SENSOR = SensorType("RSS904", 2.5)
BEAD_SENSOR_DRY = SensorType("RSS904", 2.5, dry_bias=True)


@dataclass
class State:
    """One moment of the flight: the air around the sonde, the sonde's motion, and the sensors' inner state."""

    time: float
    z: float
    pressure: float
    temperature: float
    rh: float
    u: float
    v: float
    sonde_u: float
    sonde_v: float
    sonde_w: float
    latitude: float
    longitude: float
    felt_temperature: float
    felt_rh: float


def temperature_lag(sensor, density, ventilation, celsius):
    """Heat transfer of a cylinder goes with the 0.6th power of density times speed; cold air conducts less."""
    flow = max(density * ventilation, 0.05) / (1.16 * 9.8)
    return sensor.lag * flow**-0.6 * (301.0 / (celsius + ZERO_CELSIUS)) ** 0.58


def humidity_lag(celsius):
    return 0.6 * math.exp(-celsius / 20.0)


class _Track:
    """Position over the ellipsoid."""

    def __init__(self, latitude, longitude):
        self.latitude = latitude
        self.longitude = longitude

    def move(self, east, north):
        sine = math.sin(math.radians(self.latitude))
        shape = 1.0 - ECCENTRICITY_SQUARED * sine * sine
        across = EQUATOR_RADIUS / math.sqrt(shape)
        along = across * (1.0 - ECCENTRICITY_SQUARED) / shape
        self.latitude += math.degrees(north / along)
        self.longitude += math.degrees(east / (across * math.cos(math.radians(self.latitude))))


class _Sensors:
    def __init__(self, sensor, temperature, rh):
        self.sensor = sensor
        self.temperature = temperature
        self.rh = rh

    def feel(self, step, air, ventilation):
        pressure, temperature, rh, _, _ = air
        lag = temperature_lag(self.sensor, air_density(pressure, temperature, rh), ventilation, temperature)
        self.temperature += (temperature - self.temperature) * (1.0 - math.exp(-step / lag))
        self.rh += (rh - self.rh) * (1.0 - math.exp(-step / humidity_lag(temperature)))


def _fall_rates(atmosphere, chute, state):
    """Time derivatives of height and of the three speeds."""
    z, sonde_u, sonde_v, sonde_w = state
    pressure, temperature, rh, u, v = atmosphere.at(z)
    du, dv = u - sonde_u, v - sonde_v
    relative = math.sqrt(du * du + dv * dv + sonde_w * sonde_w)
    area, mass = chute.area / 10000.0, chute.mass / 1000.0
    pull = 0.5 * air_density(pressure, temperature, rh) * chute.drag * area / mass * relative
    return sonde_w, pull * du, pull * dv, -FALL_GRAVITY - pull * sonde_w


def _advance(state, rates, step):
    return tuple(value + step * rate for value, rate in zip(state, rates))


def _fall_step(atmosphere, chute, state, step):
    k1 = _fall_rates(atmosphere, chute, state)
    k2 = _fall_rates(atmosphere, chute, _advance(state, k1, step / 2))
    k3 = _fall_rates(atmosphere, chute, _advance(state, k2, step / 2))
    k4 = _fall_rates(atmosphere, chute, _advance(state, k3, step))
    return tuple(
        value + step / 6.0 * (a + 2.0 * b + 2.0 * c + d) for value, a, b, c, d in zip(state, k1, k2, k3, k4)
    )


def drop(atmosphere, chute, sensor, height, position, cabin, interval, first):
    """The states of a dropsonde from release to the surface, every ``interval`` seconds from ``first`` on.

    The sonde is released at rest relative to the air. ``cabin`` is the temperature and RH its sensors have by then.
    """
    state = (height,) + atmosphere.at(height)[3:] + (0.0,)
    track = _Track(*position)
    sensors = _Sensors(sensor, *cabin)
    every, next_frame = round(interval / STEP), round(first / STEP)
    states = []
    count = 0
    while state[0] > atmosphere.surface_height:
        air = atmosphere.at(state[0])
        if count == next_frame:
            states.append(
                State(round(count * STEP, 3), state[0], *air, *state[1:], track.latitude, track.longitude,
                      sensors.temperature, sensors.rh)
            )
            next_frame += every
        before = state
        state = _fall_step(atmosphere, chute, state, STEP)
        track.move(0.5 * STEP * (before[1] + state[1]), 0.5 * STEP * (before[2] + state[2]))
        sensors.feel(STEP, atmosphere.at(0.5 * (before[0] + state[0])), abs(state[3]))
        count += 1
    return [seen for seen in states if seen.time <= count * STEP - LAST_FRAME]


def rise(atmosphere, sensor, position, interval, top_pressure):
    """The states of an upsonde from the ground to a pressure.

    The balloon rises at about 5 m/s, a little faster in thin air and never quite evenly.
    """
    step = 0.5
    z = atmosphere.surface_height
    air = atmosphere.at(z)
    track = _Track(*position)
    sensors = _Sensors(sensor, air[1], air[2])
    every = round(interval / step)
    states = []
    count = 0
    while air[0] > top_pressure:
        time = count * step
        climb = 4.9 + 2.5e-5 * (z - atmosphere.surface_height)
        climb += 0.35 * math.sin(time / 47.0) + 0.2 * math.sin(time / 13.0)
        if count % every == 0:
            states.append(
                State(time, z, *air, air[3], air[4], climb, track.latitude, track.longitude,
                      sensors.temperature, sensors.rh)
            )
        z += climb * step
        above = atmosphere.at(z)
        track.move(0.5 * step * (air[3] + above[3]), 0.5 * step * (air[4] + above[4]))
        sensors.feel(step, above, climb)
        air = above
        count += 1
    return states
