"""The examples: which air, which sonde, which format, and which faults."""

import random
from dataclasses import dataclass
from datetime import datetime
from typing import Optional

from . import truth
from .atmosphere import Atmosphere
from .faults import Faults
from .formats import csvformat, frd, mw41, ombra, trove, wmo, zor
from .sonde import BEAD_SENSOR, BEAD_SENSOR_DRY, THIN_SENSOR, Parachute, SensorType, drop, rise
from .sounding import Metadata, Sounding
from .telemetry import GPS_LOCK, UPSONDE_NOISE, Noise, launch_observation, measure, prelaunch

PROJECT = "TARVO-SYNTHETIC"
CABIN = (25.0, 32.0)  # temperature and RH that a dropsonde's sensors start from

# Height, temperature, RH, wind direction, wind speed.
TRADE_WIND = (
    (0.0, 27.6, 81.0, 88.0, 7.0),
    (550.0, 23.0, 92.0, 92.0, 10.5),
    (1700.0, 16.2, 84.0, 98.0, 9.0),
    (1980.0, 17.4, 45.0, 102.0, 8.0),
    (3600.0, 8.6, 38.0, 118.0, 5.5),
    (5200.0, -2.2, 55.0, 150.0, 5.0),
    (6600.0, -11.0, 30.0, 185.0, 8.0),
    (8200.0, -22.6, 24.0, 205.0, 12.0),
)
MONSOON = (
    (0.0, 28.4, 84.0, 215.0, 9.0),
    (700.0, 23.4, 93.0, 222.0, 15.0),
    (2400.0, 13.2, 86.0, 230.0, 18.0),
    (4300.0, 2.0, 78.0, 236.0, 14.0),
    (4700.0, 0.4, 52.0, 238.0, 13.0),
    (6800.0, -12.4, 61.0, 256.0, 8.0),
)
SUBTROPICAL = (
    (0.0, 21.4, 72.0, 20.0, 5.0),
    (620.0, 16.0, 90.0, 26.0, 8.5),
    (840.0, 19.8, 38.0, 40.0, 6.0),
    (2500.0, 9.4, 22.0, 75.0, 4.0),
    (5000.0, -6.6, 15.0, 140.0, 6.0),
)
WARM_FRONT = (
    (0.0, 14.8, 88.0, 150.0, 12.0),
    (900.0, 9.6, 94.0, 178.0, 22.0),
    (1300.0, 10.8, 90.0, 192.0, 24.0),
    (3100.0, -0.6, 82.0, 214.0, 27.0),
    (5000.0, -13.0, 58.0, 228.0, 31.0),
)
MID_LATITUDE = (
    (0.0, 11.2, 78.0, 240.0, 9.0),
    (800.0, 5.0, 88.0, 252.0, 16.0),
    (1400.0, 2.6, 62.0, 262.0, 19.0),
    (3000.0, -7.4, 48.0, 268.0, 26.0),
    (5500.0, -24.6, 42.0, 272.0, 37.0),
    (8000.0, -43.2, 46.0, 276.0, 52.0),
    (9300.0, -53.6, 40.0, 278.0, 58.0),
    (10300.0, -55.0, 26.0, 280.0, 49.0),
    (11200.0, -54.0, 22.0, 282.0, 42.0),
)
CYCLONE = (
    (0.0, 26.4, 93.0, 32.0, 43.0),
    (150.0, 25.4, 95.0, 34.0, 52.0),
    (500.0, 23.6, 97.0, 40.0, 60.0),
    (1000.0, 20.8, 98.0, 45.0, 57.0),
    (2500.0, 13.4, 97.0, 52.0, 49.0),
    (4500.0, 3.0, 93.0, 58.0, 41.0),
    (6400.0, -8.0, 84.0, 62.0, 34.0),
)
SUMMER_PLAIN = (
    (312.0, 24.2, 56.0, 170.0, 4.0),
    (1500.0, 12.8, 74.0, 200.0, 9.0),
    (1900.0, 12.4, 44.0, 215.0, 11.0),
    (3800.0, -0.8, 32.0, 240.0, 15.0),
    (6500.0, -18.6, 41.0, 255.0, 24.0),
    (10800.0, -52.4, 34.0, 262.0, 41.0),
    (11900.0, -57.6, 12.0, 265.0, 36.0),
    (15500.0, -58.4, 4.0, 270.0, 18.0),
    (22000.0, -52.0, 2.0, 80.0, 6.0),
)
POLAR_NIGHT = (
    (15.0, -31.2, 66.0, 120.0, 2.5),
    (60.0, -28.0, 67.0, 128.0, 4.0),
    (420.0, -21.6, 70.0, 150.0, 9.0),
    (2200.0, -27.4, 62.0, 200.0, 12.0),
    (5000.0, -44.0, 54.0, 225.0, 17.0),
    (8300.0, -65.2, 45.0, 245.0, 26.0),
    (11000.0, -66.8, 22.0, 262.0, 29.0),
    (19000.0, -77.6, 6.0, 280.0, 44.0),
    (24000.0, -79.0, 4.0, 284.0, 58.0),
)


