#include "remotekeys.h"

#include "hostevents.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "presetpages.h"
#include "scrollmanage.h"
#include "tunerkeys.h"
#include "tuneroptions.h"
#include "tunerplayer.h"

#include <QButtonGroup>
#include <QLabel>

namespace tuner {

namespace {

Preferences *prefs()
{
    return Preferences::getInstance();
}

} // namespace

RemoteKeys::RemoteKeys(TunerPlayer &screen)
    : m_screen(screen)
{
}

bool RemoteKeys::keyEvent(int key, int phase)
{
    const bool shown = m_screen.isVisible() || g_TunerCurDSPL == DisplayOptionList;
    const bool popup = m_screen.interruptState() == 3 || m_screen.interruptState() == 5;
    const KeyRole role = keyRole(key);
    if (role == KeyRole::Band) {
        const bool gate = (shown && !popup) || g_TunerCurDSPL == DisplayPtySearching
                          || (g_TunerCurDSPL == DisplayPtySearchEnded && !popup);
        return gate && bandKey(phase);
    }
    if (!shown || popup)
        return false;

    const bool store = m_screen.status() == WorkStatus::AutoStore;
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
        m_screen.beep(0);
        return true;
    }
    if (phase != Qx::KeyShortReleased)
        return false;
    const auto status = m_screen.status();
    if (prefs()->PTYSeachState() == kPtySearching) {
        m_screen.m_radio->terminate();
        return true;
    }
    if (status == WorkStatus::AutoStore || isSeek(status))
        m_screen.stopAndRetune();
    nextBand();
    return true;
}

bool RemoteKeys::presetStepKey(bool up, int phase)
{
    switch (phase) {
    case Qx::KeyPressed:
        m_screen.beep(0);
        return true;
    case Qx::KeyShortReleased:
        up ? nextPreset() : previousPreset();
        return true;
    case Qx::KeyLongPressed:
        m_screen.beep(1);
        prefs()->setPresetIndex(0);
        if (isSeek(m_screen.status())) {
            m_screen.m_radio->terminate();
        } else {
            m_screen.clearCurFreqId();
            up ? m_screen.m_radio->seekForward() : m_screen.m_radio->seekBackward();
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
        m_screen.m_touch.clicked(id, true);
        return true;
    case Qx::KeyLongPressed:
        if (m_screen.status() == WorkStatus::AutoStore)
            return false;
        storePreset(id);
        return true;
    default:
        return false;
    }
}

bool RemoteKeys::presetRepeatKey(bool up, int phase)
{
    if (phase == Qx::KeyPressed)
        m_screen.beep(0);
    if (phase == Qx::KeyPressed || phase == Qx::KeyLongPressed)
        up ? nextPreset() : previousPreset();
    return phase >= Qx::KeyPressed && phase <= Qx::KeyLongReleased;
}

bool RemoteKeys::seekKey(bool up, int phase)
{
    switch (phase) {
    case Qx::KeyPressed:
        m_screen.beep(0);
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
    const auto status = m_screen.status();
    if (status != WorkStatus::AutoStore && !isSeek(status))
        return false;
    if (phase == Qx::KeyPressed) {
        m_screen.beep(0);
        return true;
    }
    if (phase == Qx::KeyShortReleased) {
        m_screen.m_radio->terminate();
        return true;
    }
    return false;
}

void RemoteKeys::stepToBand(int band)
{
    m_screen.m_radio->setband(band);
    m_screen.m_pages.scrollToBand(band, true);
    prefs()->setBand(Band(band));
}

void RemoteKeys::selectPreset(int id)
{
    Preferences *p = prefs();
    p->setPresetIndex(id);
    p->setCurrPlayFreqId(id);
    m_screen.m_pages.light(p->band(), id);
    m_screen.m_radio->setPreset(id);
    if (p->isFM())
        m_screen.setPresetTaAf(id);
    m_screen.clearRdsState();
    p->setTaStatus(false);
    p->setAlarmStatus(false);
}

void RemoteKeys::nextPreset()
{
    if (m_screen.stopRunningSearch())
        return;
    Preferences *p = prefs();
    int next = p->playFreqId() + 1;
    if (!validPreset(next)) {
        next = 0;
        QButtonGroup *presets = m_screen.m_pages.group(p->band());
        if (presets && presets->checkedId() == kPresetCount - 1) {
            const int band = p->band();
            stepToBand(p->isFM() ? (band == BAND_FM3 ? BAND_FM1 : band + 1)
                                 : (band == BAND_AM2 ? BAND_AM1 : band + 1));
        }
    }
    selectPreset(next);
}

void RemoteKeys::previousPreset()
{
    if (m_screen.stopRunningSearch())
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

void RemoteKeys::nextBand()
{
    Preferences *p = prefs();
    m_screen.m_bandKeyFromRemote = true;
    const int next = p->band() + 1;
    if (next > BAND_AM2) {
        p->setBand(BAND_AM2);
        p->setBand_AM(BAND_AM2);
        m_screen.on_Key_0020_switch_band_released();
    } else if (next == BAND_AM1) {
        m_screen.on_Key_0020_switch_band_released();
    } else if (p->isFM()) {
        p->setBand(Band(next));
        m_screen.m_pages.scroller(true)->scrollToPage(next, true);
    } else {
        m_screen.m_pages.scroller(false)->scrollToPage(next - BAND_AM1, true);
        p->setBand(Band(next));
    }
}

void RemoteKeys::storePreset(int id)
{
    Preferences *p = prefs();
    m_screen.beep(1);
    m_screen.m_radio->savePreset(id);
    m_screen.saveFavorite(id, m_screen.m_lastFreq);
    if (QLabel *label = m_screen.m_pages.label(p->band(), id))
        label->setText(m_screen.normalValue(m_screen.m_lastFreq));
    m_screen.checkedId(id);
    if (p->isFM()) {
        p->setFmAf(id, p->af());
        p->setFmTa(id, p->ta());
        m_screen.onRdsName(p->curRdsName());
    }
}

} // namespace tuner
