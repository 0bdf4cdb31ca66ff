"""The examples of the upsonde systems: of each format a clean one and one with faults."""

import random
from datetime import datetime

from . import truth
from .atmosphere import Atmosphere
from .catalogue import MID_LATITUDE, POLAR_NIGHT, SUMMER_PLAIN, Example, Flight, _facts, _metadata, _upsonde
from .faults import Faults
from .formats import keyed, mirra
from .sonde import THIN_SENSOR, Parachute, drop, rise
from .sounding import Sounding
from .telemetry import UPSONDE_NOISE, launch_observation, measure

MOUNTAIN = tuple((z + 640.0, t + 3.0, rh, direction, 0.6 * speed) for z, t, rh, direction, speed in MID_LATITUDE)
VALLEY = tuple((z + 120.0, t - 4.0, 0.9 * rh, direction + 30.0, 0.7 * speed)
               for z, t, rh, direction, speed in SUMMER_PLAIN)
COAST = tuple((z, t + 14.0, rh, direction - 60.0, 0.8 * speed) for z, t, rh, direction, speed in POLAR_NIGHT)
PELO_INTERVAL = 1.0


def _station(number, **changes):
    return _metadata(platform_type="Ground station", platform_id="SYN1%d" % number, observation_source="Station",
                     **changes)


def _example(file_name, description, flight, write, sounding_type, warning=None, spoil=None, **more):
    """``spoil`` takes the lines of the file and gives back what is left of them and how many records that cost."""
    sounding = flight.sounding
    lines, lost = write(sounding).splitlines(keepends=True), 0
    if spoil is not None:
        lines, lost = spoil(lines)
    reader = {
        "launch_date": sounding.release.strftime("%Y-%m-%d"),
        "launch_time": sounding.release.strftime("%H:%M:%S"),
        "warning": warning,
        "records": len(sounding.frames) - lost,
        "sounding_type": sounding_type,
    }
    facts = _facts(file_name, description, flight, 0.0, reader)
    facts.update(more)
    return Example(file_name, "".join(lines), facts)


def _plant(flight, spikes, blanks=(), gap=None):
    faults = Faults(flight.sounding.frames)
    for time, quantity, change in spikes:
        faults.spike(time, quantity, change=change)
    for start, end, *quantities in blanks:
        faults.blank(start, end, *quantities)
    if gap is not None:
        faults.gap(*gap)
    flight.notes = tuple(faults.notes)


def _pelo(seed, release, atmosphere, burst, metadata):
    """A radiosonde that comes down again on a parachute once its balloon has burst at a pressure."""
    rng = random.Random(seed)
    position = (46.4, 9.85)
    up = rise(atmosphere, THIN_SENSOR, position, PELO_INTERVAL, burst)
    top = up[-1]
    down = drop(atmosphere, Parachute(), THIN_SENSOR, top.z, (top.latitude, top.longitude),
                (top.felt_temperature, top.felt_rh), PELO_INTERVAL, PELO_INTERVAL)
    for state in down:
        state.time += top.time
    launch = launch_observation(atmosphere, atmosphere.surface_height, position)
    frames = measure(up + down, rng, THIN_SENSOR, launch, UPSONDE_NOISE)
    sounding = Sounding(release, True, metadata, launch, frames, 0.0, dict(system="PELO", site="Synthetic pass"))
    return Flight(seed, sounding, atmosphere, up, UPSONDE_NOISE, THIN_SENSOR), down


def _descent(flight, down):
    """What the truth tells of a descent: its times count from the record of the smallest pressure."""
    frames = [frame for frame in flight.sounding.frames if frame.pressure is not None]
    burst = min(frames, key=lambda frame: round(frame.pressure, 2)).time
    return {
        "descent": {"burst": burst, "records": sum(frame.time >= burst for frame in flight.sounding.frames)},
        "descent_profile": truth.profile_rows([state for state in down if state.time >= burst], burst),
    }


def pelo_up_and_down():
    flight, down = _pelo(1110, datetime(2022, 9, 14, 10, 58, 40), Atmosphere(941.2, MOUNTAIN, ((0.5, 1200.0, 0.3),)),
                         620.0, _station(0, sonde_id="R4520117", sonde_model="PS41", flight="SU10"))
    return _example("pelo_updown_20220914.dat", "Radiosonde up to 620 mb and down again on its parachute, every second.",
                    flight, keyed.write, 5, **_descent(flight, down))


