// The hardware keys through every entry point: the main window's source keys
// without screens (its own tunerfunction actions), the tuner screen's remote
// keys, the window with its screens up, and the media player's Next and
// Previous. One table: each key code, phase and gate, with what each entry
// point does, or "-" where that gate does not apply to it.

#include "hostevents.h"
#include "keyactions.h"
#include "mainwidget.h"
#include "mainwindow.h"
#include "nowplaying.h"
#include "tunerfixture.h"
#include "tuneroptions.h"
#include "tunerplayer.h"

#include <QtTest>

using namespace tuner;

class tst_Keys : public QObject, private TunerFixture
{
    Q_OBJECT

private slots:
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