class Example:
    """One finished example: its file and its truth."""

    def __init__(self, file_name, content, facts):
        self.file_name = file_name
        self.content = content
        self.truth = truth.text(facts)


@dataclass
class Flight:
    """All that is known of a flight once its faults are planted."""

    seed: int
    sounding: Sounding
    atmosphere: Atmosphere
    states: list
    noise: Noise
    sensor: SensorType
    chute: Optional[Parachute] = None
    notes: tuple = ()


def _facts(file_name, description, flight, zero, reader):
    sounding, atmosphere, chute, sensor = flight.sounding, flight.atmosphere, flight.chute, flight.sensor
    launch = sounding.launch
    surface_pressure, surface_temperature = atmosphere.at(atmosphere.surface_height)[:2]
    return {
        "name": file_name.rsplit(".", 1)[0],
        "file": file_name,
        "synthetic": True,
        "description": description,
        "seed": flight.seed,
        "direction": "up" if sounding.ascending else "down",
        "release": sounding.release.isoformat(),
        "launch_after_release": zero,
        "launch_values": {key: None if value is None else round(value, 4) for key, value in vars(launch).items()},
        "chute": None if chute is None else {"area_cm2": chute.area, "mass_g": chute.mass, "drag": chute.drag},
        "cabin_temperature": None if chute is None else CABIN[0],
        "sensor": {"name": sensor.name, "lag_s": sensor.lag, "dry_bias": sensor.dry_bias},
        "noise": vars(flight.noise),
        "surface": {
            "z": atmosphere.surface_height,
            "p": round(surface_pressure, 3),
            "T": round(surface_temperature, 3),
        },
        "levels_columns": ["z", "T", "RH", "direction", "speed"],
        "levels": atmosphere.levels,
        "waves": atmosphere.waves,
        "reader": reader,
        "profile_columns": truth.COLUMNS,
        "profile": truth.profile_rows(flight.states, zero),
        "faults": truth.shifted(flight.notes, zero),
    }


