// The tuner screen against recording fakes: the frequency display, manual
// step and seek, swipes, the band key and its lock, preset recall and store,
// pages, automatic store, the search status, the radio's reports and the
// station name's marquee. Then where it relies on the head-unit framework
// stand-in for timing or data: long-press buttons, the theme's images and the
// text catalogue (what the stand-in merely passes through is not tested).

#include "pushbutton.h"
#include "radioedge.h"
#include "scrolllabel.h"
#include "scrollmanage.h"
#include "timing.h"
#include "translator.h"
#include "tunerfixture.h"
#include "tunerplayer.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollArea>
#include <QStackedWidget>
#include <QtTest>

using namespace tuner;

namespace {

// The first group of each match of `pattern` in the project's own sources
// (neither the build trees nor the tests).
QSet<QString> sourceMatches(const QString &pattern, const QStringList &nameFilters)
{
    const QRegularExpression re(pattern);
    QSet<QString> found;
    QDirIterator it(QStringLiteral(TUNER_SOURCE_DIR), nameFilters, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile file(path);
        if (path.contains(QLatin1String("/build")) || path.contains(QLatin1String("/tests/"))
            || !file.open(QIODevice::ReadOnly))
            continue;
        auto matches = re.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            found.insert(matches.next().captured(1));
    }
    return found;
}

} // namespace

class tst_TunerPlayer : public QObject, private TunerFixture
{
    Q_OBJECT

private slots:
    void init() { m_fakes->radio()->clearAnswers(); }

    void cleanup()
    {
        m_player.reset();
        m_state.reset();
    }

    // The band's edges are the dial's; here the screen's part: tune, beep, the
    // lit preset put out, and a key that waits for the service to confirm
    // before it takes touches again.
    void manualStepTunesAndWaitsForTheService()
    {
        makePlayer();
        m_player->setValue(10800);
        m_player->checkedId(2);
        prefs()->setPresetIndex(2);
        forgetCalls();
        m_player->onManualPlusClicked();
        QCOMPARE(m_player->freqValue(), 8750);
        QCOMPARE(litPresets(), 0);
        QCOMPARE(prefs()->playFreqId(), kNoPreset);
        QCOMPARE(prefs()->presetIndex(), 0);
        QCOMPARE(radioCalls(), QStringList{"tune(8750)"});
        QCOMPARE(mcuCalls(), QStringList{"triggerBeep(0)"});
        QWidget *key = button("Key_0028_manual_plus");
        QVERIFY(key->testAttribute(Qt::WA_TransparentForMouseEvents));
        m_player->onFrequencyChanged(8750, 0);
        QVERIFY(!key->testAttribute(Qt::WA_TransparentForMouseEvents));
        m_player->onManualMinusClicked();
        QCOMPARE(m_player->freqValue(), 10800);
        // The host asks for the reading of the family it switched to.
        prefs()->setBand(BAND_AM1);
        m_player->recalc();
        QCOMPARE(m_player->normalValue(999), QStringLiteral("999"));
    }

    void manualHoldRepeatsAndTunesOnRelease()
    {
        makePlayer();
        const int start = m_player->freqValue();
        m_player->onManualPlusPressed();
        TUNER_VERIFY_AFTER_PERIOD(300, m_player->freqValue() > start);
        QCOMPARE(radioCalls(), QStringList{"keyLongPress(1)"});
        QCOMPARE(mcuCalls(), QStringList{"triggerBeep(1)"});
        // The radio's reports do not move the dial while the key repeats.
        m_fakes->inServiceThread([&] { emit m_fakes->radio()->stationChanged(9450, 0); });
        m_fakes->settle();
        QCoreApplication::processEvents();
        QVERIFY(m_player->freqValue() != 9450);
        m_player->onManualPlusReleased();
        const int tuned = m_player->freqValue();
        QCOMPARE(radioCalls(),
                 (QStringList{"keyLongPress(1)", "keyLongPress(0)", QStringLiteral("tune(%1)").arg(tuned)}));
        QCOMPARE(label("Txt_0035_rds_freq")->text(), m_player->normalValue(tuned));
    }

