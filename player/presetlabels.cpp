#include "presetlabels.h"

#include "preferences.h"
#include "presetpages.h"
#include "tunedfrequency.h"

namespace tuner {

PresetLabels::PresetLabels(PresetPages &pages, TunedFrequency &frequency)
    : m_pages(pages)
    , m_frequency(frequency)
{}

void PresetLabels::relabel()
{
    Preferences *p = prefs();
    m_frequency.followBand();
    int values[kFmBandCount * kPresetCount] = {};
    const int count = p->isFM() ? kFmBandCount * kPresetCount : kAmBandCount * kPresetCount;
    p->favorites(values, count);
    showValues(values, count);
    if (p->isFM())
        showNames();
}

void PresetLabels::showValues(const int *values, int count)
{
    const int firstRow = prefs()->isFM() ? BAND_FM1 : BAND_AM1;
    const int rows = prefs()->isFM() ? kFmBandCount : kAmBandCount;
    for (int i = 0; i < count && i < rows * kPresetCount; ++i)
        m_pages.showFrequency(firstRow + i / kPresetCount, i % kPresetCount, m_frequency.text(values[i]));
}

void PresetLabels::showNames()
{
    if (!prefs()->isFM())
        return;
    for (int band = BAND_FM1; band <= BAND_FM3; ++band) {
        for (int id = 0; id < kPresetCount; ++id) {
            const QString name = prefs()->rdsName(Band(band), id);
            if (!name.isEmpty())
                m_pages.showName(band, id, Preferences::delControlChar(name));
        }
    }
}

void PresetLabels::light(int id)
{
    const int band = prefs()->band();
    m_pages.unlight(band);
    m_pages.light(band, id);
    prefs()->setCurrPlayFreqId(id);
}

void PresetLabels::lightPlaying()
{
    const int band = prefs()->band();
    m_pages.scrollToBand(band, true);
    if (validPreset(prefs()->playFreqId()))
        m_pages.light(band, prefs()->playFreqId());
}

void PresetLabels::unlightBand()
{
    prefs()->clearFreqId(prefs()->band(), kNoPreset);
    m_pages.unlight(prefs()->band());
}

void PresetLabels::unlightFamily()
{
    const int first = prefs()->isFM() ? BAND_FM1 : BAND_AM1;
    const int last = prefs()->isFM() ? BAND_FM3 : BAND_AM2;
    for (int band = first; band <= last; ++band) {
        prefs()->clearFreqId(Band(band), kNoPreset);
        m_pages.unlight(band);
    }
}

} // namespace tuner