class _Drop:
    """A dropsonde flight up to the point where faults and a format come in."""

    def __init__(self, seed, release, atmosphere, pressure, position, sensor, first, cabin_pressure,
                 equal_channels=False, prelaunch_seconds=14.0, signal=0.0):
        self.seed = seed
        self.sensor = sensor
        self.noise = Noise()
        self.chute = Parachute()
        self.atmosphere = atmosphere
        self.release = release
        self.signal = signal
        rng = random.Random(seed)
        height = atmosphere.height_of(pressure)
        self.launch = launch_observation(atmosphere, height, position)
        self.states = drop(atmosphere, self.chute, sensor, height, position, CABIN, 0.5, first)
        count = int(prelaunch_seconds / 0.5)
        before = [first - 0.5 * index for index in range(count, 0, -1)]
        self.frames = prelaunch(rng, before, cabin_pressure, *CABIN, equal_channels)
        self.frames += measure(self.states, rng, sensor, self.launch, self.noise, GPS_LOCK, equal_channels)
        if signal is None or signal > 0.0:
            for frame in self.frames:
                frame.in_flight = signal is not None and frame.time >= signal
        # The pressure tells of the launch three records after the first one outside the cabin.
        self.diagnosed = first + 1.5
        self.faults = Faults(self.frames)

    def zero(self):
        """The launch that a reader decides on, from release."""
        if self.signal is None or abs(self.signal - self.diagnosed) > 3.0:
            return self.diagnosed
        return self.signal

    def sounding(self, metadata, **options):
        return Sounding(self.release, False, metadata, self.launch, self.frames, self.signal, options)

    def flight(self, sounding):
        return Flight(self.seed, sounding, self.atmosphere, self.states, self.noise, self.sensor, self.chute,
                      self.faults.notes)

    def reader_facts(self, sounding, dry_bias_due=False, heating_on=False):
        zero = self.zero()
        launch = sounding.clock(zero)
        judged = [frame for frame in self.frames if frame.time >= zero and frame.in_flight]
        with_ptu = [frame for frame in judged if frame.pressure is not None]
        warning, source = None, None
        if self.signal is None:
            warning, source = "no launch line", 3
        elif self.signal - self.diagnosed > 3.0:
            warning, source = "late launch detect", 4
        return {
            "launch_date": launch.strftime("%Y-%m-%d"),
            "launch_time": launch.strftime("%H:%M:%S.%f")[:-4],
            "launch_line_after_release": self.signal,
            "pressure_launch_after_release": self.diagnosed,
            "launch_source": source,
            "warning": warning,
            "records": 1 + sum(frame.time >= zero for frame in self.frames),
            "ptu_crc_errors": sum(frame.crc[0] == "1" for frame in with_ptu),
            "gps_crc_errors": sum(frame.crc[1] == "1" for frame in judged),
            "both_crc_errors": sum(frame.crc == "11" for frame in with_ptu),
            "wind_rate": 2,
            "needs_dry_bias_correction": dry_bias_due,
            "rh_heating_on": heating_on,
            "sounding_type": 3,
        }

    def example(self, file_name, description, metadata, dry_bias_due=False, heating_on=False, **options):
        sounding = self.sounding(metadata, **options)
        reader = self.reader_facts(sounding, dry_bias_due, heating_on)
        facts = _facts(file_name, description, self.flight(sounding), self.zero(), reader)
        return Example(file_name, ombra.write(sounding), facts)


def _metadata(**changes):
    values = dict(
        sonde_id="214350117",
        sonde_model="RSS421",
        sensor="RSS421",
        revision="A2",
        platform_type="Twin jet",
        platform_id="SYN01",
        project=PROJECT,
        flight="SF01",
        operator="A. Nimbus",
        comments="synthetic example",
        data_type="Synthetic test data",
        observation_source="Aircraft data system",
    )
    values.update(changes)
    return Metadata(**values)


def clean_tropical():
    flight = _Drop(1101, datetime(2021, 8, 1, 12, 0, 3), Atmosphere(1012.4, TRADE_WIND, ((0.6, 900.0, 0.4),)), 400.0,
                   (14.25, -52.6), THIN_SENSOR, 0.25, 772.0)
    return flight.example("D20210801_120003.1", "Trade wind air from 400 mb to the sea, nothing planted.", _metadata(),
                          header="new")


