#include "fakeservices.h"

#include "busaddress.h"
#include "nilo_mcuservice_adaptor.h"
#include "nilo_radioservice_adaptor.h"
#include "nilo_sourceservice_adaptor.h"

#include <QDBusMessage>
#include <QMetaObject>

FakeServices::FakeServices()
    : m_connectionName(QStringLiteral("fake-services"))
    , m_connection(QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_connectionName))
    , m_radio(new NiloRadioServiceBackend)
    , m_mcu(new NiloMcuServiceBackend)
    , m_source(new NiloSourceServiceBackend)
{
    new NiloRadioServiceAdaptor(m_radio);
    new NiloMcuServiceAdaptor(m_mcu);
    new NiloSourceServiceAdaptor(m_source);
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
    using namespace tuner::bus;
    if (m_started)
        return true;
    m_started = m_connection.isConnected()
        && m_connection.registerObject(QLatin1String(kRadioPath), m_radio)
        && m_connection.registerObject(QLatin1String(kMcuPath), m_mcu)
        && m_connection.registerObject(QLatin1String(kSourcePath), m_source)
        && m_connection.registerService(QLatin1String(kMcuService))
        && m_connection.registerService(QLatin1String(kSystemService));
    return m_started;
}

void FakeServices::stop()
{
    using namespace tuner::bus;
    if (!m_started)
        return;
    m_connection.unregisterService(QLatin1String(kMcuService));
    m_connection.unregisterService(QLatin1String(kSystemService));
    m_connection.unregisterObject(QLatin1String(kRadioPath));
    m_connection.unregisterObject(QLatin1String(kMcuPath));
    m_connection.unregisterObject(QLatin1String(kSourcePath));
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
    const QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(kMcuService), QLatin1String(kRadioPath),
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
