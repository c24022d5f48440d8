#pragma once

#include "appplugin.h"
#include "basewindow.h"
#include "interrupts.h"
#include "radiotuning.h"

class KeyEvent;
class NiloMcuServiceInterface;
class NiloRadioServiceInterface;
class NiloSourceServiceInterface;

namespace tuner {

class HardwareKeys;
class MainWidget;
class NowPlaying;
class ShownStation;
class RadioEdge;
class RadioStateRead;

// The one object behind the tuner's window and both sources: owns the bus
// proxies, keeps the preferences in step with the radio service and the
// host's life cycle and audio focus, and passes the radio's reports on to
// the screens. The start-up read (RadioStateRead), the interrupt bookkeeping
// (InterruptBookkeeping), the hardware keys (HardwareKeys) and the media
// player the rest of the car sees (NowPlaying) are its parts.
class MainWindow : public cm::BaseWindow, public IAudioFocusChangeListener
{
    Q_OBJECT
    Q_INTERFACES(IAudioFocusChangeListener)
public:
    explicit MainWindow(QObject *parent = nullptr);
    ~MainWindow() override;

protected:
    void timerEvent(QTimerEvent *event) override;

public:
    void onCreate() override;
    void onDestroy() override;
    void onShow() override;
    bool keyEvent(KeyEvent *event) override;
    QString name() const override;
    // The host announces a new language here (not a slot of this class).
    void reTranslateUI() override;
    void start() override;
    void stop() override;
    void onAudioFocusChange(int focus) override;
    QString clientId() const override;

    // Keys of both sources; true when consumed.
    bool sourceKeyEvent(KeyEvent *e);

    MainWidget *screenStack() const { return m_mainWidget; }
    NowPlaying *nowPlaying() const { return m_nowPlaying; }
    bool isActive() const { return m_active; }

public slots:
    void onDestroyObj();
    void onTaskEvtAlarmCancel();
    void onCancelTaAlarm();
    void onBackToHome(); // in the meta-object for the host; nothing connects it
    void onAftaState(const QString &aftaList, int cur_afta);
    void onInitDate(int band_switch, int band_id, const QString &fm_list, const QString &am_list, int current_fm_freq,
                    int current_am_freq, int fm_istuning, int am_istuning, int current_band_num, int fm_freq_max,
                    int fm_freq_min, int fm_step, int am_freq_max, int am_freq_min, int am_step,
                    const QString &band_current_freq, const QString &band_position, int fm_press_id, int am_press_id);
    void onPsName1(const QString &string);
    void onPsName2(const QString &string);
    void onAutoScanCompleted(const QString &freqList);
    void onTAStatus(int state); // in the meta-object for the host; nothing connects it, and it does nothing
    void onPiTpStatus(int pitpState);
    void onstatusChanged(int);
    void onPTYSeekState(int type);
    void onWorkStatus(int state);
    void onRdsName(const QString &name);
    void onSourceChange(int winId, int src);
    void onStaionChanged(int freq, int band);

private slots:
    void onRadioServiceAppeared();
    void onRadioStateFed();

private:
    int currentWindow(bool *timedOut = nullptr);
    // The service's start-up state, read or reported, checked at the edge.
    void onTuning(const RadioTuning &tuning);

    MainWidget *m_mainWidget = nullptr;
    NiloRadioServiceInterface *m_radio;
    RadioEdge *m_radioEdge;
    NiloMcuServiceInterface *m_mcu;
    NiloSourceServiceInterface *m_source;
    RadioStateRead *m_stateRead;
    InterruptBookkeeping m_interrupts;
    HardwareKeys *m_keys;  // with the keys' repeat timer and repeat key
    ShownStation *m_shown; // what the screen's display line shows, for the media player
    NowPlaying *m_nowPlaying;
    bool m_active = false;
};

} // namespace tuner
