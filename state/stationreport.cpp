#include "stationreport.h"

#include "frequencydial.h"
#include "preferences.h"
#include "tunerlog.h"

namespace tuner {

namespace {

int onGrid(const Preferences *p, int freq)
{
    return FrequencyDial::normalize(freq, p->lowFreq(), p->highFreq(), p->stepFreq());
}

} // namespace

int storeStationReport(Preferences *p, int freq, int &band)
{
    const int f = onGrid(p, freq);
    if (f <= 0)
        TUNER_WAR() << freq << "is invaild freq.";
    if (band != p->band())
        TUNER_WAR() << band << "is not match current band.";
    if (f > 0 && band == p->band()) {
        p->setPlayFreq(Band(band), f);
        return f;
    }

    p->setBand(Band(band));
    if (freq >= p->fmMinFreq() && freq <= p->fmMaxFreq()) {
        if (!Preferences::isFmBand(band)) {
            band = BAND_FM1;
            p->setBand(BAND_FM1);
        }
        p->setPlayFreq(p->band_FM(), freq);
    } else if (freq >= p->amMinFreq() && freq <= p->amMaxFreq()) {
        if (band != BAND_AM1 && band != BAND_AM2) {
            band = BAND_AM1;
            p->setBand(BAND_AM1);
        }
        p->setPlayFreq(p->band_AM(), freq);
    } else {
        p->setPlayFreq(Band(band), Preferences::isFmBand(band) ? p->fmMinFreq() : p->amMinFreq());
    }
    return onGrid(p, freq);
}

} // namespace tuner
