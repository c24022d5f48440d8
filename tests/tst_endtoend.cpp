// The simulator and the host app with the plug-in, as separate processes on
// the test's private bus, driven only through their bus interfaces.

#include "childprocess.h"

#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QImage>
#include <QtEndian>
#include <QtTest>

// How many pixels of two 800 x 480 frames differ by more than `levels` in
// some channel, outside `ignored`; -1 when a frame is missing.
static int pixelsApart(const QImage &first, const QImage &second, int levels, const QRect &ignored)
{
    const QImage a = first.convertToFormat(QImage::Format_RGB32);
    const QImage b = second.convertToFormat(QImage::Format_RGB32);
    if (a.size() != QSize(800, 480) || b.size() != a.size())
        return -1;
    int differing = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            const int apart = std::max(
                {std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
            differing += apart > levels && !ignored.contains(x, y);
        }
    }
    if (differing > 0)
        qInfo("%d pixels apart by more than %d levels", differing, levels);
    return differing;
}

// A window dump of `xwd` (32 bits a pixel, least significant byte first, as
// an X server on a little-endian machine writes it); null otherwise.
static QImage fromXwd(const QByteArray &dump)
{
    const auto field = [&dump](int index) { return qFromBigEndian<quint32>(dump.constData() + 4 * qsizetype(index)); };
    if (dump.size() < 100 || field(7) != 0 || field(11) != 32)
        return {};
    const int width = int(field(4)), height = int(field(5)), bytesPerLine = int(field(12));
    const qint64 offset = qint64(field(0)) + 12 * qint64(field(19)); // the header, then the colour map
    if (offset + qint64(bytesPerLine) * height > dump.size())
        return {};
    return QImage(reinterpret_cast<const uchar *>(dump.constData() + offset), width, height, bytesPerLine,
                  QImage::Format_RGB32)
        .copy();
}

static bool serviceUp(const QString &name)
{
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(name).value();
}

// The arm64 build under emulation draws the same frame as the native one, to
// the byte (same fonts, same Qt); any difference is a fault.
constexpr int kFrameLevels = 0;

