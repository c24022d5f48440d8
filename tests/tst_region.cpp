// The regions' band grids: looking up the built-in region table, the
// tuner-step switch that rewrites the service's radio configuration from it,
// and the dial that snaps and steps on a grid. The table's values themselves
// are data, not tested here row by row.

#include "frequencydial.h"
#include "region.h"
#include "teststate.h"
#include "tuneroptions.h"

#include <QtTest>

using namespace tuner;

class tst_Region : public QObject
{
    Q_OBJECT

private slots:
    // By id, or by name (a negative id) in either case or exactly.
    void lookup_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("caseSensitive");
        QTest::addColumn<int>("row");
        QTest::newRow("EUR") << 0 << "" << false << 0;
        QTest::newRow("E17") << 18 << "" << false << 2;
        QTest::newRow("JPN") << 7 << "" << false << 8;
        QTest::newRow("2 is no region") << 2 << "" << false << -1;
        QTest::newRow("jpn, case-insensitive") << -1 << "jpn" << false << 8;
        QTest::newRow("jpn, case-sensitive") << -1 << "jpn" << true << -1;
        QTest::newRow("JPN, case-sensitive") << -1 << "JPN" << true << 8;
        QTest::newRow("E is not EUR") << -1 << "E" << true << 3;
        QTest::newRow("EU matches nothing") << -1 << "EU" << false << -1;
        QTest::newRow("empty") << -1 << "" << false << -1;
    }

    void lookup()
    {
        QFETCH(int, id);
        QFETCH(QString, name);
        QFETCH(bool, caseSensitive);
        QFETCH(int, row);
        const tagTunerRegion_T *region
            = id >= 0 ? findRegionById(uint(id))
                      : findRegionByName(name, caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
        QCOMPARE(region, row < 0 ? nullptr : &tunerRegionTable[row]);
        QCOMPARE(findRegionById(0xffffffffu), nullptr);
    }

    void tunerStepRewritesTheServiceConfiguration_data()
    {
        QTest::addColumn<QString>("region");
        QTest::addColumn<int>("step");
        QTest::addColumn<QVariant>("fm0Current");
        QTest::addColumn<QVariant>("fm0Preset1");
        QTest::addColumn<QVariant>("am3Preset5");

        // clang-format off
        QTest::newRow("EUR variant 1 is all zero") << "EUR" << 1 << QVariant(0) << QVariant(0) << QVariant(0);
        QTest::newRow("EUR variant 0") << "EUR" << 0 << QVariant(8750) << QVariant(9750) << QVariant(1602);
        QTest::newRow("e variant 1, name in any case") << "e" << 1 << QVariant(8750) << QVariant(9590) << QVariant(1710);
        QTest::newRow("no region: only the step") << "" << 1 << QVariant() << QVariant() << QVariant();
        QTest::newRow("unknown region: only the step") << "MARS" << 0 << QVariant() << QVariant() << QVariant();
        // clang-format on
    }

    void tunerStepRewritesTheServiceConfiguration()
    {
        QFETCH(QString, region);
        QFETCH(int, step);
        QFETCH(QVariant, fm0Current);
        QFETCH(QVariant, fm0Preset1);
        QFETCH(QVariant, am3Preset5);

        TestState state;
        const QString path = state.root() + QLatin1String("/nilo/etc/radio.conf");
        QDir().mkpath(state.root() + QLatin1String("/nilo/etc"));
        {
            QSettings seed(path, QSettings::IniFormat);
            seed.setValue(QStringLiteral("Tune/Region"), region);
            seed.setValue(QStringLiteral("Freq/FM0/preset_0"), 12345);
        }
        if (region == QLatin1String("MARS"))
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("MARS is not a known region"));

        setTunerStep(step);

        QSettings conf(path, QSettings::IniFormat);
        QCOMPARE(conf.value("Tune/TunerStep").toInt(), step);
        const auto asInt = [](const QVariant &v) { return v.isValid() ? QVariant(v.toInt()) : v; };
        QCOMPARE(asInt(conf.value("Freq/FM0/CurrFreq")), fm0Current);
        QCOMPARE(asInt(conf.value("Freq/FM0/preset_1")), fm0Preset1);
        QCOMPARE(asInt(conf.value("Freq/AM3/preset_5")), am3Preset5);
        // Limits and steps are not part of the rewrite.
        QVERIFY(!conf.contains("Freq/FM0/step"));
        // The preferences' own file is a different one.
        QVERIFY(!QFile::exists(state.radioConf()));
        // A variant other than 0 and 1 changes nothing.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("2 is not a tuner step variant"));
        setTunerStep(2);
        QCOMPARE(QSettings(path, QSettings::IniFormat).value("Tune/TunerStep").toInt(), step);
    }

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

QTEST_GUILESS_MAIN(tst_Region)
#include "tst_region.moc"
