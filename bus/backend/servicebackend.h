#pragma once

#include <QDBusContext>
#include <QHash>
#include <QMutex>
#include <QObject>
#include <QSet>
#include <QVariant>

// Common ground of the service implementations behind the generated adaptors
// (the simulator and the recording test fakes). It records every call in
// arrival order and answers getters with values set beforehand. It may live in
// a thread of its own, so that a client blocking on a getter is answered.
class ServiceBackend : public QObject, protected QDBusContext
{
    Q_OBJECT
public:
    struct Call
    {
        QString member;
        QVariantList args;
        bool operator==(const Call &other) const { return member == other.member && args == other.args; }
    };

    explicit ServiceBackend(QObject *parent = nullptr);

    QList<Call> calls() const;
    QStringList callNames() const;
    // The calls named `member`, in order.
    QList<QVariantList> callsOf(const QString &member) const;
    void clearCalls();

    void setAnswer(const QString &member, const QVariant &value);
    // Several answers at once, keyed by member name.
    void setAnswers(const QVariantMap &answers);
    void clearAnswers();
    // A hung service keeps its name on the bus but never replies.
    void setHung(bool hung);
    // Every reply carries a double, a type no method of the XML returns.
    void setMalformed(bool malformed);
    // Getters answer correctly, but only after `ms` (a loaded boot).
    void setReplyDelay(int ms);
    // `member` answers at once with an error (org.freedesktop.DBus.Error.Failed);
    // clearAnswers() ends it.
    void setErrorAnswer(const QString &member);

signals:
    void called(const QString &member, const QVariantList &args);

protected:
    void record(const char *member, const QVariantList &args);

    template<typename T>
    T answer(const char *member, const QVariantList &args)
    {
        record(member, args);
        T value = answerFor(member).template value<T>();
        replyLater(QVariant::fromValue(value));
        return value;
    }

private:
    QVariant answerFor(const char *member) const;
    // With a reply delay set, sends `value` as the reply that much later.
    void replyLater(const QVariant &value);

    mutable QMutex m_mutex;
    QList<Call> m_calls;
    QHash<QString, QVariant> m_answers;
    QSet<QString> m_errorAnswers;
    bool m_hung = false;
    bool m_malformed = false;
    int m_replyDelayMs = 0;
};
