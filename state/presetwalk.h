#pragma once

#include "region.h"

namespace tuner {

// The band after (or before) `band` within its family, wrapping round:
// FM1, FM2, FM3, FM1... and AM1, AM2, AM1...
constexpr int bandInFamily(int band, bool next)
{
    const int first = isFmBandNumber(band) ? 0 : kFmBandCount;
    const int last = isFmBandNumber(band) ? kFmBandCount - 1 : kBandCount - 1;
    if (next)
        return band == last ? first : band + 1;
    return band == first ? last : band - 1;
}

// Visits presets in order from (band, preset) to the last preset of lastBand,
// turning to preset 0 of each next band, for at most count presets. Returns
// how many were visited. Automatic store, the AF/TA list and the RDS names all
// fill the presets of a family this way.
template<typename Visit>
int walkPresets(int band, int preset, int lastBand, int count, Visit visit)
{
    int visited = 0;
    for (; band <= lastBand && visited < count; ++band, preset = 0) {
        for (; preset < kPresetCount && visited < count; ++preset, ++visited)
            visit(band, preset);
    }
    return visited;
}

} // namespace tuner