    // Touches that seek or step: the seek keys, tapped, and swipes over the
    // screen (sideways more than 100 px seek, up and down step the presets;
    // a swipe starting below y 310 is the preset pages').
    void touchSeeks_data()
    {
        QTest::addColumn<QString>("touch"); // "+", "-": a seek key; else "x,y x,y": a swipe
        QTest::addColumn<int>("workStatus");
        QTest::addColumn<QStringList>("radio");
        const QStringList up{"setPreset(0)", "setTa(false)", "setAf(true)"};
        const QStringList stop{"terminate()", "tune(8750)"};
        // clang-format off
        QTest::newRow("seek up, idle") << "+" << 0 << QStringList{"seekForward()"};
        QTest::newRow("seek down, idle") << "-" << 0 << QStringList{"seekBackward()"};
        QTest::newRow("seek while seeking only stops") << "+" << 2 << stop;
        QTest::newRow("seek during PTY search only stops") << "-" << 5 << stop;
        QTest::newRow("seek during automatic store does nothing") << "+" << 1 << QStringList();
        QTest::newRow("right 101 px seeks up") << "300,120 401,120" << 0 << QStringList{"seekForward()"};
        QTest::newRow("right 100 px does nothing") << "300,120 400,120" << 0 << QStringList();
        QTest::newRow("left 101 px seeks down") << "500,120 399,150" << 0 << QStringList{"seekBackward()"};
        QTest::newRow("swipe while seeking only stops") << "300,120 401,120" << 3 << stop;
        QTest::newRow("up steps to the next preset") << "400,250 410,140" << 0 << up;
        QTest::newRow("down steps to the previous preset") << "400,100 390,210" << 0 << up;
        QTest::newRow("start at y 311 is ignored") << "300,311 500,311" << 0 << QStringList();
        QTest::newRow("start at y 310 counts") << "300,310 500,305" << 0 << QStringList{"seekForward()"};
        // clang-format on
    }

    void touchSeeks()
    {
        QFETCH(QString, touch);
        QFETCH(int, workStatus);
        QFETCH(QStringList, radio);
        makePlayer();
        m_player->onWorkStatus(workStatus);
        forgetCalls();
        const QStringList points = touch.split(QLatin1Char(' '));
        if (points.size() == 1) {
            tapAt(button(touch == QLatin1String("+") ? "Key_0029_seek_plus" : "Key_0026_seek_minus"));
        } else {
            const auto at = [&](int i) {
                return QPoint(points[i].section(',', 0, 0).toInt(), points[i].section(',', 1).toInt());
            };
            QTest::mousePress(m_player.get(), Qt::LeftButton, {}, at(0));
            QTest::mouseRelease(m_player.get(), Qt::LeftButton, {}, at(1));
        }
        QCOMPARE(radioCalls(), radio);
        // A beep before any test, but for a swipe that did nothing.
        const bool still = radio.isEmpty() && points.size() > 1;
        QCOMPARE(mcuCalls(), still ? QStringList() : QStringList{"triggerBeep(0)"});
    }

    // The band key turns to the other family's last band, and is then
    // locked until the service confirms. A hardware preset step stores the
    // last AM band counted from AM1: the AM pages still show, from the first.
    void bandKeyTurnsFamilyAndWaitsForTheService_data()
    {
        QTest::addColumn<int>("lastAm");
        QTest::addColumn<int>("amBand");
        QTest::newRow("last AM band AM2") << 4 << 4;
        QTest::newRow("AM1 counted from AM1") << 0 << 3;
        QTest::newRow("AM2 counted from AM1") << 1 << 3;
    }

    void bandKeyTurnsFamilyAndWaitsForTheService()
    {
        QFETCH(int, lastAm);
        QFETCH(int, amBand);
        makePlayer();
        prefs()->setBand_AM(Band(lastAm));
        prefs()->setBand_FM(BAND_FM3);
        QWidget *key = button("Key_0020_switch_band");
        tapAt(key);
        QCOMPARE(int(prefs()->band()), amBand);
        QCOMPARE(m_state->radioConfValue("Tune/CurrBand").toInt(), amBand);
        QCOMPARE(label("Txt_0017_band_name")->text(), QStringLiteral("AM"));
        QVERIFY(m_player->findChild<QScrollArea *>("scrollArea_tuner_am")->isVisible());
        QVERIFY(!m_player->findChild<QScrollArea *>("scrollArea_tuner")->isVisible());
        QCOMPARE(radioCalls().filter("setband"), QStringList{QStringLiteral("setband(%1)").arg(amBand)});
        m_fakes->clearCalls();

        tapAt(key); // within three seconds and unconfirmed: the touch does not reach the key
        QCOMPARE(int(prefs()->band()), amBand);
        QCOMPARE(radioCalls().filter("setband"), QStringList());

        QSignalSpy reported(m_player->findChild<RadioEdge *>(), SIGNAL(bandFMAMChang(int)));
        m_fakes->inServiceThread([&] { emit m_fakes->radio()->bandFMAMChang(0); });
        QTRY_COMPARE(reported.count(), 1);
        QVERIFY(key->testAttribute(Qt::WA_TransparentForMouseEvents)); // only 1 confirms
        m_fakes->inServiceThread([&] { emit m_fakes->radio()->bandFMAMChang(1); });
        QTRY_COMPARE(reported.count(), 2);
        QVERIFY(!key->testAttribute(Qt::WA_TransparentForMouseEvents)); // at once, not at the fallback
        tapAt(key);
        QCOMPARE(int(prefs()->band()), 2);
        QCOMPARE(radioCalls().filter("setband"), QStringList{"setband(2)"});
        QCOMPARE(label("Txt_0036_rds_unit")->text(), QStringLiteral("MHz"));
    }