def pelo_damaged():
    flight, down = _pelo(1111, datetime(2022, 9, 15, 22, 59, 10), Atmosphere(938.6, MOUNTAIN, ((0.7, 1500.0, 1.3),)),
                      600.0, _station(0, sonde_id="R4520118", sonde_model="PS41", flight="SU11"))
    _plant(flight, (
        (100.0, "pressure", -25.0),
        (160.0, "temperature", 11.0),
        (220.0, "rh", 40.0),
        (280.0, "speed", 45.0),
        (340.0, "latitude", 0.3),
        (400.0, "gps_altitude", 900.0),
    ), ((460.0, 470.0, "pressure"), (520.0, 530.0, "temperature", "rh"), (580.0, 590.0, "speed", "direction")))
    frames = flight.sounding.frames
    garbled = next(index for index, frame in enumerate(frames) if frame.time == 640.0)
    flight.notes += ({"time": 640.0, "kind": "garbled_time"}, {"time": frames[-1].time, "kind": "cut"})

    def spoil(lines):
        ahead = len(lines) - len(frames)
        line = lines[ahead + garbled]
        lines[ahead + garbled] = line[:30] + "??????" + line[36:]
        lines[-1] = lines[-1][:60]
        return lines, 1

    return _example("pelo_damaged_20220915.dat",
                    "Radiosonde up to 600 mb and down again, with spikes, missing values, a garbled time and a cut end.",
                    flight, keyed.write, 5, "garbled time, values missing", spoil, **_descent(flight, down))


def _ten_seconds(seed, release, atmosphere, position, top, metadata, **options):
    flight = _upsonde(seed, release, atmosphere, position, 10.0, top, metadata, options.pop("site"))
    flight.sounding.options.update(options, site=flight.sounding.options["site"])
    return flight


def vesta_up():
    flight = _ten_seconds(1112, datetime(2021, 3, 12, 23, 30, 5), Atmosphere(1001.3, VALLEY, ((0.6, 1300.0, 0.0),)),
                          (47.9, 16.3), 45.0,
                          _station(1, sonde_id="V2090044", sonde_model="VS92", flight="SU12", wind_time_offset=0.5),
                          site="Synthetic valley", system="VESTA", pressure_offset=-0.25)
    return _example("vesta_up_20210312.vst", "Radiosonde over a valley, every 10 s up to 45 mb; pressure reads low.",
                    flight, keyed.write, 3)


def vesta_damaged():
    flight = _ten_seconds(1113, datetime(2021, 3, 13, 11, 31, 0), Atmosphere(997.8, VALLEY, ((0.8, 1700.0, 2.0),)),
                          (47.9, 16.3), 45.0,
                          _station(1, sonde_id="V2090045", sonde_model="VS92", flight="SU13"),
                          site="Synthetic valley", system="VESTA", pressure_offset=None)
    _plant(flight, (
        (600.0, "pressure", 30.0),
        (900.0, "temperature", -12.0),
        (1200.0, "rh", 45.0),
        (1500.0, "speed", 50.0),
        (1800.0, "longitude", 0.6),
    ), ((2100.0, 2120.0, "pressure"), (2400.0, 2410.0, "latitude", "longitude")), (2700.0, 2730.0))
    return _example("vesta_damaged_20210313.vst",
                    "Radiosonde over a valley, every 10 s, with spikes, missing values and lost records.",
                    flight, keyed.write, 3)


def mirra_up():
    flight = _ten_seconds(1114, datetime(2020, 6, 20, 5, 44, 30), Atmosphere(1016.8, COAST, ((0.6, 1500.0, 0.6),)),
                          (43.3, -8.4), 40.0,
                          _station(2, sonde_id="M1180733", sonde_model="MR-2", flight="SU14"), site="Synthetic coast")
    return _example("mirra_up_20200620.mir", "Radiosonde at a coast, every 10 s up to 40 mb.", flight, mirra.write, 1)


def mirra_damaged():
    flight = _ten_seconds(1115, datetime(2020, 6, 21, 17, 45, 0), Atmosphere(1011.1, COAST, ((0.9, 1400.0, 1.7),)),
                          (43.3, -8.4), 40.0,
                          _station(2, sonde_id="M1180734", sonde_model="MR-2", flight="SU15"), site="Synthetic coast")
    _plant(flight, (
        (700.0, "pressure", -35.0),
        (1000.0, "temperature", 12.0),
        (1300.0, "rh", -40.0),
        (1600.0, "speed", 48.0),
        (1900.0, "latitude", -0.5),
    ), gap=(2200.0, 2230.0))
    flight.notes += ({"time": 0.0, "kind": "ahead_of_launch"}, {"time": 2500.0, "kind": "text"},
                     {"time": flight.sounding.frames[-1].time, "kind": "cut"})
    at = next(index for index, frame in enumerate(flight.sounding.frames) if frame.time == 2500.0)

    def spoil(lines):
        ahead = len(lines) - len(flight.sounding.frames)
        lines[-1] = lines[-1][:44] + "\n"
        lines[ahead + at] = "reception lost\n"
        waiting = "   -0.5" + lines[ahead - 1][7:]
        return lines[:ahead] + [waiting] + lines[ahead:], 1

    return _example("mirra_damaged_20200621.mir",
                    "Radiosonde at a coast, every 10 s, with spikes, lost records, a row of text and a cut end.",
                    flight, mirra.write, 1, "no time in a row, values missing", spoil)


EXAMPLES = {
    "pelo_updown_20220914": pelo_up_and_down,
    "pelo_damaged_20220915": pelo_damaged,
    "vesta_up_20210312": vesta_up,
    "vesta_damaged_20210313": vesta_damaged,
    "mirra_up_20200620": mirra_up,
    "mirra_damaged_20200621": mirra_damaged,
}
