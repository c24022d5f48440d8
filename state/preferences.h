#pragma once

#include "radioconfkeys.h"
#include "radiotuning.h"
#include "region.h"
#include "runningstate.h"

#include <QString>

#include <memory>

namespace tuner {

class IniFile;

// 0, 1, 2 are FM1..FM3; 3 and 4 are AM1 and AM2.
enum Band { BAND_FM1 = 0, BAND_FM2 = 1, BAND_FM3 = 2, BAND_AM1 = 3, BAND_AM2 = 4 };

constexpr int kNoPreset = 6; // preset id meaning "no preset lit"

// The tuner's whole state. Persistent setters change the radio configuration
// (or the settings file) only when the value changes; the changes of one burst
// reach the disk together, a moment later (see IniFile).
class Preferences
{
public:
    struct flagBand
    {
        int currFreq = 0;
        int currFreqId = kNoPreset;
        int lowFreq = 0;
        int highFreq = 0;
        int step = 0;
        int btmFreqIdBefore = 0; // preset index when an automatic store started
        int presetIndex = 0;
        int presets[kPresetCount] = {};
        bool ta[kPresetCount] = {};
        bool af[kPresetCount] = {};
        bool savePreset[kPresetCount] = {};
        QString rdsName[kPresetCount];
    };

    static Preferences *getInstance();
    // Drops the instance so the next getInstance() starts afresh (tests).
    static void resetInstance();

    // Persistent setters.
    void setLocal(bool on);
    void setTa(bool on);
    void setAf(bool on);
    void setRegional(bool on);
    void setBand(Band band);
    void setBand_FM(Band band);
    void setBand_AM(Band band);
    void setCurrPlayFreq(int freq);
    void setPlayFreq(Band band, int freq);
    void setCurrPlayFreqId(int id);
    void clearFreqId(Band band, int id);
    void setFavoriteFreq(int index, int freq);
    void setFmTa(int index, bool on);
    void setFmAf(int index, bool on);
    void saveFreq(const int *freqs, int count);
    void aftaState(const QString &aftaList);
    void resetAfTa(int count);
    void saveRdsName(Band band, int index, const QString &name);
    void toggleTa() { setTa(!m_ta); }
    void toggleAf() { setAf(!m_af); }
    void toggleRegional() { setRegional(!m_regional); }
    void togglelocal() { setLocal(!m_local); }

    // What radio.conf holds, for when the radio service cannot tell: the
    // bands, Local/Regional and every band's frequency, preset id and presets;
    // or the AF/TA switches and flags. Read only; nothing is written.
    void restoreStoredTuning();
    void restoreStoredAfTa();
    // Writes pending changes of both files now.
    void flush();
    // Synced rewrites of both files so far.
    int rewrites() const;

    // Initial state from the radio service.
    void init(int fm_freq_max, int fm_freq_min, int fm_step, int am_freq_max, int am_freq_min, int am_step,
              const QString &band_current_freq, const QString &band_position, const QString &fm_list,
              const QString &am_list);
    void init(const RadioTuning &tuning);
    void setPsName1(const QString &names);
    void setPsName2(const QString &names);

    // Transient state.
    // The radio's running state; the named setters and getters below forward to it.
    RunningState &running() { return m_running; }
    const RunningState &running() const { return m_running; }
    void setTaAlarmStatus(InterruptType type) { m_running.setInterrupt(type); }
    void setTaStatus(bool on) { m_running.setTaStatus(on); }
    void setSouOffTa(bool on) { m_running.setSourceOffTa(on); }
    void setSouOffAlarm(bool on) { m_running.setSourceOffAlarm(on); }
    void setAlarmStatus(bool on) { m_running.setAlarmStatus(on); }
    void setCancelTa(bool on) { m_running.setCancelTa(on); }
    void setCancelAlarm(bool on) { m_running.setCancelAlarm(on); }
    void setCloseClick(bool on) { m_running.setCloseClicked(on); }
    void setNumberKeyInter(bool on) { m_running.setNumberKeyInter(on); }
    void setRdsStatus(int state)
    {
        m_rdsState = state;
        stationChanged();
    }
    void setPty(int pty) { m_pty = pty < 0 ? 0 : pty; }
    void setPtyItem(int type)
    {
        m_ptyType = type;
        stationChanged();
    }
    void setPtySerchstate(int state) { m_running.setPtySearchState(state); }
    void setWorkState(int state) { m_running.setReportedWorkState(state); }
    void setAutoCount(int count) { m_autoCount = count; } // part of the interface; nothing reads the count
    void setCurRdsName(const QString &name)
    {
        m_curRdsName = name;
        stationChanged();
    }
    void setCurPTYItem(const QString &item) { m_selectPty = item; }
    void setPTYSerchName(const QString &name) { m_ptySearchName = name; }
    void setSavePreset(int index, bool on);
    void setPresetIndex(int index);
    void btmStart();
    void setbtmPlayFreqId(int id);
    void clearBtmFreqId();

