#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>

class NiloRadioServiceInterface;

namespace tuner {

class MainWindow;
namespace bus {
class ReplyBatch;
}

// Reads the radio service's state, at start-up and whenever the service
// (re)appears, and feeds it through the window's slots in their fixed order:
// the tuning and AF/TA getters, their slots (which send setTa/setAf), then the
// RDS getters and theirs. The UI thread waits for the replies only until a
// deadline; when they are not all in by then, the window runs on what is
// stored, and the replies are fed in the same order when they arrive.
class RadioStateRead : public QObject
{
    Q_OBJECT
public:
    RadioStateRead(NiloRadioServiceInterface *radio, MainWindow &window, QObject *parent = nullptr);

    // Starts a read, dropping one still under way; blocks at most `blockingMs`.
    void start(int blockingMs);

signals:
    // Everything a read brought has been fed.
    void fed();

private:
    void readTuning();
    void readRds();
    // The window goes on with what radio.conf holds.
    void useStoredState();
    bus::ReplyBatch *newBatch();

    NiloRadioServiceInterface *m_radio;
    MainWindow &m_window;
    QPointer<bus::ReplyBatch> m_batch;
    QDeadlineTimer m_deadline;
    bool m_late = false;
};

} // namespace tuner
