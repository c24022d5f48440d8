#include "hardwarekeys.h"

#include "hostevents.h"
#include "interrupts.h"
#include "keyactions.h"
#include "mainwidget.h"
#include "mcumanager.h"
#include "nilo_mcuservice_interface.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "rdsswitches.h"
#include "tunerfunction.h"
#include "tunerkeys.h"
#include "tunerlog.h"
#include "tuneroptions.h"

#include <QTimerEvent>

namespace tuner {

namespace {

constexpr int kPresetRepeatMs = 1000;

tunerfunction *keys()
{
    return tunerfunction::Instance();
}

bool isPresetRepeatKey(int key)
{
    return keyRole(key) == KeyRole::PresetUp || keyRole(key) == KeyRole::PresetDown;
}

} // namespace

HardwareKeys::HardwareKeys(NiloRadioServiceInterface *radio, NiloMcuServiceInterface *mcu,
                           InterruptBookkeeping &interrupts, std::function<MainWidget *()> screens, QObject *parent)
    : QObject(parent)
    , m_radio(radio)
    , m_mcu(mcu)
    , m_interrupts(interrupts)
    , m_screens(std::move(screens))
{}

void HardwareKeys::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_repeatTimer.timerId())
        return QObject::timerEvent(event);
    if (m_repeatKey == 0 || !isPresetRepeatKey(m_repeatKey)) {
        m_repeatTimer.stop();
        return;
    }
    if (prefs()->running().reportedWorkStatus() == WorkStatus::AutoStore)
        return;
    if (keyRole(m_repeatKey) == KeyRole::PresetUp)
        keys()->presetUP();
    else
        keys()->presetDown();
    if (MainWidget *screens = m_screens())
        screens->updatePresetChecked();
}

void HardwareKeys::beep(int state)
{
    m_mcu->triggerBeep(state);
}

void HardwareKeys::cancelInterrupt()
{
    if (prefs()->taOrAlarm() != INTERRUPT_NONE)
        beep(0);
    if (MainWidget *screens = m_screens())
        screens->InterruptCancel();
    else
        McuManager::instance()->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
    m_interrupts.cancel();
}

// The window's own actions: those served whatever is shown, and its answer
// to the tuner keys when no screen took them.
void HardwareKeys::perform(KeyAction action, int key)
{
    Preferences *p = prefs();
    MainWidget *screens = m_screens();
    const KeyRole role = keyRole(key);
    const bool up = isUpward(role);
    switch (action) {
    case KeyAction::CancelInterrupt:
        cancelInterrupt();
        break;
    case KeyAction::SwitchAf:
        p->setAf(turnsOn(role));
        sendAf(m_radio);
        break;
    case KeyAction::SwitchTa:
        p->setTa(turnsOn(role));
        sendTa(m_radio);
        break;
    case KeyAction::SwitchLocal:
        p->setLocal(turnsOn(role));
        m_radio->config(turnsOn(role), 1, 1);
        break;
    case KeyAction::AmOrFm3:
        if (!screens) {
            p->setBand(BAND_AM1);
            m_radio->setband(BAND_AM1);
        } else if (p->isFM()) {
            p->setBand(BAND_FM3);
            p->setBand_FM(BAND_FM3);
            screens->BandChanged();
        } else {
            screens->scrollToPage(BAND_AM1);
        }
        break;
    case KeyAction::Fm1OrAm2:
        if (!screens) {
            p->setBand(BAND_FM1);
            m_radio->setband(BAND_FM1);
        } else if (p->isFM()) {
            screens->scrollToPage(BAND_FM1);
        } else {
            p->setBand(BAND_AM2);
            p->setBand_AM(BAND_AM2);
            screens->BandChanged();
        }
        break;
    case KeyAction::StepPreset:
        up ? keys()->presetUP() : keys()->presetDown();
        break;
    case KeyAction::PresetSeek:
    case KeyAction::Seek:
        up ? keys()->seekForward() : keys()->seekBackward();
        break;
    case KeyAction::ManualStart:
        up ? keys()->ManualPlusPressed() : keys()->ManualMinusPressed();
        break;
    case KeyAction::ManualStop:
        up ? keys()->ManualPlusReleased() : keys()->ManualMinusReleased();
        break;
    case KeyAction::Recall:
        keys()->presetSelect(presetOfKey(key));
        break;
    case KeyAction::Store:
        keys()->savePreset(presetOfKey(key));
        break;
    case KeyAction::NextBand:
        keys()->changBand();
        break;
    case KeyAction::StopSearch:
        m_radio->terminate();
        break;
    case KeyAction::Nothing:
        break;
    }
}

bool HardwareKeys::serve(KeyContext context, int key, int phase)
{
    const KeyRule *rule = keyRule(context, keyRole(key), phase, prefs()->running().reportedWorkStatus());
    if (!rule)
        return false;
    if (rule->beep >= 0)
        beep(rule->beep);
    perform(rule->action, key);
    return rule->consumed;
}

bool HardwareKeys::sourceKeyEvent(KeyEvent *e)
{
    if (!e) {
        TUNER_WAR() << "no key event.";
        return false;
    }
    const int key = e->key();
    const int phase = e->type();

    if (phase == Qx::KeyShortReleased || phase == Qx::KeyLongReleased) {
        m_repeatTimer.stop();
        m_repeatKey = 0;
    } else if (phase == Qx::KeyLongPressed && isPresetRepeatKey(key) && !m_repeatTimer.isActive()) {
        m_repeatTimer.start(kPresetRepeatMs, this);
        m_repeatKey = key;
    }

    if (serve(KeyContext::Always, key, phase))
        return true;
    MainWidget *screens = m_screens();
    if (screens && screens->windowKeyEvent(e))
        return true;

    return servesTunerKeys() && serve(KeyContext::Window, key, phase);
}

bool HardwareKeys::servesTunerKeys()
{
    if (prefs()->taOrAlarm() != INTERRUPT_NONE && !InterruptBookkeeping::cancelledByDriver())
        return false;
    return g_TunerCurDSPL != DisplayPtyList && g_TunerCurDSPL != DisplayPtySearching;
}

void HardwareKeys::stepPreset(bool up)
{
    MainWidget *screens = m_screens();
    if (screens && screens->stepPreset(up))
        return;
    if (!servesTunerKeys() || prefs()->running().reportedWorkStatus() == WorkStatus::AutoStore)
        return;
    up ? keys()->presetUP() : keys()->presetDown();
}

} // namespace tuner
