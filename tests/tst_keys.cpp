// The hardware keys through every entry point: the main window's source keys
// without screens (its own tunerfunction actions), the tuner screen's remote
// keys, the window with its screens up, and the media player's Next and
// Previous. One table: each key code, phase and gate, with what each entry
// point does, or "-" where that gate does not apply to it. Then the actions
// of tuner::tunerfunction where no key reaches them: the other work and
// search states, preset stepping across bands, band cycling, storing, and
// the manual and preset repeat timers.

#include "hostevents.h"
#include "keyactions.h"
#include "mainwidget.h"
#include "mainwindow.h"
#include "nowplaying.h"
#include "timing.h"
#include "tunerfixture.h"
#include "tunerfunction.h"
#include "tuneroptions.h"
#include "tunerplayer.h"

#include <QtTest>

using namespace tuner;

using Action = std::function<void(tunerfunction *)>;
Q_DECLARE_METATYPE(Action)

class tst_Keys : public QObject, private TunerFixture
{
    Q_OBJECT

    static tunerfunction *keys() { return tunerfunction::Instance(); }

private slots:
    void init()
    {
        newState(); // EUR: FM 8750..10800 step 5
        m_fakes->clearCalls();
    }

    void cleanup()
    {
        m_player.reset();
        m_state.reset();
    }

    void keyTable_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("phase");
        QTest::addColumn<int>("workStatus");
        // shown, hidden (the screen), options, ptylist, search4 and search5
        // (the list or popup on display), popup (a live announcement),
        // search5-popup, ta-cancelled, alarm; or "<band> lit|stored <preset>",
        // shown with that preset lit (and stored) or only stored; the window
        // has no lit buttons and steps from the stored one
        QTest::addColumn<QString>("gate");
        // "taken" or "passed" (consumed or not), the radio calls, then after
        // "|" the MCU calls in short
        QTest::addColumn<QString>("window");
        QTest::addColumn<QString>("screen");
        QTest::addColumn<QString>("stack"); // the window, its screens up
        // The media player's Next (for an upward key) or Previous, in the
        // stack's set-up where that column is given, else in the window's:
        // the radio calls, then "|" and the MCU calls; "none" for nothing.
        QTest::addColumn<QString>("media");

