#pragma once

#include "tunerkeys.h"

namespace tuner {

enum InterruptType { INTERRUPT_NONE = 0, INTERRUPT_ALARM = 1, INTERRUPT_TA = 2 };

// The radio's PTY search states (seekState, PTYSeachState()).
constexpr int kPtySearching = 3;
constexpr int kPtyNotFound = 4;
constexpr int kPtyFound = 6;

// What the radio is doing now, as the tuner keeps it between reports: the
// work status, the PTY search, and the traffic-announcement and alarm flags
// with the rule that ends them together. Nothing of it is stored on disk.
// The preferences own the one instance; their named setters forward here.
class RunningState
{
public:
    // The work status as the radio service last reported it: the window's
    // keys and the key actions go by it. Kept as sent.
    int reportedWorkState() const { return m_reportedWorkState; }
    WorkStatus reportedWorkStatus() const { return WorkStatus(m_reportedWorkState); }
    void setReportedWorkState(int state) { m_reportedWorkState = state; }
    // The work status as the tuner screen shows it: the end of a search
    // shows there only after the settle delay, and a band switch shows idle
    // at once. The screen's keys go by it.
    WorkStatus shownWorkStatus() const { return m_shownWorkStatus; }
    void setShownWorkStatus(WorkStatus status) { m_shownWorkStatus = status; }

    int ptySearchState() const { return m_ptySearchState; }
    void setPtySearchState(int state) { m_ptySearchState = state; }

    InterruptType interrupt() const { return m_interrupt; }
    void setInterrupt(InterruptType type) { m_interrupt = type; }
    bool taStatus() const { return m_taStatus; }
    void setTaStatus(bool on) { m_taStatus = on; }
    bool alarmStatus() const { return m_alarmStatus; }
    void setAlarmStatus(bool on) { m_alarmStatus = on; }
    bool cancelTa() const { return m_cancelTa; }
    void setCancelTa(bool on) { m_cancelTa = on; }
    bool cancelAlarm() const { return m_cancelAlarm; }
    void setCancelAlarm(bool on) { m_cancelAlarm = on; }
    bool sourceOffTa() const { return m_sourceOffTa; }
    void setSourceOffTa(bool on) { m_sourceOffTa = on; }
    bool sourceOffAlarm() const { return m_sourceOffAlarm; }
    void setSourceOffAlarm(bool on) { m_sourceOffAlarm = on; }
    bool closeClicked() const { return m_closeClicked; }
    void setCloseClicked(bool on) { m_closeClicked = on; }
    bool numberKeyInter() const { return m_numberKeyInter; }
    void setNumberKeyInter(bool on) { m_numberKeyInter = on; }

    // A recalled preset or a search the radio starts ends the announcement
    // or alarm the tuner was showing.
    void endShownInterrupt()
    {
        m_taStatus = false;
        m_alarmStatus = false;
    }

private:
    int m_reportedWorkState = 0;
    WorkStatus m_shownWorkStatus = WorkStatus::Idle;
    int m_ptySearchState = kPtyFound;
    InterruptType m_interrupt = INTERRUPT_NONE;
    bool m_taStatus = false;
    bool m_alarmStatus = false;
    bool m_cancelTa = false;
    bool m_cancelAlarm = false;
    bool m_sourceOffTa = false;
    bool m_sourceOffAlarm = false;
    bool m_closeClicked = false;
    bool m_numberKeyInter = false;
};

} // namespace tuner