    // A preset held 1500 ms, or its number key (37) held, stores: the label
    // shows the station's name to the left, or its frequency in the centre,
    // even where a name stood before. An earlier release recalls.
    void presetHoldStoresAndEarlierReleaseRecalls_data()
    {
        QTest::addColumn<QString>("press"); // "touch", "key" or "tap"
        QTest::addColumn<QString>("station");
        QTest::addColumn<QStringList>("radio");
        QTest::addColumn<QStringList>("mcu");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("name"); // the preset's name after
        // clang-format off
        QTest::newRow("hold stores a named station") << "touch" << "FFH" << QStringList{"savePreset(3)"} << QStringList{"triggerBeep(1)"} << "FFH" << "FFH";
        QTest::newRow("hold stores a station without a name") << "touch" << "" << QStringList{"savePreset(3)"} << QStringList{"triggerBeep(1)"} << "94.50" << "";
        QTest::newRow("number key stores a named station") << "key" << "FFH" << QStringList{"savePreset(3)"} << QStringList{"triggerBeep(1)"} << "FFH" << "FFH";
        QTest::newRow("number key: a station without a name keeps the old one")
            << "key" << "" << QStringList{"savePreset(3)"} << QStringList{"triggerBeep(1)"} << "94.50" << "OLD";
        QTest::newRow("short press recalls") << "tap" << "" << QStringList{"setPreset(3)", "setTa(false)", "setAf(true)"} << QStringList{"triggerBeep(0)"} << "OLD" << "OLD";
        // clang-format on
    }

    void presetHoldStoresAndEarlierReleaseRecalls()
    {
        QFETCH(QString, press);
        QFETCH(QString, station);
        QFETCH(QStringList, radio);
        QFETCH(QStringList, mcu);
        QFETCH(QString, label);
        QFETCH(QString, name);
        newState();
        prefs()->saveRdsName(BAND_FM1, 3, QStringLiteral("OLD"));
        makePlayer(QString(), false);
        QLabel *presetLabel = this->label("Txt_0026_f4");
        QVERIFY(presetLabel->alignment() & Qt::AlignLeft);
        m_player->setValue(9450);
        prefs()->setCurRdsName(station);
        prefs()->setTa(true);
        QAbstractButton *preset = button("Key_0033_p4");
        const QPoint centre = preset->mapTo(m_player.get(), preset->rect().center());
        if (press == QLatin1String("key")) {
            QVERIFY(m_player->onIrKeyEvent(37, 1004));
        } else {
            QTest::mousePress(m_player->windowHandle(), Qt::LeftButton, Qt::NoModifier, centre);
            if (press == QLatin1String("touch"))
                TUNER_VERIFY_AFTER_PERIOD(1500, radioCalls() == radio);
            QTest::mouseRelease(m_player->windowHandle(), Qt::LeftButton, Qt::NoModifier, centre);
        }
        QCOMPARE(radioCalls(), radio); // the release after a store recalls nothing
        QCOMPARE(mcuCalls(), mcu);
        QVERIFY(preset->isChecked());
        QCOMPARE(prefs()->playFreqId(), 3);
        QCOMPARE(presetLabel->text(), label);
        QCOMPARE(prefs()->rdsName(BAND_FM1, 3), name);
        if (press == QLatin1String("tap")) {
            QCOMPARE(this->label("Txt_0035_rds_freq")->text(), QStringLiteral("98.50")); // the preset's, shown at once
            return;
        }
        QCOMPARE(bool(presetLabel->alignment() & Qt::AlignHCenter), station.isEmpty());
        QCOMPARE(m_state->radioConfValue("Freq/FM0/preset_3").toInt(), 9450);
        QCOMPARE(m_state->radioConfValue("Freq/FM0/TA_3").toBool(), true);
    }

