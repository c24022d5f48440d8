#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTest>
#include <QTimer>

#include <functional>

namespace tuner::test {

// Milliseconds until `happened` first holds, polled every 5 ms; -1 when it
// did not hold by the time a precise timer of `limitMs`, started now on this
// thread, had fired. Qt fires a thread's timers in the order they fall due,
// and a busy machine holds that timer up as much as the code's: the limit
// does not depend on the machine's load, as a reading of the clock would.
inline qint64 msUntilWithin(const std::function<bool()> &happened, int limitMs)
{
    QElapsedTimer clock;
    clock.start();
    QTimer limit;
    limit.setSingleShot(true);
    limit.setTimerType(Qt::PreciseTimer);
    limit.start(limitMs);
    while (!happened()) {
        if (!limit.isActive())
            return -1;
        QTest::qWait(5);
    }
    return clock.elapsed();
}

} // namespace tuner::test

// Waits for `condition` and pins the period of the timer that brings it, one
// started before the wait: not before 90 % of `periodMs`, and before a timer
// of 110 % started with the wait (a coarse timer may run 5 % early or late).
#define TUNER_VERIFY_AFTER_PERIOD(periodMs, condition)                                                                 \
    do {                                                                                                               \
        const qint64 tookMs = tuner::test::msUntilWithin([&] { return bool(condition); }, (periodMs)*11 / 10);         \
        QVERIFY2(tookMs >= (periodMs)*9 / 10,                                                                          \
                 qPrintable(QStringLiteral("%1 %2, expected after %3 ms")                                              \
                                .arg(QLatin1String(#condition))                                                        \
                                .arg(tookMs < 0 ? QStringLiteral("not before a timer of 110 %")                        \
                                                : QStringLiteral("after %1 ms").arg(tookMs))                           \
                                .arg(periodMs)));                                                                      \
    } while (false)
