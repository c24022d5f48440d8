#pragma once

#include <QObject>

class NiloRadioServiceInterface;

namespace tuner {

// The radio's traffic-announcement and alarm reports (tp_pi_status).
namespace pitp {
enum : int { TaStart = 3, TaEnd = 4, AlarmStart = 5, AlarmEnd = 6 };
} // namespace pitp

// The bookkeeping of traffic announcements and alarms in the preferences:
// which interrupt is on, whether the driver cancelled it, whether it began
// while the tuner was not the source, and which one comes back after the
// other. The main window keeps it for both sources; the tuner screen's popup
// reads it and cancels through it.
class InterruptBookkeeping : public QObject
{
    Q_OBJECT
public:
    explicit InterruptBookkeeping(NiloRadioServiceInterface *radio, QObject *parent = nullptr);

    // An alarm is on and the driver has not cancelled it.
    static bool alarmLive();
    // An announcement the alarm interrupted comes back when the alarm ends.
    static bool announcementResumes();
    // The interrupt on now was cancelled by the driver.
    static bool cancelledByDriver();

    // Which interrupt a report starts or ends, whatever the tuner shows.
    void record(int report, bool tunerActive);
    // The audio status and the flags for a report the tuner shows; true when
    // an ending alarm brings the announcement back (report TaStart again then).
    bool apply(int report);
    // The driver cancels the interrupt on now; what follows is signalled.
    void cancel();
    // The tuner becomes the source again: the interrupt still on, as a report
    // to show again (0 for none).
    int resumed();
    // The tuner lost the audio focus while an interrupt was on.
    void focusLost();
    // The radio may end an announcement it plays.
    void releaseAnnouncement();
    // The source service switched to the announcement source: any cancel is void.
    void announcementSourceTaken();
    // After a cancelled alarm: true when the announcement is to be shown again.
    bool reopenAnnouncement();

signals:
    // A cancelled interrupt is over: the host is to be told.
    void alarmCancel();
    // The cancelled alarm came over a live announcement, which returns.
    void cancelTaAlarm();

private:
    NiloRadioServiceInterface *m_radio;
};

} // namespace tuner
