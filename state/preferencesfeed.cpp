// How the preferences are filled from outside: the radio service's start-up
// state, AF/TA flags and PS names, or what radio.conf holds when the service
// cannot tell.

#include "preferences.h"

#include "inifile.h"
#include "presetwalk.h"
#include "radiochecks.h"
#include "radioconfkeys.h"
#include "rdscodes.h"
#include "tunerlog.h"

#include <QStringList>
#include <QVector>

namespace tuner {

using radioconf::BandKeys;
using radioconf::tuneKey;

// One code per preset, in order: an empty item is a preset with neither flag.
void Preferences::aftaState(const QString &aftaList)
{
    const QStringList codes = aftaList.isEmpty() ? QStringList() : aftaList.split(QLatin1Char(';'));
    int next = 0;
    walkPresets(BAND_FM1, 0, BAND_FM3, codes.size(), [&](int b, int i) {
        const QString item = codes.at(next++).trimmed();
        bool ok = item.isEmpty();
        const int code = ok ? 0 : item.toInt(&ok, 10);
        if (!ok)
            TUNER_WAR() << "aftaList" << item << "is not a number, read as neither flag.";
        m_bands[b].af[i] = hasAf(AfTaCode(code));
        m_bands[b].ta[i] = hasTa(AfTaCode(code));
        const BandKeys keys = BandKeys::own(b);
        m_radioConf->setValue(keys.af(i), m_bands[b].af[i]);
        m_radioConf->setValue(keys.ta(i), m_bands[b].ta[i]);
    });
}

// --- state from the radio service -----------------------------------------

void Preferences::init(int fm_freq_max, int fm_freq_min, int fm_step, int am_freq_max, int am_freq_min, int am_step,
                       const QString &band_current_freq, const QString &band_position, const QString &fm_list,
                       const QString &am_list)
{
    namespace check = radiocheck;
    RadioTuning t;
    t.fmMax = fm_freq_max;
    t.fmMin = fm_freq_min;
    t.fmStep = fm_step;
    t.amMax = am_freq_max;
    t.amMin = am_freq_min;
    t.amStep = am_step;
    t.bandCurFreq = check::numbers(band_current_freq, check::kMaxBands, "band_current_freq");
    t.bandPos = check::numbers(band_position, check::kMaxBands, "band_position");
    t.fmList = check::numbers(fm_list, check::kMaxFmPresets, "fm_list");
    t.amList = check::numbers(am_list, check::kMaxAmPresets, "am_list");
    init(t);
}

// The band switch, band and Local/Regional are the window's to set.
void Preferences::init(const RadioTuning &t)
{
    const QVector<int> &currentFreqs = t.bandCurFreq;
    QVector<int> positions = t.bandPos;
    for (int &id : positions)
        id = id >= 1 ? id - 1 : kNoPreset; // the service counts presets from 1
    QVector<int> fmPresets;
    for (int f : t.fmList)
        if (f > 0)
            fmPresets.append(f);
    QVector<int> amPresets;
    for (int f : t.amList)
        if (f > 0)
            amPresets.append(f);

    auto setUpFamily = [&](int firstBand, int lastBand, int low, int high, int step, const QVector<int> &presets) {
        int next = 0;
        for (int b = firstBand; b <= lastBand && b < positions.size(); ++b) {
            if (isFmBand(b)) {
                m_fmMax = high;
                m_fmMin = low;
                m_fmStep = step;
            } else {
                m_amMax = high;
                m_amMin = low;
                m_amStep = step;
            }
            flagBand &band = m_bands[b];
            band.lowFreq = low;
            band.highFreq = high;
            band.step = step;
            const int id = positions.at(b);
            band.btmFreqIdBefore = validPreset(id) ? id : 0;
            band.presetIndex = band.btmFreqIdBefore;
            const BandKeys keys = BandKeys::own(b);
            if (b < currentFreqs.size())
                band.currFreq = currentFreqs.at(b);
            else
                TUNER_WAR() << b << "has no current frequency in the list, kept" << band.currFreq;
            m_radioConf->setValue(keys.currFreq(), band.currFreq);
            band.currFreqId = id;
            m_radioConf->setValue(keys.currFreqId(), id);
            for (int i = 0; i < kPresetCount && next < presets.size(); ++i) {
                band.presets[i] = presets.at(next++);
                m_radioConf->setValue(keys.preset(i), band.presets[i]);
            }
        }
    };

    setUpFamily(BAND_FM1, BAND_FM3, t.fmMin, t.fmMax, t.fmStep, fmPresets);
    setUpFamily(BAND_AM1, BAND_AM2, t.amMin, t.amMax, t.amStep, amPresets);

    m_presetIndex = validPreset(playFreqId()) ? playFreqId() : 0;
    m_presetBand = m_band;
    m_btmBand = m_band;
    stationChanged();
}

// --- state kept in radio.conf ------------------------------------------------

void Preferences::restoreStoredTuning()
{
    const IniFile &file = *m_radioConf;
    bool ok = false;
    const auto storedBand = [&](const char *key, Band &field) {
        const int value = file.intValue(tuneKey(key), &ok);
        if (ok && isValidBand(value))
            field = Band(value);
    };
    storedBand("CurrBand", m_band);
    storedBand("Band_FM", m_bandFM);
    storedBand("Band_AM", m_bandAM);
    const bool local = file.boolValue(tuneKey("Local"), &ok);
    if (ok)
        m_local = local;
    const bool regional = file.boolValue(tuneKey("Regional"), &ok);
    if (ok)
        m_regional = regional;

    for (int b = 0; b < kBandCount; ++b) {
        flagBand &band = m_bands[b];
        const BandKeys keys = BandKeys::own(b);
        const int freq = file.intValue(keys.currFreq(), &ok);
        if (ok && freq > 0)
            band.currFreq = snapToBand(band, freq);
        const int id = file.intValue(keys.currFreqId(), &ok);
        if (ok) {
            band.currFreqId = validPreset(id) ? id : kNoPreset;
            band.presetIndex = validPreset(id) ? id : 0;
        }
        for (int i = 0; i < kPresetCount; ++i) {
            const int preset = file.intValue(keys.preset(i), &ok);
            if (ok && preset > 0)
                band.presets[i] = snapToBand(band, preset);
        }
    }
    m_presetIndex = validPreset(playFreqId()) ? playFreqId() : 0;
    m_presetBand = m_band;
    m_btmBand = m_band;
}

void Preferences::restoreStoredAfTa()
{
    const IniFile &file = *m_radioConf;
    bool ok = false;
    const bool ta = file.boolValue(tuneKey("ta"), &ok);
    if (ok)
        m_ta = ta;
    const bool af = file.boolValue(tuneKey("Af"), &ok);
    if (ok)
        m_af = af;
    for (int b = BAND_FM1; b <= BAND_FM3; ++b) {
        const BandKeys keys = BandKeys::own(b);
        for (int i = 0; i < kPresetCount; ++i) {
            const bool presetAf = file.boolValue(keys.af(i), &ok);
            if (ok)
                m_bands[b].af[i] = presetAf;
            const bool presetTa = file.boolValue(keys.ta(i), &ok);
            if (ok)
                m_bands[b].ta[i] = presetTa;
        }
    }
}

// Names of the 18 FM presets arrive in two strings of nine: the first from
// band 0 preset 0 up to band 1 preset 5, the second from band 1 preset 3 up
// to band 2 preset 5. Empty parts are names too (a preset without one).
static void fillRdsNames(Preferences::flagBand *bands, int band, int preset, int lastBand, const QString &names)
{
    const QStringList list = names.split(QLatin1Char(';'));
    int next = 0;
    walkPresets(band, preset, lastBand, list.size(), [&](int b, int i) { bands[b].rdsName[i] = list.at(next++); });
}

void Preferences::setPsName1(const QString &names)
{
    fillRdsNames(m_bands, BAND_FM1, 0, BAND_FM2, names);
}

void Preferences::setPsName2(const QString &names)
{
    fillRdsNames(m_bands, BAND_FM2, 3, BAND_FM3, names);
}

} // namespace tuner