class tst_EndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("TUNER_ROOT"), m_dir.path());
        env.insert(QStringLiteral("NILO_VEHICLE_CONF"), m_dir.path() + QStringLiteral("/vehicle.ini"));
        // Under an X server (the run with xvfb) the host gets a real window, and
        // touches come through the server's own pointer. Under weston the host
        // is a Wayland client, and the pointer reaches it through the compositor.
        m_wayland = qEnvironmentVariableIsSet("TUNER_E2E_WAYLAND");
        m_ivi = qEnvironmentVariable("TUNER_E2E_WAYLAND") == QLatin1String("ivi");
        m_parkAt = m_ivi ? QPoint(1000, 700) : QPoint(799, 479); // kiosk-shell: in the corner not compared
        m_realPointer = m_wayland || qEnvironmentVariableIsSet("TUNER_E2E_X11");
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), m_wayland       ? QStringLiteral("wayland")
                                                      : m_realPointer ? QStringLiteral("xcb")
                                                                      : QStringLiteral("offscreen"));
        m_sim.setEnvironment(env);
        if (m_ivi) { // every request the host makes of the compositor, to count its surfaces
            env.insert(QStringLiteral("WAYLAND_DEBUG"), QStringLiteral("client"));
            m_host.setStandardErrorFile(m_dir.filePath(QStringLiteral("host-wayland.log")));
        }
        m_host.setEnvironment(env);

        QVERIFY(m_sim.start(QStringLiteral(SIM_EXECUTABLE),
                            {"--state", m_dir.path() + "/sim.json", "--time-scale", "10"},
                            ChildProcess::Output::MergedCaptured));
        QTRY_VERIFY_WITH_TIMEOUT(serviceUp(QStringLiteral("com.nilo.mcu")), 10000);
        QVERIFY(m_host.start(QStringLiteral(HOST_EXECUTABLE), QStringList()));
        QTRY_VERIFY_WITH_TIMEOUT(serviceUp(QStringLiteral("nilo.TunerHost")), 15000);

        m_automation
            = std::make_unique<QDBusInterface>(QStringLiteral("nilo.TunerHost"), QStringLiteral("/Host"),
                                               QStringLiteral("nilo.TunerHost"), QDBusConnection::sessionBus());
        m_simControl
            = std::make_unique<QDBusInterface>(QStringLiteral("com.nilo.mcu"), QStringLiteral("/Simulator"),
                                               QStringLiteral("nilo.Simulator"), QDBusConnection::sessionBus());
        QVERIFY(m_automation->isValid());
        if (m_realPointer) {
            QProcess search;
            // weston's output window is known by its class.
            search.start(QStringLiteral("xdotool"),
                         m_wayland ? QStringList{"search", "--sync", "--class", "^Weston Compositor$"}
                                   : QStringList{"search", "--sync", "--name", "^Nilo tuner$"});
            QVERIFY(search.waitForFinished(10000));
            m_window = QString::fromLatin1(search.readAllStandardOutput()).section(QLatin1Char('\n'), 0, 0);
            QVERIFY2(!m_window.isEmpty(), "the window is not on the X server");
            // weston follows a pointer that entered its window: one inside it
            // from the start may never reach it. The screen's far corner is outside.
            if (m_wayland)
                QCOMPARE(QProcess::execute(QStringLiteral("xdotool"),
                                           {"mousemove", "9999", "9999", "mousemove", "--window", m_window, "0", "0"}),
                         0);
        }
    }

    void cleanupTestCase()
    {
        m_sim.terminate(); // a clean exit, which a sanitizer build checks; a host still running is killed
        m_sim.waitForFinished(3000);
    }

    void startsOnTheRegionsFirstFrequency()
    {
        QCOMPARE(text(QStringLiteral("Txt_0035_rds_freq")), QStringLiteral("87.50"));
        QCOMPARE(text(QStringLiteral("Txt_0036_rds_unit")), QStringLiteral("MHz"));
        const QString shot = m_dir.path() + QStringLiteral("/shot.png");
        QVERIFY(QDBusReply<bool>(m_automation->call(QStringLiteral("screenshot"), shot)).value());
        QFile file(shot);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.read(8), QByteArray("\x89PNG\r\n\x1a\n"));
    }

    // What the compositor shows is the host's own frame: weston's output, as
    // it drew it into its X window, against the host's grab. Under ivi-shell
    // the controller's first tile is the tuner's 800 x 480 at the top left.
    void compositorShowsTheHostsFrame()
    {
        if (!m_wayland)
            QSKIP("only under a Wayland compositor");
        QTRY_COMPARE_WITH_TIMEOUT(compositorApartFromHost(), 0, 5000);
    }

    // The start screen as another build of the same sources drew it. The arm64
    // cross build runs this test natively first, saving the frame
    // (TUNER_E2E_FRAME_OUT), then under emulation against that frame
    // (TUNER_E2E_FRAME_REFERENCE).
    void startScreenMatchesAnotherBuilds()
    {
        const QString out = qEnvironmentVariable("TUNER_E2E_FRAME_OUT");
        const QString reference = qEnvironmentVariable("TUNER_E2E_FRAME_REFERENCE");
        if (out.isEmpty() && reference.isEmpty())
            QSKIP("no other build to compare with");
        if (!out.isEmpty())
            QVERIFY(QDBusReply<bool>(m_automation->call(QStringLiteral("screenshot"), out)).value());
        if (reference.isEmpty())
            return;
        const QImage expected(reference);
        QVERIFY(!expected.isNull());
        QTRY_COMPARE_WITH_TIMEOUT(hostFrameApartFrom(expected, kFrameLevels, QRect()), 0, 10000);
    }

    void seekKeyLandsOnTheNextStation()
    {
        // The tuner screen takes the key (and beeps) before the main window would.
        const QDBusReply<bool> down
            = m_automation->call(QStringLiteral("sourceKey"), QStringLiteral("tuner.src"), 47, 1002);
        QCOMPARE(down.value(), true);
        const QDBusReply<bool> release
            = m_automation->call(QStringLiteral("sourceKey"), QStringLiteral("tuner.src"), 47, 1003);
        QCOMPARE(release.value(), true);
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0035_rds_freq")), QStringLiteral("88.00"), 10000);
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0037_rds_name")), QStringLiteral("BBC R2"), 10000);
        // The beep went to the MCU service.
        QTRY_VERIFY(simLog().contains("mcu: triggerBeep 0"));
    }

    void touchSeekAndHoldAPreset()
    {
        const QPoint seek = centreOf(QStringLiteral("Key_0029_seek_plus"));
        pointer("tap", seek);
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0035_rds_freq")), QStringLiteral("89.30"), 10000);
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0037_rds_name")), QStringLiteral("NDR 2"), 10000);

        // Held for 1500 ms, a preset takes the playing station.
        const QPoint preset = centreOf(QStringLiteral("Key_0032_p3"));
        pointer("press", preset);
        const QString conf = m_dir.path() + QStringLiteral("/system/etc/radio.conf");
        QTRY_COMPARE_WITH_TIMEOUT(QSettings(conf, QSettings::IniFormat).value("Freq/FM0/preset_2").toInt(), 8930, 5000);
        pointer("release", preset);
        QVERIFY(widget(QStringLiteral("Key_0032_p3")).value("checked").toBool());
        QTRY_VERIFY(simLog().contains("mcu: triggerBeep 1"));

        // A short tap recalls a preset.
        const int first = QSettings(conf, QSettings::IniFormat).value("Freq/FM0/preset_0").toInt();
        QVERIFY(first != 8930);
        pointer("tap", centreOf(QStringLiteral("Key_0030_p1")));
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0035_rds_freq")), QString::number(first / 100.0, 'f', 2),
                                  10000);
        QTRY_VERIFY(widget(QStringLiteral("Key_0030_p1")).value("checked").toBool());
        // The screen shows a recalled preset before the radio reports it. Once the
        // radio is there, its report reaches the host before the next tap does:
        // a late report would show preset 1 again for a moment after preset 3.
        QTRY_COMPARE_WITH_TIMEOUT(simState().value("frequency").toInt(), first, 5000);
        pointer("tap", preset);
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0035_rds_freq")), QStringLiteral("89.30"), 10000);
    }

    void trafficAnnouncementIsCancelled()
    {
        m_simControl->call(QStringLiteral("startTrafficAnnouncement"));
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0021_interrupt")), QStringLiteral("Traffic"), 10000);
        QTRY_VERIFY_WITH_TIMEOUT(simLog().contains("mcu: updateAudioStatus 7"), 10000);
        if (m_wayland) // the popup is part of the tuner's surface
            QTRY_COMPARE_WITH_TIMEOUT(compositorApartFromHost(), 0, 5000);

        const QPoint cancel = centreOf(QStringLiteral("Key_0347_cancel"));
        pointer("tap", cancel);
        QTRY_VERIFY_WITH_TIMEOUT(simLog().contains("mcu: updateAudioStatus 8"), 10000);
        QTRY_VERIFY_WITH_TIMEOUT(simLog().contains("radio: taAlarmCancel 1"), 10000);
        QTRY_VERIFY(widget(QStringLiteral("Txt_0021_interrupt")).isEmpty());
        const QDBusReply<QString> events = m_automation->call(QStringLiteral("hostEvents"));
        QVERIFY2(events.value().contains(QLatin1String("{\"type\":1008,\"value\":5}")), qPrintable(events.value()));
        m_simControl->call(QStringLiteral("endTrafficAnnouncement"));

        // An alarm comes and goes by itself.
        m_simControl->call(QStringLiteral("startAlarm"));
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0021_interrupt")), QStringLiteral("Alarm"), 10000);
        m_simControl->call(QStringLiteral("endAlarm"));
        QTRY_VERIFY_WITH_TIMEOUT(widget(QStringLiteral("Txt_0021_interrupt")).isEmpty(), 10000);
    }

    // The options in German and English, then a PTY search from them.
    void optionsAndAPtySearch()
    {
        const auto tap = [this](int x, int y) { pointer("tap", QPoint(x, y)); };
        const int logged = simLog().size();
        const bool taBefore = simState().value("ta").toBool();

        // The host switches languages while the tuner runs: the shown texts follow.
        const auto setLanguage = [this](const char *language) {
            return QDBusReply<bool>(m_automation->call(QStringLiteral("setLanguage"), QLatin1String(language))).value();
        };
        QVERIFY(setLanguage("de"));
        QCOMPARE(text(QStringLiteral("Txt_0017_band_name")), QStringLiteral("UKW"));
        const QPoint options = centreOf(QStringLiteral("Key_0025_option_menu"));
        tap(options.x(), options.y());
        QTRY_COMPARE(text(QStringLiteral("Txt_0453_title")), QStringLiteral("Radio-Optionen"));
        QVERIFY(setLanguage("en"));
        QCOMPARE(text(QStringLiteral("Txt_0453_title")), QStringLiteral("Radio Options"));
        if (m_wayland)
            QTRY_COMPARE_WITH_TIMEOUT(compositorApartFromHost(), 0, 5000);
        tap(400, 365); // the TA row, fourth of the list
        // Should it fail: a row that took the tap beeped, then switched TA.
        QTRY_VERIFY2(simState().value("ta").toBool() != taBefore,
                     qPrintable(QStringLiteral("the radio since: %1\nshown: %2")
                                    .arg(QString::fromUtf8(simLog().mid(logged)), shownTexts())));

        // Drag the list up to its last row, PTY, and open the PTY list.
        pointer("press", QPoint(400, 440));
        for (int y = 420; y >= 300; y -= 20)
            pointer("move", QPoint(400, y));
        QTest::qWait(300); // let the finger rest, so the release does not fling
        pointer("release", QPoint(400, 300));
        // A tap on a list still gliding only stops it: wait until it rests at its end.
        const auto list = [this] { return widget(QStringLiteral("Lst_0016_tuner_option_list")); };
        QTRY_VERIFY(!list().value("moving").toBool());
        QCOMPARE(list().value("scroll").toInt(), list().value("scrollEnd").toInt());
        tap(400, 436);
        QTRY_COMPARE(text(QStringLiteral("Txt_0090_title")), QStringLiteral("PTY"));

        // Information (code 3): the simulator has one such station, BBC R4 on 93.10.
        m_simControl->call(QStringLiteral("setTimeScale"), 100);
        tap(400, 295);
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0110_line1")), QStringLiteral("Searching"), 5000);
        QCOMPARE(text(QStringLiteral("Txt_0111_line2")), QStringLiteral("Information"));
        QTRY_VERIFY_WITH_TIMEOUT(widget(QStringLiteral("Txt_0110_line1")).isEmpty(), 10000); // found: the popup goes
        QCOMPARE(text(QStringLiteral("Txt_0090_title")), QStringLiteral("PTY"));
        QTRY_COMPARE_WITH_TIMEOUT(simState().value("frequency").toInt(), 9310, 5000);
        m_simControl->call(QStringLiteral("setTimeScale"), 10);
        // Five seconds later the option list is back.
        QTRY_COMPARE_WITH_TIMEOUT(text(QStringLiteral("Txt_0453_title")), QStringLiteral("Radio Options"), 8000);
        const QPoint back = centreOf(QStringLiteral("Key_0375_back"));
        tap(back.x(), back.y());
        QTRY_COMPARE(text(QStringLiteral("Txt_0035_rds_freq")), QStringLiteral("93.10"));
        QCOMPARE(text(QStringLiteral("Txt_0017_band_name")), QStringLiteral("FM")); // relabelled while hidden
    }

    // The rest of the car sees the tuner as a media player: playerctl lists
    // it, reads the station the screen shows, and steps the presets as the
    // steering wheel's keys do, without their beep.
    void mediaPlayerFollowsAndSteps()
    {
        QVERIFY(playerctl({"-l"}).split(QLatin1Char('\n')).contains(QStringLiteral("nilo_tuner")));
        const auto shownTitle = [this] {
            const QString name = text(QStringLiteral("Txt_0037_rds_name"));
            return name.isEmpty() ? text(QStringLiteral("Txt_0035_rds_freq")) + QStringLiteral(" MHz") : name;
        };
        const auto title = [] { return playerctl({"-p", "nilo_tuner", "metadata", "xesam:title"}); };
        // The player announces a change up to 50 ms after the screen shows it:
        // the two must agree in three reads in a row, longer apart than that.
        const auto agreeSteadily = [&] {
            QElapsedTimer clock;
            clock.start();
            int agreeing = 0;
            while (agreeing < 3 && clock.elapsed() < 10000) {
                agreeing = shownTitle() == title() ? agreeing + 1 : 0;
                QTest::qWait(60);
            }
            return agreeing == 3;
        };
        QVERIFY(agreeSteadily());
        QCOMPARE(playerctl({"-p", "nilo_tuner", "status"}), QStringLiteral("Playing"));
        const int beeps = simLog().count("mcu: triggerBeep");

        const QStringList presets{"Key_0030_p1", "Key_0031_p2"};
        for (const QString step : {"next", "next", "previous"}) {
            const int lit = widget(presets.at(0)).value("checked").toBool() && step == QLatin1String("next") ? 1 : 0;
            QCOMPARE(playerctl({"-p", "nilo_tuner", step}), QString());
            QTRY_VERIFY_WITH_TIMEOUT(widget(presets.at(lit)).value("checked").toBool(), 10000);
            QVERIFY(agreeSteadily());
            QCOMPARE(playerctl({"-p", "nilo_tuner", "metadata", "xesam:artist"}),
                     QStringLiteral("FM1 ") + text(QStringLiteral("Txt_0035_rds_freq")) + QStringLiteral(" MHz"));
        }
        QCOMPARE(simLog().count("mcu: triggerBeep"), beeps);
    }

    // Popups and option screens are drawn inside the one window: a second
    // top-level would be a stray surface that the controller places nowhere.
    void everythingStaysInOneIviSurface()
    {
        if (!m_ivi)
            QSKIP("only under ivi-shell");
        const QString requests = hostLog();
        QCOMPARE(requests.count(QRegularExpression(QStringLiteral("-> ivi_application@\\d+\\.surface_create\\("))), 1);
        QVERIFY(
            requests.contains(QStringLiteral(".surface_create(%1,").arg(qEnvironmentVariable("QT_IVI_SURFACE_ID"))));
    }

    void destroyAsksTheHostForDeletion()
    {
        m_automation->call(QStringLiteral("lifecycle"), QStringLiteral("onDestroy"));
        QTRY_VERIFY(
            QDBusReply<QString>(m_automation->call(QStringLiteral("hostEvents"))).value().contains("deleteDelay"));
    }

    void quitEndsTheHost()
    {
        m_automation->call(QStringLiteral("quit"));
        QVERIFY(m_host.waitForFinished(10000));
        // Under ivi-shell the host's own messages (a sanitizer's report too) are in its log.
        const QStringList messages = hostLog().split(QLatin1Char('\n')).filter(QRegularExpression("^[^[]"));
        QVERIFY2(m_host.exitedNormally(), qPrintable(messages.join(QLatin1Char('\n'))));
        QCOMPARE(m_host.exitCode(), 0);
    }