def spikes_and_crc():
    flight = _Drop(1102, datetime(2021, 9, 14, 4, 31, 20), Atmosphere(1007.8, MONSOON, ((0.5, 700.0, 1.1),)), 480.0,
                   (17.9, 118.35), THIN_SENSOR, 0.0, 810.0)
    faults = flight.faults
    faults.bad_crc(-6.0, "10")
    faults.bad_crc(-4.0, "01")
    for time, quantity, change in (
        (60, "pressure", 14.0),
        (75, "pressure", -9.0),
        (90, "temperature", 5.0),
        (105, "temperature", -4.0),
        (120, "rh", -28.0),
        (135, "rh", 18.0),
        (150, "speed", 28.0),
        (165, "direction", 130.0),
        (180, "latitude", 0.04),
        (195, "longitude", -0.05),
        (210, "gps_altitude", 320.0),
        (225, "ascent", 7.5),
        (240, "altitude", -150.0),
        (255, "rh1", 22.0),
        (270, "rh2", -25.0),
    ):
        faults.spike(time, quantity, change=change)
    for time, quantity, value in (
        (285, "wind_error", 2.6),
        (300, "satellites", 3),
        (300.5, "satellites", 4),
        (312, "pressure", 1250.0),
        (318, "temperature", 61.0),
        (324, "rh", 131.0),
        (330, "speed", 163.0),
        (336, "latitude", 95.5),
    ):
        faults.spike(time, quantity, value=value)
    faults.bad_crc(66, "10", pressure=-41.0, temperature=22.0, rh=-13.0)
    faults.bad_crc(67, "10")
    faults.bad_crc(142, "10", temperature=-17.0)
    faults.bad_crc(98, "01", speed=35.0, latitude=0.8)
    faults.bad_crc(172, "01", gps_altitude=2400.0)
    faults.bad_crc(128, "11", pressure=55.0, temperature=-30.0, speed=44.0, longitude=1.5)
    faults.bad_crc(218, "11")
    for time in (112.5, 113.5, 187.5, 262.5, 350.0):
        faults.winds_only(time)
    return flight.example("D20210914_043120.2",
                          "Monsoon air from 480 mb with spikes in every quantity and checksum errors of every kind.",
                          _metadata(sonde_id="214350442", revision="A3", flight="SF02", channel=2), header="new")


def late_launch():
    flight = _Drop(1103, datetime(2022, 5, 23, 9, 14, 41), Atmosphere(1017.2, SUBTROPICAL, ((0.4, 600.0, 2.0),)), 590.0,
                   (29.4, -19.8), THIN_SENSOR, 0.25, 905.0, signal=20.25)
    return flight.example("D20220523_091501.3",
                          "Subtropical air from 590 mb; the launch was signalled about 20 s after it happened.",
                          _metadata(sonde_id="220411209", flight="SF03", channel=3), header="new")


def no_launch_line():
    flight = _Drop(1104, datetime(2023, 2, 11, 15, 42, 8, 500000), Atmosphere(998.6, WARM_FRONT, ((0.8, 800.0, 0.0),)),
                   610.0, (43.6, -48.2), THIN_SENSOR, 0.0, 880.0, signal=None)
    return flight.example("D20230211_154208.1",
                          "Warm front from 610 mb; the launch went unnoticed, so all records are pre-launch ones.",
                          _metadata(sonde_id="231070038", revision="A4", flight="SF04"), header="new")


def dry_bias_mid_latitude():
    atmosphere = Atmosphere(1004.4, MID_LATITUDE, ((1.0, 1100.0, 0.7),))
    flight = _Drop(1105, datetime(2010, 1, 19, 18, 7, 8, 500000), atmosphere, 250.0,
                   (46.8, -34.5), BEAD_SENSOR_DRY, 0.0, 792.0, equal_channels=True)
    return flight.example("D20100119_180708.4",
                          "Mid-latitude jet from 250 mb; the humidity sensor is of the dry-biased generation.",
                          _metadata(sonde_id="083640271", sonde_model="RSS904", sensor="RSS904", revision="B",
                                    flight="SF05", channel=4),
                          dry_bias_due=True, heating_on=True, identifier="ACS", version="1.4", header="old")


def cyclone_with_gap():
    flight = _Drop(1106, datetime(2008, 9, 10, 23, 56, 12), Atmosphere(958.7, CYCLONE, ((1.2, 450.0, 0.2),)), 480.0,
                   (24.7, -86.9), BEAD_SENSOR, 0.25, 830.0)
    flight.faults.gap(212.0, 219.0)
    return flight.example("D20080910_235612.2",
                          "Eyewall of a tropical cyclone across midnight, with seven seconds of lost records.",
                          _metadata(sonde_id="072240193", sonde_model="RSS904", sensor="RSS904", flight="SF06",
                                    channel=2, platform_type="Four-engine turboprop", platform_id="SYN02",
                                    wind_time_offset=0.25),
                          version="1.4", header="plain", line_end="\r\n")


