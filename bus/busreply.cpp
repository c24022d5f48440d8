#include "busreply.h"

#include "busaddress.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QHash>
#include <QThread>

#include <algorithm>

namespace tuner::bus {

namespace {

enum class OwnerState { Late, Unresponsive };

// Unique bus names of owners that kept a batch waiting or let one run out.
QHash<QString, OwnerState> &slowOwners()
{
    static QHash<QString, OwnerState> owners;
    return owners;
}

// Replies are taken in by the bus connection's own thread; waiting for them
// needs no event loop here, so nothing else runs in the middle of a read.
constexpr unsigned long kPollMicroseconds = 500;

} // namespace

ReplyBatch::ReplyBatch(QDBusAbstractInterface *proxy, QObject *parent)
    : QObject(parent)
    , m_proxy(proxy)
    , m_savedTimeout(proxy->timeout())
{
    if (QDBusConnectionInterface *daemon = proxy->connection().interface()) {
        const QDBusReply<QString> owner = daemon->serviceOwner(proxy->service());
        if (owner.isValid())
            m_owner = owner.value();
    }
    const auto known = slowOwners().constFind(m_owner);
    const bool unresponsive = known != slowOwners().cend() && *known == OwnerState::Unresponsive;
    proxy->setTimeout(unresponsive ? kCallTimeoutMs : kDeadlineMs);
    m_sent.start();
}

ReplyBatch::~ReplyBatch()
{
    close();
}

void ReplyBatch::close()
{
    if (!m_open)
        return;
    m_open = false;
    m_proxy->setTimeout(m_savedTimeout);
}

bool ReplyBatch::allFinished() const
{
    return std::all_of(m_calls.cbegin(), m_calls.cend(), [](const Call &c) { return c.call.isFinished(); });
}

bool ReplyBatch::waitUntil(const QDeadlineTimer &deadline)
{
    close();
    if (m_owner.isEmpty() || !slowOwners().contains(m_owner)) {
        while (!allFinished() && !deadline.hasExpired())
            QThread::usleep(kPollMicroseconds);
    }
    const bool finished = allFinished();
    if (!finished && !m_owner.isEmpty() && !slowOwners().contains(m_owner))
        slowOwners().insert(m_owner, OwnerState::Late);
    return finished;
}

void ReplyBatch::whenFinished(std::function<void(const QStringList &)> done)
{
    close();
    m_done = std::move(done);
    if (allFinished()) {
        finish();
        return;
    }
    for (const Call &c : qAsConst(m_calls)) {
        if (c.call.isFinished())
            continue;
        auto *watcher = new QDBusPendingCallWatcher(c.call, this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this] {
            if (allFinished())
                finish();
        });
    }
}

void ReplyBatch::finish()
{
    if (m_finished)
        return;
    m_finished = true;
    QStringList failed;
    QStringList errors;
    bool timedOut = false;
    for (const Call &c : qAsConst(m_calls)) {
        if (!c.call.isError())
            continue;
        const QDBusError::ErrorType type = c.call.error().type();
        if (!isUnanswered(type)) {
            errors.append(QLatin1String(c.getter) + QLatin1Char(' ') + c.call.error().name());
            continue;
        }
        failed.append(QLatin1String(c.getter));
        timedOut = timedOut || isTimeout(type);
    }
    if (!errors.isEmpty())
        TUNER_WAR() << m_proxy->service() << "answered" << errors.join(QLatin1String(", ")) << "; read as 0 or empty.";
    if (!m_owner.isEmpty()) {
        if (timedOut)
            slowOwners().insert(m_owner, OwnerState::Unresponsive);
        else if (m_sent.elapsed() > kBlockingWaitMs)
            slowOwners().insert(m_owner, OwnerState::Late);
        else
            slowOwners().remove(m_owner);
    }
    if (m_done)
        m_done(failed);
}

void ReplyBatch::forgetUnresponsiveServices()
{
    slowOwners().clear();
}

} // namespace tuner::bus