    // Getters.
    bool isLocal() const { return m_local; }
    bool ta() const { return m_ta; }
    bool af() const { return m_af; }
    bool regional() const { return m_regional; }
    bool closeClicked() const { return m_running.closeClicked(); }
    bool taStatus() const { return m_running.taStatus(); }
    bool SouOffTa() const { return m_running.sourceOffTa(); }
    bool SouOffAlarm() const { return m_running.sourceOffAlarm(); }
    bool alarmStatue() const { return m_running.alarmStatus(); }
    bool cancelTa() const { return m_running.cancelTa(); }
    bool cancelAlarm() const { return m_running.cancelAlarm(); }
    bool numberKeyInter() const { return m_running.numberKeyInter(); }
    InterruptType taOrAlarm() const { return m_running.interrupt(); }
    int fmMaxFreq() const { return m_fmMax; }
    int fmMinFreq() const { return m_fmMin; }
    int fmStep() const { return m_fmStep; }
    int amMaxFreq() const { return m_amMax; }
    int amMinFreq() const { return m_amMin; }
    int amStep() const { return m_amStep; }
    int rdsState() const { return m_rdsState; }
    int pty() const { return m_pty; }
    int presetIndex() const { return m_presetIndex; }
    QString curRdsName() const { return m_curRdsName; }
    QString selectPTY() const { return m_selectPty; }
    QString PTYseachItem() const { return m_ptySearchName; }
    int PTYtype() const { return m_ptyType; }
    int PTYSeachState() const { return m_running.ptySearchState(); }
    int workState() const { return m_running.reportedWorkState(); }
    Band btmband() const { return m_btmBand; }
    Band band() const { return m_band; }
    Band band_FM() const { return m_bandFM; }
    Band band_AM() const { return m_bandAM; }

    bool isFM() const { return isFmBand(m_band); }
    int playFreq() const { return current().currFreq; }
    int playFreqId() const { return current().currFreqId; }
    int lowFreq() const { return current().lowFreq; }
    int highFreq() const { return current().highFreq; }
    int stepFreq() const { return current().step; }
    int curBandFreqId() const { return m_bands[m_btmBand].btmFreqIdBefore; }
    int btmFreqIdAfter() const { return m_bands[m_btmBand].presetIndex; }
    // The preset lit when an automatic store ends: one chosen by a number key
    // during the store, else the one lit before it.
    int presetAfterStore() const { return numberKeyInter() ? btmFreqIdAfter() : curBandFreqId(); }
    int favoritAt(int index) const;
    int favoritBandAt(Band band, int index) const;
    bool fmTA(int index) const;
    bool fmAf(int index) const;
    bool savePresetState(int index) const; // part of the interface; the tuner itself never asks
    QString rdsName(Band band, int index) const;
    QString bandName() const;
    int favorites(int *out, int count) const;
    const flagBand &bandData(Band band) const;

    QString configPath() const { return m_configPath; }
    QString settingsPath() const { return m_settingsPath; }

    static int freqDetect(int freq, int min, int max, int step);
    static QString delControlChar(QString text);
    static bool isFmBand(int band) { return isFmBandNumber(band); }
    static bool isValidBand(int band) { return band >= BAND_FM1 && band <= BAND_AM2; }

private:
    Preferences();
    ~Preferences();
    Preferences(const Preferences &) = delete;
    Preferences &operator=(const Preferences &) = delete;

    class CGplayer
    {
    public:
        ~CGplayer();
    };

    void loadDate();
    const flagBand &current() const { return m_bands[m_band]; }
    flagBand &current() { return m_bands[m_band]; }
    int snapToBand(const flagBand &band, int freq) const;
    radioconf::BandKeys bandKeys(int bandNumber) const;
    void storeSwitch(bool &field, bool on, const char *key);
    void storeBand(Band &field, Band band, const char *key);
    static void stationChanged();

    static Preferences *p_Instance;

    bool m_local = true;
    bool m_ta = false;
    bool m_af = false;
    bool m_regional = true;
    RunningState m_running;
    int m_fmMax = 0;
    int m_fmMin = 0;
    int m_fmStep = 0;
    int m_amMax = 0;
    int m_amMin = 0;
    int m_amStep = 0;
    int m_rdsState = 0;
    int m_pty = 0;
    int m_presetIndex = 0;
    int m_autoCount = 0;
    QString m_curRdsName;
    QString m_selectPty;
    QString m_ptySearchName;
    QString m_spare; // a field of the stored model without an accessor
    int m_ptyType = 0;
    Band m_presetBand = BAND_FM1; // kept with the preset index; nothing reads it back
    Band m_btmBand = BAND_FM1;
    Band m_band = BAND_FM1;
    Band m_bandFM = BAND_FM1;
    Band m_bandAM = BAND_AM1;
    flagBand m_bands[kBandCount];
    QString m_configPath;
    QString m_settingsPath;
    std::unique_ptr<IniFile> m_radioConf;
    std::unique_ptr<IniFile> m_settings;
};

// The tuner's preferences, as everything that reads or keeps them calls them.
inline Preferences *prefs()
{
    return Preferences::getInstance();
}

} // namespace tuner
