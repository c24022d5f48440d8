#include "presettouch.h"

#include "displayline.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "presetlabels.h"
#include "presetpages.h"
#include "radiocontrol.h"
#include "rdsstation.h"
#include "rdsswitches.h"
#include "tunedfrequency.h"

#include <QTimerEvent>

namespace tuner {

namespace {

constexpr int kHoldMs = 1500;

} // namespace

PresetTouch::PresetTouch(RadioControl &control, PresetPages &pages, PresetLabels &labels,
                         const TunedFrequency &frequency, DisplayLine &line, RdsStation &rds)
    : m_control(control)
    , m_pages(pages)
    , m_labels(labels)
    , m_frequency(frequency)
    , m_line(line)
    , m_rds(rds)
{}

void PresetTouch::pressed(int id)
{
    m_stored = false;
    if (m_control.workStatus() != WorkStatus::Idle)
        m_control.stopAndRetune();
    m_hold.start(kHoldMs, this);
    m_pressed = id;
}

void PresetTouch::released()
{
    m_hold.stop();
}

void PresetTouch::swiped()
{
    m_hold.stop();
}

void PresetTouch::clicked(int id, bool fromKey)
{
    if (fromKey)
        m_stored = false;
    if (m_stored)
        return; // the hold already stored it
    Preferences *p = prefs();
    const auto status = m_control.workStatus();
    m_control.beep(0);
    p->setNumberKeyInter(false);
    if (p->PTYSeachState() == kPtySearching || isPtySearch(status)) {
        m_control.radio()->terminate();
        m_labels.light(id);
        return;
    }
    if (status == WorkStatus::AutoStore) {
        // Lit when the automatic store ends.
        m_control.radio()->setPreset(id);
        p->setPresetIndex(id);
        p->setNumberKeyInter(true);
        p->running().endShownInterrupt();
        return;
    }
    p->running().endShownInterrupt();
    p->setPresetIndex(id);
    m_control.radio()->setPreset(id);
    if (p->isFM()) {
        applyPresetTaAf(m_control.radio(), id);
        if (id != m_lastClicked) {
            m_lastClicked = id;
            m_labels.light(id);
        }
    }
    if (!isSeek(status))
        m_line.showRecalledFrequency(m_frequency.text(p->favoritAt(id)));
    m_labels.light(id);
}

void PresetTouch::storeFromKey(int id)
{
    store(id, StoredBy::Key);
}

void PresetTouch::store(int id, StoredBy by)
{
    Preferences *p = prefs();
    const int freq = m_control.lastFrequency();
    if (by == StoredBy::Hold) {
        if (m_control.workStatus() != WorkStatus::Idle)
            m_control.stopAndRetune();
        m_stored = true;
    }
    m_control.beep(1);
    m_control.radio()->savePreset(id);
    p->setFavoriteFreq(id, freq);
    m_pages.showFrequency(p->band(), id, m_frequency.text(freq));
    if (p->isFM()) {
        p->setFmAf(id, p->af());
        p->setFmTa(id, p->ta());
        if (by == StoredBy::Hold)
            p->setSavePreset(id, p->curRdsName().isEmpty());
    }
    m_labels.light(id);
    if (by == StoredBy::Key) {
        if (p->isFM())
            m_rds.showName(p->curRdsName());
        return;
    }
    p->setPresetIndex(id);
    p->saveRdsName(p->band(), id, QString());
    if (p->isFM() && !p->curRdsName().isEmpty())
        m_rds.showName(p->curRdsName());
}

void PresetTouch::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_hold.timerId())
        return QObject::timerEvent(event);
    m_hold.stop();
    store(m_pressed, StoredBy::Hold);
}

} // namespace tuner