def floating():
    flight = _Drop(1122, datetime(2023, 8, 29, 18, 42, 7), Atmosphere(951.2, CYCLONE, ((0.9, 400.0, 1.3),)), 700.0,
                   (24.6, -84.9), THIN_SENSOR, 0.25, 862.0)
    flight.faults.afloat(9.0, random.Random(1122))
    return flight.example("D20230829_184207.2",
                          "Eyewall of a tropical cyclone from 700 mb; the sonde goes on reporting while it floats.",
                          _metadata(sonde_id="231720455", flight="SF15", channel=2,
                                    platform_type="Four-engine turboprop", platform_id="SYN02"), header="new")


def _csv_example(file_name, description, flight, rh_channels):
    sounding = flight.sounding
    reader = {
        "launch_date": sounding.release.strftime("%Y-%m-%d"),
        "launch_time": sounding.release.strftime("%H:%M:%S"),
        "warning": None,
        "records": len(sounding.frames),
        "rh_channels": rh_channels,
        "sounding_type": 0 if sounding.ascending else 3,
    }
    facts = _facts(file_name, description, flight, 0.0, reader)
    return Example(file_name, csvformat.write(sounding), facts)


def csv_drop():
    flight = _Drop(1107, datetime(2021, 8, 3, 17, 22, 45), Atmosphere(1013.6, TRADE_WIND, ((0.7, 1000.0, 2.4),)), 430.0,
                   (12.1, -47.35), THIN_SENSOR, 0.0, 790.0, prelaunch_seconds=0.0)
    fields = ("time", "pressure", "temperature", "rh", "speed", "direction", "latitude", "longitude", "altitude",
              "gps_altitude", "satellites", "ascent", "rh1", "rh2")
    sounding = flight.sounding(_metadata(sonde_id="214350563", flight="SF07"), fields=fields, equipment_type="8",
                               sonde_type="96")
    return _csv_example("tradewind_drop_20210803.csv", "Trade wind air from 430 mb in the interchange format.",
                        flight.flight(sounding), 2)


def _upsonde(seed, release, atmosphere, position, interval, top, metadata, site):
    rng = random.Random(seed)
    states = rise(atmosphere, THIN_SENSOR, position, interval, top)
    launch = launch_observation(atmosphere, atmosphere.surface_height, position)
    frames = measure(states, rng, THIN_SENSOR, launch, UPSONDE_NOISE)
    fields = ("time", "pressure", "temperature", "rh", "speed", "direction", "latitude", "longitude", "altitude",
              "gps_altitude", "satellites", "ascent")
    options = dict(fields=fields, equipment_type="0", sonde_type="23", site=site)
    sounding = Sounding(release, True, metadata, launch, frames, 0.0, options)
    return Flight(seed, sounding, atmosphere, states, UPSONDE_NOISE, THIN_SENSOR)


def csv_up():
    atmosphere = Atmosphere(978.3, SUMMER_PLAIN, ((0.6, 1300.0, 0.0),))
    metadata = _metadata(sonde_id="S0420815", platform_type="Ground station", platform_id="SYN03", flight="SU01",
                         observation_source="Station")
    flight = _upsonde(1108, datetime(2022, 7, 5, 11, 15, 30), atmosphere, (41.3, 12.75), 1.0, 60.0, metadata,
                      "Synthetic plain")
    return _csv_example("summer_up_20220705.csv", "Radiosonde over a summer plain, every second, up to 60 mb.",
                        flight, 1)


def csv_polar():
    atmosphere = Atmosphere(1003.9, POLAR_NIGHT, ((0.8, 1500.0, 1.0),))
    metadata = _metadata(sonde_id="S0517733", platform_type="Ground station", platform_id="SYN04", flight="SU02",
                         observation_source="Station")
    flight = _upsonde(1109, datetime(2023, 1, 17, 23, 5, 0), atmosphere, (78.9, 11.9), 10.0, 40.0, metadata,
                      "Synthetic fjord")
    faults = Faults(flight.sounding.frames)
    faults.blank(310.0, 320.0, "pressure")
    faults.blank(640.0, 670.0, "rh")
    faults.blank(900.0, 910.0, "temperature", "rh")
    faults.blank(1500.0, 1560.0, "speed", "direction")
    faults.blank(1500.0, 1540.0, "latitude", "longitude", "gps_altitude")
    faults.blank(2750.0, 2760.0, "altitude")
    faults.blank(3000.0, 3010.0, *(name for name in flight.sounding.options["fields"] if name != "time"))
    flight.notes = faults.notes
    return _csv_example("polar_up_20230117.csv", "Radiosonde in the polar night, every 10 s, with missing cells.",
                        flight, 1)


