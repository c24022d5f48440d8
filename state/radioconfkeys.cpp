#include "radioconfkeys.h"

#include "region.h"

namespace tuner::radioconf {

QString tuneKey(const char *name)
{
    return QLatin1String("Tune/") + QLatin1String(name);
}

BandKeys::BandKeys(bool fmPrefix, int band)
    : m_group(freqGroup(fmPrefix, band) + QLatin1Char('/'))
{}

BandKeys BandKeys::own(int band)
{
    return BandKeys(isFmBandNumber(band), band);
}

QString BandKeys::key(const char *name) const
{
    return m_group + QLatin1String(name);
}

QString BandKeys::indexed(const char *prefix, int index) const
{
    return m_group + QLatin1String(prefix) + QString::number(index);
}

} // namespace tuner::radioconf
