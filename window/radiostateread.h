#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>

class NiloRadioServiceInterface;

namespace tuner {

class RadioEdge;

namespace bus {
class ReplyBatch;
}

// Reads the radio service's state, at start-up and whenever the service
// (re)appears, and reports it as the service's own signals would, checked, in
// their fixed order: the tuning and AF/TA answers (whose slots send
// setTa/setAf, connected directly) before the RDS getters go out, then the RDS
// answers. The UI thread waits for the replies only until a deadline; when
// they are not all in by then, the tuner runs on what is stored, and the
// replies are reported in the same order when they arrive.
class RadioStateRead : public QObject
{
    Q_OBJECT
public:
    // `edge` learns when the service's tuning state is known.
    RadioStateRead(NiloRadioServiceInterface *radio, RadioEdge *edge, QObject *parent = nullptr);

    // Starts a read, dropping one still under way; blocks at most `blockingMs`.
    void start(int blockingMs);

signals:
    void initDate(int band_switch, int band_id, const QString &fm_list, const QString &am_list, int current_fm_freq,
                  int current_am_freq, int fm_istuning, int am_istuning, int current_band_num, int fm_freq_max,
                  int fm_freq_min, int fm_step, int am_freq_max, int am_freq_min, int am_step,
                  const QString &band_current_freq, const QString &band_position, int fm_press_id, int am_press_id);
    void aftaState(const QString &aftaList, int cur_afta);
    void PsName1(const QString &names);
    void PsName2(const QString &names);
    void tp_pi_status(int state);
    void ProgramName(const QString &name);
    void statusChanged(int state);
    // Everything a read brought has been reported.
    void fed();

private:
    void readTuning();
    void readRds();
    // The window goes on with what radio.conf holds.
    void useStoredState();
    bus::ReplyBatch *newBatch();

    NiloRadioServiceInterface *m_radio;
    RadioEdge *m_edge;
    QPointer<bus::ReplyBatch> m_batch;
    QDeadlineTimer m_deadline;
    bool m_late = false;
};

} // namespace tuner
