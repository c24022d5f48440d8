#pragma once

#include "tunerlog.h"

#include <QDBusAbstractInterface>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVector>

namespace tuner::bus {

// Waits for a getter's reply and returns its value, or T() (0, false, "") when
// the call failed: service absent, error reply, timeout or a reply of the wrong
// type. QDBusPendingReply<T>::value() must not be read on an error reply.
template<typename T>
T replyValue(QDBusPendingReply<T> reply, const char *getter)
{
    reply.waitForFinished();
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
    {
    }
    // Only after the batch has been collected.
    bool ok() const { return m_reply.isFinished() && !m_reply.isError(); }
    T value() const { return ok() ? m_reply.value() : T(); }

private:
    QDBusPendingReply<T> m_reply;
};

// Getters sent all at once, in order, and collected in that order under one
// deadline, so a slow service that answers each call late is still read, and a
// hung one costs the deadline once instead of a timeout per getter. An owner
// that let a batch run out is remembered (by its unique bus name): the next
// batch to it waits only a short while. A restarted service has a new name.
class ReplyBatch
{
public:
    static constexpr int kDeadlineMs = 1000;

    // Calls made on `proxy` while the batch is open carry its deadline.
    explicit ReplyBatch(QDBusAbstractInterface *proxy);
    ~ReplyBatch();
    ReplyBatch(const ReplyBatch &) = delete;
    ReplyBatch &operator=(const ReplyBatch &) = delete;

    template<typename T>
    BatchedReply<T> add(const QDBusPendingReply<T> &reply, const char *getter)
    {
        m_calls.append({reply, getter});
        return BatchedReply<T>(reply);
    }

    // Waits for every reply (at most the deadline in all) and closes the
    // batch; returns the getters that failed, in order.
    QStringList collect();

    static void forgetUnresponsiveServices();

private:
    struct Call
    {
        QDBusPendingCall call;
        const char *getter;
    };

    QDBusAbstractInterface *m_proxy;
    int m_savedTimeout;
    QString m_owner;
    QVector<Call> m_calls;
    bool m_open = true;
};

} // namespace tuner::bus
