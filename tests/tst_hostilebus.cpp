// The whole window against services that behave as on a real head unit:
// late, restarted, dying mid-seek, flooding, or sending values out of range.

#include "busreply.h"
#include "mainwidget.h"
#include "mainwindow.h"
#include "radioedge.h"
#include "scrolllabel.h"
#include "tunerfixture.h"
#include "tunerplayer.h"
#include "warningcounter.h"

#include <QtTest>

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

} // namespace

class tst_HostileBus : public QObject, private TunerFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        newState();
        bus::ReplyBatch::forgetUnresponsiveServices();
        m_fakes->radio()->clearAnswers();
        m_fakes->source()->setAnswer(QStringLiteral("currentWindow"), 1);
        m_fakes->radio()->setAnswers(kStation);
    }

    void cleanup()
    {
        m_window.reset();
        m_state.reset();
        QVERIFY(m_fakes->start());
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
        makeWindow();
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
        makeWindow();
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
        makeWindow();
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
        makeWindow();
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
        makeWindow();
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

private:
    void makeWindow()
    {
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

    std::unique_ptr<MainWindow> m_window;
};

QTEST_MAIN(tst_HostileBus)
#include "tst_hostilebus.moc"
