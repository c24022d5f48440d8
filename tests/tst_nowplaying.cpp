// The tuner as a media player on the test's private bus, as an MPRIS client
// sees it: its name, its properties, what they follow, and how often they are
// announced.

#include "audiomanager.h"
#include "mainwidget.h"
#include "mainwindow.h"
#include "nowplaying.h"
#include "tunerfixture.h"
#include "warningcounter.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMetaType>
#include <QDBusPendingCall>
#include <QElapsedTimer>
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

} // namespace

class tst_NowPlaying : public QObject, private TunerFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        newState();
        AudioManager::instance()->setFocusResult(AudioManager::FocusGranted);
        m_window = std::make_unique<MainWindow>();
        QTRY_COMPARE(m_window->nowPlaying()->serviceName(), QLatin1String(NowPlaying::kServiceName));
        m_client = std::make_unique<Client>();
        forgetCalls();
    }

    void cleanup()
    {
        m_client.reset();
        m_window.reset();
        m_state.reset();
    }

    // What a hostile client may send changes nothing and reaches no service.
    void oddCallsChangeNothing()
    {
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
        QCOMPARE(rootProperty("DesktopEntry"), QStringLiteral("tst_nowplaying"));
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
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Client> m_client;
};

QTEST_MAIN(tst_NowPlaying)
#include "tst_nowplaying.moc"
