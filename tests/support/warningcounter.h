#pragma once

#include <QStringList>
#include <QtGlobal>

// Collects the "[WAR]" lines logged while it lives, so a test can say that a
// normal action logs none and a bad value exactly one. Other messages go on
// to the handler that was there before.
class WarningCounter
{
public:
    WarningCounter()
    {
        s_lines.clear();
        s_previous = qInstallMessageHandler(&WarningCounter::handle);
    }
    ~WarningCounter() { qInstallMessageHandler(s_previous); }

    QStringList lines() const { return s_lines; }
    int count() const { return s_lines.size(); }

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
    {
        if (message.startsWith(QLatin1String("[WAR]")))
            s_lines.append(message);
        else if (s_previous)
            s_previous(type, context, message);
    }

    static inline QtMessageHandler s_previous = nullptr;
    static inline QStringList s_lines;
};
