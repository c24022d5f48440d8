// Hardware-key actions of tuner::tunerfunction: which radio-service calls
// each action sends in each work state, preset stepping across bands, band
// cycling, storing, and the manual and preset repeat timers.

#include "timing.h"
#include "tunerfixture.h"
#include "tunerfunction.h"

#include <QtTest>

using namespace tuner;

using Action = std::function<void(tunerfunction *)>;
Q_DECLARE_METATYPE(Action)

class tst_TunerFunction : public QObject, private TunerFixture
{
    Q_OBJECT

    static tunerfunction *keys() { return tunerfunction::Instance(); }

private slots:
    void init()
    {
        newState(); // EUR: FM 8750..10800 step 5
        m_fakes->clearCalls();
    }

    void cleanup() { m_state.reset(); }

    // The idle cases, as the keys reach them, are in the key table.
    void actionsAreGatedByWorkState_data()
    {
        QTest::addColumn<Action>("action");
        QTest::addColumn<int>("workState");
        QTest::addColumn<int>("ptyState");
        QTest::addColumn<QStringList>("calls");

        const Action seekUp = [](tunerfunction *f) { f->seekForward(); };
        const Action seekDown = [](tunerfunction *f) { f->seekBackward(); };
        const Action plus = [](tunerfunction *f) { f->ManualPlusClicked(); };
        const Action minus = [](tunerfunction *f) { f->ManualMinusClicked(); };
        const Action up = [](tunerfunction *f) { f->presetUP(); };
        const Action down = [](tunerfunction *f) { f->presetDown(); };
        const Action select2 = [](tunerfunction *f) { f->presetSelect(2); };
        const Action band = [](tunerfunction *f) { f->changBand(); };
        const QStringList stop{"terminate()"};
        const QStringList stopAndRetune{"terminate()", "tune(8750)"};

        // clang-format off
        QTest::newRow("seek during auto store") << seekUp << 1 << 6 << stop;
        QTest::newRow("seek during PTY search 4") << seekUp << 4 << 6 << stop;
        QTest::newRow("seek during PTY search 5") << seekDown << 5 << 6 << stop;
        QTest::newRow("seek while PTY state 3") << seekUp << 0 << 3 << stop;
        QTest::newRow("seek while seeking 2") << seekUp << 2 << 6 << stopAndRetune;
        QTest::newRow("seek while seeking 3") << seekDown << 3 << 6 << stopAndRetune;
        QTest::newRow("manual plus, idle") << plus << 0 << 6 << QStringList{"tune(8755)"};
        QTest::newRow("manual minus wraps to the top") << minus << 0 << 6 << QStringList{"tune(10800)"};
        QTest::newRow("manual plus while seeking") << plus << 2 << 6 << stopAndRetune;
        QTest::newRow("manual minus while PTY state 3") << minus << 0 << 3 << stop;
        QTest::newRow("preset down, idle") << down << 0 << 6 << QStringList{"setPreset(0)", "setTa(false)", "setAf(true)"};
        QTest::newRow("preset up ignores PTY state 3") << up << 0 << 3 << QStringList{"setPreset(0)", "setTa(false)", "setAf(true)"};
        QTest::newRow("preset up during PTY search") << up << 5 << 6 << stop;
        QTest::newRow("preset down while seeking") << down << 3 << 6 << stopAndRetune;
        QTest::newRow("select while seeking only stops") << select2 << 2 << 6 << stop;
        QTest::newRow("select during auto store") << select2 << 1 << 6 << stop;
        QTest::newRow("select while PTY state 3") << select2 << 0 << 3 << stop;
        QTest::newRow("band while seeking stops first") << band << 2 << 6 << QStringList{"terminate()", "setband(1)"};
        QTest::newRow("band during PTY search 4 just changes") << band << 4 << 6 << QStringList{"setband(1)"};
        QTest::newRow("band while PTY state 3 only stops") << band << 0 << 3 << stop;
        const auto bad = [](int preset, bool store) {
            return Action([=](tunerfunction *f) {
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QString::number(preset) + " is not a preset"));
                store ? f->savePreset(preset) : f->presetSelect(preset);
            });
        };
        QTest::newRow("select 9 sends nothing") << bad(9, false) << 0 << 6 << QStringList();
        QTest::newRow("store -1 sends nothing") << bad(-1, true) << 0 << 6 << QStringList();
        // clang-format on
    }

    void actionsAreGatedByWorkState()
    {
        QFETCH(Action, action);
        QFETCH(int, workState);
        QFETCH(int, ptyState);
        QFETCH(QStringList, calls);

        prefs()->setWorkState(workState);
        prefs()->setPtySerchstate(ptyState);
        prefs()->setRdsStatus(3);
        prefs()->setCurRdsName(QStringLiteral("NDR 2"));
        action(keys());
        QCOMPARE(radioCalls(), calls);
    }

    void presetStepCrossesBands_data()
    {
        QTest::addColumn<bool>("up");
        QTest::addColumn<int>("band");
        QTest::addColumn<int>("preset");
        QTest::addColumn<int>("newBand");
        QTest::addColumn<int>("newPreset");
        QTest::addColumn<QString>("recordedKey");
        QTest::addColumn<int>("recorded");

        QTest::newRow("up from FM3 preset 5 to FM1") << true << 2 << 5 << 0 << 0 << "Tune/Band_FM" << 0;
        QTest::newRow("up from FM1 preset 5 to FM2") << true << 0 << 5 << 1 << 0 << "Tune/Band_FM" << 1;
        QTest::newRow("up from AM2 preset 5 records 0") << true << 4 << 5 << 3 << 0 << "Tune/Band_AM" << 0;
        QTest::newRow("up from AM1 preset 5 records 1") << true << 3 << 5 << 4 << 0 << "Tune/Band_AM" << 1;
        QTest::newRow("down from AM1 preset 0 to AM2") << false << 3 << 0 << 4 << 5 << "Tune/Band_AM" << 4;
        QTest::newRow("down from FM1 preset 0 to FM3") << false << 0 << 0 << 2 << 5 << "Tune/Band_FM" << 2;
        QTest::newRow("up from none") << true << 1 << 6 << 1 << 0 << "" << 0;
        QTest::newRow("down from none") << false << 1 << 6 << 1 << 0 << "" << 0;
        QTest::newRow("down from 3") << false << 4 << 3 << 4 << 2 << "" << 0;
        QTest::newRow("up from -1 stored as is") << true << 0 << -1 << 0 << 0 << "" << 0;
    }

    void presetStepCrossesBands()
    {
        QFETCH(bool, up);
        QFETCH(int, band);
        QFETCH(int, preset);
        QFETCH(int, newBand);
        QFETCH(int, newPreset);
        QFETCH(QString, recordedKey);
        QFETCH(int, recorded);

        prefs()->setBand(Band(band));
        prefs()->setCurrPlayFreqId(preset);
        prefs()->setRdsStatus(3);
        prefs()->setCurRdsName(QStringLiteral("NDR 2"));
        prefs()->setTaStatus(true);
        prefs()->setAlarmStatus(true);
        m_fakes->clearCalls();
        up ? keys()->presetUP() : keys()->presetDown();

        QCOMPARE(int(prefs()->band()), newBand);
        QCOMPARE(prefs()->playFreqId(), newPreset);
        const QStringList calls = radioCalls();
        QVERIFY(calls.contains(QStringLiteral("setPreset(%1)").arg(newPreset)));
        QCOMPARE(calls.contains(QStringLiteral("setband(%1)").arg(newBand)), newBand != band);
        if (!recordedKey.isEmpty())
            QCOMPARE(m_state->radioConfValue(recordedKey).toInt(), recorded);
        // AM presets carry no AF/TA; a step on FM ends the station's RDS and interrupt state.
        const bool fm = Preferences::isFmBand(band);
        QCOMPARE(calls.contains(QStringLiteral("setTa(false)")), fm);
        QCOMPARE(prefs()->rdsState(), fm ? 0 : 3);
        QCOMPARE(prefs()->curRdsName().isEmpty(), fm);
        QCOMPARE(prefs()->taStatus(), !fm);
        QCOMPARE(prefs()->alarmStatue(), !fm);
    }

    void changBandCyclesAllFiveBands()
    {
        QList<int> bands;
        for (int i = 0; i < 5; ++i) {
            keys()->changBand();
            bands.append(prefs()->band());
        }
        QCOMPARE(bands, (QList<int>{1, 2, 3, 4, 0}));
        QCOMPARE(radioCalls(), (QStringList{"setband(1)", "setband(2)", "setband(3)", "setband(4)", "setband(0)"}));
        QCOMPARE(int(prefs()->band_FM()), 0);
        QCOMPARE(int(prefs()->band_AM()), 4);
        QCOMPARE(m_state->radioConfValue("Tune/CurrBand").toInt(), 0);
    }

    void savePresetRecordsTheSwitchesUnderPresetOne_data()
    {
        QTest::addColumn<int>("band");
        QTest::addColumn<int>("preset");
        QTest::newRow("FM preset 4") << 0 << 4;
        QTest::newRow("FM preset 1") << 1 << 1;
        QTest::newRow("AM preset 4") << 3 << 4;
    }

    void savePresetRecordsTheSwitchesUnderPresetOne()
    {
        QFETCH(int, band);
        QFETCH(int, preset);
        prefs()->setBand(Band(band));
        const int freq = Preferences::isFmBand(band) ? 10170 : 999;
        prefs()->setCurrPlayFreq(freq);
        prefs()->setAf(false);
        prefs()->setTa(true);
        prefs()->setCurRdsName(QStringLiteral("FFH"));
        m_fakes->clearCalls();

        keys()->savePreset(preset);

        QCOMPARE(radioCalls(), QStringList{QStringLiteral("savePreset(%1)").arg(preset)});
        const QString group = QStringLiteral("Freq/%1%2/").arg(Preferences::isFmBand(band) ? "FM" : "AM").arg(band);
        QCOMPARE(m_state->radioConfValue(group + QStringLiteral("preset_%1").arg(preset)).toInt(), freq);
        QCOMPARE(m_state->radioConfValue(group + "CurrFreqId").toInt(), preset);
        QCOMPARE(prefs()->playFreqId(), preset);
        if (Preferences::isFmBand(band)) {
            QCOMPARE(m_state->radioConfValue(group + "AF_1").toBool(), false);
            QCOMPARE(m_state->radioConfValue(group + "TA_1").toBool(), true);
            QCOMPARE(prefs()->bandData(Band(band)).ta[1], true);
            QCOMPARE(prefs()->rdsName(Band(band), preset), QStringLiteral("FFH"));
            QCOMPARE(m_state->settingsValue("Tuner/rdsName").toString(), QStringLiteral("FFH"));
        } else {
            QVERIFY(!m_state->radioConfValue(group + "TA_1").isValid());
            QCOMPARE(prefs()->rdsName(Band(band), preset), QString());
        }
        if (preset != 1)
            QVERIFY(!m_state->radioConfValue(group + QStringLiteral("TA_%1").arg(preset)).isValid());
    }

    void presetSelectAppliesFlagsOnlyWithSupport_data()
    {
        QTest::addColumn<int>("support");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("AF/TA/TP supported") << 1 << QStringList{"setPreset(3)", "setTa(true)", "setAf(false)"};
        QTest::newRow("not supported") << 0 << QStringList{"setPreset(3)"};
        QTest::newRow("unknown support value") << 2 << QStringList{"setPreset(3)"};
    }

    void presetSelectAppliesFlagsOnlyWithSupport()
    {
        QFETCH(int, support);
        QFETCH(QStringList, calls);
        m_state->setVehicle(QStringLiteral("RdsAfTaTpSupport=%1").arg(support));
        prefs()->setFmTa(3, true);
        prefs()->setFmAf(3, false);
        prefs()->setRdsStatus(1);
        m_fakes->clearCalls();

        keys()->presetSelect(3);

        QCOMPARE(radioCalls(), calls);
        QCOMPARE(prefs()->presetIndex(), 3);
        QCOMPARE(prefs()->rdsState(), 0);
        QCOMPARE(prefs()->ta(), support == 1);
    }

    void manualHoldStepsAndTunesOnRelease()
    {
        prefs()->setWorkState(2);
        const int start = prefs()->playFreq();
        keys()->ManualPlusPressed();
        QCOMPARE(radioCalls(), (QStringList{"terminate()", "keyLongPress(1)"}));
        // Each 300 ms tick moves the stored frequency only.
        TUNER_VERIFY_AFTER_PERIOD(300, prefs()->playFreq() > start);
        QCOMPARE(radioCalls().size(), 2);
        keys()->ManualPlusReleased();
        const int tuned = prefs()->playFreq();
        QCOMPARE(radioCalls(), (QStringList{"terminate()", "keyLongPress(1)", QStringLiteral("tune(%1)").arg(tuned),
                                            "keyLongPress(0)"}));
        QCOMPARE(prefs()->playFreqId(), kNoPreset);

        // Down from the low edge wraps to the top.
        m_fakes->clearCalls();
        prefs()->setWorkState(0);
        prefs()->setCurrPlayFreq(8750);
        keys()->ManualMinusPressed();
        QTRY_VERIFY_WITH_TIMEOUT(prefs()->playFreq() > 10000, 3000);
        keys()->ManualMinusReleased();
        QCOMPARE(radioCalls().first(), QStringLiteral("keyLongPress(1)"));
        QCOMPARE(radioCalls().last(), QStringLiteral("keyLongPress(0)"));
    }

    void presetHoldRepeatsUntilRelease()
    {
        prefs()->setCurrPlayFreqId(0);
        keys()->presetUpPressed();
        keys()->presetUpPressed(); // a second press does not start a second timer
        TUNER_VERIFY_AFTER_PERIOD(500, prefs()->playFreqId() == 1);
        TUNER_VERIFY_AFTER_PERIOD(500, prefs()->playFreqId() == 2);
        keys()->presetUpReleased();
        QCOMPARE(radioCalls().filter(QStringLiteral("setPreset")), (QStringList{"setPreset(1)", "setPreset(2)"}));

        keys()->presetDWPressed();
        QTRY_COMPARE_WITH_TIMEOUT(prefs()->playFreqId(), 1, 3000);
        keys()->presetDWReleased();
        QCOMPARE(prefs()->playFreqId(), 1);
    }

    void clearFreqidClearsTheFamily()
    {
        prefs()->clearFreqId(BAND_FM2, 3);
        prefs()->clearFreqId(BAND_AM1, 2);
        keys()->clearFreqid();
        QCOMPARE(prefs()->bandData(BAND_FM2).currFreqId, kNoPreset);
        QCOMPARE(prefs()->bandData(BAND_AM1).currFreqId, 2);
        QCOMPARE(m_state->radioConfValue("Freq/FM2/CurrFreqId").toInt(), kNoPreset);
    }
};

QTEST_GUILESS_MAIN(tst_TunerFunction)
#include "tst_tunerfunction.moc"
