#pragma once

#include "radiotuning.h"

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
    void tuning(const RadioTuning &tuning);
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
