#pragma once

#include "servicebackend.h"

// Every method of nilo.McuService: records the call and answers the value set with
// setAnswer(). The simulator overrides what it implements.
class NiloMcuServiceBackend : public ServiceBackend
{
    Q_OBJECT
public:
    using ServiceBackend::ServiceBackend;

    virtual void SetVolume(int value) { record("SetVolume", {value}); }
    virtual int audioVolume() { return answer<int>("audioVolume", {}); }
    virtual void duckAudio(int duration, int volume) { record("duckAudio", {duration, volume}); }
    virtual int extDeviceState() { return answer<int>("extDeviceState", {}); }
    virtual void factoryReset() { record("factoryReset", {}); }
    virtual int headlightState() { return answer<int>("headlightState", {}); }
    virtual bool isAttOn() { return answer<bool>("isAttOn", {}); }
    virtual bool isAudioMute() { return answer<bool>("isAudioMute", {}); }
    virtual bool isDateTimeReady() { return answer<bool>("isDateTimeReady", {}); }
    virtual bool isNeedRenew() { return answer<bool>("isNeedRenew", {}); }
    virtual bool isUsbOverCurrent() { return answer<bool>("isUsbOverCurrent", {}); }
    virtual void mcuConnClose() { record("mcuConnClose", {}); }
    virtual void mcuUpdate() { record("mcuUpdate", {}); }
    virtual int notifyDemo() { return answer<int>("notifyDemo", {}); }
    virtual int notifyDest() { return answer<int>("notifyDest", {}); }
    virtual int notifyVcom() { return answer<int>("notifyVcom", {}); }
    virtual int parkingState() { return answer<int>("parkingState", {}); }
    virtual void requestCommand(int command_id) { record("requestCommand", {command_id}); }
    virtual int reverseState() { return answer<int>("reverseState", {}); }
    virtual void setAudioMute(int state, int times) { record("setAudioMute", {state, times}); }
    virtual void setBalanceFader(int balance, int fader) { record("setBalanceFader", {balance, fader}); }
    virtual void setBttestState(bool state) { record("setBttestState", {state}); }
    virtual void setClockTime(bool onOff) { record("setClockTime", {onOff}); }
    virtual void setCurrentMode(int mode) { record("setCurrentMode", {mode}); }
    virtual void setCustomEQValue(int section, int value) { record("setCustomEQValue", {section, value}); }
    virtual void setDestCode(int code, int demo) { record("setDestCode", {code, demo}); }
    virtual void setDsoFilter(int dso) { record("setDsoFilter", {dso}); }
    virtual void setHPFValue(int value) { record("setHPFValue", {value}); }
    virtual void setLPFValue(int value) { record("setLPFValue", {value}); }
    virtual void setLoopBack(bool state) { record("setLoopBack", {state}); }
    virtual void setMegaBass(int mega) { record("setMegaBass", {mega}); }
    virtual void setMonitorState(int state) { record("setMonitorState", {state}); }
    virtual void setMute(bool mute) { record("setMute", {mute}); }
    virtual void setPresetEQType(int type) { record("setPresetEQType", {type}); }
    virtual void setSteeringControl(int state) { record("setSteeringControl", {state}); }
    virtual void setSubwooferPhase(int phase) { record("setSubwooferPhase", {phase}); }
    virtual void setSubwooferValue(int value) { record("setSubwooferValue", {value}); }
    virtual void setTunerStep(int step) { record("setTunerStep", {step}); }
    virtual void setUpgradeState(int state) { record("setUpgradeState", {state}); }
    virtual void setUsbPower(int status) { record("setUsbPower", {status}); }
    virtual void setVcomValue(int value) { record("setVcomValue", {value}); }
    virtual void setVolResponse(int state) { record("setVolResponse", {state}); }
    virtual void setWatchDogEnable(bool able) { record("setWatchDogEnable", {able}); }
    virtual QString setupInfo() { return answer<QString>("setupInfo", {}); }
    virtual int startUpState() { return answer<int>("startUpState", {}); }
    virtual void steeringWheelNormal() { record("steeringWheelNormal", {}); }
    virtual void steeringWheelReset() { record("steeringWheelReset", {}); }
    virtual void steeringWheelStudy() { record("steeringWheelStudy", {}); }
    virtual void steeringWheelStudyKey(int key) { record("steeringWheelStudyKey", {key}); }
    virtual void syncDatetime(int year, int month, int day, int hour, int minute, int second)
    {
        record("syncDatetime", {year, month, day, hour, minute, second});
    }
    virtual QString test_version() { return answer<QString>("test_version", {}); }
    virtual void toggleKeyTone(int onOff) { record("toggleKeyTone", {onOff}); }
    virtual void triggerBeep(int state) { record("triggerBeep", {state}); }
    virtual void uiCmdAtt() { record("uiCmdAtt", {}); }
    virtual void uiCmdPower() { record("uiCmdPower", {}); }
    virtual void uiCmdSource() { record("uiCmdSource", {}); }
    virtual void unduckAudio(int duration) { record("unduckAudio", {duration}); }
    virtual void updateAppVersion(const QString &appVersion) { record("updateAppVersion", {appVersion}); }
    virtual void updateAudioChannel(int channel) { record("updateAudioChannel", {channel}); }
    virtual void updateAudioStatus(int status) { record("updateAudioStatus", {status}); }
    virtual void updateBtAddress(const QString &address) { record("updateBtAddress", {address}); }
    virtual void updateBtInputLevel(int level) { record("updateBtInputLevel", {level}); }
    virtual void updateCPAAStatus(int status) { record("updateCPAAStatus", {status}); }
    virtual void updateCamraSetup(bool on) { record("updateCamraSetup", {on}); }
    virtual void updateDeviceStatus(int device, int status) { record("updateDeviceStatus", {device, status}); }
    virtual void updateKeyRotary(int rotary) { record("updateKeyRotary", {rotary}); }
    virtual void updateSdkVersion(const QString &sdkVersion) { record("updateSdkVersion", {sdkVersion}); }
    virtual void updateSysVersion(const QString &sysVersion) { record("updateSysVersion", {sysVersion}); }
    virtual void updateTouchCoordinate(int status, int px, int py)
    {
        record("updateTouchCoordinate", {status, px, py});
    }
    virtual QString user_version() { return answer<QString>("user_version", {}); }
    virtual void volumeMinus() { record("volumeMinus", {}); }
    virtual void volumePlus() { record("volumePlus", {}); }

signals:
    void attStateChanged(bool on);
    void audioVolumeChanged(bool isMute, int level);
    void eqTypeChanged(int type);
    void extDeviceChanged(int state);
    void headlightChanged(int state);
    void hideUsbOverPower();
    void keyEvent(int key, int value);
    void mcuNeedRenew();
    void parkingChanged(int state);
    void requestAction(int action);
    void requestAppVersion();
    void requestBtAddress();
    void reset();
    void reverseChanged(int state);
    void selTrackNum(int track);
    void shallowSleep();
    void sourceChanged(int source);
    void syncDestCode(int code);
    void syncSetupInfo();
    void sysBootState(int state);
    void usbPowerStatus(int state);
    void volumeTurn(int state);
    void wheelStudyKeys(const QString &keys);
    void wheelStudyState(int state);
};
