#include "remotekeys.h"

#include "bandswitch.h"
#include "hostevents.h"
#include "interruptbanner.h"
#include "keyactions.h"
#include "manualkeys.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "presetlabels.h"
#include "presetpages.h"
#include "presettouch.h"
#include "presetwalk.h"
#include "radiocontrol.h"
#include "rdsstation.h"
#include "rdsswitches.h"
#include "tuneroptions.h"

#include <QWidget>

namespace tuner {

RemoteKeys::RemoteKeys(const QWidget &screen, RadioControl &control, PresetPages &pages, PresetLabels &labels,
                       PresetTouch &touch, BandSwitch &bands, ManualKeys &manual, RdsStation &rds,
                       const InterruptBanner &banner)
    : m_screen(screen)
    , m_control(control)
    , m_pages(pages)
    , m_labels(labels)
    , m_touch(touch)
    , m_bands(bands)
    , m_manual(manual)
    , m_rds(rds)
    , m_banner(banner)
{}

bool RemoteKeys::servesTunerKeys() const
{
    return (m_screen.isVisible() || g_TunerCurDSPL == DisplayOptionList) && !m_banner.isUp();
}

bool RemoteKeys::stepPreset(bool up)
{
    if (!servesTunerKeys() || m_control.workStatus() == WorkStatus::AutoStore)
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
        if (!gate)
            return false;
    } else if (!servesTunerKeys()) {
        return false;
    }
    const KeyRule *rule = keyRule(KeyContext::Screen, role, phase, m_control.workStatus());
    if (!rule)
        return false;
    if (rule->beep >= 0)
        m_control.beep(rule->beep);
    perform(rule->action, key);
    return rule->consumed;
}

void RemoteKeys::perform(KeyAction action, int key)
{
    const bool up = isUpward(keyRole(key));
    switch (action) {
    case KeyAction::StepPreset:
        up ? nextPreset() : previousPreset();
        break;
    case KeyAction::PresetSeek:
        prefs()->setPresetIndex(0);
        if (isSeek(m_control.workStatus())) {
            m_control.radio()->terminate();
        } else {
            m_labels.unlightBand();
            m_control.seek(up);
        }
        break;
    case KeyAction::Seek:
        startSeek(up);
        break;
    case KeyAction::ManualStart:
        m_manual.pressed(up);
        break;
    case KeyAction::ManualStop:
        m_manual.released(up);
        break;
    case KeyAction::Recall:
        m_touch.clicked(presetOfKey(key), true);
        break;
    case KeyAction::Store:
        m_touch.storeFromKey(presetOfKey(key));
        break;
    case KeyAction::NextBand:
        nextBand();
        break;
    case KeyAction::StopSearch:
        m_control.radio()->terminate();
        break;
    default:
        break;
    }
}

bool RemoteKeys::startSeek(bool up)
{
    m_rds.clear();
    const WorkStatus status = m_control.workStatus();
    if (isSeek(status) || isPtySearch(status)) {
        m_control.stopAndRetune();
        return false;
    }
    m_labels.unlightBand();
    prefs()->setPresetIndex(0);
    m_control.seek(up);
    return true;
}

void RemoteKeys::nextBand()
{
    const auto status = m_control.workStatus();
    if (prefs()->PTYSeachState() == kPtySearching) {
        m_control.radio()->terminate();
        return;
    }
    if (status == WorkStatus::AutoStore || isSeek(status))
        m_control.stopAndRetune();
    m_bands.nextBand();
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
        if (m_pages.litPreset(p->band()) == kPresetCount - 1)
            stepToBand(bandInFamily(p->band(), true));
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
        stepToBand(bandInFamily(p->band(), false));
        next = kPresetCount - 1;
    }
    selectPreset(next);
}

} // namespace tuner
