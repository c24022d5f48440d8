#pragma once

#include "fakeservices.h"
#include "hostrecorder.h"
#include "teststate.h"

#include <QWidget>

#include <memory>

namespace tuner {
class MainWindow;
}
class QLabel;

// The tuner as the host shows it: the main window on recording fakes of the
// services, in a state folder of its own, its screen in an 800 x 480 frame.
class TunerRig
{
public:
    TunerRig();
    ~TunerRig();

    // Creates the window and shows its screen; false when the fakes could not
    // start. Without `services` the window comes up on a bus without them.
    bool open(bool services = true);
    // Destroys the window (as the host does on onDestroy) and keeps the state.
    void close();

    FakeServices &services() { return *m_services; }
    tuner::MainWindow *window() const { return m_window.get(); }
    QWidget *frame() const { return m_frame.get(); }
    QString stateRoot() const { return m_state.root(); }
    template<typename T>
    T *find(const char *name) const
    {
        return m_frame->findChild<T *>(QLatin1String(name));
    }

    // A station report from the radio service, emitted in the service's thread.
    // Returns when it has left, with the time it left on the bench clock.
    qint64 reportStation(int freq, int band);

private:
    TestState m_state;
    std::unique_ptr<FakeServices> m_services;
    HostRecorder m_host;
    std::unique_ptr<QWidget> m_frame;
    std::unique_ptr<tuner::MainWindow> m_window;
};

// One monotonic clock for every thread of a bench, in nanoseconds.
qint64 benchClockNs();
// Resident set size of this process, in KiB.
qint64 residentKiB();
// Runs the event loop for `ms`.
void spin(int ms);
