// The main window against recording fakes of the three services: the
// start-up reads, the hardware keys, window destruction and the radio's
// reports; its interrupt bookkeeping is tried with the popup's. Then, with its
// screens up, against services that behave as on a real head unit: late,
// restarted, dying mid-seek, flooding, or sending values out of range. Last,
// what the plug-in adds to the generated proxies: getters that read the
// service's value or fall back to a default within a bounded time, and
// backends whose signals follow the same XML (the generated code itself is
// qdbusxml2cpp's and is not tested again here).

#include "audiomanager.h"
#include "basewindow.h"
#include "busaddress.h"
#include "busproxies.h"
#include "busreply.h"
#include "hostevents.h"
#include "hostrecorder.h"
#include "mainwidget.h"
#include "mainwindow.h"
#include "nilo_mcuservice_adaptor.h"
#include "nilo_radioservice_adaptor.h"
#include "nilo_sourceservice_adaptor.h"
#include "radioedge.h"
#include "scrolllabel.h"
#include "timing.h"
#include "tunerfixture.h"
#include "tuneroptions.h"
#include "tunerplayer.h"
#include "warningcounter.h"

#include <QLabel>
#include <QtTest>

#include <sys/stat.h>

using namespace tuner;

using RadioReport = std::function<void(NiloRadioServiceBackend *)>;
using Condition = std::function<bool()>;
Q_DECLARE_METATYPE(RadioReport)
Q_DECLARE_METATYPE(Condition)

namespace {

// clang-format off
const QVariantMap kStation{{"bandId", 1}, {"bandPos", "0;0;0;0;0"}, {"fmMaxFreq", 10800}, {"fmMinFreq", 8750},
                           {"fmStep", 5}, {"amMaxFreq", 1602}, {"amMinFreq", 531}, {"amStep", 9},
                           {"bandCurFreq", "8800;9450;10020;999;1089"}, {"freqBandId", 1}};
// clang-format on

// Inode and modification time: a rewrite changes both.
std::pair<ino_t, qint64> fileIdentity(const QString &path)
{
    struct stat st = {};
    ::stat(QFile::encodeName(path).constData(), &st);
    return {st.st_ino, qint64(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec};
}

struct Proxies
{
    std::unique_ptr<NiloRadioServiceInterface> radio{tuner::bus::createRadioProxy(nullptr)};
    std::unique_ptr<NiloMcuServiceInterface> mcu{tuner::bus::createMcuProxy(nullptr)};
    std::unique_ptr<NiloSourceServiceInterface> source{tuner::bus::createSourceProxy(nullptr)};
};

using Getter = std::function<QVariant(Proxies &)>;

template<typename T>
QVariant read(QDBusPendingReply<T> reply)
{
    return QVariant::fromValue(tuner::bus::replyValue(reply, "test"));
}

// The signals a class declares itself, sorted.
QStringList ownSignals(const QMetaObject &meta)
{
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == QMetaMethod::Signal)
            found << QString::fromLatin1(meta.method(i).methodSignature());
    }
    found.sort();
    return found;
}

} // namespace

Q_DECLARE_METATYPE(Getter)

