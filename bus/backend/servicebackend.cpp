#include "servicebackend.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QMutexLocker>
#include <QTimer>

ServiceBackend::ServiceBackend(QObject *parent)
    : QObject(parent)
{}

QList<ServiceBackend::Call> ServiceBackend::calls() const
{
    QMutexLocker lock(&m_mutex);
    return m_calls;
}

QStringList ServiceBackend::callNames() const
{
    QMutexLocker lock(&m_mutex);
    QStringList names;
    for (const Call &call : m_calls)
        names.append(call.member);
    return names;
}

QList<QVariantList> ServiceBackend::callsOf(const QString &member) const
{
    QMutexLocker lock(&m_mutex);
    QList<QVariantList> result;
    for (const Call &call : m_calls) {
        if (call.member == member)
            result.append(call.args);
    }
    return result;
}

void ServiceBackend::clearCalls()
{
    QMutexLocker lock(&m_mutex);
    m_calls.clear();
}

void ServiceBackend::setAnswer(const QString &member, const QVariant &value)
{
    QMutexLocker lock(&m_mutex);
    m_answers.insert(member, value);
}

void ServiceBackend::setAnswers(const QVariantMap &answers)
{
    QMutexLocker lock(&m_mutex);
    for (auto it = answers.cbegin(); it != answers.cend(); ++it)
        m_answers.insert(it.key(), it.value());
}

void ServiceBackend::clearAnswers()
{
    QMutexLocker lock(&m_mutex);
    m_answers.clear();
    m_errorAnswers.clear();
}

void ServiceBackend::setErrorAnswer(const QString &member)
{
    QMutexLocker lock(&m_mutex);
    m_errorAnswers.insert(member);
}

void ServiceBackend::setHung(bool hung)
{
    QMutexLocker lock(&m_mutex);
    m_hung = hung;
}

void ServiceBackend::setMalformed(bool malformed)
{
    QMutexLocker lock(&m_mutex);
    m_malformed = malformed;
}

void ServiceBackend::setReplyDelay(int ms)
{
    QMutexLocker lock(&m_mutex);
    m_replyDelayMs = ms;
}

void ServiceBackend::replyLater(const QVariant &value)
{
    int delay = 0;
    {
        QMutexLocker lock(&m_mutex);
        if (m_hung || m_malformed || (calledFromDBus() && m_errorAnswers.contains(message().member())))
            return;
        delay = m_replyDelayMs;
    }
    if (delay <= 0 || !calledFromDBus())
        return;
    setDelayedReply(true);
    const QDBusMessage reply = message().createReply(value);
    QDBusConnection bus = connection();
    QTimer::singleShot(delay, this, [bus, reply]() mutable { bus.send(reply); });
}

void ServiceBackend::record(const char *member, const QVariantList &args)
{
    bool hung = false;
    bool malformed = false;
    bool error = false;
    {
        QMutexLocker lock(&m_mutex);
        m_calls.append({QString::fromLatin1(member), args});
        hung = m_hung;
        malformed = m_malformed;
        error = m_errorAnswers.contains(QLatin1String(member));
    }
    if (calledFromDBus() && error && !hung) {
        sendErrorReply(QDBusError::Failed, QLatin1String(member) + QLatin1String(" failed"));
    } else if (calledFromDBus() && (hung || malformed)) {
        setDelayedReply(true); // a hung service never sends it
        if (malformed)
            connection().send(message().createReply(QVariant(-1.5)));
    }
    emit called(QString::fromLatin1(member), args);
}

QVariant ServiceBackend::answerFor(const char *member) const
{
    QMutexLocker lock(&m_mutex);
    return m_answers.value(QString::fromLatin1(member));
}
