// The RDS display of the tuner screen (names per display mode and band,
// preset naming, icons, PTY) and the traffic/alarm interrupts through the
// main window, its audio focus and source keys, with or without its screens,
// and the media player's status beside them. Then the media player as an
// MPRIS client on the test's private bus sees it: its name, its properties,
// what they follow, and how often they are announced.

#include "audiomanager.h"
#include "basewindow.h"
#include "hostevents.h"
#include "hostrecorder.h"
#include "interruptpopup.h"
#include "mainwidget.h"
#include "mainwindow.h"
#include "nowplaying.h"
#include "radioedge.h"
#include "tunerfixture.h"
#include "tuneroptions.h"
#include "tunerplayer.h"
#include "warningcounter.h"

#include <QAbstractButton>
#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QElapsedTimer>
#include <QLabel>
#include <QStackedWidget>
#include <QtTest>

using namespace tuner;

namespace {

constexpr char kPlayer[] = "org.mpris.MediaPlayer2.Player";

constexpr char kProperties[] = "org.freedesktop.DBus.Properties";

// A client on a connection of its own, as another program of the car. The
// player answers on this thread, so the client waits with the event loop
// running, never blocked.
class Client : public QObject
{
    Q_OBJECT
public:
    Client()
        : m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("client")))
    {
        m_bus.connect(QString(), QLatin1String(NowPlaying::kObjectPath), QLatin1String(kProperties),
                      QStringLiteral("PropertiesChanged"), this, SLOT(onChanged(QString,QVariantMap,QStringList)));
    }
    ~Client() override { QDBusConnection::disconnectFromBus(QStringLiteral("client")); }

    QDBusMessage callOn(const QString &interface, const QString &method, const QVariantList &arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            QLatin1String(NowPlaying::kServiceName), QLatin1String(NowPlaying::kObjectPath), interface, method);
        message.setArguments(arguments);
        QDBusPendingCall pending = m_bus.asyncCall(message);
        if (!QTest::qWaitFor([&] { return pending.isFinished(); }, 10000))
            return QDBusMessage::createError(QDBusError::Timeout, QStringLiteral("no answer"));
        return pending.reply();
    }
    QDBusMessage call(const QString &method, const QVariantList &arguments = {})
    {
        return callOn(QLatin1String(kPlayer), method, arguments);
    }
    void send(const char *method) // not waited for; it arrives before this client's later calls
    {
        m_bus.send(QDBusMessage::createMethodCall(QLatin1String(NowPlaying::kServiceName),
                                                  QLatin1String(NowPlaying::kObjectPath), QLatin1String(kPlayer),
                                                  QLatin1String(method)));
    }
    QVariant property(const QString &name, const QString &interface = QLatin1String(kPlayer))
    {
        const QDBusMessage reply = callOn(QLatin1String(kProperties), QStringLiteral("Get"), {interface, name});
        return qdbus_cast<QDBusVariant>(reply.arguments().value(0)).variant();
    }
    void setProperty(const QString &name, const QVariant &value)
    {
        callOn(QLatin1String(kProperties), QStringLiteral("Set"),
               {QLatin1String(kPlayer), name, QVariant::fromValue(QDBusVariant(value))});
    }

    QList<QVariantMap> changes;
    // A property as the last announcement that carried it says.
    QVariant last(const QString &name) const
    {
        for (auto it = changes.crbegin(); it != changes.crend(); ++it) {
            if (it->contains(name))
                return it->value(name);
        }
        return {};
    }
    QVariant lastMetadata(const char *key) const
    {
        return qdbus_cast<QVariantMap>(last(QStringLiteral("Metadata"))).value(QLatin1String(key));
    }
    // The D-Bus type of each value of the last Metadata announced.
    QMap<QString, QString> metadataTypes() const
    {
        QMap<QString, QString> types;
        const QVariantMap metadata = qdbus_cast<QVariantMap>(last(QStringLiteral("Metadata")));
        for (auto it = metadata.cbegin(); it != metadata.cend(); ++it) // arrays other than "as" stay QDBusArgument
            types.insert(it.key(), QString::fromLatin1(QDBusMetaType::typeToSignature(it.value().userType())));
        return types;
    }

private slots:
    void onChanged(const QString &interface, const QVariantMap &changed, const QStringList &)
    {
        if (interface == QLatin1String(kPlayer))
            changes << changed;
    }

private:
    QDBusConnection m_bus;
};

