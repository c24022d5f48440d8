#pragma once

#include "tunerlog.h"

#include <QDBusAbstractInterface>
#include <QDBusPendingReply>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QStringList>
#include <QVector>

#include <functional>

namespace tuner::bus {

inline bool isTimeout(QDBusError::ErrorType type)
{
    return type == QDBusError::NoReply || type == QDBusError::Timeout;
}

// The service never answered: it let the call run out, or there is none. Any
// other error is the service's answer (or a reply of the wrong type).
inline bool isUnanswered(QDBusError::ErrorType type)
{
    return isTimeout(type) || type == QDBusError::ServiceUnknown || type == QDBusError::Disconnected;
}

// Waits for a getter's reply and returns its value, or T() (0, false, "") when
// the call failed: service absent, error reply, timeout or a reply of the wrong
// type. QDBusPendingReply<T>::value() must not be read on an error reply.
// `timedOut`, when given, tells whether the service let the call run out.
template<typename T>
T replyValue(QDBusPendingReply<T> reply, const char *getter, bool *timedOut = nullptr)
{
    reply.waitForFinished();
    if (timedOut)
        *timedOut = reply.isError() && isTimeout(reply.error().type());
    if (reply.isError()) {
        TUNER_WAR() << getter << reply.error().name() << "call failed, using the default value.";
        return T();
    }
    return reply.value();
}

// A getter's reply that a ReplyBatch collects.
template<typename T>
class BatchedReply
{
public:
    explicit BatchedReply(const QDBusPendingReply<T> &reply)
        : m_reply(reply)
    {}
    // False while the reply is on its way, and when the service never gave
    // one. An error reply is an answer: its value reads as T() (0, false, "").
    bool answered() const
    {
        return m_reply.isFinished() && (!m_reply.isError() || !isUnanswered(m_reply.error().type()));
    }
    T value() const { return m_reply.isFinished() && !m_reply.isError() ? m_reply.value() : T(); }

private:
    QDBusPendingReply<T> m_reply;
};

// Getters sent all at once, in order, and collected together: a slow service
// that answers each call late is still read, and a hung one costs one deadline
// instead of a timeout per getter. The UI thread waits for the replies only
// until a deadline of the caller's; what comes later is handed over from the
// event loop. An owner that kept a batch waiting past that (late), or let one
// run out (unresponsive), is remembered by its unique bus name: the next
// batch to it does not block at all, and to an unresponsive one its calls
// give up sooner. A restarted service has a new name.
class ReplyBatch : public QObject
{
public:
    // How long a reply may take before the getter counts as failed.
    static constexpr int kDeadlineMs = 1000;
    // How long the UI thread may wait for a batch; an owner whose replies
    // take longer counts as late.
    static constexpr int kBlockingWaitMs = 150;

    // Calls made on `proxy` until the batch is waited for carry its deadline.
    explicit ReplyBatch(QDBusAbstractInterface *proxy, QObject *parent = nullptr);
    ~ReplyBatch() override;

    template<typename T>
    BatchedReply<T> add(const QDBusPendingReply<T> &reply, const char *getter)
    {
        m_calls.append({reply, getter});
        return BatchedReply<T>(reply);
    }

    // Blocks until every reply is in or `deadline` has passed, and returns
    // whether they are all in. Against a known late or unresponsive owner it
    // does not block.
    bool waitUntil(const QDeadlineTimer &deadline);
    // Calls `done` with the getters the service did not answer, in order,
    // once every reply is in: at once when they are, else later from the
    // event loop (never after the batch is destroyed). An error reply is an
    // answer; it is logged. `done` may end the batch with deleteLater().
    void whenFinished(std::function<void(const QStringList &failed)> done);

    static void forgetUnresponsiveServices();

private:
    struct Call
    {
        QDBusPendingCall call;
        const char *getter;
    };

    void close();
    bool allFinished() const;
    void finish();

    QDBusAbstractInterface *m_proxy;
    int m_savedTimeout;
    QString m_owner;
    QElapsedTimer m_sent;
    QVector<Call> m_calls;
    std::function<void(const QStringList &)> m_done;
    bool m_open = true;
    bool m_finished = false;
};

} // namespace tuner::bus
