#include "presettouch.h"

#include "displayline.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "presetpages.h"
#include "tunerkeys.h"
#include "tunerplayer.h"
#include "ui_c20_003_tuner.h"

#include <QTimerEvent>

namespace tuner {

namespace {

constexpr int kHoldMs = 1500;

} // namespace

PresetTouch::PresetTouch(TunerPlayer &screen)
    : m_screen(screen)
{
}

void PresetTouch::pressed(int id)
{
    m_stored = false;
    if (m_screen.status() != WorkStatus::Idle)
        m_screen.stopAndRetune();
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
    Preferences *p = Preferences::getInstance();
    const auto status = m_screen.status();
    m_screen.beep(0);
    p->setNumberKeyInter(false);
    if (p->PTYSeachState() == kPtySearching || isPtySearch(status)) {
        m_screen.m_radio->terminate();
        m_screen.checkedId(id);
        return;
    }
    if (status == WorkStatus::AutoStore) {
        // Lit when the automatic store ends.
        m_screen.m_radio->setPreset(id);
        p->setPresetIndex(id);
        p->setNumberKeyInter(true);
        p->setTaStatus(false);
        p->setAlarmStatus(false);
        return;
    }
    p->setTaStatus(false);
    p->setAlarmStatus(false);
    p->setPresetIndex(id);
    m_screen.m_radio->setPreset(id);
    if (p->isFM()) {
        m_screen.setPresetTaAf(id);
        if (id != m_lastClicked) {
            m_lastClicked = id;
            m_screen.checkedId(id);
        }
    }
    if (!isSeek(status))
        showRecalled(id);
    m_screen.checkedId(id);
}

// The recalled frequency is shown at once, without the station's icons.
void PresetTouch::showRecalled(int id)
{
    Ui::c20_003_tuner *ui = m_screen.ui;
    const int mode = m_screen.m_line.mode();
    if (mode == 1) {
        ui->Icn_0020_rds->hide();
        ui->Icn_0021_tp->hide();
    } else if (mode == 0) {
        ui->Icn_0015_rds->hide();
        ui->Icn_0016_tp->hide();
    }
    m_screen.m_line.showFrequency(m_screen.normalValue(Preferences::getInstance()->favoritAt(id)));
}

void PresetTouch::store(int id)
{
    Preferences *p = Preferences::getInstance();
    const int freq = m_screen.lastFrequency();
    if (m_screen.status() != WorkStatus::Idle)
        m_screen.stopAndRetune();
    m_stored = true;
    m_screen.beep(1);
    m_screen.m_radio->savePreset(id);
    m_screen.saveFavorite(id, freq);
    m_screen.m_pages.setText(p->band(), id, m_screen.normalValue(freq), false);
    if (p->isFM()) {
        p->setFmAf(id, p->af());
        p->setFmTa(id, p->ta());
        p->setSavePreset(id, p->curRdsName().isEmpty());
    }
    m_screen.checkedId(id);
    p->setPresetIndex(id);
    p->saveRdsName(p->band(), id, QString());
    if (p->isFM() && !p->curRdsName().isEmpty())
        m_screen.onRdsName(p->curRdsName());
}

void PresetTouch::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_hold.timerId())
        return QObject::timerEvent(event);
    m_hold.stop();
    store(m_pressed);
}

} // namespace tuner