    void dragAcrossThePresetsCancelsTheHold()
    {
        makePlayer();
        QAbstractButton *preset = button("Key_0031_p2");
        const QPoint centre = preset->mapTo(m_player.get(), preset->rect().center());
        QTest::mousePress(m_player->windowHandle(), Qt::LeftButton, Qt::NoModifier, centre);
        // The finger moves: the page scroller starts dragging.
        auto *pages = m_player->findChild<cm::ScrollManage *>();
        QVERIFY(pages);
        QScroller *scroller = pages->scroller();
        scroller->handleInput(QScroller::InputPress, QPointF(200, 40), 0);
        scroller->handleInput(QScroller::InputMove, QPointF(150, 40), 40);
        scroller->handleInput(QScroller::InputMove, QPointF(90, 40), 80);
        QTRY_COMPARE(scroller->state(), QScroller::Dragging);
        QTest::qWait(1700); // longer than the hold
        QCOMPARE(radioCalls().filter("savePreset"), QStringList());
        scroller->handleInput(QScroller::InputRelease, QPointF(90, 40), 120);
        QTest::mouseRelease(m_player->windowHandle(), Qt::LeftButton, Qt::NoModifier, centre);
    }

    // The AM scroller reports its page (0, 1), a band key its band (3, 4).
    void amPagesAcceptPageOrBand()
    {
        for (const auto &[argument, band] : {std::pair(0, 3), std::pair(3, 3), std::pair(1, 4), std::pair(4, 4)}) {
            makePlayer();
            m_player->onUpdateNavigationIcon_AM(argument);
            QCOMPARE(int(prefs()->band()), band);
            QCOMPARE(int(prefs()->band_AM()), band);
            QCOMPARE(radioCalls(), QStringList{QStringLiteral("setband(%1)").arg(band)});
        }
    }

