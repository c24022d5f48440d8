#include "interrupts.h"

#include "mcumanager.h"
#include "nilo_radioservice_interface.h"
#include "preferences.h"

namespace tuner {

namespace {

void audioStatus(McuManager::AudioStatus status)
{
    McuManager::instance()->updateAudioStatus(status);
}

} // namespace

InterruptBookkeeping::InterruptBookkeeping(NiloRadioServiceInterface *radio, QObject *parent)
    : QObject(parent)
    , m_radio(radio)
{}

bool InterruptBookkeeping::alarmLive()
{
    return prefs()->alarmStatue() && !prefs()->cancelAlarm();
}

bool InterruptBookkeeping::announcementResumes()
{
    Preferences *p = prefs();
    return (p->taStatus() && !p->cancelTa()) || p->SouOffTa();
}

bool InterruptBookkeeping::cancelledByDriver()
{
    Preferences *p = prefs();
    return (p->taOrAlarm() == INTERRUPT_TA && p->cancelTa()) || (p->taOrAlarm() == INTERRUPT_ALARM && p->cancelAlarm());
}

void InterruptBookkeeping::record(int report, bool tunerActive)
{
    Preferences *p = prefs();
    switch (report) {
    case pitp::TaStart:
        if (!(p->taOrAlarm() == INTERRUPT_ALARM && !p->cancelAlarm()))
            p->setTaAlarmStatus(INTERRUPT_TA);
        if (!tunerActive)
            p->setSouOffTa(true);
        break;
    case pitp::AlarmStart:
        p->setTaAlarmStatus(INTERRUPT_ALARM);
        p->setCancelAlarm(false);
        p->setSouOffAlarm(true);
        break;
    case pitp::TaEnd:
        p->setCancelTa(false);
        if (!p->SouOffAlarm())
            p->setTaAlarmStatus(INTERRUPT_NONE);
        p->setSouOffTa(false);
        break;
    case pitp::AlarmEnd:
        p->setCancelAlarm(false);
        p->setSouOffAlarm(false);
        p->setTaAlarmStatus(INTERRUPT_NONE);
        break;
    default:
        break;
    }
}

bool InterruptBookkeeping::apply(int report)
{
    Preferences *p = prefs();
    switch (report) {
    case pitp::TaStart:
        if (!alarmLive() && !p->taStatus())
            audioStatus(McuManager::AudioStatusInterruptStart);
        p->setTaStatus(true);
        p->setCancelTa(false);
        return false;
    case pitp::TaEnd:
        if (!alarmLive() && p->taStatus()) {
            audioStatus(McuManager::AudioStatusInterruptEnd);
            p->setTaAlarmStatus(INTERRUPT_NONE);
        }
        p->setTaStatus(false);
        p->setCancelTa(false);
        return false;
    case pitp::AlarmStart:
        if (!p->alarmStatue())
            audioStatus(McuManager::AudioStatusInterruptStart);
        p->setAlarmStatus(true);
        return false;
    case pitp::AlarmEnd:
        if (p->alarmStatue()) {
            audioStatus(McuManager::AudioStatusInterruptEnd);
            p->setTaAlarmStatus(INTERRUPT_NONE);
        }
        p->setAlarmStatus(false);
        p->setCancelAlarm(false);
        if (!announcementResumes())
            return false;
        p->setTaStatus(false);
        return true;
    default:
        return false;
    }
}

void InterruptBookkeeping::cancel()
{
    Preferences *p = prefs();
    if (p->taOrAlarm() == INTERRUPT_TA) {
        releaseAnnouncement();
        emit alarmCancel();
        p->setCancelTa(true);
    } else if (p->taOrAlarm() == INTERRUPT_ALARM) {
        const bool announcementLive = p->taStatus() && !p->cancelTa();
        p->setCancelAlarm(true);
        announcementLive ? emit cancelTaAlarm() : emit alarmCancel();
    }
}

int InterruptBookkeeping::resumed()
{
    Preferences *p = prefs();
    if (p->taOrAlarm() == INTERRUPT_TA && !p->cancelTa()) {
        p->setTaStatus(false);
        return pitp::TaStart;
    }
    if (p->taOrAlarm() == INTERRUPT_ALARM && !p->cancelAlarm()) {
        p->setAlarmStatus(false);
        return pitp::AlarmStart;
    }
    return 0;
}

void InterruptBookkeeping::focusLost()
{
    if (prefs()->taOrAlarm() != INTERRUPT_NONE)
        audioStatus(McuManager::AudioStatusInterruptEnd);
    releaseAnnouncement();
}

void InterruptBookkeeping::releaseAnnouncement()
{
    if (prefs()->taOrAlarm() == INTERRUPT_TA)
        m_radio->taAlarmCancel(1);
}

void InterruptBookkeeping::announcementSourceTaken()
{
    Preferences *p = prefs();
    if (p->taOrAlarm() == INTERRUPT_TA)
        p->setCancelTa(false);
    else if (p->taOrAlarm() == INTERRUPT_ALARM)
        p->setCancelAlarm(false);
}

bool InterruptBookkeeping::reopenAnnouncement()
{
    Preferences *p = prefs();
    if (!p->taStatus())
        return false;
    p->setTaStatus(false);
    p->setTaAlarmStatus(INTERRUPT_TA);
    return true;
}

} // namespace tuner
