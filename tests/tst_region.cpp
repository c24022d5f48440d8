// The built-in region table and the tuner-step switch that rewrites the
// service's radio configuration from it.

#include "region.h"
#include "teststate.h"
#include "tuneroptions.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QtTest>

using namespace tuner;

class tst_Region : public QObject
{
    Q_OBJECT

private slots:
    void tableRowsInOrder_data();
    void tableRowsInOrder();
    void findById_data();
    void findById();
    void findByName_data();
    void findByName();
    void variantOneIsZeroExceptRegionE();
    void regionEVariants();
    void japanKeepsItsOddValues();
    void tunerStepRewritesTheServiceConfiguration_data();
    void tunerStepRewritesTheServiceConfiguration();
    void tunerStepIgnoresBadVariant();
};

void tst_Region::tableRowsInOrder_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<uint>("id");
    QTest::addColumn<QString>("name");
    const QList<QPair<uint, QString>> rows = {{0, "EUR"}, {1, "UC"}, {18, "E17"}, {3, "E"}, {4, "RU2"},
                                              {21, "IN"}, {26, "EA"}, {28, "ET4"}, {7, "JPN"}};
    for (int i = 0; i < rows.size(); ++i)
        QTest::addRow("row %d %s", i, qPrintable(rows[i].second)) << i << rows[i].first << rows[i].second;
}

void tst_Region::tableRowsInOrder()
{
    QFETCH(int, row);
    QFETCH(uint, id);
    QFETCH(QString, name);
    QCOMPARE(kRegionCount, 9);
    QCOMPARE(tunerRegionTable[row].id, id);
    QCOMPARE(QString::fromLatin1(tunerRegionTable[row].name), name);
    // The European rows share the EUR plan.
    if (name == "E17" || name == "RU2" || name == "IN" || name == "EA" || name == "ET4")
        QVERIFY(memcmp(&tunerRegionTable[row].variant[0], &tunerRegionTable[0].variant[0], sizeof(tagTunerRegionVariant_T)) == 0);
}

void tst_Region::findById_data()
{
    QTest::addColumn<uint>("id");
    QTest::addColumn<int>("row");
    QTest::newRow("EUR") << 0u << 0;
    QTest::newRow("E17") << 18u << 2;
    QTest::newRow("JPN") << 7u << 8;
    QTest::newRow("2 is no region") << 2u << -1;
    QTest::newRow("huge id") << 0xffffffffu << -1;
}

void tst_Region::findById()
{
    QFETCH(uint, id);
    QFETCH(int, row);
    const tagTunerRegion_T *region = findRegionById(id);
    QCOMPARE(region, row < 0 ? nullptr : &tunerRegionTable[row]);
}

void tst_Region::findByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("caseSensitive");
    QTest::addColumn<int>("row");
    QTest::newRow("jpn, case-insensitive") << "jpn" << false << 8;
    QTest::newRow("jpn, case-sensitive") << "jpn" << true << -1;
    QTest::newRow("JPN, case-sensitive") << "JPN" << true << 8;
    QTest::newRow("E is not EUR") << "E" << true << 3;
    QTest::newRow("EU matches nothing") << "EU" << false << -1;
    QTest::newRow("empty") << "" << false << -1;
}

void tst_Region::findByName()
{
    QFETCH(QString, name);
    QFETCH(bool, caseSensitive);
    QFETCH(int, row);
    const tagTunerRegion_T *region = findRegionByName(name, caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
    QCOMPARE(region, row < 0 ? nullptr : &tunerRegionTable[row]);
}

void tst_Region::variantOneIsZeroExceptRegionE()
{
    static const tagTunerRegionVariant_T zero = {};
    for (const tagTunerRegion_T &region : tunerRegionTable) {
        const bool isZero = memcmp(&region.variant[1], &zero, sizeof zero) == 0;
        QCOMPARE(isZero, QLatin1String(region.name) != QLatin1String("E"));
    }
}

void tst_Region::regionEVariants()
{
    const tagTunerRegion_T *e = findRegionByName(QStringLiteral("E"), Qt::CaseSensitive);
    QVERIFY(e);
    const tagTunerRegionVariant_T &v0 = e->variant[0];
    QCOMPARE((QVector<int>{v0.fmLow, v0.fmHigh, v0.fmStep, v0.amLow, v0.amHigh, v0.amStep}),
             (QVector<int>{8750, 10800, 10, 530, 1710, 10}));
    QCOMPARE(v0.presets[0][1], 9750); // FM as EUR
    QCOMPARE(v0.presets[3][1], 900);  // AM as UC
    const tagTunerRegionVariant_T &v1 = e->variant[1];
    QCOMPARE((QVector<int>{v1.fmLow, v1.fmHigh, v1.fmStep, v1.amLow, v1.amHigh, v1.amStep}),
             (QVector<int>{8750, 10790, 20, 530, 1710, 10}));
    QCOMPARE(v1.presets[0][5], 10790);
    QCOMPARE(v1.presets[1][0], 8750);
    QCOMPARE(v1.currFreq[4], 530);
}

void tst_Region::japanKeepsItsOddValues()
{
    const tagTunerRegionVariant_T &jpn = findRegionById(7)->variant[0];
    QCOMPARE(jpn.fmLow, 7600);
    QCOMPARE(jpn.fmHigh, 900);
    QCOMPARE(jpn.amLow, 822);
    QCOMPARE(jpn.amHigh, 1629);
    QCOMPARE(jpn.currFreq[3], 522);
    QCOMPARE(jpn.currFreq[4], 522);
    QCOMPARE(jpn.presets[4][5], 522);
    QCOMPARE(jpn.presets[3][0], 594);
    QCOMPARE(jpn.currFreq[0], 7600);
    QCOMPARE(jpn.presets[2][3], 7600);
}

void tst_Region::tunerStepRewritesTheServiceConfiguration_data()
{
    QTest::addColumn<QString>("region");
    QTest::addColumn<int>("step");
    QTest::addColumn<QVariant>("fm0Current");
    QTest::addColumn<QVariant>("fm0Preset1");
    QTest::addColumn<QVariant>("am3Preset5");

    QTest::newRow("EUR variant 1 is all zero") << "EUR" << 1 << QVariant(0) << QVariant(0) << QVariant(0);
    QTest::newRow("EUR variant 0") << "EUR" << 0 << QVariant(8750) << QVariant(9750) << QVariant(1602);
    QTest::newRow("e variant 1, name in any case") << "e" << 1 << QVariant(8750) << QVariant(9590) << QVariant(1710);
    QTest::newRow("no region: only the step") << "" << 1 << QVariant() << QVariant() << QVariant();
    QTest::newRow("unknown region: only the step") << "MARS" << 0 << QVariant() << QVariant() << QVariant();
}

void tst_Region::tunerStepRewritesTheServiceConfiguration()
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
}

void tst_Region::tunerStepIgnoresBadVariant()
{
    TestState state;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("is not a tuner step variant"));
    setTunerStep(2);
    QVERIFY(!QFile::exists(state.root() + QLatin1String("/nilo/etc/radio.conf")));
}

QTEST_GUILESS_MAIN(tst_Region)
#include "tst_region.moc"