private:
    // A touch: "press", "move", "release" or "tap" at a point of the window.
    void pointer(const char *action, const QPoint &at)
    {
        if (!m_realPointer) {
            const QDBusMessage reply = m_automation->call(QLatin1String(action), at.x(), at.y());
            QVERIFY2(reply.type() == QDBusMessage::ReplyMessage, qPrintable(reply.errorMessage()));
            return;
        }
        QStringList xdotool{"mousemove", "--window", m_window, QString::number(at.x()), QString::number(at.y())};
        const QByteArray touch(action);
        if (touch == "press" || touch == "tap")
            xdotool << "mousedown"
                    << "1";
        if (touch == "release" || touch == "tap")
            xdotool << "mouseup"
                    << "1";
        QCOMPARE(QProcess::execute(QStringLiteral("xdotool"), xdotool), 0);
        // No signal tells when the host has taken the server's input: give it a turn.
        QTest::qWait(100);
    }

    // How many pixels of the compositor's output differ from the host's own
    // grab, weston's cursor parked off the compared part. The frequency's digits
    // reach the screen from their label's cached image but are drawn anew into
    // the grab: their antialiased edges differ by up to 8 levels (12 allowed).
    int compositorApartFromHost()
    {
        QProcess::execute(QStringLiteral("xdotool"), {"mousemove", "--window", m_window, QString::number(m_parkAt.x()),
                                                      QString::number(m_parkAt.y())});
        QProcess xwd;
        xwd.start(QStringLiteral("xwd"), {"-silent", "-id", m_window});
        if (!xwd.waitForFinished(5000))
            return -1;
        const QImage output = fromXwd(xwd.readAllStandardOutput());
        return hostFrameApartFrom(output.copy(0, 0, 800, 480), 12, QRect(800 - 32, 480 - 32, 32, 32));
    }

    // How many pixels of the host's own grab differ from `frame` (see pixelsApart).
    int hostFrameApartFrom(const QImage &frame, int levels, const QRect &ignored)
    {
        const QString own = m_dir.filePath(QStringLiteral("host.png"));
        if (!QDBusReply<bool>(m_automation->call(QStringLiteral("screenshot"), own)).value())
            return -1;
        return pixelsApart(QImage(own), frame, levels, ignored);
    }

    // The host's stderr under ivi-shell: its compositor requests, its own messages between them.
    QString hostLog() const
    {
        QFile log(m_dir.filePath(QStringLiteral("host-wayland.log")));
        return log.open(QIODevice::ReadOnly) ? QString::fromUtf8(log.readAll()) : QString();
    }

    QJsonArray shownWidgets()
    {
        const QDBusReply<QString> reply = m_automation->call(QStringLiteral("widgets"));
        return QJsonDocument::fromJson(reply.value().toUtf8()).array();
    }

    QJsonObject widget(const QString &name)
    {
        for (const QJsonValue value : shownWidgets()) {
            if (value.toObject().value(QStringLiteral("name")).toString() == name)
                return value.toObject();
        }
        return QJsonObject();
    }

    QPoint centreOf(const QString &name)
    {
        const QJsonObject w = widget(name);
        return QPoint(w.value("x").toInt() + w.value("w").toInt() / 2, w.value("y").toInt() + w.value("h").toInt() / 2);
    }

    QString text(const QString &name) { return widget(name).value(QStringLiteral("text")).toString(); }
    // Every visible text, to tell which screen is up when a step fails.
    QString shownTexts()
    {
        QStringList shown;
        for (const QJsonValue value : shownWidgets()) {
            const QString text = value.toObject().value(QStringLiteral("text")).toString();
            if (!text.isEmpty())
                shown << value.toObject().value(QStringLiteral("name")).toString() + QLatin1Char('=') + text;
        }
        return shown.join(QLatin1String(", "));
    }
    // playerctl, a tool of this machine, on the test's bus; what it printed, trimmed.
    static QString playerctl(const QStringList &arguments)
    {
        ChildProcess client;
        client.setEmulated(false);
        if (!client.start(QStandardPaths::findExecutable(QStringLiteral("playerctl")), arguments,
                          ChildProcess::Output::Captured)
            || !client.waitForFinished(10000))
            return QStringLiteral("(playerctl did not run)");
        return QString::fromUtf8(client.readAll()).trimmed();
    }
    QJsonObject simState()
    {
        const QDBusReply<QString> state = m_simControl->call(QStringLiteral("state"));
        return QJsonDocument::fromJson(state.value().toUtf8()).object();
    }
    // Everything the simulator has printed so far (the MCU logs each request).
    const QByteArray &simLog() { return m_simLog += m_sim.readAll(); }

    QTemporaryDir m_dir;
    QByteArray m_simLog;
    ChildProcess m_sim;
    ChildProcess m_host;
    bool m_wayland = false;
    bool m_ivi = false; // under ivi-shell with hmi-controller
    QPoint m_parkAt;    // where the pointer rests while the output is compared
    bool m_realPointer = false;
    QString m_window; // the X window the real pointer acts in: the host's, or weston's
    std::unique_ptr<QDBusInterface> m_automation;
    std::unique_ptr<QDBusInterface> m_simControl;
};

QTEST_GUILESS_MAIN(tst_EndToEnd)
#include "tst_endtoend.moc"
