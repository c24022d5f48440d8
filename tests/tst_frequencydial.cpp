// The band grid: snapping stored and reported frequencies, and manual steps
// at both edges in both directions.
#include "frequencydial.h"

#include <QTest>

using tuner::FrequencyDial;

class tst_FrequencyDial : public QObject
{
    Q_OBJECT
private slots:
    void snapping_data()
    {
        QTest::addColumn<int>("freq");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("stored");   // detect: clamped, then snapped
        QTest::addColumn<int>("reported"); // normalize: 0 kept, outside -1
        QTest::newRow("rounds down, not to the nearest") << 8759 << 5 << 8755 << 8755;
        QTest::newRow("on the grid") << 9850 << 5 << 9850 << 9850;
        QTest::newRow("below the band") << 8700 << 5 << 8750 << -1;
        QTest::newRow("above the band") << 10810 << 5 << 10800 << -1;
        QTest::newRow("zero") << 0 << 5 << 8750 << 0;
        QTest::newRow("step 0 does not divide") << 9000 << 0 << 9000 << 9000;
        QTest::newRow("negative step does not divide") << 9000 << -5 << 9000 << 9000;
    }

    void snapping()
    {
        QFETCH(int, freq);
        QFETCH(int, step);
        QFETCH(int, stored);
        QFETCH(int, reported);
        QCOMPARE(FrequencyDial::detect(freq, 8750, 10800, step), stored);
        QCOMPARE(FrequencyDial::normalize(freq, 8750, 10800, step), reported);
        QCOMPARE(FrequencyDial::detect(1000, 531, 1602, 9), 999); // AM grid counted from its own bottom
    }

    void steppingWrapsOnlyPastAnEdge_data()
    {
        QTest::addColumn<bool>("up");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::newRow("up, one step below the top") << true << 10795 << 10800;
        QTest::newRow("up, at the top") << true << 10800 << 8750;
        QTest::newRow("down, one step above the bottom") << false << 8755 << 8750;
        QTest::newRow("down, at the bottom") << false << 8750 << 10800;
    }

    void steppingWrapsOnlyPastAnEdge()
    {
        QFETCH(bool, up);
        QFETCH(int, from);
        QFETCH(int, to);
        QCOMPARE(up ? FrequencyDial::stepUp(from, 8750, 10800, 5) : FrequencyDial::stepDown(from, 8750, 10800, 5), to);
        FrequencyDial dial;
        dial.setRange(8750, 10800);
        dial.setStep(5, true);
        QVERIFY(dial.setValue(from));
        QCOMPARE(dial.next(up), to);
        QVERIFY(!dial.setValue(10805));
        QCOMPARE(dial.value(), from);
    }
};

QTEST_GUILESS_MAIN(tst_FrequencyDial)
#include "tst_frequencydial.moc"
