#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

namespace tuner {

class DisplayLine;
class InterruptBookkeeping;
class c35_011_interrupt_on_tuner;

// The traffic-announcement and alarm popup over the tuner screen: raised on
// an announcement or an alarm, taken down when it ends or when the driver
// dismisses it. An alarm has priority over an announcement.
class InterruptBanner : public QObject
{
    Q_OBJECT
public:
    InterruptBanner(QWidget *screen, DisplayLine &line, InterruptBookkeeping &interrupts);

    void status(int pitpState);
    // The driver dismissed it: the bookkeeping signals what follows.
    void dismissed();
    // Takes the popup down, if it is up.
    void end();
    c35_011_interrupt_on_tuner *popup() const;
    // pitp::TaStart or pitp::AlarmStart while the popup is up, else 0.
    int state() const { return m_state; }
    bool isUp() const { return m_state != 0; }

signals:
    // Raised while the tuner screen is hidden: it is to be shown.
    void raisedHidden();

private:
    void raise(int state, int type);
    void takeDown();

    QWidget *m_screen;
    DisplayLine &m_line;
    InterruptBookkeeping &m_interrupts;
    QPointer<c35_011_interrupt_on_tuner> m_popup;
    int m_state = 0;
};

} // namespace tuner
