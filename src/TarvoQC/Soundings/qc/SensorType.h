#pragma once

/// The temperature sensor of a sonde, as its time constant knows it. The numbers are part of the interface.
enum class SensorType : int {
    RS80 = 0,
    RS90 = 1,
    RS41 = 2,
};
