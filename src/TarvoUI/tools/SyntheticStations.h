#pragma once

class SoundingDB;

/// Made soundings for pictures, tests and measurements of the map: a net of stations round a cyclone over the Gulf of
/// Mexico, with its winds, temperatures and heights at the surface and some mandatory levels. Nothing was measured.
namespace SyntheticStations {

/// Enters \p rows by \p columns of them, in one transaction.
void enter(SoundingDB& db, int rows, int columns);

} // namespace SyntheticStations
