#include "remotekeys.h"

#include "bandswitch.h"
#include "hostevents.h"
#include "interruptbanner.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "presetpages.h"
#include "presettouch.h"
#include "radiocontrol.h"
#include "rdsstation.h"
#include "rdsswitches.h"
#include "tuneroptions.h"
#include "tunerplayer.h"

namespace tuner {

RemoteKeys::RemoteKeys(TunerPlayer &screen, RadioControl &control, PresetPages &pages, PresetTouch &touch,
                       BandSwitch &bands, RdsStation &rds, const InterruptBanner &banner)
    : m_screen(screen)
    , m_control(control)
    , m_pages(pages)
    , m_touch(touch)
    , m_bands(bands)
    , m_rds(rds)
    , m_banner(banner)
{}

bool RemoteKeys::servesTunerKeys() const
{
    return (m_screen.isVisible() || g_TunerCurDSPL == DisplayOptionList) && !m_banner.isUp();
}

bool RemoteKeys::storing() const
{
    return m_control.workStatus() == WorkStatus::AutoStore;
}

bool RemoteKeys::stepPreset(bool up)
{
    if (!servesTunerKeys() || storing())
        return false;
    up ? nextPreset() : previousPreset();
    return true;
}

bool RemoteKeys::keyEvent(int key, int phase)
{
    const KeyRole role = keyRole(key);
    if (role == KeyRole::Band) {
        const bool popup = m_banner.isUp();
        const bool gate = servesTunerKeys() || g_TunerCurDSPL == DisplayPtySearching
                          || (g_TunerCurDSPL == DisplayPtySearchEnded && !popup);
        return gate && bandKey(phase);
    }
    if (!servesTunerKeys())
        return false;

    const bool store = storing();
    switch (role) {
    case KeyRole::PresetNext:
    case KeyRole::PresetPrevious:
        return !store && presetStepKey(role == KeyRole::PresetNext, phase);
    case KeyRole::PresetNumber:
        return presetNumberKey(presetOfKey(key), phase);
    case KeyRole::PresetUp:
    case KeyRole::PresetDown:
        return !store && presetRepeatKey(role == KeyRole::PresetUp, phase);
    case KeyRole::SeekUp:
    case KeyRole::SeekDown:
        return !store && seekKey(role == KeyRole::SeekUp, phase);
    case KeyRole::StopSearch:
        return stopKey(phase);
    default:
        return false;
    }
}

bool RemoteKeys::bandKey(int phase)
{
    if (phase == Qx::KeyPressed) {
        m_control.beep(0);
        return true;
    }
    if (phase != Qx::KeyShortReleased)
        return false;
    const auto status = m_control.workStatus();
    if (prefs()->PTYSeachState() == kPtySearching) {
        m_control.radio()->terminate();
        return true;
    }
    if (status == WorkStatus::AutoStore || isSeek(status))
        m_control.stopAndRetune();
    m_bands.nextBand();
    return true;
}

bool RemoteKeys::presetStepKey(bool up, int phase)
{
    switch (phase) {
    case Qx::KeyPressed:
        m_control.beep(0);
        return true;
    case Qx::KeyShortReleased:
        up ? nextPreset() : previousPreset();
        return true;
    case Qx::KeyLongPressed:
        m_control.beep(1);
        prefs()->setPresetIndex(0);
        if (isSeek(m_control.workStatus())) {
            m_control.radio()->terminate();
        } else {
            m_screen.clearCurFreqId();
            m_control.seek(up);
        }
        return true;
    default:
        return false;
    }
}

bool RemoteKeys::presetNumberKey(int id, int phase)
{
    switch (phase) {
    case Qx::KeyPressed:
        return true;
    case Qx::KeyShortReleased:
        m_touch.clicked(id, true);
        return true;
    case Qx::KeyLongPressed:
        if (m_control.workStatus() == WorkStatus::AutoStore)
            return false;
        m_touch.storeFromKey(id);
        return true;
    default:
        return false;
    }
}

bool RemoteKeys::presetRepeatKey(bool up, int phase)
{
    if (phase == Qx::KeyPressed)
        m_control.beep(0);
    if (phase == Qx::KeyPressed || phase == Qx::KeyLongPressed)
        up ? nextPreset() : previousPreset();
    return phase >= Qx::KeyPressed && phase <= Qx::KeyLongReleased;
}

bool RemoteKeys::seekKey(bool up, int phase)
{
    switch (phase) {
    case Qx::KeyPressed:
        m_control.beep(0);
        return true;
    case Qx::KeyShortReleased:
        m_screen.startSeek(up);
        return true;
    case Qx::KeyLongPressed:
        up ? m_screen.onManualPlusPressed() : m_screen.onManualMinusPressed();
        return true;
    case Qx::KeyLongReleased:
        up ? m_screen.onManualPlusReleased() : m_screen.onManualMinusReleased();
        return true;
    default:
        return false;
    }
}

bool RemoteKeys::stopKey(int phase)
{
    const auto status = m_control.workStatus();
    if (status != WorkStatus::AutoStore && !isSeek(status))
        return false;
    if (phase == Qx::KeyPressed) {
        m_control.beep(0);
        return true;
    }
    if (phase == Qx::KeyShortReleased) {
        m_control.radio()->terminate();
        return true;
    }
    return false;
}

void RemoteKeys::stepToBand(int band)
{
    m_control.radio()->setband(band);
    m_pages.scrollToBand(band, true);
    prefs()->setBand(Band(band));
}

void RemoteKeys::selectPreset(int id)
{
    Preferences *p = prefs();
    p->setPresetIndex(id);
    p->setCurrPlayFreqId(id);
    m_pages.light(p->band(), id);
    m_control.radio()->setPreset(id);
    if (p->isFM())
        applyPresetTaAf(m_control.radio(), id);
    m_rds.clear();
    p->running().endShownInterrupt();
}

void RemoteKeys::nextPreset()
{
    if (m_control.stopRunningSearch())
        return;
    Preferences *p = prefs();
    int next = p->playFreqId() + 1;
    if (!validPreset(next)) {
        next = 0;
        if (m_pages.litPreset(p->band()) == kPresetCount - 1) {
            const int band = p->band();
            stepToBand(p->isFM() ? (band == BAND_FM3 ? BAND_FM1 : band + 1) : (band == BAND_AM2 ? BAND_AM1 : band + 1));
        }
    }
    selectPreset(next);
}

void RemoteKeys::previousPreset()
{
    if (m_control.stopRunningSearch())
        return;
    Preferences *p = prefs();
    const int id = p->playFreqId();
    int next = 0;
    if (id >= 1 && id < kPresetCount) {
        next = id - 1;
    } else if (id == 0) {
        const int band = p->band();
        stepToBand(p->isFM() ? (band == BAND_FM1 ? BAND_FM3 : band - 1) : (band == BAND_AM1 ? BAND_AM2 : band - 1));
        next = kPresetCount - 1;
    }
    selectPreset(next);
}

} // namespace tuner
