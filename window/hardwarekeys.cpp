#include "hardwarekeys.h"

#include "hostevents.h"
#include "interrupts.h"
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
    if (WorkStatus(prefs()->workState()) == WorkStatus::AutoStore)
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

// Keys served before the screens see them. True when the key ends here.
bool HardwareKeys::serveAlwaysKey(int key, int phase)
{
    Preferences *p = prefs();
    MainWidget *screens = m_screens();
    const KeyRole role = keyRole(key);
    switch (role) {
    case KeyRole::CancelInterrupt:
        if (phase != Qx::KeyShortReleased)
            return false;
        cancelInterrupt();
        return true;
    case KeyRole::AfOff:
    case KeyRole::AfOn:
        p->setAf(role == KeyRole::AfOn);
        sendAf(m_radio);
        return false;
    case KeyRole::TaOff:
    case KeyRole::TaOn:
        p->setTa(role == KeyRole::TaOn);
        sendTa(m_radio);
        return false;
    case KeyRole::LocalOff:
    case KeyRole::LocalOn: {
        const bool on = role == KeyRole::LocalOn;
        p->setLocal(on);
        m_radio->config(on, 1, 1);
        return false;
    }
    case KeyRole::AmOrFm3:
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
        return false;
    case KeyRole::Fm1OrAm2:
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
        return false;
    default:
        return false;
    }
}

// The window's own answer to the tuner keys, when no screen took them. Unlike
// the screen's remote keys, a press here is beeped but not consumed.
bool HardwareKeys::serveTunerKey(int key, int phase)
{
    const auto status = WorkStatus(prefs()->workState());
    const bool idle = status != WorkStatus::AutoStore;
    const KeyRole role = keyRole(key);
    switch (role) {
    case KeyRole::PresetNext:
    case KeyRole::PresetPrevious: {
        if (!idle)
            return false;
        const bool up = role == KeyRole::PresetNext;
        if (phase == Qx::KeyPressed) {
            beep(0);
            return false;
        }
        if (phase == Qx::KeyShortReleased) {
            up ? keys()->presetUP() : keys()->presetDown();
            return true;
        }
        if (phase == Qx::KeyLongPressed) {
            beep(1);
            up ? keys()->seekForward() : keys()->seekBackward();
            return true;
        }
        return false;
    }
    case KeyRole::Band:
        if (phase == Qx::KeyPressed) {
            beep(0);
            return false;
        }
        if (phase == Qx::KeyShortReleased) {
            keys()->changBand();
            return true;
        }
        return false;
    case KeyRole::PresetNumber: {
        const int preset = presetOfKey(key);
        switch (phase) {
        case Qx::KeyPressed:
            beep(0);
            if (!idle)
                keys()->presetSelect(preset);
            return true;
        case Qx::KeyShortReleased:
            if (idle)
                keys()->presetSelect(preset);
            return true;
        case Qx::KeyLongPressed:
            if (idle) {
                beep(1);
                keys()->savePreset(preset);
            }
            return true;
        default:
            return false;
        }
    }
    case KeyRole::PresetUp:
    case KeyRole::PresetDown: {
        if (!idle)
            return false;
        const bool up = role == KeyRole::PresetUp;
        switch (phase) {
        case Qx::KeyPressed:
            beep(0);
            up ? keys()->presetUP() : keys()->presetDown();
            return true;
        case Qx::KeyLongPressed:
            up ? keys()->presetUP() : keys()->presetDown();
            return true;
        case Qx::KeyShortReleased:
        case Qx::KeyLongReleased:
            return true;
        default:
            return false;
        }
    }
    case KeyRole::SeekDown:
    case KeyRole::SeekUp: {
        if (!idle)
            return false;
        const bool plus = role == KeyRole::SeekUp;
        switch (phase) {
        case Qx::KeyPressed:
            beep(0);
            return false;
        case Qx::KeyShortReleased:
            plus ? keys()->seekForward() : keys()->seekBackward();
            return true;
        case Qx::KeyLongPressed:
            beep(1);
            plus ? keys()->ManualPlusPressed() : keys()->ManualMinusPressed();
            return true;
        case Qx::KeyLongReleased:
            plus ? keys()->ManualPlusReleased() : keys()->ManualMinusReleased();
            return true;
        default:
            return false;
        }
    }
    case KeyRole::StopSearch:
        if (status != WorkStatus::AutoStore && !isSeek(status))
            return false;
        if (phase == Qx::KeyPressed) {
            beep(0);
            return true;
        }
        if (phase == Qx::KeyShortReleased) {
            m_radio->terminate();
            return true;
        }
        return false;
    default:
        return false;
    }
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

    if (serveAlwaysKey(key, phase))
        return true;
    MainWidget *screens = m_screens();
    if (screens && screens->windowKeyEvent(e))
        return true;

    return servesTunerKeys() && serveTunerKey(key, phase);
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
    if (!servesTunerKeys() || WorkStatus(prefs()->workState()) == WorkStatus::AutoStore)
        return;
    up ? keys()->presetUP() : keys()->presetDown();
}

} // namespace tuner
