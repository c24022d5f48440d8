#include "preferences.h"

#include "frequencydial.h"
#include "inifile.h"
#include "presetwalk.h"
#include "radioconfkeys.h"
#include "settingsutil.h"
#include "stationwatch.h"
#include "translator.h"
#include "tunerlog.h"

#include "tunerpaths.h"

namespace tuner {

Preferences *Preferences::p_Instance = nullptr;

using radioconf::BandKeys;
using radioconf::tuneKey;

Preferences::CGplayer::~CGplayer()
{
    delete Preferences::p_Instance;
    Preferences::p_Instance = nullptr;
}

Preferences *Preferences::getInstance()
{
    if (!p_Instance) {
        static CGplayer cleanup;
        p_Instance = new Preferences;
    }
    return p_Instance;
}

void Preferences::resetInstance()
{
    delete p_Instance;
    p_Instance = nullptr;
}

Preferences::Preferences()
    : m_configPath(paths::radioConf())
    , m_settingsPath(paths::settingsIni())
    , m_radioConf(std::make_unique<IniFile>(m_configPath))
    , m_settings(std::make_unique<IniFile>(m_settingsPath))
{
    loadDate();
}

Preferences::~Preferences() = default;

int Preferences::rewrites() const
{
    return m_radioConf->rewrites() + m_settings->rewrites();
}

void Preferences::flush()
{
    m_radioConf->flush();
    m_settings->flush();
}

void Preferences::loadDate()
{
    const int afTaTp = cm::SettingsUtil::instance()->getRdsAfTaTpSupport();
    m_local = false;
    m_ta = false;
    m_regional = true;
    m_af = afTaTp == 1;

    for (int b = BAND_FM1; b <= BAND_FM3; ++b) {
        for (int i = 0; i < kPresetCount; ++i) {
            m_bands[b].af[i] = afTaTp == 1;
            m_bands[b].ta[i] = false;
            m_bands[b].savePreset[i] = false;
            m_bands[b].rdsName[i].clear();
        }
    }

    m_band = BAND_FM1;
    m_bandFM = BAND_FM1;
    m_bandAM = BAND_AM1;

    const tagTunerRegion_T *region = findRegionById(cm::SettingsUtil::instance()->getDestination());
    if (!region)
        return;
    const tagTunerRegionVariant_T &v = region->variant[0];
    m_fmMin = v.fmLow;
    m_fmMax = v.fmHigh;
    m_fmStep = v.fmStep;
    m_amMin = v.amLow;
    m_amMax = v.amHigh;
    m_amStep = v.amStep;
    for (int b = 0; b < kBandCount; ++b) {
        flagBand &band = m_bands[b];
        const bool fm = isFmBand(b);
        band.lowFreq = fm ? v.fmLow : v.amLow;
        band.highFreq = fm ? v.fmHigh : v.amHigh;
        band.step = fm ? v.fmStep : v.amStep;
        band.btmFreqIdBefore = 0;
        band.presetIndex = 0;
        band.currFreq = v.currFreq[b];
        band.currFreqId = kNoPreset;
        for (int i = 0; i < kPresetCount; ++i)
            band.presets[i] = v.presets[b][i];
    }
}

// --- file helpers ----------------------------------------------------------

// The prefix follows the current band, the number the band written.
radioconf::BandKeys Preferences::bandKeys(int bandNumber) const
{
    return BandKeys(isFM(), bandNumber);
}

int Preferences::snapToBand(const flagBand &band, int freq) const
{
    return freqDetect(freq, band.lowFreq, band.highFreq, band.step);
}

// --- persistent setters ----------------------------------------------------

void Preferences::storeSwitch(bool &field, bool on, const char *key)
{
    field = on;
    m_radioConf->setValue(tuneKey(key), on);
}

StationWatch *StationWatch::instance()
{
    static auto *watch = new StationWatch;
    return watch;
}

void Preferences::stationChanged()
{
    emit StationWatch::instance()->changed();
}

void Preferences::storeBand(Band &field, Band band, const char *key)
{
    if (!isValidBand(band)) {
        TUNER_WAR() << key << int(band) << "is not a band, ignored.";
        return;
    }
    field = band;
    m_radioConf->setValue(tuneKey(key), int(band));
}

void Preferences::setLocal(bool on)
{
    storeSwitch(m_local, on, "Local");
}

void Preferences::setTa(bool on)
{
    storeSwitch(m_ta, on, "ta");
}

void Preferences::setAf(bool on)
{
    storeSwitch(m_af, on, "Af");
}

void Preferences::setRegional(bool on)
{
    storeSwitch(m_regional, on, "Regional");
}

void Preferences::setBand(Band band)
{
    storeBand(m_band, band, "CurrBand");
    stationChanged();
}

void Preferences::setBand_FM(Band band)
{
    storeBand(m_bandFM, band, "Band_FM");
}

// Preset stepping records the AM band relative to 3 (0 or 1) here; the value
// is kept as given.
void Preferences::setBand_AM(Band band)
{
    storeBand(m_bandAM, band, "Band_AM");
}

void Preferences::setCurrPlayFreq(int freq)
{
    flagBand &band = current();
    band.currFreq = snapToBand(band, freq);
    m_radioConf->setValue(bandKeys(m_band).currFreq(), band.currFreq);
    stationChanged();
}

void Preferences::setPlayFreq(Band band, int freq)
{
    if (!isValidBand(band)) {
        TUNER_WAR() << int(band) << freq << "is not a band, ignored.";
        return;
    }
    flagBand &data = m_bands[band];
    data.currFreq = snapToBand(data, freq);
    m_radioConf->setValue(BandKeys::own(band).currFreq(), data.currFreq);
    stationChanged();
}

// Only ids above 5 become "none"; negative ids are stored as they are.
void Preferences::setCurrPlayFreqId(int id)
{
    clearFreqId(m_band, id);
}

void Preferences::clearFreqId(Band band, int id)
{
    if (!isValidBand(band)) {
        TUNER_WAR() << int(band) << id << "is not a band, ignored.";
        return;
    }
    const int stored = id > 5 ? kNoPreset : id;
    m_bands[band].currFreqId = stored;
    m_radioConf->setValue(bandKeys(band).currFreqId(), stored);
}

void Preferences::setFavoriteFreq(int index, int freq)
{
    if (!validPreset(index))
        return;
    flagBand &band = current();
    band.presets[index] = snapToBand(band, freq);
    m_radioConf->setValue(bandKeys(m_band).preset(index), band.presets[index]);
}

void Preferences::setFmTa(int index, bool on)
{
    if (!validPreset(index))
        return;
    current().ta[index] = on;
    m_radioConf->setValue(bandKeys(m_band).ta(index), on);
}

void Preferences::setFmAf(int index, bool on)
{
    if (!validPreset(index))
        return;
    current().af[index] = on;
    m_radioConf->setValue(bandKeys(m_band).af(index), on);
}

void Preferences::saveFreq(const int *freqs, int count)
{
    if (count <= 0)
        return;
    if (!freqs) {
        TUNER_WAR() << count << "frequencies announced but none given.";
        return;
    }
    const int lastBand = isFmBand(m_btmBand) ? BAND_FM3 : BAND_AM2;
    int next = 0;
    walkPresets(m_btmBand, qMax(0, m_bands[m_btmBand].btmFreqIdBefore), lastBand, count, [&](int b, int preset) {
        m_bands[b].presets[preset] = freqs[next++];
        m_radioConf->setValue(bandKeys(b).preset(preset), m_bands[b].presets[preset]);
    });
    if (next < count)
        TUNER_WAR() << count - next << "stations did not fit into the presets, dropped.";
}

// After an automatic store the new presets take the current switches. The
// two keys are written crossed here, and only here.
void Preferences::resetAfTa(int count)
{
    if (!isFmBand(m_btmBand) || count <= 0)
        return;
    walkPresets(m_btmBand, qMax(0, m_bands[m_btmBand].btmFreqIdBefore), BAND_FM3, count, [&](int b, int preset) {
        m_bands[b].af[preset] = m_af;
        m_bands[b].ta[preset] = m_ta;
        m_bands[b].savePreset[preset] = false;
        const BandKeys keys = BandKeys::own(b);
        m_radioConf->setValue(keys.ta(preset), m_af);
        m_radioConf->setValue(keys.af(preset), m_ta);
    });
}

// The file keeps only the last name; the model keeps one per preset.
void Preferences::saveRdsName(Band band, int index, const QString &name)
{
    if (!isValidBand(band) || !validPreset(index)) {
        TUNER_WAR() << int(band) << index << "is not a preset, name not saved.";
        return;
    }
    m_bands[band].rdsName[index] = name;
    m_settings->setValue(QStringLiteral("Tuner/rdsName"), name);
}

// --- transient setters -----------------------------------------------------

void Preferences::setSavePreset(int index, bool on)
{
    if (!validPreset(index)) {
        TUNER_WAR() << index << "is not a preset, ignored.";
        return;
    }
    current().savePreset[index] = on;
}

void Preferences::setPresetIndex(int index)
{
    if (!validPreset(index))
        return;
    m_presetIndex = index;
    m_presetBand = m_band;
    current().presetIndex = index;
}

void Preferences::btmStart()
{
    m_btmBand = m_band;
    m_bands[m_btmBand].btmFreqIdBefore = m_bands[m_btmBand].presetIndex;
}

void Preferences::setbtmPlayFreqId(int id)
{
    m_bands[m_btmBand].currFreqId = id;
}

void Preferences::clearBtmFreqId()
{
    const int first = isFM() ? BAND_FM1 : BAND_AM1;
    const int last = isFM() ? BAND_FM3 : BAND_AM2;
    for (int b = first; b <= last; ++b)
        m_bands[b].presetIndex = 0;
}

// --- getters ---------------------------------------------------------------

int Preferences::favoritAt(int index) const
{
    return validPreset(index) ? current().presets[index] : 0;
}

int Preferences::favoritBandAt(Band band, int index) const
{
    if (!isValidBand(band) || !validPreset(index))
        return 0;
    return m_bands[band].presets[index];
}

bool Preferences::fmTA(int index) const
{
    return validPreset(index) && current().ta[index];
}

bool Preferences::fmAf(int index) const
{
    return validPreset(index) && current().af[index];
}

bool Preferences::savePresetState(int index) const
{
    return validPreset(index) && current().savePreset[index];
}

QString Preferences::rdsName(Band band, int index) const
{
    if (!isValidBand(band) || !validPreset(index))
        return QString();
    return m_bands[band].rdsName[index];
}

const Preferences::flagBand &Preferences::bandData(Band band) const
{
    if (!isValidBand(band)) {
        TUNER_WAR() << int(band) << "is not a band, band 0 given.";
        return m_bands[BAND_FM1];
    }
    return m_bands[band];
}

// The band name list has two entries (FM, AM) and is indexed by the band
// number; bands past its end get their family's name.
QString Preferences::bandName() const
{
    static const int names[] = {39, 49};
    if (m_band < 2)
        return Translator::translate(names[m_band]);
    TUNER_WAR() << int(m_band) << "has no entry in the band name list, family name given.";
    return Translator::translate(isFM() ? 39 : 49);
}

// Returns min(count, 18) even when the AM family fills only 12 entries.
int Preferences::favorites(int *out, int count) const
{
    const int wanted = qMin(qMax(count, 0), kFmBandCount * kPresetCount);
    if (!out)
        return 0;
    const int first = isFM() ? BAND_FM1 : BAND_AM1;
    const int last = isFM() ? BAND_FM3 : BAND_AM2;
    int n = 0;
    for (int b = first; b <= last; ++b)
        for (int i = 0; i < kPresetCount && n < wanted; ++i)
            out[n++] = m_bands[b].presets[i];
    return wanted;
}

int Preferences::freqDetect(int freq, int min, int max, int step)
{
    return FrequencyDial::detect(freq, min, max, step);
}

QString Preferences::delControlChar(QString text)
{
    for (QChar &c : text) {
        if (c.unicode() > 126)
            c = QLatin1Char(' ');
    }
    return text;
}

} // namespace tuner