def _row_example(file_name, description, flight, writer, sounding_type, warning=None, lost=0):
    """An example of a format with one row for each record, of which a reader has to leave ``lost`` out."""
    sounding = flight.sounding
    reader = {
        "launch_date": sounding.release.strftime("%Y-%m-%d"),
        "launch_time": sounding.release.strftime("%H:%M:%S"),
        "warning": warning,
        "records": len(sounding.frames) - lost,
        "sounding_type": sounding_type,
    }
    facts = _facts(file_name, description, flight, 0.0, reader)
    return Example(file_name, writer.write(sounding), facts)


def _short_drop(seed, release, atmosphere, pressure, position):
    return _Drop(seed, release, atmosphere, pressure, position, THIN_SENSOR, 0.0, 850.0, prelaunch_seconds=0.0)


def _ten_second_up(seed, release, atmosphere, top, position, **changes):
    metadata = _metadata(platform_type="Ground station", observation_source="Station", **changes)
    return _upsonde(seed, release, atmosphere, position, 10.0, top, metadata, "Synthetic site")


def _tear(flight, faults, cuts):
    """Rows that end after so many characters, by the time of their record."""
    flight.sounding.options["torn"] = cuts
    faults.notes += [{"time": time, "kind": "torn", "characters": count} for time, count in cuts.items()]
    flight.notes = faults.notes


def trove_up():
    atmosphere = Atmosphere(979.1, SUMMER_PLAIN, ((0.6, 1300.0, 0.3),))
    flight = _ten_second_up(1110, datetime(2022, 7, 6, 11, 14, 10), atmosphere, 60.0, (41.3, 12.75),
                            sonde_id="S0420816", platform_id="SYN03", flight="SU03")
    flight.sounding.options["layout"] = "named"
    return _row_example("plain_up_20220706.trv", "Radiosonde over a summer plain, every 10 s, as other systems write it.",
                        flight, trove, 2)


def trove_drop():
    flight = _short_drop(1111, datetime(2021, 9, 15, 5, 2, 40), Atmosphere(1008.2, MONSOON, ((0.5, 700.0, 0.4),)), 770.0,
                         (17.5, 118.6))
    faults = flight.faults
    faults.spike(60, "pressure", change=14.0)
    faults.spike(80, "temperature", change=5.0)
    faults.spike(100, "rh", change=-28.0)
    faults.spike(120, "speed", change=28.0)
    faults.blank(30.0, 32.0, "pressure", "temperature", "rh", "altitude")
    faults.blank(90.0, 91.0, "speed", "direction", "latitude", "longitude")
    faults.gap(140.0, 144.0)
    made = flight.flight(flight.sounding(_metadata(sonde_id="214350443", flight="SF08"), layout="product"))
    _tear(made, faults, {110.0: 19})
    return _row_example("monsoon_drop_20210915.trv", "Monsoon air from 770 mb in the layout of the product, with faults.",
                        made, trove, 2)


def zor_up():
    atmosphere = Atmosphere(1004.6, POLAR_NIGHT, ((0.8, 1500.0, 1.4),))
    flight = _ten_second_up(1112, datetime(2023, 1, 18, 23, 4, 20), atmosphere, 60.0, (78.9, 11.9),
                            sonde_id="S0517734", platform_id="SYN04", flight="SU04")
    return _row_example("fjord_up_20230118.zor", "Radiosonde in the polar night, every 10 s.", flight, zor, 6,
                        "pass-through")


