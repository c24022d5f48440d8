#include "tunerfunction.h"

#include "busproxies.h"
#include "frequencydial.h"
#include "preferences.h"
#include "presetwalk.h"
#include "rdsswitches.h"
#include "tunerlog.h"

#include <QTimerEvent>

namespace tuner {

tunerfunction *tunerfunction::p_Instance = nullptr;

namespace {

constexpr int kManualRepeatMs = 300;
constexpr int kPresetRepeatMs = 500;

WorkStatus workStatus()
{
    return prefs()->running().reportedWorkStatus();
}

} // namespace

tunerfunction::TFunction::~TFunction()
{
    delete tunerfunction::p_Instance;
    tunerfunction::p_Instance = nullptr;
}

tunerfunction *tunerfunction::Instance()
{
    if (!p_Instance) {
        static TFunction cleanup;
        p_Instance = new tunerfunction;
    }
    return p_Instance;
}

void tunerfunction::resetInstance()
{
    delete p_Instance;
    p_Instance = nullptr;
}

tunerfunction::tunerfunction()
    : m_radio(bus::createRadioProxy(this))
{}

// Seek and manual clicks: a running automatic store or PTY search is only
// stopped; a running seek is stopped and the playing frequency tuned again.
SearchGate tunerfunction::seekGate() const
{
    return searchGate(workStatus(), prefs()->PTYSeachState() == kPtySearching);
}

// Preset stepping ignores a PTY search flag; only the work state counts.
SearchGate tunerfunction::presetGate() const
{
    return searchGate(workStatus());
}

bool tunerfunction::stopSearch(SearchGate gate)
{
    if (gate == SearchGate::Run)
        return false;
    m_radio->terminate();
    if (gate == SearchGate::StopAndRetune)
        m_radio->tune(prefs()->playFreq());
    return true;
}

void tunerfunction::clearRdsState()
{
    prefs()->setRdsStatus(0);
    prefs()->setCurRdsName(QString());
}

void tunerfunction::seek(bool up)
{
    clearRdsState();
    if (stopSearch(seekGate()))
        return;
    prefs()->clearFreqId(prefs()->band(), kNoPreset);
    prefs()->setPresetIndex(0);
    up ? m_radio->seekForward() : m_radio->seekBackward();
}

void tunerfunction::seekForward()
{
    seek(true);
}

void tunerfunction::seekBackward()
{
    seek(false);
}

void tunerfunction::manualClicked(bool plus)
{
    clearRdsState();
    if (stopSearch(seekGate()))
        return;
    plus ? manualPlus() : manualMinus();
    m_radio->tune(prefs()->playFreq());
}

void tunerfunction::ManualPlusClicked()
{
    manualClicked(true);
}

void tunerfunction::ManualMinusClicked()
{
    manualClicked(false);
}

void tunerfunction::manualPlus()
{
    Preferences *p = prefs();
    p->setCurrPlayFreqId(kNoPreset);
    p->setPresetIndex(0);
    p->setCurrPlayFreq(FrequencyDial::stepUp(p->playFreq(), p->lowFreq(), p->highFreq(), p->stepFreq()));
}

void tunerfunction::manualMinus()
{
    Preferences *p = prefs();
    p->setCurrPlayFreqId(kNoPreset);
    p->setPresetIndex(0);
    p->setCurrPlayFreq(FrequencyDial::stepDown(p->playFreq(), p->lowFreq(), p->highFreq(), p->stepFreq()));
}

void tunerfunction::manualPressed(QBasicTimer &timer)
{
    clearRdsState();
    const WorkStatus status = workStatus();
    if (status == WorkStatus::AutoStore || isSeek(status))
        m_radio->terminate();
    m_radio->keyLongPress(1);
    if (!timer.isActive())
        timer.start(kManualRepeatMs, this);
}

// While the key is held only the stored frequency moves; the final one is tuned here.
void tunerfunction::manualReleased(QBasicTimer &timer)
{
    m_radio->tune(prefs()->playFreq());
    timer.stop();
    m_radio->keyLongPress(0);
}

void tunerfunction::ManualPlusPressed()
{
    manualPressed(m_manualPlusTimer);
}

void tunerfunction::ManualPlusReleased()
{
    manualReleased(m_manualPlusTimer);
}

void tunerfunction::ManualMinusPressed()
{
    manualPressed(m_manualMinusTimer);
}

void tunerfunction::ManualMinusReleased()
{
    manualReleased(m_manualMinusTimer);
}

void tunerfunction::stepToPreset(int preset)
{
    Preferences *p = prefs();
    p->setCurrPlayFreqId(preset);
    m_radio->setPreset(preset);
    if (!p->isFM())
        return;
    applyPresetTaAf(m_radio, preset);
    clearRdsState();
    p->running().endShownInterrupt();
}

void tunerfunction::presetUP()
{
    if (stopSearch(presetGate()))
        return;
    Preferences *p = prefs();
    const int current = p->playFreqId();
    int band = p->band();
    if (current == 5) {
        if (p->isFM()) {
            band = bandInFamily(band, true);
            m_radio->setband(band);
            p->setBand_FM(Band(band));
        } else {
            band = bandInFamily(band, true);
            m_radio->setband(band);
            p->setBand_AM(Band(band - BAND_AM1)); // relative to 3 here, as recorded by the head unit
        }
        p->setBand(Band(band));
    }
    const int next = (current + 1 >= 0 && current + 1 <= 5) ? current + 1 : 0;
    stepToPreset(next);
}

void tunerfunction::presetDown()
{
    if (stopSearch(presetGate()))
        return;
    Preferences *p = prefs();
    const int current = p->playFreqId();
    int band = p->band();
    int next = 0;
    if (current == 0) {
        if (p->isFM()) {
            band = bandInFamily(band, false);
            m_radio->setband(band);
            p->setBand_FM(Band(band));
        } else {
            band = bandInFamily(band, false);
            m_radio->setband(band);
            p->setBand_AM(Band(band));
        }
        p->setBand(Band(band));
        next = 5;
    } else if (current >= 1 && current <= 5) {
        next = current - 1;
    }
    stepToPreset(next);
}

void tunerfunction::presetUpPressed()
{
    if (!m_presetUpTimer.isActive())
        m_presetUpTimer.start(kPresetRepeatMs, this);
}

void tunerfunction::presetUpReleased()
{
    m_presetUpTimer.stop();
}

void tunerfunction::presetDWPressed()
{
    if (!m_presetDownTimer.isActive())
        m_presetDownTimer.start(kPresetRepeatMs, this);
}

void tunerfunction::presetDWReleased()
{
    m_presetDownTimer.stop();
}

void tunerfunction::presetSelect(int index)
{
    if (index < 0 || index >= kPresetCount) {
        TUNER_WAR() << index << "is not a preset, ignored.";
        return;
    }
    Preferences *p = prefs();
    if (workStatus() != WorkStatus::Idle || p->PTYSeachState() == kPtySearching) {
        m_radio->terminate();
        return;
    }
    p->setPresetIndex(index);
    p->setCurrPlayFreqId(index);
    p->running().endShownInterrupt();
    m_radio->setPreset(index);
    if (!p->isFM())
        return;
    applyPresetTaAf(m_radio, index);
    p->setRdsStatus(0);
}

void tunerfunction::savePreset(int index)
{
    if (index < 0 || index >= kPresetCount) {
        TUNER_WAR() << index << "is not a preset, nothing stored.";
        return;
    }
    Preferences *p = prefs();
    m_radio->savePreset(index);
    p->setFavoriteFreq(index, p->playFreq());
    p->setCurrPlayFreqId(index);
    if (!p->isFM())
        return;
    // The head unit records the switches under preset 1 whatever preset was stored.
    p->setFmAf(1, p->af());
    p->setFmTa(1, p->ta());
    p->saveRdsName(p->band(), index, p->curRdsName());
}

void tunerfunction::changBand()
{
    Preferences *p = prefs();
    if (p->PTYSeachState() == kPtySearching) {
        m_radio->terminate();
        return;
    }
    const WorkStatus status = workStatus();
    if (status == WorkStatus::AutoStore || isSeek(status))
        m_radio->terminate();
    int next = p->band() + 1;
    if (next > BAND_AM2)
        next = BAND_FM1;
    if (Preferences::isFmBand(next))
        p->setBand_FM(Band(next));
    else
        p->setBand_AM(Band(next));
    p->setBand(Band(next));
    m_radio->setband(next);
}

void tunerfunction::clearFreqid()
{
    Preferences *p = prefs();
    const int first = p->isFM() ? BAND_FM1 : BAND_AM1;
    const int last = p->isFM() ? BAND_FM3 : BAND_AM2;
    for (int b = first; b <= last; ++b)
        p->clearFreqId(Band(b), kNoPreset);
}

void tunerfunction::timerEvent(QTimerEvent *event)
{
    const int id = event->timerId();
    if (id == m_manualPlusTimer.timerId())
        manualPlus();
    else if (id == m_manualMinusTimer.timerId())
        manualMinus();
    else if (id == m_presetUpTimer.timerId())
        presetUP();
    else if (id == m_presetDownTimer.timerId())
        presetDown();
    else
        QObject::timerEvent(event);
}

} // namespace tuner
