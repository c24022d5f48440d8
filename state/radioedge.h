#pragma once

#include "radiotuning.h"

#include <QObject>
#include <QTimer>
#include <QVector>

#include <functional>

class NiloRadioServiceInterface;
class QDBusServiceWatcher;

namespace tuner {

// Where the radio service's signals enter the tuner. Each report is checked
// once (radiocheck) and passed on under the signal's own name and arguments,
// so the main window and the tuner screen connect to this object as they
// would to the proxy, and trust what they get.
//
// A burst of reports costs the screen one update per kind: the first report
// goes out at once; those that follow in the same burst wait for the end of
// the event-loop turn, and a waiting report of state (station, names, RDS
// status, programme type) is replaced by a newer one of its kind. Reports of
// events (work and search states, announcements, auto-store results, start-up
// data) are never merged or reordered. Delivery takes a bounded slice of each
// turn, so touches are served during a flood.
//
// It also follows the service on the bus: when the service goes away while
// it was busy, the searches end as if it had reported idle; when a service
// (new or restarted) takes the name, serviceAppeared() asks for a fresh read.
class RadioEdge : public QObject
{
    Q_OBJECT
public:
    static constexpr int kSliceMs = 20;
    static constexpr int kMaxWaitingEvents = 10000;

    explicit RadioEdge(NiloRadioServiceInterface *radio, QObject *parent = nullptr);
    ~RadioEdge() override;

    // Reports still waiting for delivery (tests).
    int waitingReports() const { return m_waiting.size(); }

    // False while the main window reads the service's tuning state: until
    // then the screen does not command the band it restores from its own
    // store, which the service's state may contradict.
    bool radioStateKnown() const { return m_radioStateKnown; }
    void setRadioStateKnown(bool known) { m_radioStateKnown = known; }

signals:
    // The start-up state the service reports (initDate), checked.
    void tuning(const RadioTuning &tuning);
    void aftaState(const QString &aftaList, int cur_afta);
    void PsName1(const QString &psname1);
    void PsName2(const QString &psname2);
    void stationChanged(int freq, int band_id);
    void autoScanCompleted(const QString &stations);
    void statusChanged(int state);
    void tp_pi_status(int pi_tp_state);
    void seekState(int additional);
    void work_status(int state);
    void ProgramName(const QString &rdsname);
    void ptyChanged(int pty, const QString &name);
    void bandFMAMChang(int state);
    // The service's name has a new owner: read its state again.
    void serviceAppeared();

private slots:
    void onInitDate(int band_switch, int band_id, const QString &fm_list, const QString &am_list, int current_fm_freq,
                    int current_am_freq, int fm_istuning, int am_istuning, int current_band_num, int fm_freq_max,
                    int fm_freq_min, int fm_step, int am_freq_max, int am_freq_min, int am_step,
                    const QString &band_current_freq, const QString &band_position, int local, int regional);
    void onAftaState(const QString &aftaList, int cur_afta);
    void onPsName1(const QString &names);
    void onPsName2(const QString &names);
    void onStationChanged(int freq, int band);
    void onAutoScanCompleted(const QString &stations);
    void onStatusChanged(int state);
    void onTpPiStatus(int state);
    void onSeekState(int state);
    void onWorkStatus(int state);
    void onProgramName(const QString &name);
    void onPtyChanged(int pty, const QString &name);
    void onBandFMAMChang(int state);
    void onOwnerChanged(const QString &service, const QString &oldOwner, const QString &newOwner);
    void deliverWaiting();

private:
    // Kinds of state that a newer report of the same kind replaces.
    enum class Kind { Event, Station, ProgramName, PsName1, PsName2, RdsStatus, Pty };

    struct Report
    {
        Kind kind;
        std::function<void()> emitReport;
    };

    void pass(Kind kind, std::function<void()> emitReport);

    QVector<Report> m_waiting;
    int m_firstMergeable = 0; // reports before this index are behind an event
    bool m_burst = false;
    bool m_droppedEvents = false;
    QTimer m_endOfTurn;
    QDBusServiceWatcher *m_watcher;
    int m_lastWorkStatus = 0;
    bool m_radioStateKnown = true;
    int m_lastSeekState = 0;
};

} // namespace tuner