def zor_drop():
    flight = _short_drop(1113, datetime(2021, 8, 4, 23, 58, 45), Atmosphere(1013.1, TRADE_WIND, ((0.7, 1000.0, 2.4),)),
                         780.0, (12.4, -47.1))
    faults = flight.faults
    faults.blank(20.0, 22.0, "pressure", "temperature", "rh")
    faults.blank(50.0, 53.0, "speed", "direction", "ascent", "latitude", "longitude", "gps_altitude")
    faults.gap(100.0, 103.0)
    made = flight.flight(flight.sounding(_metadata(sonde_id="214350564", flight="SF09")))
    _tear(made, faults, {70.0: 52, 85.0: 52})
    return _row_example("tradewind_drop_20210804.zor", "Trade wind air from 780 mb across midnight, with faults.", made,
                        zor, 6, "pass-through")


def frd_drop():
    flight = _short_drop(1114, datetime(2022, 5, 24, 9, 31, 5), Atmosphere(1016.8, SUBTROPICAL, ((0.4, 600.0, 2.2),)),
                         790.0, (29.1, -19.5))
    sounding = flight.sounding(_metadata(sonde_id="220411210", flight="SF10"))
    return _row_example("subtropical_drop_20220524.frd", "Subtropical air from 790 mb.", flight.flight(sounding), frd, 7,
                        "pass-through")


def frd_damaged():
    flight = _short_drop(1115, datetime(2023, 2, 12, 15, 10, 50), Atmosphere(998.1, WARM_FRONT, ((0.8, 800.0, 0.9),)),
                         760.0, (-43.2, 48.4))
    faults = flight.faults
    faults.blank(15.0, 18.0, "pressure", "altitude")
    faults.blank(40.0, 42.0, "temperature", "rh")
    faults.blank(60.0, 63.0, "speed", "direction", "ascent", "latitude", "longitude")
    faults.gap(120.0, 125.0)
    made = flight.flight(flight.sounding(_metadata(sonde_id="231070039", flight="SF11")))
    _tear(made, faults, {75.0: 49})
    return _row_example("warmfront_drop_20230212.frd", "Warm front from 760 mb south of the equator, with faults.", made,
                        frd, 7, "pass-through")


def mw41_up():
    atmosphere = Atmosphere(977.6, SUMMER_PLAIN, ((0.6, 1300.0, 1.2),))
    flight = _ten_second_up(1116, datetime(2022, 7, 7, 11, 15, 0), atmosphere, 60.0, (41.3, 12.75),
                            sonde_id="S0420817", platform_id="SYN03", flight="SU05")
    return _row_example("plain_up_20220707.txt", "Radiosonde over a summer plain, every 10 s.", flight, mw41, 10,
                        "pass-through")


def mw41_damaged():
    atmosphere = Atmosphere(1003.2, POLAR_NIGHT, ((0.8, 1500.0, 0.2),))
    flight = _ten_second_up(1117, datetime(2023, 1, 19, 23, 5, 40), atmosphere, 60.0, (-68.6, -67.1),
                            sonde_id="S0517735", platform_id="SYN05", flight="SU06")
    faults = Faults(flight.sounding.frames)
    faults.blank(300.0, 330.0, "pressure", "temperature", "rh")
    faults.blank(1500.0, 1550.0, "speed", "direction", "latitude", "longitude", "gps_altitude")
    faults.gap(2000.0, 2100.0)
    _tear(flight, faults, {700.0: 31, 710.0: 7})
    flight.sounding.options.update(extra_column=True, line_end="\r\n")
    return _row_example("fjord_up_20230119.txt", "Radiosonde in the polar night of the south, every 10 s, with faults, an "
                        "unknown column and CR LF line ends.", flight, mw41, 10, "pass-through", lost=2)


def _message_example(file_name, description, flight):
    """A message, with the levels that a reader has to find in it, rounded as its groups are."""
    sounding = flight.sounding
    message = wmo.Message(sounding)
    reader = {
        "launch_date": sounding.release.strftime("1970-01-%d"),
        "launch_time": sounding.release.strftime("%H:%M:00"),
        "warning": None,
        "records": 0,
        "sounding_type": 9,
    }
    facts = _facts(file_name, description, flight, 0.0, reader)
    facts["coded_columns"] = ["type", "p", "z", "T", "Td", "direction", "speed"]
    facts["coded"] = [[level[0]] + [None if value is None else round(value, 3) for value in level[1:]]
                      for level in message.levels]
    return Example(file_name, message.text, facts)