        constexpr int Down = Qx::KeyPressed;
        constexpr int Short = Qx::KeyShortReleased;
        constexpr int Long = Qx::KeyLongPressed;
        constexpr int LongUp = Qx::KeyLongReleased;
        // After a start-up with no answers AF, TA and Regional are off.
        const QString first = QStringLiteral("setPreset(0) setTa(false) setAf(true)");
        const QString third = QStringLiteral("setPreset(3) setTa(false) setAf(true)");
        const QString lastOfFm3 = QStringLiteral("setband(2) setPreset(5) setTa(false) setAf(true) (band 2)");
        // clang-format off
        QTest::newRow("next down beeps") << 7 << Down << 0 << "shown" << "passed | beep" << "taken | beep" << "-" << "-";
        QTest::newRow("7 short release steps up") << 7 << Short << 0 << "shown" << "taken " + first << "-" << "-" << "-";
        QTest::newRow("next short steps to preset 1") << 51 << Short << 0 << "shown" << "-" << "taken " + first << "-" << "-";
        QTest::newRow("161 long press seeks up") << 161 << Long << 0 << "shown" << "taken seekForward() | beep1" << "-" << "-" << "-";
        QTest::newRow("next long seeks up") << 117 << Long << 0 << "shown" << "-" << "taken seekForward() | beep1" << "-" << "-";
        QTest::newRow("next long release not consumed") << 7 << LongUp << 0 << "shown" << "passed" << "passed" << "-" << "-";
        QTest::newRow("next refused during automatic store") << 7 << Short << 1 << "shown" << "passed" << "passed" << "-" << "-";
        QTest::newRow("next long while seeking only stops") << 161 << Long << 2 << "shown" << "taken terminate() tune(8750) | beep1" << "taken terminate() | beep1" << "-" << "-";
        QTest::newRow("next short during a seek only stops") << 7 << Short << 3 << "shown" << "taken terminate() tune(8750)" << "taken terminate() tune(8750)" << "-" << "-";
        QTest::newRow("next short during a PTY search only stops") << 7 << Short << 4 << "shown" << "taken terminate()" << "taken terminate()" << "-" << "-";
        QTest::newRow("option list on display is served") << 7 << Short << 0 << "options" << "taken " + first << "-" << "-" << "-";
        QTest::newRow("PTY list on display") << 7 << Short << 0 << "ptylist" << "passed" << "-" << "-" << "-";
        QTest::newRow("live announcement blocks tuner keys") << 7 << Short << 0 << "popup" << "passed" << "-" << "-" << "-";
        QTest::newRow("cancelled announcement lets them through") << 7 << Short << 0 << "ta-cancelled" << "taken " + first << "-" << "-" << "-";
        QTest::newRow("previous short from none selects preset 1") << 8 << Short << 0 << "shown" << "taken " + first << "taken " + first << "-" << "-";
        QTest::newRow("118 long press seeks down") << 118 << Long << 0 << "shown" << "taken seekBackward() | beep1" << "-" << "-" << "-";
        QTest::newRow("previous long seeks down") << 162 << Long << 0 << "shown" << "-" << "taken seekBackward() | beep1" << "-" << "-";
        QTest::newRow("band down beeps") << 33 << Down << 0 << "shown" << "passed | beep" << "taken | beep" << "-" << "-";
        QTest::newRow("band short goes to FM2") << 122 << Short << 0 << "shown" << "taken setband(1) (band 1)" << "taken setband(1) (band 1)" << "-" << "-";
        QTest::newRow("band long not consumed") << 33 << Long << 0 << "shown" << "-" << "passed" << "-" << "-";
        QTest::newRow("band short during automatic store")
            << 33 << Short << 1 << "shown" << "taken terminate() setband(1) (band 1)" << "taken terminate() tune(8750) setband(1) (band 1)" << "-" << "-";
        QTest::newRow("band refused while hidden") << 33 << Down << 0 << "hidden" << "-" << "passed" << "-" << "-";
        QTest::newRow("band served by the running search popup") << 33 << Down << 0 << "search4" << "passed" << "taken | beep" << "-" << "-";
        QTest::newRow("band served by the finished search popup") << 33 << Down << 0 << "search5" << "-" << "taken | beep" << "-" << "-";
        QTest::newRow("band refused on the finished search popup under a popup") << 33 << Down << 0 << "search5-popup" << "-" << "passed" << "-" << "-";
        QTest::newRow("band refused under a popup") << 33 << Down << 0 << "popup" << "-" << "passed" << "-" << "-";
        QTest::newRow("preset down consumed, nothing else") << 36 << Down << 0 << "shown" << "taken | beep" << "taken" << "-" << "-";
        QTest::newRow("preset short recalls")
            << 36 << Short << 0 << "shown" << "taken setPreset(2) setTa(false) setAf(true)" << "taken setPreset(2) setTa(false) setAf(true) | beep" << "-" << "-";
        QTest::newRow("preset long stores") << 39 << Long << 0 << "shown" << "taken savePreset(5) | beep1" << "taken savePreset(5) | beep1" << "-" << "-";
        QTest::newRow("preset long release not consumed") << 39 << LongUp << 0 << "shown" << "-" << "passed" << "-" << "-";
        QTest::newRow("36 down during auto store stops it") << 36 << Down << 1 << "shown" << "taken terminate() | beep" << "-" << "-" << "-";
        QTest::newRow("preset short during automatic store remembers it") << 36 << Short << 1 << "shown" << "taken" << "taken setPreset(2) | beep" << "-" << "-";
        QTest::newRow("preset long refused during automatic store") << 39 << Long << 1 << "shown" << "taken" << "passed" << "-" << "-";
        QTest::newRow("preset refused under a popup") << 36 << Short << 0 << "popup" << "-" << "passed" << "-" << "-";
        QTest::newRow("preset up down steps at once") << 44 << Down << 0 << "shown" << "taken " + first + " | beep" << "taken " + first + " | beep" << "-" << "-";
        QTest::newRow("preset up short consumed, nothing else") << 121 << Short << 0 << "shown" << "taken" << "taken" << "-" << "-";
        QTest::newRow("preset up long steps") << 44 << Long << 0 << "shown" << "-" << "taken " + first << "-" << "-";
        QTest::newRow("preset up long release consumed") << 44 << LongUp << 0 << "shown" << "-" << "taken" << "-" << "-";
        QTest::newRow("preset up refused while hidden") << 44 << Down << 0 << "hidden" << "-" << "passed" << "-" << "-";
        QTest::newRow("preset up served from the option list") << 44 << Down << 0 << "options" << "-" << "taken " + first + " | beep" << "-" << "-";
        QTest::newRow("live alarm blocks tuner keys") << 44 << Down << 0 << "alarm" << "passed" << "-" << "-" << "-";
        QTest::newRow("preset down down steps") << 116 << Down << 0 << "shown" << "-" << "taken " + first + " | beep" << "-" << "-";
        QTest::newRow("116 long press steps down") << 116 << Long << 0 << "shown" << "taken " + first << "-" << "-" << "-";
        QTest::newRow("preset down refused during automatic store") << 45 << Down << 1 << "shown" << "passed" << "passed" << "-" << "-";
        QTest::newRow("tune down down beeps") << 46 << Down << 0 << "shown" << "-" << "taken | beep" << "-" << "-";
        QTest::newRow("tune down short seeks without beep") << 46 << Short << 0 << "shown" << "taken seekBackward()" << "taken seekBackward()" << "-" << "-";
        QTest::newRow("46 long press starts manual minus") << 46 << Long << 0 << "shown" << "taken keyLongPress(1) | beep1" << "-" << "-" << "-";
        QTest::newRow("47 down beeps, not consumed") << 47 << Down << 0 << "shown" << "passed | beep" << "-" << "-" << "-";
        QTest::newRow("tune up long starts the manual step") << 47 << Long << 0 << "shown" << "-" << "taken keyLongPress(1) | beep1" << "-" << "-";
        QTest::newRow("tune up long release tunes") << 47 << LongUp << 0 << "shown" << "taken tune(8750) keyLongPress(0)" << "taken tune(8750)" << "-" << "-";
        QTest::newRow("tune refused during automatic store") << 47 << Short << 1 << "shown" << "-" << "passed" << "-" << "-";
        QTest::newRow("tune up short during a PTY search only stops") << 47 << Short << 5 << "shown" << "taken terminate()" << "taken terminate() tune(8750)" << "-" << "-";
        QTest::newRow("46 long during a seek stops it first") << 46 << Long << 3 << "shown" << "taken terminate() keyLongPress(1) | beep1" << "-" << "-" << "-";
        QTest::newRow("44 down during a seek stops it") << 44 << Down << 2 << "shown" << "taken terminate() tune(8750) | beep" << "-" << "-" << "-";
        QTest::newRow("stop during a PTY search not served") << 125 << Short << 4 << "shown" << "passed" << "-" << "-" << "-";
        QTest::newRow("stop with nothing running") << 125 << Short << 0 << "shown" << "passed" << "passed" << "-" << "-";
        QTest::newRow("stop short during automatic store") << 125 << Short << 1 << "shown" << "taken terminate()" << "taken terminate()" << "-" << "-";
        QTest::newRow("stop down during a seek") << 125 << Down << 2 << "shown" << "taken | beep" << "taken | beep" << "-" << "-";
        QTest::newRow("stop long not consumed") << 125 << Long << 2 << "shown" << "-" << "passed" << "-" << "-";
        QTest::newRow("125 release while seeking stops") << 125 << Short << 3 << "shown" << "taken terminate()" << "-" << "-" << "-";
        QTest::newRow("66 down does not cancel") << 66 << Down << 0 << "popup" << "passed" << "-" << "-" << "-";
        QTest::newRow("177 AF off, on any phase") << 177 << Down << 0 << "shown" << "passed setAf(false) rdsCtrl(false,false,false)" << "-" << "-" << "-";
        QTest::newRow("181 Local off") << 181 << Down << 0 << "shown" << "passed config(false,1,1)" << "-" << "-" << "-";
        QTest::newRow("178 AF on") << 178 << Short << 0 << "shown" << "passed setAf(true) rdsCtrl(false,true,false)" << "-" << "-" << "-";
        QTest::newRow("180 TA on") << 180 << Short << 0 << "shown" << "passed rdsCtrl(true,false,false) setTa(true)" << "-" << "-" << "-";
        QTest::newRow("182 Local on") << 182 << Short << 0 << "shown" << "passed config(true,1,1)" << "-" << "-" << "-";
        QTest::newRow("179 TA off even during an announcement")
            << 179 << Long << 0 << "popup" << "passed rdsCtrl(false,false,false) setTa(false)" << "-" << "-" << "-";
        QTest::newRow("unknown key") << 999 << Short << 0 << "shown" << "passed" << "passed" << "-" << "-";
        // Stepping past the family's last preset changes band: the screen
        // steps from the lit preset, the window from the stored one.
        QTest::newRow("next from FM3's last preset to FM1") << 7 << Short << 0 << "FM3 lit 5"
            << "taken setband(0) " + first + " (band 0)" << "taken setband(0) setband(0) " + first + " (band 0)" << "-" << "-"; // and the page's
        QTest::newRow("previous from AM1's first preset to AM2") << 45 << Down << 0 << "AM1 stored 0"
            << "taken setband(4) setPreset(5) (band 4) | beep" << "taken setband(4) setband(4) setPreset(5) (band 4) | beep" << "-" << "-";
        QTest::newRow("band from FM3 to AM1") << 33 << Short << 0 << "FM3 lit 5" << "taken setband(3) (band 3)" << "taken setAf(false) setTa(false) setband(3) (band 3)" << "-" << "-";
        QTest::newRow("band from AM2 wraps to FM1") << 33 << Short << 0 << "AM2 stored 0" << "taken setband(0) (band 0)" << "taken setAf(true) setTa(false) setband(0) (band 0)" << "-" << "-";
        // The media player steps as a short press of the preset keys (44, 45),
        // under the same gates, without the beep.
        QTest::newRow("next steps from the stored preset") << 44 << Down << 0 << "FM1 stored 2" << "taken " + third + " | beep" << "-" << "-" << third;
        QTest::newRow("previous from the first preset: back a band")
            << 45 << Down << 0 << "FM1 stored 0" << "taken " + lastOfFm3 + " | beep" << "-" << "-" << lastOfFm3;
        QTest::newRow("next, screens up") << 44 << Down << 0 << "FM1 stored 6" << "-" << "-" << "taken " + first + " | beep" << first;
        QTest::newRow("previous from the first preset, screens up") << 45 << Down << 0 << "FM1 stored 0" << "-" << "-"
            << "taken setband(2) " + lastOfFm3 + " | beep" << "setband(2) " + lastOfFm3; // and the page's
        QTest::newRow("next during a seek, screens up, stops it")
            << 44 << Down << 2 << "shown" << "-" << "-" << "taken terminate() tune(8750) | beep" << "terminate() tune(8750)";
        QTest::newRow("next during an automatic store: refused") << 44 << Down << 1 << "shown" << "passed" << "-" << "-" << "none";
        QTest::newRow("next during an automatic store, screens up: refused") << 44 << Down << 1 << "shown" << "-" << "-" << "passed" << "none";
        QTest::newRow("next over the PTY list: refused") << 44 << Down << 0 << "ptylist" << "passed" << "-" << "-" << "none";
        QTest::newRow("next during an announcement: refused") << 44 << Down << 0 << "popup" << "passed" << "-" << "-" << "none";
        QTest::newRow("next after the announcement was cancelled") << 44 << Down << 0 << "ta-cancelled" << "taken " + first + " | beep" << "-" << "-" << first;
        // The window's own band keys; with screens up the screen's band cycle
        // runs on from the band the key sets.
        QTest::newRow("184 from FM goes to AM1") << 184 << Short << 0 << "FM1 stored 6" << "passed setband(3) (band 3)" << "-"
            << "passed setAf(false) setTa(false) setband(3) (band 3)" << "-";
        QTest::newRow("184 on AM2 goes to AM1") << 184 << Short << 0 << "AM2 stored 6" << "-" << "-" << "passed setband(3) (band 3)" << "-";
        QTest::newRow("185 from AM goes to FM1") << 185 << Short << 0 << "AM1 stored 6" << "passed setband(0) (band 0)" << "-"
            << "passed setAf(false) setTa(false) setband(0) (band 0)" << "-";
        QTest::newRow("185 on FM3 goes to FM1") << 185 << Short << 0 << "FM3 stored 6" << "-" << "-" << "passed setband(0) (band 0)" << "-";
        // clang-format on
    }

    void keyTable()
    {
        QFETCH(int, key);
        QFETCH(int, phase);
        QFETCH(int, workStatus);
        QFETCH(QString, gate);
        QFETCH(QString, window);
        QFETCH(QString, screen);
        QFETCH(QString, stack);
        QFETCH(QString, media);

        const auto given = [](const QString &column) { return column != QLatin1String("-"); };
        if (given(window))
            QCOMPARE(throughTheWindow(key, phase, workStatus, gate, false), window);
        if (given(screen))
            QCOMPARE(throughTheScreen(key, phase, workStatus, gate), screen);
        if (given(stack))
            QCOMPARE(throughTheWindow(key, phase, workStatus, gate, true), stack);
        if (given(media)) {
            const bool up = isUpward(keyRole(key));
            QCOMPARE(throughTheMediaPlayer(up, workStatus, gate, given(stack)), media);
        }
    }

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