    // Every work status on either family, with the vehicle's RDS switch:
    // the status line and its dots, or the frequency page where the status
    // shows nothing. A PTY search also unlights the lit preset and its index.
    void statusPageAndDots_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("local");
        QTest::addColumn<int>("band");
        QTest::addColumn<int>("rdsSupport");
        QTest::addColumn<QString>("text");   // "": the frequency page stays
        QTest::addColumn<int>("period");     // of the dots
        QTest::addColumn<bool>("presetLit"); // preset 3, lit before
        QTest::newRow("automatic store") << 1 << false << 0 << 1 << "Auto Store" << 500 << true;
        QTest::newRow("seek up") << 2 << false << 0 << 1 << "Seek Up" << 400 << true;
        QTest::newRow("local seek up on AM") << 2 << true << 3 << 1 << "Local Seek Up" << 400 << true;
        QTest::newRow("seek down") << 3 << false << 4 << 0 << "Seek Down" << 400 << true;
        QTest::newRow("local seek down") << 3 << true << 0 << 1 << "Local Seek Down" << 400 << true;
        QTest::newRow("PTY search up") << 4 << false << 0 << 1 << "PTY Search Up" << 500 << false;
        QTest::newRow("PTY search down") << 5 << true << 2 << 1 << "PTY Search Down" << 500 << false;
        QTest::newRow("PTY search on AM shows nothing") << 4 << false << 3 << 1 << "" << 0 << true;
        QTest::newRow("PTY search without RDS support shows nothing") << 5 << false << 0 << 0 << "" << 0 << true;
        QTest::newRow("idle") << 0 << false << 0 << 1 << "" << 0 << true;
    }

    void statusPageAndDots()
    {
        QFETCH(int, status);
        QFETCH(bool, local);
        QFETCH(int, band);
        QFETCH(int, rdsSupport);
        QFETCH(QString, text);
        QFETCH(int, period);
        QFETCH(bool, presetLit);
        makePlayer(QStringLiteral("RdsAfTaTpSupport=%1").arg(rdsSupport));
        prefs()->setBand(Band(band));
        m_player->updateBandInfo();
        prefs()->setLocal(local);
        m_player->checkedId(3);
        prefs()->setPresetIndex(3);
        QCOMPARE(litPresets(), 1);
        m_player->onWorkStatus(status);
        QCOMPARE(int(m_player->workStatus()), status);
        QCOMPARE(litPresets(), presetLit ? 1 : 0);
        QCOMPARE(prefs()->presetIndex(), presetLit ? 3 : 0);
        if (text.isEmpty()) {
            QCOMPARE(page(), QStringLiteral("page_tuner_01"));
            return;
        }
        QCOMPARE(page(), QStringLiteral("page_tuner_04"));
        QCOMPARE(label("Txt_0022_status")->text(), text);
        QLabel *dots = label("Txt_0384_status2");
        TUNER_VERIFY_AFTER_PERIOD(period, dots->text() == QLatin1String("."));
        QTRY_COMPARE(dots->text(), QStringLiteral(".."));
        QTRY_COMPARE(dots->text(), QStringLiteral("..."));
        QTRY_COMPARE(dots->text(), QStringLiteral("."));
    }

    // Each of the screen's own timers, from both sides: not before its
    // period, and by it. The state it ends is the row's.
    void timersRunTheirPeriod_data()
    {
        QTest::addColumn<QString>("timer");
        QTest::addColumn<int>("periodMs");
        QTest::newRow("a seek's end is shown after the settle delay") << "settle" << 350;
        QTest::newRow("an unconfirmed band switch frees the key") << "band" << 3000;
        QTest::newRow("a manual step that the service leaves unconfirmed frees its key") << "manual" << 3000;
        QTest::newRow("... a report of 0 is no confirmation") << "manual 0" << 3000;
    }

    void timersRunTheirPeriod()
    {
        QFETCH(QString, timer);
        QFETCH(int, periodMs);
        makePlayer();
        if (timer == QLatin1String("settle")) {
            m_player->onSeekState(2);
            QCOMPARE(page(), QStringLiteral("page_tuner_04"));
            m_player->onSeekState(0);
            QCOMPARE(m_player->workStatus(), WorkStatus::Idle);
            // the station report may still come: the status page stays meanwhile
            TUNER_VERIFY_AFTER_PERIOD(periodMs, page() == QLatin1String("page_tuner_01"));
            return;
        }
        const bool band = timer == QLatin1String("band");
        QWidget *key = button(band ? "Key_0020_switch_band" : "Key_0028_manual_plus");
        if (!band)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("not confirmed within 3000 ms"));
        tapAt(key);
        QVERIFY(key->testAttribute(Qt::WA_TransparentForMouseEvents));
        if (timer == QLatin1String("manual 0")) {
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(" -- 0 is invaild freq\\.$"));
            m_fakes->inServiceThread([&] { emit m_fakes->radio()->stationChanged(0, 0); });
        }
        TUNER_VERIFY_AFTER_PERIOD(periodMs, !key->testAttribute(Qt::WA_TransparentForMouseEvents));
    }

    void frequencyReportsAreChecked_data()
    {
        QTest::addColumn<int>("destination"); // the step sets the decimals
        QTest::addColumn<int>("freq");
        QTest::addColumn<int>("band");
        QTest::addColumn<QString>("warning");
        QTest::addColumn<int>("newBand");
        QTest::addColumn<QString>("shown");
        // clang-format off
        QTest::newRow("FM step 5: two decimals") << 0 << 10170 << 0 << "" << 0 << "101.70";
        QTest::newRow("FM step 10: one decimal") << 3 << 10790 << 0 << "" << 0 << "107.9";
        QTest::newRow("FM step 20: one decimal") << 1 << 10170 << 0 << "" << 0 << "101.7";
        QTest::newRow("AM in kHz, from FM") << 1 << 1620 << 3 << "3 is not match current band." << 3 << "1620";
        QTest::newRow("no band means the current one") << 0 << 9870 << -1 << "" << 0 << "98.70";
        QTest::newRow("zero is invalid") << 0 << 0 << 0 << "0 is invaild freq." << 0 << "87.50";
        QTest::newRow("another FM band becomes current") << 0 << 9000 << 2 << "2 is not match current band." << 2 << "90.00";
        QTest::newRow("an AM frequency on FM") << 0 << 999 << 0 << "999 is invaild freq." << 3 << "999";
        // clang-format on
    }

    void frequencyReportsAreChecked()
    {
        QFETCH(int, destination);
        QFETCH(int, freq);
        QFETCH(int, band);
        QFETCH(QString, warning);
        QFETCH(int, newBand);
        QFETCH(QString, shown);
        makePlayer(QStringLiteral("Destination=%1").arg(destination));
        if (!warning.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^\\[WAR\\] .* -- ")
                                                                  + QRegularExpression::escape(warning)));
        m_player->onFrequencyChanged(freq, band);
        QCOMPARE(int(prefs()->band()), newBand);
        QCOMPARE(label("Txt_0035_rds_freq")->text(), shown);
        QCOMPARE(m_player->normalValue(m_player->freqValue()), shown);
    }

    // At start-up the screen takes the playing frequency before it turns to
    // the family's last band, and shows that frequency for the band the
    // service reports.
    void startUpShowsTheFrequencyReadBeforeTheBand_data()
    {
        QTest::addColumn<int>("band");
        QTest::addColumn<int>("lastBand");
        QTest::addColumn<int>("freq");
        QTest::addColumn<int>("lastBandFreq");
        QTest::addColumn<QString>("text");
        QTest::newRow("FM2, last FM band FM3") << 1 << 2 << 9000 << 10000 << "90.00";
        QTest::newRow("AM1, last AM band AM2") << 3 << 4 << 999 << 1602 << "999";
    }

    void startUpShowsTheFrequencyReadBeforeTheBand()
    {
        QFETCH(int, band);
        QFETCH(int, lastBand);
        QFETCH(int, freq);
        QFETCH(int, lastBandFreq);
        QFETCH(QString, text);
        newState();
        Preferences *p = prefs();
        p->setPlayFreq(Band(band), freq);
        p->setPlayFreq(Band(lastBand), lastBandFreq);
        p->setBand(Band(band));
        band < BAND_AM1 ? p->setBand_FM(Band(lastBand)) : p->setBand_AM(Band(lastBand));
        m_fakes->radio()->setAnswer(QStringLiteral("freqBandId"), lastBand);
        m_player = std::make_unique<TunerPlayer>();
        m_fakes->radio()->clearAnswers();
        QVERIFY(shown(m_player));
        QCOMPARE(int(p->band()), lastBand);
        QCOMPARE(m_player->freqValue(), freq);
        QCOMPARE(label("Txt_0035_rds_freq")->text(), text);
        QCOMPARE(p->playFreq(), freq);
    }

    // A preset touched while the store runs is only remembered: at the end
    // it is lit if it holds what plays; untouched, the first stored one is.
    void automaticStoreStartAndEnd_data()
    {
        QTest::addColumn<int>("touched"); // -1: none
        QTest::addColumn<int>("playing");
        QTest::addColumn<QString>("lit"); // "": none
        QTest::newRow("the first stored station plays") << -1 << 8800 << "Key_0032_p3";
        QTest::newRow("the touched preset plays") << 4 << 10020 << "Key_0034_p5";
        QTest::newRow("the touched preset does not play") << 4 << 8800 << "";
    }

    void automaticStoreStartAndEnd()
    {
        QFETCH(int, touched);
        QFETCH(int, playing);
        QFETCH(QString, lit);
        makePlayer();
        prefs()->setPresetIndex(2); // as a recall of preset 3 leaves it
        m_player->checkedId(2);
        prefs()->clearFreqId(BAND_FM3, 4); // the family's last band remembers a preset too
        QVERIFY(button("Key_0032_p3")->isChecked());
        m_player->onAutoScan();
        QCOMPARE(radioCalls(), QStringList{"autoScan()"});
        QCOMPARE(litPresets(), 0); // the whole family is unlit while it runs
        QCOMPARE(prefs()->bandData(BAND_FM1).currFreqId, kNoPreset);
        QCOMPARE(prefs()->bandData(BAND_FM3).currFreqId, kNoPreset);

        // The service stored stations from preset 3 on.
        m_player->onWorkStatus(1);
        if (touched >= 0) {
            forgetCalls();
            m_player->onButGroupClicked(touched);
            QCOMPARE(radioCalls(), QStringList{QStringLiteral("setPreset(%1)").arg(touched)});
            QCOMPARE(mcuInShort(), QStringLiteral("beep"));
            QCOMPARE(litPresets(), 0);
        }
        const int found[] = {8800, 9450, 10020};
        prefs()->saveFreq(found, 3);
        prefs()->setCurrPlayFreq(playing);
        m_player->onSeekState(0);
        m_player->onAutoScanCompleted(QStringLiteral("8800;9450;10020"));
        QCOMPARE(label("Txt_0025_f3")->text(), QStringLiteral("88.00"));
        QCOMPARE(label("Txt_0027_f5")->text(), QStringLiteral("100.20"));
        QCOMPARE(litPresets(), lit.isEmpty() ? 0 : 1);
        if (!lit.isEmpty()) {
            QVERIFY(button(qPrintable(lit))->isChecked());
            QCOMPARE(prefs()->playFreqId(), lit.right(1).toInt() - 1);
        }
    }

    // The station name's marquee: one full pass per start, or a stop or a
    // click on the way; a stop goes back to the start, a click (any press,
    // reported as clicked()) pauses there.
    void marqueeRunsOnePass_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("interrupted");
        QTest::newRow("longer than the label") << "ROCK ANTENNE - THE BEST ROCK OF ALL TIME" << false;
        QTest::newRow("narrower than the label still runs a full pass") << "FFH" << false;
        QTest::newRow("stopped, started again, clicked") << "BAYERN 3 - DAS BESTE AM RADIO" << true;
    }

    void marqueeRunsOnePass()
    {
        QFETCH(QString, text);
        QFETCH(bool, interrupted);
        ScrollLabel label;
        label.resize(249, 44);
        label.setText(text);
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        QSignalSpy state(&label, &ScrollLabel::slabelState);
        QSignalSpy clicked(&label, &ScrollLabel::clicked);
        connect(&label, &ScrollLabel::clicked, &label, &ScrollLabel::slotClicked); // as the screen wires it
        label.onStart();
        QCOMPARE(label.timerInterval(), 20);
        QTRY_VERIFY(label.xPosition() < -4);
        QVERIFY(label.isRunning());
        if (!interrupted) {
            QTRY_VERIFY_WITH_TIMEOUT(!label.isTimerActive(), 15000);
            QCOMPARE(label.xPosition(), 0);
            QCOMPARE(label.isRunning(), false);
            QCOMPARE(state.last().at(0).toBool(), false);
            QCOMPARE(state.count(QList<QVariant>{false}), 1);
            return;
        }
        label.onStop(); // back to the start, still
        QCOMPARE(label.xPosition(), 0);
        QVERIFY(!label.isTimerActive());
        label.onStart();
        QTRY_VERIFY(label.xPosition() < -10);
        QTest::mousePress(&label, Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(label.xPosition(), 0);
        QCOMPARE(label.timerInterval(), 2000); // a pause at the start position
        QVERIFY(label.isTimerActive());
        // The paint at the start position ended the pass in progress.
        QVERIFY(state.contains(QList<QVariant>{false}));
    }

    void pushButtonTiming_data()
    {
        QTest::addColumn<bool>("holdLong");
        QTest::addColumn<bool>("releaseInside");
        QTest::addColumn<bool>("hideWhileHeld");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<QList<int>>("counts"); // shortClicked, longPressed, longReleased

        QTest::newRow("short press") << false << true << false << true << QList<int>{1, 0, 0};
        QTest::newRow("short press released outside") << false << false << false << true << QList<int>{0, 0, 0};
        QTest::newRow("long press") << true << true << false << true << QList<int>{0, 1, 1};
        QTest::newRow("long press released outside") << true << false << false << true << QList<int>{0, 1, 1};
        QTest::newRow("hidden during a long press") << true << true << true << true << QList<int>{0, 1, 1};
        QTest::newRow("hidden during a short press") << false << true << true << true << QList<int>{0, 0, 0};
        QTest::newRow("disabled button") << true << true << false << false << QList<int>{0, 0, 0};
    }

    void pushButtonTiming()
    {
        QFETCH(bool, holdLong);
        QFETCH(bool, releaseInside);
        QFETCH(bool, hideWhileHeld);
        QFETCH(bool, enabled);
        QFETCH(QList<int>, counts);

        QWidget window;
        QPushButton button(&window);
        button.setGeometry(10, 10, 100, 60);
        button.setEnabled(enabled);
        window.show();
        cm::PushButton helper(&button);
        helper.setLongPressedInterval(80);
        QSignalSpy shortSpy(&helper, &cm::PushButton::shortClicked);
        QSignalSpy longSpy(&helper, &cm::PushButton::longPressed);
        QSignalSpy releasedSpy(&helper, &cm::PushButton::longReleased);

        QTest::mousePress(&button, Qt::LeftButton, {}, QPoint(50, 30));
        if (holdLong && enabled)
            QVERIFY(longSpy.wait(2000));
        if (hideWhileHeld)
            button.hide();
        QTest::mouseRelease(&button, Qt::LeftButton, {}, releaseInside ? QPoint(50, 30) : QPoint(300, 30));
        if (!holdLong)
            QCOMPARE(longSpy.count(), 0); // the timer must not fire after a short release
        QCOMPARE((QList<int>{shortSpy.count(), longSpy.count(), releasedSpy.count()}), counts);
    }

    // The theme must have an image for every path a form or the code names.
    void everyImagePathInFormsAndSourcesLoads()
    {
        const QSet<QString> paths
            = sourceMatches(QStringLiteral("(:/Resource/[A-Za-z0-9_/]+\\.png)"), {"*.ui", "*.cpp", "*.h"});
        QVERIFY(paths.size() >= 30); // the tuner screen alone names 38
        for (const QString &image : paths)
            QVERIFY2(!QPixmap(image).isNull(), qPrintable(image + QStringLiteral(" does not load")));
    }

    void catalogueCoversEveryTextIdInUse_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("news"); // text 53: the catalogue is the one asked for
        // clang-format off
        QTest::newRow("English") << "en" << "News";
        QTest::newRow("German") << "de" << "Nachrichten";
        // clang-format on
    }

    // Every text id the tuner asks for: each literal id in its code, and those
    // it computes: state words, band names and units, search status lines,
    // list titles, the programme types of RDS and RBDS.
    void catalogueCoversEveryTextIdInUse()
    {
        QFETCH(QString, language);
        QFETCH(QString, news);
        const auto english = qScopeGuard([] { Translator::setLanguage(QStringLiteral("en")); });
        QVERIFY(Translator::setLanguage(language));
        QCOMPARE(Translator::translate(53), news);
        QSet<int> ids{2, 3, 4, 39, 40, 41, 42, 43, 44, 45, 47, 48, 49, 50, 51, 104, 105, 106, 189};
        for (int id = 53; id <= 103; ++id)
            ids.insert(id);
        for (int id = 107; id <= 116; ++id)
            ids.insert(id);
        for (const QString &literal :
             sourceMatches(QStringLiteral("Translator::translate\\((\\d+)\\)"), {"*.cpp", "*.h"}))
            ids.insert(literal.toInt());
        for (int id : qAsConst(ids))
            QVERIFY2(!Translator::translate(id).isEmpty(), qPrintable(QStringLiteral("text %1 is missing").arg(id)));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("46 has no text in catalogue " + language));
        QCOMPARE(Translator::translate(46), QString());
        // A language without a catalogue keeps the one in use.
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("xx has no catalogue"));
        QVERIFY(!Translator::setLanguage(QStringLiteral("xx")));
        QCOMPARE(Translator::language(), language);
        QCOMPARE(Translator::translate(53), news);
    }

