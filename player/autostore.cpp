#include "autostore.h"

#include "preferences.h"
#include "presetlabels.h"
#include "presetpages.h"
#include "radiocontrol.h"
#include "rdsstation.h"

namespace tuner {

AutoStore::AutoStore(RadioControl &control, PresetPages &pages, PresetLabels &labels, RdsStation &rds)
    : m_control(control)
    , m_pages(pages)
    , m_labels(labels)
    , m_rds(rds)
{}

void AutoStore::start()
{
    m_rds.clear();
    if (m_control.workStatus() != WorkStatus::Idle) {
        m_control.stopAndRetune();
        return;
    }
    Preferences *p = prefs();
    if (m_pages.litPreset(p->band()) == -1)
        p->clearBtmFreqId();
    p->btmStart();
    m_labels.unlightFamily();
    p->clearBtmFreqId();
    m_control.autoScan();
}

void AutoStore::completed()
{
    Preferences *p = prefs();
    m_labels.relabel();
    const int id = p->presetAfterStore();
    const int band = p->btmband();
    if (validPreset(id) && p->favoritBandAt(Band(band), id) == p->playFreq()) {
        m_pages.light(band, id);
        p->setCurrPlayFreqId(id);
    }
}

void AutoStore::lightChosenPreset()
{
    Preferences *p = prefs();
    const int id = p->presetAfterStore();
    p->setNumberKeyInter(false);
    m_pages.light(p->band(), id);
    if (validPreset(id))
        p->setCurrPlayFreqId(id);
}

} // namespace tuner
