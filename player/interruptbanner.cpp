#include "interruptbanner.h"

#include "displayline.h"
#include "interruptpopup.h"
#include "interrupts.h"
#include "mcumanager.h"
#include "preferences.h"
#include "rdsswitches.h"

#include <QWidget>

namespace tuner {

InterruptBanner::InterruptBanner(QWidget *screen, DisplayLine &line, InterruptBookkeeping &interrupts)
    : m_screen(screen)
    , m_line(line)
    , m_interrupts(interrupts)
{}

c35_011_interrupt_on_tuner *InterruptBanner::popup() const
{
    return m_popup;
}

void InterruptBanner::raise(int state, int type)
{
    m_line.showInterruptPage();
    if (!m_screen->isVisible())
        emit raisedHidden();
    if (!m_popup) {
        m_popup = new c35_011_interrupt_on_tuner(m_screen);
        m_popup->setGeometry(m_screen->rect());
        QObject::connect(m_popup, SIGNAL(cancel()), m_screen, SLOT(onInterruptCancel()));
    }
    m_state = state;
    m_popup->onInterruptType(InterruptType(type));
    m_popup->show();
    m_popup->raise();
    m_popup->repaint();
}

void InterruptBanner::status(int pitpState)
{
    Preferences *p = prefs();
    if (!afTaTpSupported() || !p->isFM())
        return;
    switch (pitpState) {
    case pitp::TaStart:
        if (!InterruptBookkeeping::alarmLive())
            raise(pitp::TaStart, INTERRUPT_TA);
        break;
    case pitp::TaEnd:
        if (!InterruptBookkeeping::alarmLive() && p->taStatus())
            end();
        break;
    case pitp::AlarmStart:
        raise(pitp::AlarmStart, INTERRUPT_ALARM);
        break;
    case pitp::AlarmEnd:
        if (p->alarmStatue())
            end();
        if (InterruptBookkeeping::announcementResumes())
            status(pitp::TaStart);
        break;
    default:
        break;
    }
}

// We may be inside the popup's cancel() signal: it goes later.
void InterruptBanner::takeDown()
{
    if (m_popup)
        m_popup->deleteLater();
    m_popup = nullptr;
    m_state = 0;
    McuManager::instance()->updateAudioStatus(McuManager::AudioStatusInterruptEnd);
}

void InterruptBanner::dismissed()
{
    takeDown();
    m_interrupts.cancel();
}

void InterruptBanner::end()
{
    if (!m_popup)
        return;
    takeDown();
    m_interrupts.releaseAnnouncement();
}

} // namespace tuner
