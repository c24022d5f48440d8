#pragma once

#include "servicebackend.h"

// Every method of nilo.RadioService: records the call and answers the value set with
// setAnswer(). The simulator overrides what it implements.
class NiloRadioServiceBackend : public ServiceBackend
{
    Q_OBJECT
public:
    using ServiceBackend::ServiceBackend;

    virtual int RDSstate() { return answer<int>("RDSstate", {}); }
    virtual QString amList() { return answer<QString>("amList", {}); }
    virtual int amMaxFreq() { return answer<int>("amMaxFreq", {}); }
    virtual int amMinFreq() { return answer<int>("amMinFreq", {}); }
    virtual int amStep() { return answer<int>("amStep", {}); }
    virtual void autoScan() { record("autoScan", {}); }
    virtual int band() { return answer<int>("band", {}); }
    virtual QString bandCurFreq() { return answer<QString>("bandCurFreq", {}); }
    virtual int bandId() { return answer<int>("bandId", {}); }
    virtual QString bandPos() { return answer<QString>("bandPos", {}); }
    virtual int bandSwitch() { return answer<int>("bandSwitch", {}); }
    virtual void changeBand(int band) { record("changeBand", {band}); }
    virtual void config(bool isLocal, int rds, int rdsFunc) { record("config", {isLocal, rds, rdsFunc}); }
    virtual QString fmList() { return answer<QString>("fmList", {}); }
    virtual int fmMaxFreq() { return answer<int>("fmMaxFreq", {}); }
    virtual int fmMinFreq() { return answer<int>("fmMinFreq", {}); }
    virtual int fmStep() { return answer<int>("fmStep", {}); }
    virtual int freqBandId() { return answer<int>("freqBandId", {}); }
    virtual int frequency() { return answer<int>("frequency", {}); }
    virtual int highFrequency() { return answer<int>("highFrequency", {}); }
    virtual int initAfTa() { return answer<int>("initAfTa", {}); }
    virtual QString initAfTaList() { return answer<QString>("initAfTaList", {}); }
    virtual int initLocal() { return answer<int>("initLocal", {}); }
    virtual QString initPsName1() { return answer<QString>("initPsName1", {}); }
    virtual QString initPsName2() { return answer<QString>("initPsName2", {}); }
    virtual int initRegional() { return answer<int>("initRegional", {}); }
    virtual bool isAfEnable() { return answer<bool>("isAfEnable", {}); }
    virtual bool isLocal() { return answer<bool>("isLocal", {}); }
    virtual bool isTaEnable() { return answer<bool>("isTaEnable", {}); }
    virtual void keyLongPress(int state) { record("keyLongPress", {state}); }
    virtual int lowFrequency() { return answer<int>("lowFrequency", {}); }
    virtual int piTpStatus() { return answer<int>("piTpStatus", {}); }
    virtual void ptySearch(int pty) { record("ptySearch", {pty}); }
    virtual int ptyType() { return answer<int>("ptyType", {}); }
    virtual void rdsCtrl(bool ta, bool af, bool regional) { record("rdsCtrl", {ta, af, regional}); }
    virtual QString rdsName() { return answer<QString>("rdsName", {}); }
    virtual QString rdsProgramName() { return answer<QString>("rdsProgramName", {}); }
    virtual void savePreset(int value) { record("savePreset", {value}); }
    virtual void seekBackward() { record("seekBackward", {}); }
    virtual void seekForward() { record("seekForward", {}); }
    virtual int seekType() { return answer<int>("seekType", {}); }
    virtual void setAMRange(int lowFreq, int highFreq, int step) { record("setAMRange", {lowFreq, highFreq, step}); }
    virtual void setAf(bool state) { record("setAf", {state}); }
    virtual void setFMRange(int lowFreq, int highFreq, int step) { record("setFMRange", {lowFreq, highFreq, step}); }
    virtual void setPreset(int value) { record("setPreset", {value}); }
    virtual void setTa(bool state) { record("setTa", {state}); }
    virtual void setband(int band) { record("setband", {band}); }
    virtual int stepFrequency() { return answer<int>("stepFrequency", {}); }
    virtual void taAlarmCancel(int type) { record("taAlarmCancel", {type}); }
    virtual void terminate() { record("terminate", {}); }
    virtual void tune(int freq) { record("tune", {freq}); }
    virtual void turnOff() { record("turnOff", {}); }
    virtual void turnOn() { record("turnOn", {}); }
    virtual int workStateType() { return answer<int>("workStateType", {}); }

signals:
    void ProgramName(const QString &rdsname);
    void PsName1(const QString &psname1);
    void PsName2(const QString &psname2);
    void afEnableChanged(bool on);
    void aftaState(const QString &aftaList, int cur_afta);
    void antennaSignalChanged(int level);
    void audioChanged(bool stereo);
    void autoScanCompleted(const QString &stations);
    void bandChanged(int band, int lowFreq, int highFreq, int step);
    void bandFMAMChang(int state);
    void initDate(int band_switch, int band_id, const QString &fm_list, const QString &am_list, int current_fm_freq,
                  int current_am_freq, int fm_istuning, int am_istuning, int current_band_num, int fm_freq_max,
                  int fm_freq_min, int fm_step, int am_freq_max, int am_freq_min, int am_step,
                  const QString &band_current_freq, const QString &band_position, int local, int regional);
    void localChanged(bool on);
    void ptyChanged(int pty, const QString &name);
    void rdsChanged(int rds, int rdsFunc);
    void seekState(int additional);
    void stationChanged(int freq, int band_id);
    void statusChanged(int state);
    void taEnableChanged(bool on);
    void tp_pi_status(int pi_tp_state);
    void work_status(int state);
};