// "interrupt=N" and the names of the interrupt flags that are set.
QStringList interruptFlags()
{
    const Preferences *p = prefs();
    QStringList set;
    if (p->taOrAlarm() != INTERRUPT_NONE)
        set << QStringLiteral("interrupt=%1").arg(int(p->taOrAlarm()));
    const std::pair<bool, const char *> flags[] = {{p->taStatus(), "ta"},
                                                   {p->alarmStatue(), "alarm"},
                                                   {p->cancelTa(), "cancelTa"},
                                                   {p->cancelAlarm(), "cancelAlarm"}};
    for (const auto &[on, name] : flags) {
        if (on)
            set << QLatin1String(name);
    }
    return set;
}

} // namespace

class tst_RdsInterrupts : public QObject, private TunerFixture
{
    Q_OBJECT

private slots:
    void initTestCase() { cm::BaseWindow::setHost(&m_host); }

    void cleanup()
    {
        m_client.reset();
        AudioManager::instance()->setFocusResult(AudioManager::FocusGranted);
        m_window.reset();
        m_state.reset();
        m_host.events.clear();
    }

    // The station's name and the RDS status as the radio reports them, per
    // display line mode and band: what shows, as "freq" (the frequency),
    // "name:<text>", and the page's "rds" and "tp" icons. Line mode 1 shows
    // the name under the frequency, line mode 0 in its place.
    void rdsDisplay_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("band");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("kept"); // the current name after

