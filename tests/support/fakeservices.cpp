#include "fakeservices.h"

#include "busaddress.h"
#include "serviceexport.h"

#include <QDBusMessage>
#include <QMetaObject>

FakeServices::FakeServices()
    : m_connectionName(QStringLiteral("fake-services"))
    , m_connection(QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_connectionName))
    , m_radio(new NiloRadioServiceBackend)
    , m_mcu(new NiloMcuServiceBackend)
    , m_source(new NiloSourceServiceBackend)
{
    tuner::bus::attachAdaptors({m_radio, m_mcu, m_source});
    m_radio->moveToThread(&m_thread);
    m_mcu->moveToThread(&m_thread);
    m_source->moveToThread(&m_thread);
    m_thread.start();
}

FakeServices::~FakeServices()
{
    stop();
    // Deleted where they live: the adaptors relay destroyed() only in their own thread.
    inServiceThread([this] {
        delete m_radio;
        delete m_mcu;
        delete m_source;
    });
    m_thread.quit();
    m_thread.wait();
    QDBusConnection::disconnectFromBus(m_connectionName);
}

bool FakeServices::restart()
{
    static int generation = 0;
    stop();
    QDBusConnection::disconnectFromBus(m_connectionName);
    m_connectionName = QStringLiteral("fake-services-%1").arg(++generation);
    m_connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_connectionName);
    return start();
}

bool FakeServices::start()
{
    if (!m_started)
        m_started = tuner::bus::exportServices(m_connection, {m_radio, m_mcu, m_source});
    return m_started;
}

void FakeServices::stop()
{
    if (m_started)
        tuner::bus::withdrawServices(m_connection);
    m_started = false;
}

void FakeServices::clearCalls()
{
    m_radio->clearCalls();
    m_mcu->clearCalls();
    m_source->clearCalls();
}

void FakeServices::inServiceThread(const std::function<void()> &emitter)
{
    QObject context;
    context.moveToThread(&m_thread);
    QMetaObject::invokeMethod(&context, emitter, Qt::BlockingQueuedConnection);
}

namespace {
constexpr char kBarrier[] = "workStateType";
}

void FakeServices::settle()
{
    using namespace tuner::bus;
    const QDBusMessage call
        = QDBusMessage::createMethodCall(QLatin1String(kMcuService), QLatin1String(kRadioPath),
                                         QStringLiteral("nilo.RadioService"), QLatin1String(kBarrier));
    QDBusConnection::sessionBus().call(call, QDBus::Block, 5000);
}

QStringList FakeServices::describedCalls(ServiceBackend *backend)
{
    settle();
    QStringList result;
    for (const ServiceBackend::Call &call : backend->calls()) {
        if (backend == m_radio && call.member == QLatin1String(kBarrier))
            continue;
        QStringList args;
        for (const QVariant &arg : call.args)
            args.append(arg.toString());
        result.append(call.member + QLatin1Char('(') + args.join(QLatin1Char(',')) + QLatin1Char(')'));
    }
    return result;
}
