// The tuner screen's remote and steering keys: every key code and phase of
// the table, under each gate (screen shown or not, option list, interrupt
// popup, automatic store, the search popup's band-key exceptions).

#include "fakeservices.h"
#include "preferences.h"
#include "teststate.h"
#include "tunerfixture.h"
#include "tunerplayer.h"
#include "tuneroptions.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QtTest>

#include <memory>

using namespace tuner;

class tst_RemoteKeys : public QObject, private TunerFixture
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(startServices());
    }

    void cleanup()
    {
        m_player.reset();
        m_state.reset();
    }

    void keyTable_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("state");
        QTest::addColumn<int>("workStatus");
        QTest::addColumn<QString>("gate");
        QTest::addColumn<bool>("consumed");
        QTest::addColumn<QStringList>("radio");
        QTest::addColumn<QStringList>("mcu");

        const QStringList none;
        const QStringList beep0{"triggerBeep(0)"};
        const QStringList beep1{"triggerBeep(1)"};
        const QStringList first{"setPreset(0)", "setTa(false)", "setAf(true)"};
        const QStringList stop{"terminate()"};
        const QStringList stopRetune{"terminate()", "tune(8750)"};
        // gate: shown, hidden, options (hidden, option list on display), popup,
        // search4 / search5 (hidden, search popup on display), search5-popup
        QTest::newRow("next down beeps") << 7 << 1002 << 0 << "shown" << true << none << beep0;
        QTest::newRow("next short steps to preset 1") << 51 << 1003 << 0 << "shown" << true << first << none;
        QTest::newRow("next long seeks up") << 117 << 1004 << 0 << "shown" << true << QStringList{"seekForward()"} << beep1;
        QTest::newRow("next long while seeking only stops") << 161 << 1004 << 2 << "shown" << true << stop << beep1;
        QTest::newRow("next long release not consumed") << 7 << 1005 << 0 << "shown" << false << none << none;
        QTest::newRow("next short during a seek only stops") << 7 << 1003 << 3 << "shown" << true << stopRetune << none;
        QTest::newRow("next short during a PTY search only stops") << 7 << 1003 << 4 << "shown" << true << stop << none;
        QTest::newRow("next refused during automatic store") << 7 << 1003 << 1 << "shown" << false << none << none;
        QTest::newRow("previous short from none selects preset 1") << 8 << 1003 << 0 << "shown" << true << first << none;
        QTest::newRow("previous long seeks down") << 162 << 1004 << 0 << "shown" << true << QStringList{"seekBackward()"} << beep1;
        QTest::newRow("band down beeps") << 33 << 1002 << 0 << "shown" << true << none << beep0;
        QTest::newRow("band short goes to FM2") << 122 << 1003 << 0 << "shown" << true << QStringList{"setband(1)"} << none;
        QTest::newRow("band short during automatic store") << 33 << 1003 << 1 << "shown" << true << QStringList{"terminate()", "tune(8750)", "setband(1)"} << none;
        QTest::newRow("band long not consumed") << 33 << 1004 << 0 << "shown" << false << none << none;
        QTest::newRow("band refused under a popup") << 33 << 1002 << 0 << "popup" << false << none << none;
        QTest::newRow("band served by the running search popup") << 33 << 1002 << 0 << "search4" << true << none << beep0;
        QTest::newRow("band served by the finished search popup") << 33 << 1002 << 0 << "search5" << true << none << beep0;
        QTest::newRow("band refused on the finished search popup under a popup") << 33 << 1002 << 0 << "search5-popup" << false << none << none;
        QTest::newRow("band refused while hidden") << 33 << 1002 << 0 << "hidden" << false << none << none;
        QTest::newRow("preset down consumed, nothing else") << 36 << 1002 << 0 << "shown" << true << none << none;
        QTest::newRow("preset short recalls") << 36 << 1003 << 0 << "shown" << true << QStringList{"setPreset(2)", "setTa(false)", "setAf(true)"} << beep0;
        QTest::newRow("preset short during automatic store remembers it") << 36 << 1003 << 1 << "shown" << true << QStringList{"setPreset(2)"} << beep0;
        QTest::newRow("preset long stores") << 39 << 1004 << 0 << "shown" << true << QStringList{"savePreset(5)"} << beep1;
        QTest::newRow("preset long refused during automatic store") << 39 << 1004 << 1 << "shown" << false << none << none;
        QTest::newRow("preset long release not consumed") << 39 << 1005 << 0 << "shown" << false << none << none;
        QTest::newRow("preset refused under a popup") << 36 << 1003 << 0 << "popup" << false << none << none;
        QTest::newRow("preset up down steps at once") << 44 << 1002 << 0 << "shown" << true << first << beep0;
        QTest::newRow("preset up short consumed, nothing else") << 121 << 1003 << 0 << "shown" << true << none << none;
        QTest::newRow("preset up long steps") << 44 << 1004 << 0 << "shown" << true << first << none;
        QTest::newRow("preset up long release consumed") << 44 << 1005 << 0 << "shown" << true << none << none;
        QTest::newRow("preset down down steps") << 116 << 1002 << 0 << "shown" << true << first << beep0;
        QTest::newRow("preset down refused during automatic store") << 45 << 1002 << 1 << "shown" << false << none << none;
        QTest::newRow("preset up served from the option list") << 44 << 1002 << 0 << "options" << true << first << beep0;
        QTest::newRow("preset up refused while hidden") << 44 << 1002 << 0 << "hidden" << false << none << none;
        QTest::newRow("tune down down beeps") << 46 << 1002 << 0 << "shown" << true << none << beep0;
        QTest::newRow("tune down short seeks without beep") << 46 << 1003 << 0 << "shown" << true << QStringList{"seekBackward()"} << none;
        QTest::newRow("tune up short during a PTY search only stops") << 47 << 1003 << 5 << "shown" << true << stopRetune << none;
        QTest::newRow("tune up long starts the manual step") << 47 << 1004 << 0 << "shown" << true << QStringList{"keyLongPress(1)"} << beep1;
        QTest::newRow("tune up long release tunes") << 47 << 1005 << 0 << "shown" << true << QStringList{"tune(8750)"} << none;
        QTest::newRow("tune refused during automatic store") << 47 << 1003 << 1 << "shown" << false << none << none;
        QTest::newRow("stop down during a seek") << 125 << 1002 << 2 << "shown" << true << none << beep0;
        QTest::newRow("stop short during automatic store") << 125 << 1003 << 1 << "shown" << true << stop << none;
        QTest::newRow("stop with nothing running") << 125 << 1003 << 0 << "shown" << false << none << none;
        QTest::newRow("stop long not consumed") << 125 << 1004 << 2 << "shown" << false << none << none;
        QTest::newRow("unknown key") << 999 << 1003 << 0 << "shown" << false << none << none;
    }

    void keyTable()
    {
        QFETCH(int, key);
        QFETCH(int, state);
        QFETCH(int, workStatus);
        QFETCH(QString, gate);
        QFETCH(bool, consumed);
        QFETCH(QStringList, radio);
        QFETCH(QStringList, mcu);

        makePlayer(gate == QLatin1String("shown") || gate == QLatin1String("popup"));
        if (gate == QLatin1String("options"))
            g_TunerCurDSPL = 2;
        else if (gate.startsWith(QLatin1String("search")))
            g_TunerCurDSPL = gate.at(6).digitValue();
        if (gate.endsWith(QLatin1String("popup"))) {
            prefs()->setTaAlarmStatus(INTERRUPT_TA);
            m_player->onPiTpStatus(3);
            QVERIFY(m_player->interruptState() == 3);
        }
        m_player->onWorkStatus(workStatus);
        forgetCalls();

        QCOMPARE(m_player->onIrKeyEvent(key, state), consumed);
        QCOMPARE(radioCalls(), radio);
        QCOMPARE(mcuCalls(), mcu);
    }

    // The band changes on the lit button; the preset id does not matter.
    void nextFromTheLastPresetChangesBand()
    {
        makePlayer();
        prefs()->setBand(BAND_FM3);
        m_player->checkedId(5);
        forgetCalls();
        QVERIFY(m_player->onIrKeyEvent(7, 1003));
        QCOMPARE(int(prefs()->band()), 0);
        QCOMPARE(prefs()->playFreqId(), 0);
        const QStringList calls = radioCalls();
        QVERIFY(calls.indexOf("setband(0)") >= 0);
        QVERIFY(calls.indexOf("setband(0)") < calls.indexOf("setPreset(0)"));
    }

    // Stepping down follows the stored preset id.
    void previousFromTheFirstPresetChangesBand()
    {
        makePlayer();
        prefs()->setBand(BAND_AM1);
        prefs()->setCurrPlayFreqId(0); // stored, not lit
        m_fakes->clearCalls();
        QVERIFY(m_player->onIrKeyEvent(45, 1002));
        QCOMPARE(int(prefs()->band()), 4);
        QCOMPARE(prefs()->playFreqId(), 5);
        QVERIFY(radioCalls().contains("setPreset(5)"));
        QVERIFY(!radioCalls().contains("setTa(false)")); // AM presets carry no AF/TA
    }

    void bandKeyCyclesThroughAllBands()
    {
        makePlayer();
        QList<int> bands;
        for (int i = 0; i < 5; ++i) {
            QVERIFY(m_player->onIrKeyEvent(33, 1003));
            m_player->onBandChangState(1); // the service confirms each switch
            bands.append(prefs()->band());
        }
        QCOMPARE(bands, (QList<int>{1, 2, 3, 4, 0}));
    }

    void presetKeyLongPressStores()
    {
        makePlayer();
        m_player->setValue(10020);
        prefs()->setCurRdsName(QStringLiteral("FFH"));
        prefs()->setTa(true);
        QVERIFY(m_player->onIrKeyEvent(37, 1004));
        QCOMPARE(m_state->radioConfValue("Freq/FM0/preset_3").toInt(), 10020);
        QCOMPARE(m_state->radioConfValue("Freq/FM0/TA_3").toBool(), true);
        QVERIFY(m_player->findChild<QAbstractButton *>("Key_0033_p4")->isChecked());
        // Named after the station, as the 1500 ms hold would.
        QCOMPARE(prefs()->rdsName(BAND_FM1, 3), QStringLiteral("FFH"));
    }

private:
    void makePlayer(bool visible = true)
    {
        newState();
        m_player = std::make_unique<TunerPlayer>();
        if (visible)
            QVERIFY(shown(m_player));
        forgetCalls();
    }

    std::unique_ptr<TunerPlayer> m_player;
};

QTEST_MAIN(tst_RemoteKeys)
#include "tst_remotekeys.moc"
