#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTest>

#include <functional>

namespace tuner::test {

// Milliseconds until `happened` first holds, polled every 5 ms; -1 when it
// did not within `limitMs`.
inline qint64 msUntil(const std::function<bool()> &happened, qint64 limitMs)
{
    QElapsedTimer clock;
    clock.start();
    while (!happened()) {
        if (clock.elapsed() > limitMs)
            return -1;
        QTest::qWait(5);
    }
    return clock.elapsed();
}

// A period pinned from both sides: not before 90 % of it (Qt's coarse timers
// may fire up to 5 % early), and within a quarter period more plus scheduling slack.
inline bool withinPeriod(qint64 tookMs, int periodMs)
{
    return tookMs >= periodMs * 9 / 10 && tookMs <= periodMs * 5 / 4 + 150;
}

} // namespace tuner::test

// Waits for `condition` and checks that it came one `periodMs` after the wait began.
#define TUNER_VERIFY_AFTER_PERIOD(periodMs, condition)                                                                 \
    do {                                                                                                               \
        const qint64 tookMs = tuner::test::msUntil([&] { return bool(condition); }, (periodMs)*2 + 500);               \
        QVERIFY2(tuner::test::withinPeriod(tookMs, periodMs),                                                          \
                 qPrintable(QStringLiteral("%1 after %2 ms, expected after %3 ms")                                     \
                                .arg(QLatin1String(#condition))                                                        \
                                .arg(tookMs)                                                                           \
                                .arg(periodMs)));                                                                      \
    } while (false)