def message_drop():
    flight = _Drop(1118, datetime(2021, 8, 5, 6, 21, 10), Atmosphere(1012.4, TRADE_WIND, ((0.6, 900.0, 1.1),)), 430.0,
                   (16.4, -65.7), THIN_SENSOR, 0.0, 850.0, prelaunch_seconds=0.0)
    made = flight.flight(flight.sounding(_metadata(sonde_id="214350777", flight="SF12"),
                                         header=["UZNT13 TRVO 050630"]))
    return _message_example("tempdrop_20210805.wmo", "Trade wind air from 430 mb as a TEMP DROP message.", made)


def message_up():
    flight = _ten_second_up(1119, datetime(2022, 7, 8, 11, 15, 0), Atmosphere(980.3, SUMMER_PLAIN, ((0.5, 1400.0, 0.9),)),
                            22.0, (41.3, 12.75), sonde_id="S0420818", platform_id="SYN03", flight="SU07")
    flight.sounding.options.update(station="16999", header=["USSY01 TRVO 081200"])
    return _message_example("temp_20220708.wmo", "Radiosonde over a summer plain, up to 22 mb, as a TEMP message.", flight)


def message_damaged():
    flight = _Drop(1120, datetime(2023, 2, 13, 15, 44, 0), Atmosphere(992.6, WARM_FRONT, ((0.7, 850.0, 2.1),)), 480.0,
                   (-43.2, 48.4), THIN_SENSOR, 0.0, 850.0, prelaunch_seconds=0.0)
    faults = flight.faults
    clean = flight.flight(flight.sounding(_metadata(sonde_id="231070040", flight="SF13"))).sounding.frames
    around = {pressure: min((frame for frame in clean if frame.pressure is not None),
                            key=lambda frame: abs(frame.pressure - pressure)).time for pressure in (700.0, 850.0, 925.0)}
    for pressure, *quantities in ((700.0, "temperature", "rh"), (850.0, "speed", "direction"), (925.0, "rh")):
        faults.blank(around[pressure] - 15.0, around[pressure] + 15.0, *quantities)

    def spoil(lines):
        """What happens to messages on their way: blanks within groups, words between the parts, a second heading."""
        split = [line.replace(" SPG 4", " SPG 4 ").replace("LST WND 0", "LST WND 0 ") for line in lines]
        end = split.index("=")
        return split[:end + 1] + ["NNNN", "QRM QRM PLS RPT", "UZXX13 TRVO 131600"] + split[end + 1:]

    made = flight.flight(flight.sounding(_metadata(sonde_id="231070040", flight="SF13"), knots=True, spoil=spoil,
                                         header=["UZXX13 TRVO 131600 COR 131615 CCA"], line_end="\r\r\n"))
    made.notes = faults.notes
    return _message_example("tempdrop_damaged_20230213.wmo", "Warm front from 480 mb as a TEMP DROP message in knots, with "
                            "values missing, groups split by blanks, and words between its parts.", made)


EXAMPLES = {
    "D20210801_120003": clean_tropical,
    "D20210914_043120": spikes_and_crc,
    "D20220523_091501": late_launch,
    "D20230211_154208": no_launch_line,
    "D20100119_180708": dry_bias_mid_latitude,
    "D20080910_235612": cyclone_with_gap,
    "D20230829_184207": floating,
    "tradewind_drop_20210803": csv_drop,
    "summer_up_20220705": csv_up,
    "polar_up_20230117": csv_polar,
    "plain_up_20220706": trove_up,
    "monsoon_drop_20210915": trove_drop,
    "fjord_up_20230118": zor_up,
    "tradewind_drop_20210804": zor_drop,
    "subtropical_drop_20220524": frd_drop,
    "warmfront_drop_20230212": frd_damaged,
    "plain_up_20220707": mw41_up,
    "fjord_up_20230119": mw41_damaged,
    "tempdrop_20210805": message_drop,
    "temp_20220708": message_up,
    "tempdrop_damaged_20230213": message_damaged,
}