class tst_MainWindow : public QObject, private TunerFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { cm::BaseWindow::setHost(&m_host); }

    void init()
    {
        newState();
        bus::ReplyBatch::forgetUnresponsiveServices();
        m_fakes->clearCalls();
        m_host.events.clear();
        AudioManager::instance()->setFocusResult(AudioManager::FocusGranted);
        for (ServiceBackend *b :
             {static_cast<ServiceBackend *>(m_fakes->radio()), static_cast<ServiceBackend *>(m_fakes->source())}) {
            b->setHung(false);
            b->setMalformed(false);
            b->setReplyDelay(0);
            b->clearAnswers();
        }
        m_fakes->source()->setAnswer(QStringLiteral("currentWindow"), 1);
    }

    void cleanup()
    {
        m_proxies.reset();
        m_window.reset();
        m_state.reset();
        if (!m_fakes->start())
            QFAIL("fakes did not come back");
    }

    // The start-up reads, in their order, against radio.conf holding AM2 at
    // 1089. The AF/TA commands follow the AF/TA answers, before the RDS
    // getters. The UI thread waits for the answers only a moment: a service
    // that has not answered by then leaves the window on what is stored, and
    // its late answers are fed in the same order when they come. A service
    // that does not answer at all feeds nothing: no file write, no command
    // derived from a default. An error reply is an answer: it reads as 0 or
    // empty and flows on with the rest.
    void startupReadsTheRadio_data()
    {
        QTest::addColumn<QString>("failure");
        QTest::addColumn<int>("bandSwitch");
        QTest::addColumn<int>("bandId");
        QTest::addColumn<int>("piTp");
        QTest::addColumn<int>("band"); // then; -1: the stored one stays
        QTest::addColumn<int>("playFreq");
        QTest::addColumn<QString>("afta");         // the AF/TA commands sent
        QTest::addColumn<QList<int>>("lastBands"); // band_FM, band_AM
        QTest::addColumn<QString>("warning");      // the first "[WAR]" line
        QTest::addColumn<int>("warned");           // how many
        const QString unanswered = "did not answer bandSwitch, bandId, .*initAfTa ; the stored state is kept";
        // clang-format off
        QTest::newRow("FM2") << "" << 0 << 1 << 0 << 1 << 9450 << "setTa(true) setAf(false)" << QList<int>{1, 3} << "" << 0;
        QTest::newRow("AM2: AF and TA sent off") << "" << 1 << 4 << 0 << 4 << 1089 << "setTa(false) setAf(false)" << QList<int>{0, 4} << "" << 0;
        QTest::newRow("announcement already running") << "" << 0 << 0 << 3 << 0 << 9000 << "setTa(true) setAf(false)" << QList<int>{0, 3} << "" << 0;
        QTest::newRow("answers each getter 600 ms late: read when the answers come")
            << "slow" << 0 << 1 << 0 << 1 << 9450 << "setTa(true) setAf(false)" << QList<int>{1, 3} << "" << 0;
        QTest::newRow("absent") << "absent" << 0 << 1 << 0 << -1 << 1089 << "" << QList<int>{0, 4} << unanswered << 2;
        QTest::newRow("hung") << "hung" << 0 << 1 << 0 << -1 << 1089 << "" << QList<int>{0, 4} << unanswered << 2;
        QTest::newRow("an error for bandId reads as band 0") << "error:bandId" << 0 << 1 << 0 << 0 << 9000 << "setTa(true) setAf(false)"
                                                              << QList<int>{0, 3} << "answered bandId org.freedesktop.DBus.Error.Failed ; read as 0" << 1;
        QTest::newRow("an error for initAfTa turns both off") << "error:initAfTa" << 0 << 1 << 0 << 1 << 9450 << "setTa(false) setAf(false)"
                                                               << QList<int>{1, 3} << "answered initAfTa org.freedesktop.DBus.Error.Failed ;" << 1;
        QTest::newRow("answers garbage: every getter reads 0 or empty") << "malformed" << 0 << 1 << 0 << 0 << 8750 << "setTa(false) setAf(false)"
                                                                         << QList<int>{0, 3} << "answered bandSwitch .*InvalidSignature" << 4;
        // clang-format on
    }

    void startupReadsTheRadio()
    {
        QFETCH(QString, failure);
        QFETCH(int, bandSwitch);
        QFETCH(int, bandId);
        QFETCH(int, piTp);
        QFETCH(int, band);
        QFETCH(int, playFreq);
        QFETCH(QString, afta);
        QFETCH(QList<int>, lastBands);
        QFETCH(QString, warning);
        QFETCH(int, warned);
        const QByteArray stored = "[Freq]\nAM4\\CurrFreq=1089\nAM4\\preset_2=999\n\n"
                                  "[Tune]\nBand_AM=4\nCurrBand=4\nLocal=true\nRegional=false\nAf=false\nta=true\n";
        QDir().mkpath(QFileInfo(m_state->radioConf()).absolutePath());
        QFile file(m_state->radioConf());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(stored);
        file.close();
        Preferences::resetInstance();

        NiloRadioServiceBackend *radio = m_fakes->radio();
        // clang-format off
        radio->setAnswers({{"bandSwitch", bandSwitch}, {"bandId", bandId},
                           {"fmList", "8800;8930;9050;9190;9310;9450;9580;9720;9870;10020;10150;10280"},
                           {"amList", "585;693;909"}, {"fmMaxFreq", 10800}, {"fmMinFreq", 8750}, {"fmStep", 5},
                           {"amMaxFreq", 1602}, {"amMinFreq", 531}, {"amStep", 9},
                           {"bandCurFreq", "9000;9450;10020;999;1089"}, {"bandPos", "1;2;0;3;0"}, {"initLocal", 1},
                           {"initRegional", 0}, {"initAfTaList", "2;1;3"}, {"initAfTa", 2},
                           {"initPsName1", "BBC R2;NDR 2"}, {"initPsName2", "SWR3"}, {"piTpStatus", piTp},
                           {"rdsProgramName", "NDR 2"}, {"RDSstate", 3}});
        // clang-format on
        if (failure == QLatin1String("absent"))
            m_fakes->stop();
        radio->setHung(failure == QLatin1String("hung"));
        radio->setMalformed(failure == QLatin1String("malformed"));
        radio->setReplyDelay(failure == QLatin1String("slow") ? 600 : 0);
        if (failure.startsWith(QLatin1String("error:")))
            radio->setErrorAnswer(failure.mid(6));
        WarningCounter warnings;

        auto window = std::make_unique<MainWindow>();
        Preferences *p = prefs();
        if (failure == QLatin1String("slow") || failure == QLatin1String("hung")) {
            QCOMPARE(int(p->band()), 4);
            QCOMPARE(p->playFreq(), 1089);
            QCOMPARE(radioCalls().size(), 16); // the RDS getters wait for the AF/TA answers
        }
        QTRY_COMPARE(warnings.count(), warned);
        if (warned)
            QVERIFY(warnings.lines().at(0).contains(QRegularExpression(warning)));
        QCOMPARE(mcuCalls(), QStringList());
        if (band < 0) {
            QTRY_VERIFY(
                warnings.lines().at(1).contains(QRegularExpression("did not answer initPsName1, .*RDSstate ;")));
            QCOMPARE(int(p->band()), 4);
            QCOMPARE(p->playFreq(), playFreq);
            QCOMPARE(p->favoritAt(2), 999);
            QCOMPARE(p->presetIndex(), 0); // no preset stored as playing
            QCOMPARE(p->isLocal(), true);
            QCOMPARE(p->regional(), false);
            QCOMPARE(p->ta(), true);
            QCOMPARE(radioCalls().filter(QRegularExpression("^set")), QStringList());
            p->flush();
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readAll(), stored);
            return;
        }
        const QStringList expected
            = QStringList{"bandSwitch()", "bandId()",       "fmList()",       "amList()",
                          "fmMaxFreq()",  "fmMinFreq()",    "fmStep()",       "amMaxFreq()",
                          "amMinFreq()",  "amStep()",       "bandCurFreq()",  "bandPos()",
                          "initLocal()",  "initRegional()", "initAfTaList()", "initAfTa()"}
              + afta.split(QLatin1Char(' '))
              + QStringList{"initPsName1()", "initPsName2()", "piTpStatus()", "rdsProgramName()", "RDSstate()"};
        QTRY_COMPARE(radioCalls(), expected);
        radio->setReplyDelay(0);
        QCOMPARE(int(p->band()), band);
        QCOMPARE(p->playFreq(), playFreq);
        QCOMPARE((QList<int>{p->band_FM(), p->band_AM()}), lastBands);
        QCOMPARE(m_state->radioConfValue("Tune/CurrBand").toInt(), band);
        if (!failure.isEmpty() && failure != QLatin1String("slow"))
            return;
        QTRY_COMPARE(p->rdsState(), 3); // the RDS answers are fed last
        QCOMPARE(p->isLocal(), true);
        QCOMPARE(p->regional(), false);
        QCOMPARE(p->ta(), true);
        QCOMPARE(p->af(), false);
        QCOMPARE(p->bandData(BAND_FM2).currFreqId, 1);
        QCOMPARE(p->bandData(BAND_AM1).currFreqId, 2);
        QCOMPARE(p->bandData(BAND_FM2).presets[5], 10280);
        QCOMPARE(p->bandData(BAND_FM1).ta[0], true);
        QCOMPARE(p->rdsName(BAND_FM1, 1), QStringLiteral("NDR 2"));
        QCOMPARE(p->rdsName(BAND_FM2, 3), QStringLiteral("SWR3"));
        QCOMPARE(p->curRdsName(), QStringLiteral("NDR 2"));
        QCOMPARE(m_state->radioConfValue("Tune/Local").toBool(), true);
        QCOMPARE(m_state->radioConfValue("Freq/FM1/CurrFreq").toInt(), 9450);
        QCOMPARE(m_state->radioConfValue("Freq/FM0/TA_0").toBool(), true);
        // Not yet active: an announcement in progress is only noted.
        QCOMPARE(int(p->taOrAlarm()), piTp == 3 ? 2 : 0);
        QCOMPARE(p->SouOffTa(), piTp == 3);

        // The next boot, with nothing changed, leaves the file as it is.
        p->flush();
        const auto before = fileIdentity(m_state->radioConf());
        window.reset();
        Preferences::resetInstance();
        MainWindow again;
        prefs()->flush();
        QCOMPARE(fileIdentity(m_state->radioConf()), before);
    }

    // A start-up report the service sends while the screen is up, on AM: the
    // screen labels its presets with the stations reported.
    void startUpReportRelabelsTheScreen()
    {
        showWindow();
        fromService([](NiloRadioServiceBackend *radio) {
            emit radio->initDate(1, 3, "", "603;711;999", 0, 0, 0, 0, 0, 10800, 8750, 5, 1602, 531, 9,
                                 "9000;9450;10020;999;1089", "0;0;0;0;0", 0, 0);
        });
        QTRY_COMPARE(label("Txt_0481_f1")->text(), QStringLiteral("603"));
    }

    // On a first boot (no radio.conf) the screen commands the radio's own
    // band only. Against a radio that answers late it is built before that
    // band is known, and commands none until then.
    void firstBootCommandsTheRadiosBand_data()
    {
        QTest::addColumn<int>("delayMs");
        QTest::newRow("answers at once") << 0;
        QTest::newRow("answers 600 ms late") << 600;
    }

    void firstBootCommandsTheRadiosBand()
    {
        QFETCH(int, delayMs);
        NiloRadioServiceBackend *radio = m_fakes->radio();
        // clang-format off
        radio->setAnswers({{"bandId", 1}, {"bandPos", "1;1;1;1;1"}, {"fmMaxFreq", 10800}, {"fmMinFreq", 8750},
                           {"fmStep", 5}, {"amMaxFreq", 1602}, {"amMinFreq", 531}, {"amStep", 9}, {"freqBandId", 1},
                           {"bandCurFreq", "9000;9450;10020;999;1089"}, {"initAfTa", 2}});
        // clang-format on
        radio->setReplyDelay(delayMs);
        MainWindow window;
        window.onCreate();
        window.screenStack()->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.screenStack()));
        if (delayMs)
            QCOMPARE(radioCalls().filter("setband"), QStringList());
        // The names come last; with them the stored band is shown again.
        QTRY_VERIFY(!radioCalls().filter("setband").isEmpty());
        QTRY_COMPARE(window.screenStack()->player()->freqValue(), 9450);
        radio->setReplyDelay(0);
        const QStringList bands = radioCalls().filter("setband");
        QCOMPARE(bands.filter("setband(1)"), bands);
        QCOMPARE(int(prefs()->band()), 1);
        QCOMPARE(m_state->radioConfValue("Tune/CurrBand").toInt(), 1);
    }

    void presetKeyRepeatsEverySecondUntilReleased_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("release");
        QTest::addColumn<int>("expected"); // preset id after the first repeat
        QTest::newRow("44 up, long release") << 44 << int(Qx::KeyLongReleased) << 1;
        QTest::newRow("116 down, short release") << 116 << int(Qx::KeyShortReleased) << 5; // FM3 preset 6
    }

    void presetKeyRepeatsEverySecondUntilReleased()
    {
        QFETCH(int, key);
        QFETCH(int, release);
        QFETCH(int, expected);

        auto window = makeWindow();
        KeyEvent longPress(Qx::KeyLongPressed, key);
        QVERIFY(window->sourceKeyEvent(&longPress));                        // one step at once ...
        TUNER_VERIFY_AFTER_PERIOD(1000, prefs()->playFreqId() == expected); // ... and one a second later
        KeyEvent releaseEvent(Qx::EventType(release), key);
        QVERIFY(window->sourceKeyEvent(&releaseEvent));
        const int after = prefs()->playFreqId();
        QTest::qWait(1200); // one repeat period: nothing more may happen
        QCOMPARE(prefs()->playFreqId(), after);
    }

    void destroyStopsASearchFromTheSearchWindows_data()
    {
        QTest::addColumn<int>("currentWindow");
        QTest::addColumn<int>("ptyState");
        QTest::addColumn<int>("asked");
        QTest::addColumn<bool>("terminated");
        QTest::newRow("window 9, searching") << 9 << 3 << 1 << true;
        QTest::newRow("window 5, searching") << 5 << 3 << 2 << true;
        QTest::newRow("window 3, searching") << 3 << 3 << 3 << true;
        QTest::newRow("window 1, searching") << 1 << 3 << 3 << false;
        QTest::newRow("window 9, search over") << 9 << 6 << 1 << false;
        QTest::newRow("hung source: asked once, not three times") << -1 << 3 << 1 << false;
    }

    void destroyStopsASearchFromTheSearchWindows()
    {
        QFETCH(int, currentWindow);
        QFETCH(int, ptyState);
        QFETCH(int, asked);
        QFETCH(bool, terminated);

        auto window = makeWindow(true);
        m_fakes->source()->setAnswer(QStringLiteral("currentWindow"), currentWindow);
        m_fakes->source()->setHung(currentWindow < 0);
        if (currentWindow < 0)
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("currentWindow .*NoReply call failed"));
        prefs()->setPtySerchstate(ptyState);
        g_TunerCurDSPL = 1;
        window->onDestroy();
        QCOMPARE(m_fakes->describedCalls(m_fakes->source()),
                 QVector<QString>(asked, QStringLiteral("currentWindow()")).toList());
        QCOMPARE(radioCalls(), terminated ? QStringList{"terminate()"} : QStringList());
        QCOMPARE(g_TunerCurDSPL, 0);
        QVERIFY(window->screenStack()->isHidden());
        QCoreApplication::processEvents();
        QCOMPARE(m_host.events, QStringList{"deleteDelay"});
    }

    void autoScanCompleted_data()
    {
        QTest::addColumn<QString>("list");
        QTest::addColumn<bool>("stack");
        QTest::addColumn<QList<int>>("presets"); // FM1 presets 0..2 after the store
        QTest::addColumn<int>("lit");            // FM1 current preset id after the store

        // clang-format off
        QTest::newRow("three stations, no screens") << "8800;9450;;10020;" << false << QList<int>{8800, 9450, 10020} << 0;
        QTest::newRow("only zeros, blanks and negatives") << "0;;-5;abc" << false << QList<int>{8750, 9750, 9800} << 0;
        QTest::newRow("with screens the stack lights the preset") << "8800;9450" << true << QList<int>{8800, 9450, 9800} << 6;
        // clang-format on
    }

    void autoScanCompleted()
    {
        QFETCH(QString, list);
        QFETCH(bool, stack);
        QFETCH(QList<int>, presets);
        QFETCH(int, lit);

        auto window = makeWindow(stack);
        prefs()->saveRdsName(BAND_FM1, 1, QStringLiteral("OLD"));
        prefs()->btmStart();
        window->onAutoScanCompleted(list);
        const Preferences::flagBand &fm1 = prefs()->bandData(BAND_FM1);
        QCOMPARE((QList<int>{fm1.presets[0], fm1.presets[1], fm1.presets[2]}), presets);
        QCOMPARE(fm1.currFreqId, lit);
        const bool stored = presets.first() == 8800;
        QCOMPARE(prefs()->rdsName(BAND_FM1, 1), stored ? QString() : QStringLiteral("OLD"));
        if (stored)
            QCOMPARE(m_state->radioConfValue("Freq/FM0/preset_1").toInt(), 9450);
    }

    // The wiring: signals of the radio and source services reach the slots.
    void radioReportsReachThePreferences()
    {
        auto window = makeWindow();
        m_fakes->source()->setAnswer(QStringLiteral("currentWindow"), 9);
        m_fakes->inServiceThread([&] { // station, name and status are tried with the edge's checks
            emit m_fakes->radio()->work_status(2);
            emit m_fakes->radio()->aftaState(QStringLiteral("3"), 3);
            emit m_fakes->radio()->seekState(3);
        });
        QTRY_COMPARE(prefs()->PTYSeachState(), 3);
        QCOMPARE(prefs()->workState(), 2);
        QCOMPARE(prefs()->ta(), true);
        QCOMPARE(prefs()->af(), true);
        // A PTY search reported while the search window (9) is current is stopped.
        QTRY_COMPARE(radioCalls().filter("terminate"), QStringList{"terminate()"});

        prefs()->setTaAlarmStatus(INTERRUPT_ALARM);
        prefs()->setCancelAlarm(true);
        m_fakes->inServiceThread([&] { emit m_fakes->source()->windowAndSourceChanged(3, 6); });
        QTRY_COMPARE(prefs()->cancelAlarm(), false);
    }

    void createBuildsTheStackOnceAndResumesIt()
    {
        auto window = makeWindow();
        window->onCreate();
        MainWidget *stack = window->screenStack();
        QVERIFY(stack);
        QCOMPARE(window->mainWidget(), static_cast<QWidget *>(stack));
        window->onDestroy();
        window->onCreate();
        QCOMPARE(window->screenStack(), stack);
        QVERIFY(!stack->player()->isHidden());
        QCOMPARE(g_TunerCurDSPL, 0); // resume() shows the player without touching the display number
        delete stack;                // the host may delete the widget: the window lets go of it
        QCOMPARE(window->screenStack(), nullptr);
        KeyEvent key(Qx::KeyShortReleased, 66);
        QVERIFY(window->sourceKeyEvent(&key)); // no stack: nothing to forward to, no crash
        QCOMPARE(window->keyEvent(&key), false);
    }

    void lateOrRestartedServiceIsRead_data()
    {
        QTest::addColumn<bool>("late");
        QTest::newRow("appears after the tuner") << true;
        QTest::newRow("restarts under the tuner") << false;
    }

    void lateOrRestartedServiceIsRead()
    {
        QFETCH(bool, late);
        if (late) {
            m_fakes->stop();
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("did not answer"));
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("did not answer"));
        }
        showWindow();
        QCOMPARE(int(prefs()->band()), late ? 0 : 1);

        m_fakes->radio()->setAnswers({{"bandId", 2}, {"freqBandId", 2}, {"workStateType", 1}, {"RDSstate", 3}});
        QVERIFY(late ? m_fakes->start() : m_fakes->restart());
        QTRY_COMPARE(player()->workStatus(), WorkStatus::AutoStore);
        QCOMPARE(int(prefs()->band()), 2);
        QCOMPARE(prefs()->playFreq(), 10020);
        QCOMPARE(prefs()->rdsState(), 3);
        QCOMPARE(label("Txt_0035_rds_freq")->text(), QStringLiteral("100.20"));
        QVERIFY(radioCalls().contains(QStringLiteral("bandId()")));
    }

    void seekingWorksAfterTheServiceDiedMidSeek()
    {
        showWindow();
        fromService([](NiloRadioServiceBackend *radio) { emit radio->work_status(2); });
        QTRY_COMPARE(player()->workStatus(), WorkStatus::SeekUp);
        QCOMPARE(prefs()->workState(), 2);

        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("left while busy"));
        m_fakes->stop();
        QTRY_COMPARE(prefs()->workState(), 0);
        QTRY_VERIFY(label("Txt_0035_rds_freq")->isVisible()); // the frequency is back on screen

        QVERIFY(m_fakes->restart());
        QTRY_VERIFY(m_fakes->radio()->callNames().contains(QStringLiteral("freqBandId"))); // read again
        m_fakes->clearCalls();
        player()->onSeekPlus();
        QCOMPARE(radioCalls(), QStringList{"seekForward()"});
    }

    void floodsLeaveTheWindowAnswering_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("20 000 station reports") << "station";
        QTest::newRow("20 000 station names") << "name";
        QTest::newRow("one name of 1 MiB") << "huge name";
    }

    void floodsLeaveTheWindowAnswering()
    {
        QFETCH(QString, kind);
        showWindow();
        auto *nameLabel = player()->findChild<ScrollLabel *>(QStringLiteral("Txt_0037_rds_name"));
        const int reports = kind == QLatin1String("huge name") ? 1 : 20000;
        // The flood leaves the service thread while the window's thread runs on.
        const auto joined = [](QThread *thread) {
            thread->wait();
            delete thread;
        };
        std::unique_ptr<QThread, decltype(joined)> sender(
            QThread::create([&] {
                fromService([&](NiloRadioServiceBackend *radio) {
                    for (int i = 1; i <= reports; ++i) {
                        if (kind == QLatin1String("station"))
                            emit radio->stationChanged(8750 + 5 * (i % 400), 1);
                        else if (kind == QLatin1String("name"))
                            emit radio->ProgramName(QStringLiteral("NAME %1").arg(i));
                        else
                            emit radio->ProgramName(QString(1024 * 1024, QLatin1Char('X')));
                    }
                });
            }),
            joined);
        if (kind == QLatin1String("huge name"))
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression("ProgramName of 1048576 characters is cut to 64"));
        sender->start();
        // Sending 20 000 signals takes a while in a sanitizer build: the bound is generous.
        constexpr int kFloodBoundMs = 60000;
        if (kind == QLatin1String("station")) {
            QTRY_COMPARE_WITH_TIMEOUT(prefs()->playFreq(), 8750 + 5 * (20000 % 400), kFloodBoundMs);
            QCOMPARE(label("Txt_0035_rds_freq")->text(), QStringLiteral("87.50"));
        } else if (kind == QLatin1String("name")) {
            QTRY_COMPARE_WITH_TIMEOUT(nameLabel->text(), QStringLiteral("NAME 20000"), kFloodBoundMs);
        } else {
            QTRY_COMPARE_WITH_TIMEOUT(nameLabel->text(), QString(64, QLatin1Char('X')), kFloodBoundMs);
        }
        sender.reset();
    }

    void controlCharactersNeverReachALabelOrTheFiles()
    {
        showWindow();
        prefs()->setCurrPlayFreqId(2);
        prefs()->setFavoriteFreq(2, prefs()->playFreq());
        fromService([](NiloRadioServiceBackend *radio) {
            emit radio->PsName1(QStringLiteral("A\tB;C\x01"
                                               "D"));
            emit radio->ProgramName(QStringLiteral("AB\nC\x01"
                                                   "D\x7f"));
        });
        QTRY_COMPARE(prefs()->curRdsName(), QStringLiteral("ABCD"));
        QCOMPARE(player()->findChild<ScrollLabel *>(QStringLiteral("Txt_0037_rds_name"))->text(),
                 QStringLiteral("ABCD"));
        QCOMPARE(prefs()->rdsName(BAND_FM2, 2), QStringLiteral("ABCD")); // the lit preset is named after it
        QCOMPARE(m_state->settingsValue("Tuner/rdsName").toString(), QStringLiteral("ABCD"));
        QCOMPARE(prefs()->rdsName(BAND_FM1, 0), QStringLiteral("AB"));
        QCOMPARE(prefs()->rdsName(BAND_FM1, 1), QStringLiteral("CD"));
    }

    void badValuesAreCheckedOnceAtTheEdge_data()
    {
        using Emit = RadioReport;
        using Check = Condition;
        QTest::addColumn<Emit>("report");
        QTest::addColumn<Check>("result");
        QTest::addColumn<int>("warnings");

        // Values the model holds pass as sent; only counts are bounded.
        const auto fm2Preset = [](int freq) {
            return Check([freq] {
                for (int i = 0; i < 6; ++i)
                    if (prefs()->favoritBandAt(BAND_FM2, i) == freq)
                        return true;
                return false;
            });
        };
        // clang-format off
        QTest::newRow("auto-store values below the band are stored") << Emit([](auto *r) { emit r->autoScanCompleted("5;0;7"); })
                                                                     << fm2Preset(7) << 0;
        QTest::newRow("auto-store value INT_MAX is stored") << Emit([](auto *r) { emit r->autoScanCompleted("2147483647"); })
                                                            << fm2Preset(INT_MAX) << 0;
        QTest::newRow("auto-store list of 40 items") << Emit([](auto *r) { emit r->autoScanCompleted(QString(QStringLiteral("9000;")).repeated(40)); })
                                                     << Check([] { return prefs()->favoritBandAt(BAND_FM3, 5) == 9000; }) << 2;
        QTest::newRow("empty items do not count against the cap")
            << Emit([](auto *r) { emit r->autoScanCompleted(QString(QLatin1Char(';')).repeated(30) + QLatin1String("9100")); })
            << fm2Preset(9100) << 0;
        QTest::newRow("station in no band: shown as invalid") << Emit([](auto *r) { emit r->stationChanged(2147483647, 1); })
                                                              << Check([] { return prefs()->playFreq() == 8750; }) << 1;
        QTest::newRow("station band 7 taken as current") << Emit([](auto *r) { emit r->stationChanged(9500, 7); })
                                                         << Check([] { return prefs()->band() == BAND_FM2 && prefs()->playFreq() == 9500; }) << 1;
        QTest::newRow("station band -2^31 is the current one") << Emit([](auto *r) { emit r->stationChanged(9500, INT_MIN); })
                                                               << Check([] { return prefs()->band() == BAND_FM2 && prefs()->playFreq() == 9500; }) << 0;
        QTest::newRow("RDS state 2 reads as none") << Emit([](auto *r) { emit r->statusChanged(2); })
                                                   << Check([] { return prefs()->rdsState() == 0; }) << 1;
        QTest::newRow("RDS state 7 is RDS with TP") << Emit([](auto *r) { emit r->statusChanged(7); })
                                                    << Check([] { return prefs()->rdsState() == 7; }) << 0;
        QTest::newRow("work state 99 is kept") << Emit([](auto *r) { emit r->work_status(99); })
                                               << Check([] { return prefs()->workState() == 99; }) << 0;
        QTest::newRow("start-up band -1 keeps the band") << Emit([](auto *r) {
            emit r->initDate(0, -1, "", "", 0, 0, 0, 0, 0, 10800, 8750, 5, 1602, 531, 9, "8800;9450", "0;0", 0, 0);
        }) << Check([] { return prefs()->band() == BAND_FM2; }) << 1;
        QTest::newRow("start-up presets outside the range are kept") << Emit([](auto *r) {
            emit r->initDate(0, 1, "5;;9000", "", 0, 0, 0, 0, 0, 10800, 8750, 5, 1602, 531, 9, "100;9450", "0;0", 0, 0);
        }) << Check([] { return prefs()->favoritBandAt(BAND_FM1, 0) == 5 && prefs()->favoritBandAt(BAND_FM1, 1) == 9000; }) << 0;
        QTest::newRow("programme type 77 dropped") << Emit([](auto *r) { emit r->ptyChanged(77, "x"); })
                                                   << Check([] { return prefs()->PTYtype() == 0; }) << 1;
        // clang-format on
    }

    void badValuesAreCheckedOnceAtTheEdge()
    {
        QFETCH(RadioReport, report);
        QFETCH(Condition, result);
        QFETCH(int, warnings);
        showWindow();
        QCOMPARE(int(prefs()->band()), 1);
        QSignalSpy marker(m_window->findChild<RadioEdge *>(), SIGNAL(bandFMAMChang(int)));
        WarningCounter counter;
        fromService(report);
        // Reports arrive in order: once the marker is through, so is the report.
        fromService([](NiloRadioServiceBackend *radio) { emit radio->bandFMAMChang(0); });
        QTRY_COMPARE(marker.count(), 1);
        QVERIFY(result());
        QCOMPARE(counter.count(), warnings);
    }

    // The generated adaptors declare the XML's signals and relay the
    // backends' (the simulator's and the fakes') by signature: one that
    // drifts would compile and never arrive.
    void backendSignalsFollowTheXml()
    {
        QCOMPARE(ownSignals(NiloRadioServiceBackend::staticMetaObject),
                 ownSignals(NiloRadioServiceAdaptor::staticMetaObject));
        QCOMPARE(ownSignals(NiloMcuServiceBackend::staticMetaObject),
                 ownSignals(NiloMcuServiceAdaptor::staticMetaObject));
        QCOMPARE(ownSignals(NiloSourceServiceBackend::staticMetaObject),
                 ownSignals(NiloSourceServiceAdaptor::staticMetaObject));
        QVERIFY(ownSignals(NiloRadioServiceAdaptor::staticMetaObject).contains("stationChanged(int,int)"));
    }

    // Hung and malformed services last: their unanswered calls outlive the test.
    void gettersReadTheServiceOrADefault_data()
    {
        QTest::addColumn<Getter>("getter");
        QTest::addColumn<QString>("failure");
        QTest::addColumn<QVariant>("expected");

        const QList<QPair<const char *, Getter>> getters = {
            {"int", [](Proxies &p) { return read(p.radio->bandId()); }},
            {"string", [](Proxies &p) { return read(p.radio->fmList()); }},
            {"bool", [](Proxies &p) { return read(p.radio->isAfEnable()); }},
            {"source int", [](Proxies &p) { return read(p.source->currentWindow()); }},
        };
        const QVariant answers[] = {QVariant(3), QVariant(QStringLiteral("8750 Ü")), QVariant(true), QVariant(9)};
        const QVariant defaults[] = {QVariant(0), QVariant(QString()), QVariant(false), QVariant(0)};
        for (const char *failure : {"healthy", "absent", "hung", "malformed"}) {
            for (int i = 0; i < getters.size(); ++i) {
                QTest::addRow("%s service, %s getter", failure, getters[i].first)
                    << getters[i].second << QString::fromLatin1(failure)
                    << (qstrcmp(failure, "healthy") ? defaults[i] : answers[i]);
            }
        }
    }

    void gettersReadTheServiceOrADefault()
    {
        QFETCH(Getter, getter);
        QFETCH(QString, failure);
        QFETCH(QVariant, expected);
        m_proxies = std::make_unique<Proxies>();

        // The value a healthy service would give must not leak through.
        m_fakes->radio()->setAnswers({{"bandId", 3}, {"fmList", QStringLiteral("8750 Ü")}, {"isAfEnable", true}});
        m_fakes->source()->setAnswer(QStringLiteral("currentWindow"), 9);
        if (failure == QLatin1String("absent"))
            m_fakes->stop();
        for (ServiceBackend *b :
             {static_cast<ServiceBackend *>(m_fakes->radio()), static_cast<ServiceBackend *>(m_fakes->source())}) {
            b->setHung(failure == QLatin1String("hung"));
            b->setMalformed(failure == QLatin1String("malformed"));
        }

        if (failure != QLatin1String("healthy"))
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("^\\[WAR\\] .* -- test .* call failed")));
        QCOMPARE(getter(*m_proxies), expected);
    }

    // A batch remembers how the service's owner answered: one that let a
    // batch run out is not waited for again and its calls give up sooner;
    // once it answers in time it is waited for as any other.
    void batchesRememberASlowOwner()
    {
        using tuner::bus::ReplyBatch;
        m_proxies = std::make_unique<Proxies>();
        NiloRadioServiceInterface *radio = m_proxies->radio.get();
        const int ownTimeout = radio->timeout();
        const auto read = [&](bool *inTime) {
            ReplyBatch batch(radio);
            const int timeout = radio->timeout();
            const auto band = batch.add(radio->bandId(), "bandId");
            *inTime = batch.waitUntil(QDeadlineTimer(ReplyBatch::kBlockingWaitMs));
            bool done = false;
            batch.whenFinished([&](const QStringList &) { done = true; });
            if (!QTest::qWaitFor([&] { return done; }, 5000))
                return -1;
            return band.answered() ? timeout : -timeout;
        };
        m_fakes->radio()->setHung(true);
        bool inTime = true;
        QCOMPARE(read(&inTime), -ReplyBatch::kDeadlineMs);
        QVERIFY(!inTime);
        QCOMPARE(read(&inTime), -tuner::bus::kCallTimeoutMs); // not waited for, and gives up sooner
        QVERIFY(!inTime);
        m_fakes->radio()->setHung(false);
        QCOMPARE(read(&inTime), tuner::bus::kCallTimeoutMs); // answered: the owner recovered
        QCOMPARE(read(&inTime), ReplyBatch::kDeadlineMs);
        QVERIFY(inTime);
        QCOMPARE(radio->timeout(), ownTimeout);
        // A batch dropped before its answers came gives the proxy its own time-out back.
        std::make_unique<ReplyBatch>(radio)->add(radio->bandId(), "bandId");
        QCOMPARE(radio->timeout(), ownTimeout);
        // Forgotten, a hung owner is waited for again.
        m_fakes->radio()->setHung(true);
        QCOMPARE(read(&inTime), -ReplyBatch::kDeadlineMs);
        ReplyBatch::forgetUnresponsiveServices();
        QCOMPARE(read(&inTime), -ReplyBatch::kDeadlineMs);
    }

private:
    // A window with its start-up traffic settled and forgotten; with the
    // screen stack built if asked.

    std::unique_ptr<MainWindow> makeWindow(bool withStack = false)
    {
        auto window = std::make_unique<MainWindow>();
        if (withStack)
            window->onCreate();
        forgetCalls();
        return window;
    }

    // The window with its screens up, on a radio that reports FM2 at 94.50.
    void showWindow()
    {
        m_fakes->radio()->setAnswers(kStation);
        m_window = std::make_unique<MainWindow>();
        m_window->onCreate();
        m_window->screenStack()->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window->screenStack()));
        forgetCalls();
    }

    void fromService(const std::function<void(NiloRadioServiceBackend *)> &emitter)
    {
        m_fakes->inServiceThread([&] { emitter(m_fakes->radio()); });
    }

    TunerPlayer *player() const { return m_window->screenStack()->player(); }
    QLabel *label(const char *name) const { return player()->findChild<QLabel *>(QLatin1String(name)); }

    HostRecorder m_host;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Proxies> m_proxies;
};

QTEST_MAIN(tst_MainWindow)
#include "tst_mainwindow.moc"
