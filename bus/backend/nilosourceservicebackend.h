#pragma once

#include "servicebackend.h"

// Every method of nilo.SourceService: records the call and answers the value set with
// setAnswer(). The simulator overrides what it implements.
class NiloSourceServiceBackend : public ServiceBackend
{
    Q_OBJECT
public:
    using ServiceBackend::ServiceBackend;

    virtual void AAEvent(int evtId) { record("AAEvent", {evtId}); }
    virtual int currentSource() { return answer<int>("currentSource", {}); }
    virtual int currentWindow() { return answer<int>("currentWindow", {}); }
    virtual void eventHandler(int event) { record("eventHandler", {event}); }
    virtual bool isLastDSPLCPAA() { return answer<bool>("isLastDSPLCPAA", {}); }
    virtual bool isLastSRCCPAA() { return answer<bool>("isLastSRCCPAA", {}); }
    virtual void onChangedTask(int dspl, int src) { record("onChangedTask", {dspl, src}); }
    virtual void onChangedToDemo(bool onoff) { record("onChangedToDemo", {onoff}); }
    virtual void onChangedToNowPlaying() { record("onChangedToNowPlaying", {}); }
    virtual void onExtBoxStateChanged(int state) { record("onExtBoxStateChanged", {state}); }
    virtual void onKeyEvent(int key, int state) { record("onKeyEvent", {key, state}); }
    virtual void onLastDSPL() { record("onLastDSPL", {}); }
    virtual void onNextDSPL() { record("onNextDSPL", {}); }
    virtual void onUsbConnectedChanged(bool conn) { record("onUsbConnectedChanged", {conn}); }
    virtual void onVideoPlayingChanged(bool state) { record("onVideoPlayingChanged", {state}); }
    virtual int resumeSource() { return answer<int>("resumeSource", {}); }
    virtual int resumeWindow() { return answer<int>("resumeWindow", {}); }
    virtual void setAAConnected(bool conn) { record("setAAConnected", {conn}); }
    virtual void setAppInitFinish() { record("setAppInitFinish", {}); }
    virtual void setCPConnected(bool conn) { record("setCPConnected", {conn}); }
    virtual void setLastDSPLCPAA(bool onoff) { record("setLastDSPLCPAA", {onoff}); }
    virtual void taskEvent(int evtId) { record("taskEvent", {evtId}); }
    virtual void touchEvent(int touchId) { record("touchEvent", {touchId}); }

signals:
    void eqType(int type);
    void keyDSPLEvent(int key, int state);
    void keyEvent(int key, int state);
    void keyRotary();
    void keySourceEvent(int key, int state);
    void nextEQType();
    void nextSrcState(int sourceId);
    void operNotPossiable();
    void optionMenu();
    void sourceChanged(int sourceId);
    void voiceOperation();
    void windowAndSourceChanged(int windowId, int sourceId);
    void windowChanged(int windowId);
};
