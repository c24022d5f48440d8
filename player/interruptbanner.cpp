#include "interruptbanner.h"

#include "interruptpopup.h"
#include "mcumanager.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"
#include "settingsutil.h"
#include "tunerplayer.h"
#include "ui_c20_003_tuner.h"

namespace tuner {

namespace {

enum PiTp { TaStart = 3, TaEnd = 4, AlarmStart = 5, AlarmEnd = 6 };

} // namespace

InterruptBanner::InterruptBanner(TunerPlayer &screen)
    : m_screen(screen)
{
}

c35_011_interrupt_on_tuner *InterruptBanner::popup() const
{
    return m_popup;
}

void InterruptBanner::raise(int state, int type)
{
    Ui::c20_003_tuner *ui = m_screen.ui;
    ui->stackedWidget_tuner->setCurrentWidget(ui->page_tuner_02);
    ui->Icn_0015_rds->show();
    ui->Icn_0016_tp->show();
    if (!m_screen.isVisible())
        emit m_screen.taShowTunerPlayer();
    if (!m_popup) {
        m_popup = new c35_011_interrupt_on_tuner(&m_screen);
        m_popup->setGeometry(m_screen.rect());
        QObject::connect(m_popup, SIGNAL(cancel()), &m_screen, SLOT(onInterruptCancel()));
    }
    m_state = state;
    m_popup->onInterruptType(InterruptType(type));
    m_popup->show();
    m_popup->raise();
    m_popup->repaint();
}

void InterruptBanner::status(int pitpState)
{
    Preferences *p = Preferences::getInstance();
    if (cm::SettingsUtil::instance()->getRdsAfTaTpSupport() != 1 || !p->isFM())
        return;
    const bool alarmLive = p->alarmStatue() && !p->cancelAlarm();
    switch (pitpState) {
    case TaStart:
        if (!alarmLive)
            raise(TaStart, INTERRUPT_TA);
        break;
    case TaEnd:
        if (!alarmLive && p->taStatus())
            end();
        break;
    case AlarmStart:
        raise(AlarmStart, INTERRUPT_ALARM);
        break;
    case AlarmEnd:
        if (p->alarmStatue())
            end();
        // An announcement the alarm interrupted comes back.
        if ((p->taStatus() && !p->cancelTa()) || p->SouOffTa())
            status(TaStart);
        break;
    default:
        break;
    }
}

void InterruptBanner::takeDown()
{
    if (m_popup)
        m_popup->deleteLater(); // we may be inside its cancel() signal
    m_popup = nullptr;
    m_state = 0;
    McuManager::instance()->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
}

void InterruptBanner::dismissed()
{
    Preferences *p = Preferences::getInstance();
    takeDown();
    if (p->taOrAlarm() == INTERRUPT_TA) {
        m_screen.m_radio->taAlarmCancel(1);
        emit m_screen.alarmCancel();
        p->setCancelTa(true);
    } else if (p->taOrAlarm() == INTERRUPT_ALARM) {
        if (!p->taStatus() || p->cancelTa()) {
            emit m_screen.alarmCancel();
            p->setCancelAlarm(true);
        } else {
            p->setCancelAlarm(true);
            emit m_screen.cancelTaAlarm();
        }
    }
}

void InterruptBanner::end()
{
    if (!m_popup)
        return;
    McuManager::instance()->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
    if (Preferences::getInstance()->taOrAlarm() == INTERRUPT_TA)
        m_screen.m_radio->taAlarmCancel(1);
    m_state = 0;
    m_popup->deleteLater();
    m_popup = nullptr;
}

} // namespace tuner
