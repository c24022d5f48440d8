#pragma once

#include "keyactions.h"

#include <QBasicTimer>
#include <QObject>

#include <functional>

class KeyEvent;
class NiloMcuServiceInterface;
class NiloRadioServiceInterface;

namespace tuner {

class InterruptBookkeeping;
class MainWidget;

// The vehicle's hardware and steering-wheel keys, as both sources deliver
// them: the keys served before the screens, the screens' own turn, and the
// window's answer when no screen took a key; the auto-repeat of preset up and
// down while held.
class HardwareKeys : public QObject
{
public:
    // `screens`: the screen stack while there is one, else null.
    HardwareKeys(NiloRadioServiceInterface *radio, NiloMcuServiceInterface *mcu, InterruptBookkeeping &interrupts,
                 std::function<MainWidget *()> screens, QObject *parent);

    // True when consumed.
    bool sourceKeyEvent(KeyEvent *e);
    // What a press of the preset up or down key steps, without the key: for
    // the media player's next and previous. No beep.
    void stepPreset(bool up);

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void beep(int state);
    void cancelInterrupt();
    // The key's row in the action table for this context, carried out: true
    // when the key ends here.
    bool serve(KeyContext context, int key, int phase);
    void perform(KeyAction action, int key);
    // The window serves the tuner keys the screens left: not under a live
    // interrupt, nor over the PTY list or a running PTY search.
    static bool servesTunerKeys();

    NiloRadioServiceInterface *m_radio;
    NiloMcuServiceInterface *m_mcu;
    InterruptBookkeeping &m_interrupts;
    std::function<MainWidget *()> m_screens;
    QBasicTimer m_repeatTimer;
    int m_repeatKey = 0;
};

} // namespace tuner
