#pragma once

namespace tuner {

class Preferences;

// Stores a station reported by the radio service. A report on another band
// than the current one, or off the current band's grid, moves the current
// band: to the family the frequency lies in, else to the reported band at its
// family's bottom edge. Returns the frequency on the current band's grid, or
// 0 or less when it is not on it; `band` ends as the band it was stored under.
int storeStationReport(Preferences *prefs, int freq, int &band);

} // namespace tuner