private:
    QLabel *label(const char *name) const { return m_player->findChild<QLabel *>(QLatin1String(name)); }
    QAbstractButton *button(const char *name) const
    {
        return m_player->findChild<QAbstractButton *>(QLatin1String(name));
    }
    int litPresets() const
    {
        int lit = 0;
        for (const QAbstractButton *key :
             m_player->findChildren<QAbstractButton *>(QRegularExpression("^Key_\\d+_p\\d+$")))
            lit += key->isChecked();
        return lit;
    }
    QString page() const
    {
        return m_player->findChild<QStackedWidget *>("stackedWidget_tuner")->currentWidget()->objectName();
    }

    // `fresh`: on new state; else on the state the test set up.
    void makePlayer(const QString &vehicleKeys = QString(), bool fresh = true)
    {
        if (fresh)
            newState(vehicleKeys);
        m_player = std::make_unique<TunerPlayer>();
        QVERIFY(shown(m_player));
        forgetCalls();
    }

    // Window-system input, as a touch: honours mouse transparency.

    void tapAt(QWidget *target)
    {
        const QPoint point = target->mapTo(m_player.get(), target->rect().center());
        QTest::mouseClick(m_player->windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
    }

    std::unique_ptr<TunerPlayer> m_player;
};

QTEST_MAIN(tst_TunerPlayer)
#include "tst_tunerplayer.moc"
