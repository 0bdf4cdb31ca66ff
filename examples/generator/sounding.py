"""The sounding record: what a flight produced, in no particular file format.

Every writer in ``formats`` takes a ``Sounding`` and nothing else, so a new format is one more module there.
A value that was not measured is ``None``; each writer has its own way to say so.
Units: s, mb, deg C, %, deg, m/s, m.
"""

from dataclasses import dataclass, field
from datetime import datetime, timedelta
from typing import Optional


@dataclass
class Frame:
    """One record of the telemetry. ``time`` counts from the moment of release."""

    time: float
    in_flight: bool = True
    crc: str = "00"  # "1" is a bad checksum: the first digit for pressure, temperature and humidity, the second for GPS
    pressure: Optional[float] = None
    temperature: Optional[float] = None
    rh: Optional[float] = None
    rh1: Optional[float] = None
    rh2: Optional[float] = None
    direction: Optional[float] = None
    speed: Optional[float] = None
    ascent: Optional[float] = None
    longitude: Optional[float] = None
    latitude: Optional[float] = None
    altitude: Optional[float] = None
    gps_altitude: Optional[float] = None
    satellites: Optional[int] = None
    wind_error: Optional[float] = None


@dataclass
class LaunchObservation:
    """What the aircraft or the ground station measured at the place of release."""

    pressure: float
    temperature: float
    rh: float
    direction: float
    speed: float
    longitude: float
    latitude: float
    altitude: float
    gps_altitude: Optional[float]


@dataclass
class Metadata:
    sonde_id: str
    sonde_model: str
    sensor: str
    revision: str
    platform_type: str
    platform_id: str
    project: str
    flight: str
    operator: str
    comments: str
    data_type: str
    observation_source: str
    channel: int = 1
    wind_time_offset: float = 0.0


@dataclass
class Sounding:
    release: datetime
    ascending: bool
    metadata: Metadata
    launch: LaunchObservation
    frames: list
    launch_signal: Optional[float] = 0.0  # when the launch was signalled, seconds from release; None: never
    options: dict = field(default_factory=dict)  # what a format leaves open, such as its version

    def clock(self, seconds):
        """The time of day at so many seconds from release."""
        return self.release + timedelta(seconds=seconds)
