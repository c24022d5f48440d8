#pragma once

#include "nilomcuservicebackend.h"
#include "niloradioservicebackend.h"
#include "nilosourceservicebackend.h"

#include <QDBusConnection>
#include <QThread>

// The three services as recording fakes on the test's private bus. They run in
// a thread of their own with a connection of their own, so the code under test
// may block on a getter and still be answered.
class FakeServices
{
public:
    FakeServices();
    ~FakeServices();

    // Claims the bus names and exports the objects; false if that failed.
    bool start();
    // Gives the names up again (the services vanish from the bus).
    void stop();
    // Comes back as a new process would: a new connection, so a new unique name.
    bool restart();

    NiloRadioServiceBackend *radio() const { return m_radio; }
    NiloMcuServiceBackend *mcu() const { return m_mcu; }
    NiloSourceServiceBackend *source() const { return m_source; }
    // The services' own connection, for raw messages.
    QDBusConnection connection() const { return m_connection; }
    void clearCalls();

    // Runs `emitter` in the fakes' thread and waits for it, so signals leave in order.
    void inServiceThread(const std::function<void()> &emitter);

    // Returns once every call sent so far on the session bus has been recorded
    // (a round trip through the fakes' thread; the barrier itself is not listed).
    void settle();
    // A fake's calls after settle(), as "name(arg,arg)" texts.
    QStringList describedCalls(ServiceBackend *backend);

private:
    QThread m_thread;
    QString m_connectionName;
    QDBusConnection m_connection;
    NiloRadioServiceBackend *m_radio;
    NiloMcuServiceBackend *m_mcu;
    NiloSourceServiceBackend *m_source;
    bool m_started = false;
};