private:
    void makePlayer(bool visible = true)
    {
        newState();
        m_player = std::make_unique<TunerPlayer>();
        if (visible)
            QVERIFY(shown(m_player));
        forgetCalls();
    }

    // What an entry point did with a key, as the table writes it: "taken" or
    // "passed", the radio calls, "|" and the MCU calls.
    QString outcome(bool consumed) { return QLatin1String(consumed ? "taken" : "passed") + calls(true); }
    QString calls(bool leadingSpace)
    {
        QString result;
        const QString radio = radioCalls().join(QLatin1Char(' '));
        const QString mcu = mcuInShort();
        if (!radio.isEmpty())
            result += QLatin1Char(' ') + radio;
        if (prefs()->band() != m_startBand)
            result += QStringLiteral(" (band %1)").arg(prefs()->band());
        if (!mcu.isEmpty())
            result += QLatin1String(" | ") + mcu;
        return leadingSpace ? result : result.mid(1);
    }

    // A window as the gate sets it up, with its screens up if asked; null when
    // they did not come on screen.
    std::unique_ptr<MainWindow> windowAt(int workStatus, const QString &gate, bool screens)
    {
        newState();
        auto window = std::make_unique<MainWindow>();
        if (screens) {
            window->onCreate();
            window->screenStack()->show();
            if (!QTest::qWaitForWindowExposed(window->screenStack()))
                return nullptr;
            window->screenStack()->player()->onWorkStatus(workStatus);
        }
        forgetCalls();
        setGate(workStatus, gate);
        if (const auto [band, preset] = bandAndPreset(gate); band >= 0) {
            prefs()->setBand(Band(band));
            prefs()->setCurrPlayFreqId(preset);
        }
        m_startBand = prefs()->band();
        return window;
    }

    QString throughTheWindow(int key, int phase, int workStatus, const QString &gate, bool screens)
    {
        const auto window = windowAt(workStatus, gate, screens);
        if (!window)
            return QStringLiteral("not shown");
        KeyEvent event(Qx::EventType(phase), key);
        return outcome(window->sourceKeyEvent(&event));
    }

    QString throughTheMediaPlayer(bool next, int workStatus, const QString &gate, bool screens)
    {
        const auto window = windowAt(workStatus, gate, screens);
        if (!window)
            return QStringLiteral("not shown");
        next ? window->nowPlaying()->Next() : window->nowPlaying()->Previous();
        const QString result = calls(false);
        return result.isEmpty() ? QStringLiteral("none") : result;
    }

    // The window's view of a gate: the work status, the screen on display
    // and the interrupt flags.
    static void setGate(int workStatus, const QString &gate)
    {
        Preferences *p = prefs();
        p->setWorkState(workStatus);
        const QHash<QString, int> display{{"options", DisplayOptionList},
                                          {"ptylist", DisplayPtyList},
                                          {"search4", DisplayPtySearching},
                                          {"search5", DisplayPtySearchEnded}};
        g_TunerCurDSPL = display.value(gate, DisplayPlayer);
        if (gate == QLatin1String("popup") || gate == QLatin1String("ta-cancelled"))
            p->setTaAlarmStatus(INTERRUPT_TA);
        else if (gate == QLatin1String("alarm"))
            p->setTaAlarmStatus(INTERRUPT_ALARM);
        p->setCancelTa(gate == QLatin1String("ta-cancelled"));
    }

    QString throughTheScreen(int key, int phase, int workStatus, const QString &gate)
    {
        const auto [band, preset] = bandAndPreset(gate);
        makePlayer(gate == QLatin1String("shown") || gate == QLatin1String("popup") || band >= 0);
        if (band >= 0) {
            prefs()->setBand(Band(band));
            gate.contains(QLatin1String(" lit ")) ? m_player->checkedId(preset) : prefs()->setCurrPlayFreqId(preset);
        }
        if (gate == QLatin1String("options"))
            g_TunerCurDSPL = DisplayOptionList;
        else if (gate.startsWith(QLatin1String("search")))
            g_TunerCurDSPL = gate.at(6).digitValue();
        if (gate.endsWith(QLatin1String("popup"))) {
            prefs()->setTaAlarmStatus(INTERRUPT_TA);
            m_player->onPiTpStatus(3);
            if (m_player->interruptState() != 3)
                return QStringLiteral("no popup");
        }
        m_player->onWorkStatus(workStatus);
        forgetCalls();
        m_startBand = prefs()->band();
        return outcome(m_player->onIrKeyEvent(key, phase));
    }

    // "FM3 lit 5": band 2, preset 5; -1 for other gates.
    static std::pair<int, int> bandAndPreset(const QString &gate)
    {
        static const QStringList names{"FM1", "FM2", "FM3", "AM1", "AM2"};
        const int band = names.indexOf(gate.section(QLatin1Char(' '), 0, 0));
        return {band, gate.section(QLatin1Char(' '), 2).toInt()};
    }

    std::unique_ptr<TunerPlayer> m_player;
    Band m_startBand = BAND_FM1;
};

QTEST_MAIN(tst_Keys)
#include "tst_keys.moc"
