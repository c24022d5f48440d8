#include "busreply.h"

#include "busaddress.h"

#include <QDBusConnectionInterface>
#include <QSet>

namespace tuner::bus {

namespace {

// Unique bus names of owners that let a batch run out.
QSet<QString> &unresponsiveOwners()
{
    static QSet<QString> owners;
    return owners;
}

} // namespace

ReplyBatch::ReplyBatch(QDBusAbstractInterface *proxy)
    : m_proxy(proxy)
    , m_savedTimeout(proxy->timeout())
{
    if (QDBusConnectionInterface *daemon = proxy->connection().interface()) {
        const QDBusReply<QString> owner = daemon->serviceOwner(proxy->service());
        if (owner.isValid())
            m_owner = owner.value();
    }
    const bool knownUnresponsive = !m_owner.isEmpty() && unresponsiveOwners().contains(m_owner);
    proxy->setTimeout(knownUnresponsive ? kCallTimeoutMs : kDeadlineMs);
}

ReplyBatch::~ReplyBatch()
{
    if (m_open)
        collect();
}

QStringList ReplyBatch::collect()
{
    QStringList failed;
    bool timedOut = false;
    for (Call &c : m_calls) {
        c.call.waitForFinished();
        if (!c.call.isError())
            continue;
        failed.append(QLatin1String(c.getter));
        const QDBusError::ErrorType type = c.call.error().type();
        timedOut = timedOut || type == QDBusError::NoReply || type == QDBusError::Timeout;
    }
    if (!m_owner.isEmpty()) {
        if (timedOut)
            unresponsiveOwners().insert(m_owner);
        else if (failed.isEmpty())
            unresponsiveOwners().remove(m_owner);
    }
    m_proxy->setTimeout(m_savedTimeout);
    m_open = false;
    return failed;
}

void ReplyBatch::forgetUnresponsiveServices()
{
    unresponsiveOwners().clear();
}

} // namespace tuner::bus
