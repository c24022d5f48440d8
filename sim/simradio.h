#pragma once

#include "niloradioservicebackend.h"
#include "region.h"
#include "stationlist.h"

#include <QTimer>

namespace sim {

// A believable radio behind nilo.RadioService: a band plan from the region
// table, stations with RDS names, PTY and TP, seek and scan that take time,
// presets kept in a state file of its own.
class SimRadio : public NiloRadioServiceBackend
{
    Q_OBJECT
public:
    SimRadio(int destination, const StationList &stations, const QString &stateFile, QObject *parent = nullptr);

    // Control surface.
    void startInterrupt(int code);
    void setStationName(int freq, const QString &name);
    void setStationTp(int freq, bool tp);
    void setStationPty(int freq, int pty);
    void setTimeScale(int percent);
    QString stateJson() const;

    // nilo.RadioService
    int RDSstate() override
    {
        record("RDSstate", {});
        return m_rdsState;
    }
    QString amList() override;
    int amMaxFreq() override
    {
        record("amMaxFreq", {});
        return m_amHigh;
    }
    int amMinFreq() override
    {
        record("amMinFreq", {});
        return m_amLow;
    }
    int amStep() override
    {
        record("amStep", {});
        return m_amStep;
    }
    void autoScan() override;
    int band() override
    {
        record("band", {});
        return m_band;
    }
    QString bandCurFreq() override;
    int bandId() override
    {
        record("bandId", {});
        return m_band;
    }
    QString bandPos() override;
    int bandSwitch() override
    {
        record("bandSwitch", {});
        return isFm(m_band) ? 0 : 1;
    }
    void changeBand(int band) override
    {
        record("changeBand", {band});
        selectBand(band);
    }
    void config(bool isLocal, int rds, int rdsFunc) override;
    QString fmList() override;
    int fmMaxFreq() override
    {
        record("fmMaxFreq", {});
        return m_fmHigh;
    }
    int fmMinFreq() override
    {
        record("fmMinFreq", {});
        return m_fmLow;
    }
    int fmStep() override
    {
        record("fmStep", {});
        return m_fmStep;
    }
    int freqBandId() override
    {
        record("freqBandId", {});
        return m_band;
    }
    int frequency() override
    {
        record("frequency", {});
        return m_curFreq[m_band];
    }
    int highFrequency() override
    {
        record("highFrequency", {});
        return high(m_band);
    }
    int initAfTa() override
    {
        record("initAfTa", {});
        return (m_af ? 1 : 0) + (m_ta ? 2 : 0);
    }
    QString initAfTaList() override;
    int initLocal() override
    {
        record("initLocal", {});
        return m_local ? 1 : 0;
    }
    QString initPsName1() override;
    QString initPsName2() override;
    int initRegional() override
    {
        record("initRegional", {});
        return m_regional ? 1 : 0;
    }
    bool isAfEnable() override
    {
        record("isAfEnable", {});
        return m_af;
    }
    bool isLocal() override
    {
        record("isLocal", {});
        return m_local;
    }
    bool isTaEnable() override
    {
        record("isTaEnable", {});
        return m_ta;
    }
    int lowFrequency() override
    {
        record("lowFrequency", {});
        return low(m_band);
    }
    int piTpStatus() override
    {
        record("piTpStatus", {});
        return m_piTp;
    }
    void ptySearch(int pty) override;
    int ptyType() override
    {
        record("ptyType", {});
        return currentStation() ? currentStation()->pty : 0;
    }
    void rdsCtrl(bool ta, bool af, bool regional) override;
    QString rdsName() override
    {
        record("rdsName", {});
        return currentPs();
    }
    QString rdsProgramName() override
    {
        record("rdsProgramName", {});
        return currentPs();
    }
    void savePreset(int value) override;
    void seekBackward() override
    {
        record("seekBackward", {});
        startSeek(false);
    }
    void seekForward() override
    {
        record("seekForward", {});
        startSeek(true);
    }
    int seekType() override
    {
        record("seekType", {});
        return m_work == 3 ? 1 : 0;
    }
    void setAf(bool state) override;
    void setPreset(int value) override;
    void setTa(bool state) override;
    void setband(int band) override
    {
        record("setband", {band});
        selectBand(band);
    }
    int stepFrequency() override
    {
        record("stepFrequency", {});
        return step(m_band);
    }
    void taAlarmCancel(int type) override;
    void terminate() override;
    void tune(int freq) override
    {
        record("tune", {freq});
        tuneTo(freq);
    }
    int workStateType() override
    {
        record("workStateType", {});
        return m_work;
    }

private:
    static bool isFm(int band) { return tuner::isFmBandNumber(band); }
    int low(int band) const { return isFm(band) ? m_fmLow : m_amLow; }
    int high(int band) const { return isFm(band) ? m_fmHigh : m_amHigh; }
    int step(int band) const { return isFm(band) ? m_fmStep : m_amStep; }
    const QVector<Station> &stationsOf(int band) const { return isFm(band) ? m_stations.fm : m_stations.am; }
    const Station *stationAt(int band, int freq) const;
    const Station *currentStation() const { return stationAt(m_band, m_curFreq[m_band]); }
    QString currentPs() const;
    QString psNamesOf(const int *presets, int count) const;
    int scaled(int ms) const { return qMax(1, ms * m_timeScale / 100); }

    void selectBand(int band);
    void tuneTo(int freq);
    void announceStation();
    void reportRds();
    void setWork(int status);
    void startSeek(bool up);
    void finishSeek();
    void finishScan();
    void finishPtySearch();
    void stopSearches();
    void loadState();
    void saveState() const;

    StationList m_stations;
    QString m_stateFile;
    mutable QByteArray m_savedState; // what the state file holds, to skip rewrites that change nothing
    int m_fmLow = 8750, m_fmHigh = 10800, m_fmStep = 5;
    int m_amLow = 531, m_amHigh = 1602, m_amStep = 9;
    int m_band = 0;
    int m_curFreq[tuner::kBandCount] = {};
    int m_presets[tuner::kBandCount][tuner::kPresetCount] = {};
    int m_presetPos[tuner::kBandCount] = {}; // 1-based, 0 none
    bool m_presetAf[tuner::kFmBandCount * tuner::kPresetCount] = {};
    bool m_presetTa[tuner::kFmBandCount * tuner::kPresetCount] = {};
    bool m_local = false;
    bool m_regional = true;
    bool m_af = true;
    bool m_ta = false;
    int m_work = 0;
    int m_piTp = 0;
    int m_rdsState = 0;
    int m_timeScale = 100;
    int m_seekTarget = 0;
    int m_ptyWanted = 0;
    QTimer m_seekTimer;
    QTimer m_scanTimer;
    QTimer m_ptyTimer;
    QTimer m_rdsTimer;
};

} // namespace sim