        // clang-format off
        QTest::newRow("line mode 1, FM: name under the frequency") << 1 << 0 << "NDR 2" << 1 << "freq name:NDR 2 rds" << "NDR 2";
        QTest::newRow("line mode 1, AM: no name, no icons") << 1 << 3 << "NDR 2" << 3 << "freq" << "NDR 2";
        QTest::newRow("line mode 1, no name reported") << 1 << 0 << "" << 1 << "freq name: rds" << "";
        QTest::newRow("line mode 0, FM: the name instead of the frequency") << 0 << 0 << "NDR 2" << 1 << "name:NDR 2 rds" << "NDR 2";
        QTest::newRow("line mode 0, FM, no name: the frequency") << 0 << 0 << "" << 1 << "freq rds" << "";
        QTest::newRow("line mode 0, AM: the frequency") << 0 << 4 << "NDR 2" << 1 << "freq" << "NDR 2";
        QTest::newRow("control characters are blanked") << 0 << 1 << "B\u00e4yern\u00b3" << 1 << "name:B yern  rds" << "B\u00e4yern\u00b3";
        QTest::newRow("RDS with TP") << 1 << 0 << "NDR 2" << 3 << "freq name:NDR 2 rds tp" << "NDR 2";
        QTest::newRow("RDS with TP, 7, line mode 0") << 0 << 1 << "NDR 2" << 7 << "name:NDR 2 rds tp" << "NDR 2";
        QTest::newRow("no RDS: the name is gone too") << 1 << 0 << "NDR 2" << 0 << "freq" << "";
        // clang-format on
    }

    void rdsDisplay()
    {
        QFETCH(int, mode);
        QFETCH(int, band);
        QFETCH(QString, name);
        QFETCH(int, status);
        QFETCH(QString, shown);
        QFETCH(QString, kept);

        makeWindow(QStringLiteral("RadioInfoDispLine=%1").arg(mode));
        prefs()->setBand(Band(band));
        m_window->onRdsName(name); // as the radio service's ProgramName arrives
        m_window->onstatusChanged(status);

        auto *stack = player()->findChild<QStackedWidget *>("stackedWidget_tuner");
        QCOMPARE(stack->currentWidget()->objectName(), QLatin1String(mode == 1 ? "page_tuner_01" : "page_tuner_02"));
        QStringList visible;
        if (label(mode == 1 ? "Txt_0035_rds_freq" : "Txt_0019_rds_freq")->isVisibleTo(player()))
            visible << QStringLiteral("freq");
        if (QLabel *nameLabel = label(mode == 1 ? "Txt_0037_rds_name" : "Txt_0018_rds_name");
            nameLabel->isVisibleTo(player()))
            visible << QStringLiteral("name:") + nameLabel->text();
        if (label(mode == 1 ? "Icn_0020_rds" : "Icn_0015_rds")->isVisibleTo(player()))
            visible << QStringLiteral("rds");
        if (label(mode == 1 ? "Icn_0021_tp" : "Icn_0016_tp")->isVisibleTo(player()))
            visible << QStringLiteral("tp");
        QCOMPARE(visible.join(QLatin1Char(' ')), shown);
        QCOMPARE(prefs()->curRdsName(), kept);
        QCOMPARE(prefs()->rdsState(), status);
    }

    void presetIsNamedAfterItsStation_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("report");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("kept");
        // clang-format off
        QTest::newRow("a name names the lit preset") << "" << "SWR3" << "SWR3" << "SWR3";
        QTest::newRow("no name forgets it") << "OLD" << "" << "97.50" << "";
        QTest::newRow("the screen's own empty name changes nothing") << "OLD" << "<screen>" << "OLD" << "OLD";
        QTest::newRow("a stored name's letters the label cannot draw are blanked there") << "NDR\u00e4 2" << "<screen>" << "NDR  2" << "NDR\u00e4 2";
        // clang-format on
    }

    void presetIsNamedAfterItsStation()
    {
        QFETCH(QString, stored);
        QFETCH(QString, report);
        QFETCH(QString, label);
        QFETCH(QString, kept);

        makeWindow();
        prefs()->saveRdsName(BAND_FM1, 1, stored);
        prefs()->setCurrPlayFreq(9750);
        player()->checkedId(1);
        player()->updateLabelFreq();
        if (report == QLatin1String("<screen>"))
            player()->onRdsName(QString());
        else
            m_window->onRdsName(report); // the stack turns "" into "NULL"
        QCOMPARE(this->label("Txt_0024_f2")->text(), label);
        // A name stands to the left, a frequency in the centre.
        QCOMPARE(this->label("Txt_0024_f2")->alignment() & (Qt::AlignLeft | Qt::AlignHCenter),
                 kept.isEmpty() ? Qt::AlignHCenter : Qt::AlignLeft);
        QCOMPARE(this->label("Txt_0472_f13")->text(), QStringLiteral("87.50")); // FM3's presets too
        QCOMPARE(prefs()->rdsName(BAND_FM1, 1), kept);
        if (report != QLatin1String("<screen>"))
            QCOMPARE(m_state->settingsValue("Tuner/rdsName").toString(), kept);
    }

    // 0 and 10 reach the screen; 31 reaches the rule on its own and is not
    // shown (the edge drops what lies beyond).
    void programmeTypeReachesTheScreen()
    {
        makeWindow();
        QSignalSpy shown(player(), &TunerPlayer::PTYCurrentType);
        QSignalSpy delivered(m_window->findChild<RadioEdge *>(), SIGNAL(ptyChanged(int,QString)));
        const QList<std::pair<int, int>> reportsAndStored{{0, 0}, {31, 0}, {10, 10}};
        for (const auto &[pty, stored] : reportsAndStored) {
            const int before = delivered.count();
            m_fakes->inServiceThread([&, pty = pty] { emit m_fakes->radio()->ptyChanged(pty, QStringLiteral("x")); });
            QTRY_COMPARE(delivered.count(), before + 1); // alone: nothing to coalesce it with
            QCOMPARE(prefs()->PTYtype(), stored);
        }
        QCOMPARE(shown, (QList<QList<QVariant>>{{0}, {10}}));
    }

    void optionSwitchesReachTheRadio_data()
    {
        QTest::addColumn<QString>("slot");
        QTest::addColumn<int>("workStatus");
        QTest::addColumn<QStringList>("radio");
        // Preferences here: TA on, AF off, Regional on, Local on.
        // clang-format off
        QTest::newRow("TA") << "onSetTa" << 0 << QStringList{"rdsCtrl(true,false,true)", "setTa(true)"};
        QTest::newRow("AF") << "onSetAf" << 0 << QStringList{"setAf(false)", "rdsCtrl(true,false,true)"};
        QTest::newRow("Regional") << "onSetRegional" << 0 << QStringList{"rdsCtrl(true,false,true)"};
        QTest::newRow("Local") << "onSetLocal" << 0 << QStringList{"config(true,1,1)"};
        QTest::newRow("Local during automatic store stops it") << "onSetLocal" << 1 << QStringList{"config(true,1,1)", "terminate()"};
        QTest::newRow("Local during a seek restarts it from the stored frequency")
            << "onSetLocal" << 2 << QStringList{"config(true,1,1)", "terminate()", "tune(8750)"};
        QTest::newRow("PTY search") << "onSetPty" << 0 << QStringList{"ptySearch(10)"};
        QTest::newRow("PTY search during a seek") << "onSetPty" << 3 << QStringList{"terminate()", "tune(8750)", "ptySearch(10)"};
        // clang-format on
    }

    void optionSwitchesReachTheRadio()
    {
        QFETCH(QString, slot);
        QFETCH(int, workStatus);
        QFETCH(QStringList, radio);
        makeWindow();
        prefs()->setTa(true);
        prefs()->setAf(false);
        prefs()->setRegional(true);
        prefs()->setLocal(true);
        player()->onWorkStatus(workStatus);
        prefs()->setPresetIndex(3);
        const bool ptySearch = slot == QLatin1String("onSetPty");
        if (ptySearch)
            player()->onSetPty(10);
        else
            QVERIFY(QMetaObject::invokeMethod(player(), qPrintable(slot)));
        QCOMPARE(m_fakes->describedCalls(m_fakes->radio()), radio);
        QCOMPARE(prefs()->presetIndex(), ptySearch ? 0 : 3); // the search leaves the presets
    }

    // The traffic/alarm interrupts through the main window, with its screens
    // up (the popup) or not built yet (the bookkeeping alone), and the media
    // player's status, which follows the source and its focus. Steps: start
    // (audio focus asked), tpN (the radio's report), tap (the popup's
    // Cancel), keyN (a source key), focusN, src6 (the announcement source),
    // seek (work status 2), refused and granted (the focus answer to come),
    // show, stop, destroy (the window), hide (the popup), touch (on the popup),
    // am, nosupport.
    void interrupts_data()
    {
        QTest::addColumn<bool>("screens");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("popup"); // its text, "" for none
        QTest::addColumn<QString>("mcu");   // in short
        QTest::addColumn<QString>("radio"); // terminate, tune, seek and taAlarmCancel calls
        QTest::addColumn<QString>("host");
        // "interrupt=N", the interrupt flags set, and the media player's status unless stopped
        QTest::addColumn<QString>("flags");

        // clang-format off
        QTest::newRow("an announcement raises the popup") << true << "start tp3" << "Traffic" << "ch on" << "" << "" << "interrupt=2 ta playing";
        QTest::newRow("its end closes it") << true << "start tp3 tp4" << "" << "ch on off off" << "" << "" << "playing";
        QTest::newRow("an alarm raises the popup") << true << "start tp5" << "Alarm" << "ch on" << "" << "" << "interrupt=1 alarm playing";
        QTest::newRow("an announcement during an alarm waits for its end") << true << "start tp5 tp3" << "Alarm" << "ch on" << "" << "" << "interrupt=1 ta alarm playing";
        QTest::newRow("... and comes when the alarm ends") << true << "start tp5 tp3 tp6" << "Traffic" << "ch on off off on" << "" << "" << "interrupt=2 ta playing";
        QTest::newRow("Cancel on the announcement") << true << "start tp3 tap" << "" << "ch on beep off" << "taAlarmCancel(1)" << "1008:5" << "interrupt=2 ta cancelTa playing";
        QTest::newRow("a cancelled announcement ends, an alarm comes and goes: nothing is left")
            << true << "start tp3 tap tp4 tp5 tp6" << "" << "ch on beep off off on off off" << "taAlarmCancel(1)" << "1008:5" << "playing";
        QTest::newRow("Cancel on an alarm") << true << "start tp5 tap" << "" << "ch on beep off" << "" << "1008:5" << "interrupt=1 alarm cancelAlarm playing";
        QTest::newRow("Cancel on an alarm over an announcement brings it back")
            << true << "start tp3 tp5 tap" << "Traffic" << "ch on on beep off on" << "" << "" << "interrupt=2 ta alarm cancelAlarm playing";
        QTest::newRow("cancel key on the announcement") << true << "start tp3 key66" << "" << "ch on beep off" << "taAlarmCancel(1) taAlarmCancel(1)" << "1008:5" << "interrupt=2 ta cancelTa playing";
        QTest::newRow("touches on the popup stay there, even over the seek key") << true << "start tp3 touch" << "Traffic" << "ch on" << "" << "" << "interrupt=2 ta playing";
        QTest::newRow("a hidden popup ignores Cancel") << true << "start tp5 hide tap" << "Alarm" << "ch on" << "" << "" << "interrupt=1 alarm playing";
        QTest::newRow("no popup on AM") << true << "am start tp3" << "" << "ch" << "" << "" << "interrupt=2 playing";
        QTest::newRow("no popup without AF/TA/TP support") << true << "nosupport start tp3" << "" << "ch" << "" << "" << "interrupt=2 playing";
        QTest::newRow("announcement starts and ends") << false << "start tp3 tp4" << "" << "ch on off" << "" << "" << "playing";
        QTest::newRow("announcement while inactive is noted, shown at start") << false << "tp3 start" << "" << "ch on" << "" << "" << "interrupt=2 ta playing";
        QTest::newRow("announcement ends while inactive") << false << "tp3 tp4 start" << "" << "ch" << "" << "" << "playing";
        QTest::newRow("alarm over a live announcement, which comes back") << false << "start tp3 tp5 tp6" << "" << "ch on on off on" << "" << "" << "interrupt=2 ta playing";
        QTest::newRow("announcement during an alarm waits for its end") << false << "start tp5 tp3 tp6" << "" << "ch on off on" << "" << "" << "interrupt=2 ta playing";
        QTest::newRow("announcement ends during an alarm: it does not come back") << false << "start tp3 tp5 tp4 tp6" << "" << "ch on on off" << "" << "" << "playing";
        QTest::newRow("alarm ends during an announcement that came after it") << false << "start tp5 tp3 tp6 tp4" << "" << "ch on off on off" << "" << "" << "playing";
        QTest::newRow("a seek ends the announcement's status: its end switches nothing") << false << "start tp3 seek tp4" << "" << "ch on" << "" << "" << "playing";
        QTest::newRow("alarm while inactive, shown at start") << false << "tp5 start" << "" << "ch on" << "" << "" << "interrupt=1 alarm playing";
        QTest::newRow("cancel key during an announcement")
            << false << "start tp3 key66" << "" << "ch on beep off" << "taAlarmCancel(1)" << "1008:5" << "interrupt=2 ta cancelTa playing";
        QTest::newRow("cancel key during an alarm") << false << "start tp5 key114" << "" << "ch on beep off" << "" << "1008:5" << "interrupt=1 alarm cancelAlarm playing";
        QTest::newRow("cancel key on an alarm over a live announcement brings it back")
            << false << "start tp3 tp5 key163" << "" << "ch on on beep off on" << "" << "" << "interrupt=2 ta alarm cancelAlarm playing";
        QTest::newRow("cancel key without an interrupt") << false << "start key176" << "" << "ch off" << "" << "" << "playing";
        QTest::newRow("source 6 lifts the announcement's cancel")
            << false << "start tp3 key66 src6" << "" << "ch on beep off" << "taAlarmCancel(1)" << "1008:5" << "interrupt=2 ta playing";
        QTest::newRow("focus lost during an announcement")
            << false << "start tp3 focus-1" << "" << "ch on off" << "terminate() taAlarmCancel(1)" << "" << "interrupt=2 ta";
        QTest::newRow("announcement ends after focus was lost")
            << false << "start tp3 focus-1 tp4" << "" << "ch on off off" << "terminate() taAlarmCancel(1)" << "" << "";
        QTest::newRow("alarm ends after focus was lost") << false << "start tp5 focus-1 tp6" << "" << "ch on off off" << "terminate()" << "" << "";
        QTest::newRow("focus lost while seeking retunes") << false << "start seek focus-2" << "" << "ch" << "terminate() tune(8750)" << "" << "paused";
        QTest::newRow("other focus changes are ignored") << false << "start tp3 focus-3 focus1" << "" << "ch on" << "" << "" << "interrupt=2 ta playing";
        QTest::newRow("after focus loss an announcement is only noted") << false << "start focus-1 tp3" << "" << "ch" << "terminate()" << "" << "interrupt=2";
        QTest::newRow("refused focus starts nothing") << false << "tp3 refused start" << "" << "" << "" << "" << "interrupt=2";
        QTest::newRow("showing the window starts it") << false << "tp3 refused start granted show" << "" << "ch on" << "" << "" << "interrupt=2 ta playing";
        QTest::newRow("focus back after a while plays again") << false << "start focus-2 focus1" << "" << "ch" << "terminate()" << "" << "playing";
        QTest::newRow("... but no other code does") << false << "start focus-2 focus-3" << "" << "ch" << "terminate()" << "" << "paused";
        QTest::newRow("focus back after losing it for good stays stopped") << false << "start focus-1 focus1" << "" << "ch" << "terminate()" << "" << "";
        QTest::newRow("the source stopped") << false << "start stop" << "" << "ch" << "" << "" << "";
        QTest::newRow("the window destroyed") << false << "start destroy" << "" << "ch" << "" << "deleteDelay" << "";
        // clang-format on
    }

    void interrupts()
    {
        QFETCH(bool, screens);
        QFETCH(QString, steps);
        QFETCH(QString, popup);
        QFETCH(QString, mcu);
        QFETCH(QString, radio);
        QFETCH(QString, host);
        QFETCH(QString, flags);

        const QStringList stepList = steps.split(QLatin1Char(' '));
        const bool am = stepList.contains(QStringLiteral("am"));
        makeWindow(stepList.contains(QStringLiteral("nosupport")) ? QStringLiteral("RdsAfTaTpSupport=0") : QString(),
                   screens);
        if (am)
            prefs()->setBand(BAND_AM1);
        if (screens)
            player()->onFrequencyChanged(am ? 999 : 9810, int(prefs()->band()));
        for (const QString &step : stepList) {
            if (step == QLatin1String("start")) {
                m_window->start();
            } else if (step.startsWith(QLatin1String("tp"))) {
                m_window->onPiTpStatus(step.mid(2).toInt());
            } else if (step == QLatin1String("tap")) {
                QVERIFY(player()->interruptPopup());
                auto *cancel = player()->interruptPopup()->findChild<QAbstractButton *>("Key_0347_cancel");
                QTest::mouseClick(cancel, Qt::LeftButton);
            } else if (step == QLatin1String("hide")) {
                player()->interruptPopup()->hide();
                player()->interruptPopup()->onInterruptType(INTERRUPT_NONE); // leaves the text as it is
            } else if (step == QLatin1String("touch")) {
                QWidget *seek = player()->findChild<QWidget *>("Key_0029_seek_plus");
                QWindow *window = m_window->screenStack()->windowHandle();
                QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier,
                                  seek->mapTo(m_window->screenStack(), seek->rect().center()));
                QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, QPoint(400, 400));
                QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, QPoint(400, 200)); // a swipe's length
            } else if (step.startsWith(QLatin1String("key"))) {
                KeyEvent key(Qx::KeyShortReleased, step.mid(3).toInt());
                QVERIFY(m_window->sourceKeyEvent(&key));
            } else if (step.startsWith(QLatin1String("focus"))) {
                m_window->onAudioFocusChange(step.mid(5).toInt());
            } else if (step == QLatin1String("src6")) {
                m_window->onSourceChange(0, 6);
            } else if (step == QLatin1String("seek")) {
                m_window->onWorkStatus(2);
            } else if (step == QLatin1String("refused") || step == QLatin1String("granted")) {
                AudioManager::instance()->setFocusResult(step == QLatin1String("refused") ? AudioManager::FocusRefused
                                                                                          : AudioManager::FocusGranted);
            } else if (step == QLatin1String("show")) {
                m_window->onShow();
            } else if (step == QLatin1String("stop")) {
                m_window->stop();
            } else if (step == QLatin1String("destroy")) {
                m_window->onDestroy();
            }
        }
        QCoreApplication::processEvents(); // deferred deletes and posted host events
        QCOMPARE(mcuInShort(), mcu);
        const QRegularExpression interruptCall(QStringLiteral("^(terminate|tune|seek\\w*|taAlarmCancel)\\("));
        QCOMPARE(m_fakes->describedCalls(m_fakes->radio()).filter(interruptCall).join(QLatin1Char(' ')), radio);
        QCOMPARE(m_host.events.join(QLatin1Char(' ')), host);
        QStringList state = interruptFlags();
        if (const QString playback = m_window->nowPlaying()->playbackStatus(); playback != QLatin1String("Stopped"))
            state << playback.toLower();
        QCOMPARE(state.join(QLatin1Char(' ')), flags);
        if (!screens)
            return;
        c35_011_interrupt_on_tuner *shown = player()->interruptPopup();
        QCOMPARE(shown ? shown->taAlarmText() : QString(), popup);
        if (shown)
            QCOMPARE(shown->isVisible(), !stepList.contains(QStringLiteral("hide")));
        QCOMPARE(player()->interruptState(), popup.isEmpty() ? 0 : popup == QLatin1String("Alarm") ? 5 : 3);
        // Whichever page the interrupt left up shows the tuned frequency, not the form's placeholder.
        QWidget *page = player()->findChild<QStackedWidget *>("stackedWidget_tuner")->currentWidget();
        const auto labels = page->findChildren<QLabel *>(QRegularExpression("^Txt_00(19|35)_rds_freq$"));
        QCOMPARE(labels.size(), 1);
        QCOMPARE(labels.first()->text(), QLatin1String(am ? "999" : "98.10"));
    }

    // What a hostile client may send changes nothing and reaches no service.
    void oddCallsChangeNothing()
    {
        makePlayerWithClient();
        const QVariantMap before = m_window->nowPlaying()->metadata();
        for (const char *method : {"Play", "Pause", "PlayPause", "Stop"})
            QCOMPARE(m_client->call(QLatin1String(method)).type(), QDBusMessage::ReplyMessage);
        m_client->call(QStringLiteral("Seek"), {std::numeric_limits<qlonglong>::min()});
        m_client->call(QStringLiteral("SetPosition"),
                       {QVariant::fromValue(QDBusObjectPath("/no/such/track")), std::numeric_limits<qlonglong>::max()});
        QCOMPARE(m_client->call(QStringLiteral("Seek"), {QStringLiteral("not a number")}).type(),
                 QDBusMessage::ErrorMessage);
        m_client->setProperty(QStringLiteral("Volume"), -1e308);
        m_client->setProperty(QStringLiteral("Rate"), QStringLiteral("fast"));
        const QDBusMessage open = m_client->call(QStringLiteral("OpenUri"), {QStringLiteral("file:///etc/passwd")});
        QCOMPARE(open.type(), QDBusMessage::ErrorMessage);
        QCOMPARE(open.errorName(), QStringLiteral("org.freedesktop.DBus.Error.NotSupported"));
        QCOMPARE(m_client->property(QStringLiteral("Volume")).toDouble(), 1.0);
        QCOMPARE(m_client->property(QStringLiteral("Rate")).toDouble(), 1.0);
        const auto rootProperty = [&](const char *name) {
            return m_client->property(QLatin1String(name), QStringLiteral("org.mpris.MediaPlayer2")).toString();
        };
        QCOMPARE(rootProperty("Identity"), QStringLiteral("Nilo tuner"));
        // Shells find the player's application by the host's desktop file.
        QCOMPARE(rootProperty("DesktopEntry"), QStringLiteral("tst_rdsinterrupts"));
        QGuiApplication::setDesktopFileName(QStringLiteral("nilo-tuner-host"));
        QCOMPARE(rootProperty("DesktopEntry"), QStringLiteral("nilo-tuner-host"));
        QCOMPARE(m_window->nowPlaying()->metadata(), before);
        forgetCalls();
        QCOMPARE(radioCalls(), QStringList());
        QCOMPARE(mcuCalls(), QStringList());
    }

    // Thousands of Next in a row: only preset stepping reaches the radio.
    void nextFloodOnlyStepsPresets()
    {
        makePlayerWithClient();
        // From another program (Qt's in-process path for the tuner's own connection crashed under it).
        for (int i = 0; i < 2000; ++i)
            m_client->send(i % 3 ? "Next" : "Previous");
        QCOMPARE(m_client->call(QStringLiteral("Next")).type(), QDBusMessage::ReplyMessage);
        const QStringList calls = radioCalls();
        QVERIFY(calls.size() >= 2001);
        QCOMPARE(calls.filter(QRegularExpression("^(setPreset|setTa|setAf|setband)\\(")), calls);
        QCOMPARE(mcuCalls(), QStringList());
    }

    // The title is the station as the display line shows it, whatever the
    // preferences hold: a preset's empty stored name clears the line while
    // the broadcast name is still current. Every key is typed as MPRIS types
    // it: strict clients (a desktop shell, the Bluetooth bridge) drop a whole
    // update with one key of another type.
    void metadataFollowsTheStation_data()
    {
        QTest::addColumn<int>("freq");
        QTest::addColumn<int>("band");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("pty");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("album");
        QTest::addColumn<QString>("frequency");
        QTest::addColumn<QStringList>("genre");
        // clang-format off
        QTest::newRow("FM without a name") << 9450 << 0 << "" << 0 << "94.50 MHz" << "FM1" << "94.50 MHz" << QStringList();
        QTest::newRow("FM with a name and a programme type")
            << 9450 << 1 << "SWR3" << 10 << "SWR3" << "FM2" << "94.50 MHz" << QStringList{"Pop Music"};
        QTest::newRow("FM, name cleared") << 9450 << 2 << "NULL" << 1 << "94.50 MHz" << "FM3" << "94.50 MHz" << QStringList{"News"};
        QTest::newRow("AM: no name shown") << 999 << 3 << "BBC" << 0 << "999 kHz" << "AM1" << "999 kHz" << QStringList();
        // clang-format on
    }

    void metadataFollowsTheStation()
    {
        QFETCH(int, freq);
        QFETCH(int, band);
        QFETCH(QString, name);
        QFETCH(int, pty);
        QFETCH(QString, title);
        QFETCH(QString, album);
        QFETCH(QString, frequency);
        QFETCH(QStringList, genre);
        makePlayerWithClient();
        Client &client = *m_client;
        prefs()->setBand(Band(band));
        m_window->onCreate();
        m_window->start(); // what it follows is in the interrupt table; here, how a client sees it
        m_fakes->inServiceThread([&] {
            emit m_fakes->radio()->stationChanged(freq, band);
            emit m_fakes->radio()->ProgramName(name);
            emit m_fakes->radio()->ptyChanged(pty, QString());
        });
        QTRY_COMPARE(client.lastMetadata("xesam:title").toString(), title);
        QTRY_COMPARE(client.lastMetadata("xesam:genre").toStringList(), genre);
        QCOMPARE(client.last(QStringLiteral("PlaybackStatus")).toString(), QStringLiteral("Playing"));
        QCOMPARE(client.property(QStringLiteral("PlaybackStatus")).toString(), QStringLiteral("Playing"));
        QCOMPARE(client.lastMetadata("xesam:artist").toStringList(), QStringList{album + QLatin1Char(' ') + frequency});
        QCOMPARE(client.lastMetadata("xesam:album").toString(), album);
        QCOMPARE(client.lastMetadata("nilo:frequency").toInt(), freq);
        QCOMPARE(qdbus_cast<QDBusObjectPath>(client.lastMetadata("mpris:trackid")).path(),
                 QStringLiteral("/org/nilo/tuner/station/%1/%2").arg(album).arg(freq));
        const QMap<QString, QString> types{{"mpris:trackid", "o"}, {"xesam:title", "s"},       {"xesam:artist", "as"},
                                           {"xesam:album", "s"},   {"xesam:genre", "as"},      {"nilo:frequency", "i"},
                                           {"nilo:band", "i"},     {"nilo:programmeType", "i"}};
        QCOMPARE(client.metadataTypes(), types);
        QCOMPARE(qdbus_cast<QVariantMap>(client.property(QStringLiteral("Metadata"))).value("xesam:title").toString(),
                 title);
        // The screen clears the name on its own (a recalled preset with no
        // stored name): the title follows the screen, not the broadcast.
        m_window->screenStack()->RDSName(QString());
        QCOMPARE(prefs()->curRdsName(), name);
        QTRY_COMPARE(client.lastMetadata("xesam:title").toString(), frequency);
    }

    // 20 000 reports in a burst: a few announcements, at most one per 50 ms,
    // and the last one carries the last station.
    void floodIsAnnouncedCoalesced()
    {
        makePlayerWithClient();
        Client &client = *m_client;
        QElapsedTimer clock;
        clock.start();
        m_fakes->inServiceThread([&] {
            for (int i = 0; i < 20000; ++i)
                emit m_fakes->radio()->stationChanged(8750 + 5 * (i % 400), 0);
            emit m_fakes->radio()->stationChanged(10000, 0);
        });
        // The flood takes its time under an emulator or the sanitizers.
        QTRY_COMPARE_WITH_TIMEOUT(client.lastMetadata("nilo:frequency").toInt(), 10000, 60000);
        const qint64 elapsed = clock.elapsed();
        // A coarse timer may run up to 5 % early: 40 ms is the least spacing.
        QVERIFY2(client.changes.size() <= 1 + elapsed / 40, qPrintable(QString::number(client.changes.size())));
        QVERIFY(client.changes.size() < 300);
        // The same station again is no change: nothing is announced.
        const int announced = client.changes.size();
        m_fakes->inServiceThread([&] { emit m_fakes->radio()->stationChanged(10000, 0); });
        QTest::qWait(2 * NowPlaying::kCoalesceMs);
        QCOMPARE(client.changes.size(), announced);
    }

    // A second tuner in the process (or another one of ours on the bus) takes
    // an instance name; with that one taken too, it goes without a name.
    void aTakenNameGivesAnInstanceName_data()
    {
        QTest::addColumn<bool>("instanceTaken");
        QTest::newRow("the name taken") << false;
        QTest::newRow("the instance name taken too") << true;
    }

    void aTakenNameGivesAnInstanceName()
    {
        QFETCH(bool, instanceTaken);
        makePlayerWithClient();
        const QString instance
            = QStringLiteral("%1.instance%2").arg(NowPlaying::kServiceName).arg(QCoreApplication::applicationPid());
        QDBusConnection other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("other"));
        m_window.reset();
        // The window lets its name go without waiting for the bus: wait here.
        QTRY_VERIFY(
            !QDBusConnection::sessionBus().interface()->isServiceRegistered(QLatin1String(NowPlaying::kServiceName)));
        QVERIFY(other.registerService(QLatin1String(NowPlaying::kServiceName)));
        if (instanceTaken)
            QVERIFY(other.registerService(instance));
        WarningCounter warnings;
        MainWindow second;
        if (instanceTaken) {
            const QString noName = instance + QLatin1String(" is taken: the media-player interface has no name");
            QTRY_COMPARE(warnings.lines().filter(noName).size(), 1);
            QCOMPARE(second.nowPlaying()->serviceName(), QString());
        } else {
            QTRY_COMPARE(second.nowPlaying()->serviceName(), instance);
        }
        QDBusConnection::disconnectFromBus(QStringLiteral("other"));
    }

private:
    // A window whose media player has its name, and a client of it.
    void makePlayerWithClient()
    {
        makeWindow(QString(), false);
        QTRY_COMPARE(m_window->nowPlaying()->serviceName(), QLatin1String(NowPlaying::kServiceName));
        m_client = std::make_unique<Client>();
    }

    void makeWindow(const QString &vehicleKeys = QString(), bool screens = true)
    {
        newState(vehicleKeys);
        m_window = std::make_unique<MainWindow>();
        if (!screens) {
            forgetCalls();
            return;
        }
        m_window->onCreate();
        m_window->screenStack()->resize(800, 480);
        m_window->screenStack()->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window->screenStack()));
        forgetCalls();
    }

    TunerPlayer *player() const { return m_window->screenStack()->player(); }
    QLabel *label(const char *name) const { return player()->findChild<QLabel *>(QLatin1String(name)); }

    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Client> m_client;
    HostRecorder m_host;
};

QTEST_MAIN(tst_RdsInterrupts)
#include "tst_rdsinterrupts.moc"
