#pragma once

#include <QPointer>

namespace tuner {

class TunerPlayer;
class c35_011_interrupt_on_tuner;

// The traffic-announcement and alarm popup over the tuner screen: raised on
// 3 (announcement) and 5 (alarm), taken down on 4 and 6 or when the user
// dismisses it. An alarm has priority over an announcement.
class InterruptBanner
{
public:
    explicit InterruptBanner(TunerPlayer &screen);

    void status(int pitpState);
    void dismissed();
    void end();
    c35_011_interrupt_on_tuner *popup() const;
    // 3 or 5 while the popup is up, else 0.
    int state() const { return m_state; }

private:
    void raise(int state, int type);
    void takeDown();

    TunerPlayer &m_screen;
    QPointer<c35_011_interrupt_on_tuner> m_popup;
    int m_state = 0;
};

} // namespace tuner
