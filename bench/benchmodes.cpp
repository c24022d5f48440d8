#include "benchmodes.h"

#include "busaddress.h"
#include "listrows.h"
#include "mainwidget.h"
#include "mainwindow.h"
#include "nowplaying.h"
#include "optionwidget.h"
#include "preferences.h"
#include "scrolllabel.h"
#include "theme.h"
#include "tunerfunction.h"
#include "tuneroptions.h"
#include "tunerrig.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QLabel>
#include <QTextStream>
#include <QThread>
#include <QTimer>
#include <QtTest/QTest>

#include <malloc.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <functional>

namespace benchmode {

namespace {

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

// Stamps the moment a label that shows a text other than `before` has been
// painted: the user sees the new text from then on.
class RepaintStamp : public QObject
{
public:
    explicit RepaintStamp(QLabel *label)
        : m_label(label)
    {
        label->installEventFilter(this);
    }

    void arm() { m_before = m_label->text(), m_paintedAt = 0; }
    // Runs the event loop until the changed label has been painted.
    qint64 waitForPaint()
    {
        while (!m_paintedAt)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return m_paintedAt;
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Paint || m_paintedAt || m_label->text() == m_before)
            return QObject::eventFilter(watched, event);
        // Delivered here, so that the stamp follows the painting.
        watched->event(event);
        m_paintedAt = benchClockNs();
        return true;
    }

private:
    QLabel *m_label;
    QString m_before;
    qint64 m_paintedAt = 0;
};

qint64 median(QVector<qint64> samples)
{
    std::sort(samples.begin(), samples.end());
    return samples.isEmpty() ? 0 : samples.at(samples.size() / 2);
}

// Alternates between two stations so that every report changes the label.
int stationFor(int iteration)
{
    return iteration % 2 ? 9450 : 8800;
}

constexpr int kWarmUpReports = 20;

QVector<qint64> measureReports(RepaintStamp &stamp, int iterations, const std::function<qint64(int)> &report)
{
    QVector<qint64> samples;
    for (int i = -kWarmUpReports; i < iterations; ++i) {
        stamp.arm();
        const qint64 sent = report(stationFor(i));
        const qint64 painted = stamp.waitForPaint();
        if (i >= 0)
            samples.append(painted - sent);
    }
    return samples;
}

// The least a program can do with the report: set it as a label's text.
class BareReceiver : public QObject
{
    Q_OBJECT
public:
    explicit BareReceiver(QLabel *label)
        : m_label(label)
    {}

public slots:
    void onStationChanged(int freq, int) { m_label->setText(QString::number(freq / 100.0, 'f', 2)); }

private:
    QLabel *m_label;
};

qint64 processCpuNs()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return qint64(now.tv_sec) * 1000000000 + now.tv_nsec;
}

// Share of one core that this process used while the event loop ran `ms`.
double cpuShareOver(int ms)
{
    const qint64 cpuBefore = processCpuNs();
    const qint64 wallBefore = benchClockNs();
    spin(ms);
    return 100.0 * double(processCpuNs() - cpuBefore) / double(benchClockNs() - wallBefore);
}

// Counts complete writes of the watched files, seen from outside through
// inotify: a rename onto the name, or a write closed on it.
class RewriteCounter
{
public:
    explicit RewriteCounter(const QStringList &files)
        : m_fd(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        for (const QString &file : files) {
            const int slash = file.lastIndexOf(QLatin1Char('/'));
            const int watch = inotify_add_watch(m_fd, QFile::encodeName(file.left(slash)).constData(),
                                                IN_MOVED_TO | IN_CLOSE_WRITE);
            m_names.insert(watch, file.mid(slash + 1));
        }
    }
    ~RewriteCounter() { ::close(m_fd); }

    // The writes of each file since the last call, in the order given.
    QVector<int> take()
    {
        QHash<QString, int> counts;
        alignas(inotify_event) char buffer[4096];
        ssize_t length;
        while ((length = read(m_fd, buffer, sizeof buffer)) > 0) {
            for (char *at = buffer; at < buffer + length;) {
                const auto *event = reinterpret_cast<inotify_event *>(at);
                if (event->len && m_names.value(event->wd) == QString::fromLocal8Bit(event->name))
                    ++counts[m_names.value(event->wd)];
                at += sizeof(inotify_event) + event->len;
            }
        }
        QVector<int> result;
        for (const QString &name : qAsConst(m_order))
            result.append(counts.value(name));
        return result;
    }

    void setOrder(const QStringList &names) { m_order = names; }

private:
    int m_fd;
    QHash<int, QString> m_names;
    QStringList m_order;
};

constexpr int kAfterFlushMs = 300;
const char *const kPresetKeyOfBand[] = {"Key_0030_p1", "Key_0393_p7", "Key_0399_p13", "Key_0406_p1", "Key_0412_p7"};

} // namespace

int stationReport(bool bare, int iterations)
{
    QVector<qint64> samples;
    if (bare) {
        FakeServices services;
        if (!services.start())
            return 1;
        QWidget window;
        window.setFixedSize(800, 480);
        // The tuner's frequency label: its place, font and alignment.
        auto *label = new QLabel(QStringLiteral("87.50"), &window);
        label->setFont(cm::digitFont(86));
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        label->setGeometry(207, 114, 222, 197);
        BareReceiver receiver(label);
        using namespace tuner::bus;
        QDBusConnection::sessionBus().connect(QLatin1String(kSystemService), QLatin1String(kRadioPath),
                                              QStringLiteral("nilo.RadioService"), QStringLiteral("stationChanged"),
                                              &receiver, SLOT(onStationChanged(int,int)));
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            return 1;
        RepaintStamp stamp(label);
        samples = measureReports(stamp, iterations, [&](int freq) {
            qint64 sent = 0;
            services.inServiceThread([&] {
                sent = benchClockNs();
                emit services.radio()->stationChanged(freq, 1);
            });
            return sent;
        });
    } else {
        TunerRig rig;
        if (!rig.open())
            return 1;
        spin(200);
        RepaintStamp stamp(rig.find<QLabel>("Txt_0035_rds_freq"));
        samples = measureReports(stamp, iterations, [&](int freq) { return rig.reportStation(freq, 1); });
    }
    out() << "median_us=" << double(median(samples)) / 1000.0 << "\n";
    return 0;
}

int marquee(int seconds)
{
    TunerRig rig;
    if (!rig.open())
        return 1;
    spin(300);
    const double idle = cpuShareOver(seconds * 1000);
    auto *label = rig.find<ScrollLabel>("Txt_0037_rds_name");
    // Longer than the radio service may send, so it reaches the screen directly.
    const QString name = QStringLiteral("Radio Nilo Verkehrsfunk und Nachrichten aus der Region rund um die Uhr");
    Q_ASSERT(name.size() == 70);
    rig.window()->screenStack()->RDSName(name);
    if (!QTest::qWaitFor([label] { return label->isRunning(); }, 2000))
        return 1;
    const double running = cpuShareOver(seconds * 1000);
    out() << "idle_percent=" << idle << "\n"
          << "marquee_percent=" << running << "\n"
          << "still_running=" << int(label->isRunning()) << "\n";
    return 0;
}

int screenChanges(const QList<int> &checkpoints)
{
    constexpr int kCallRecordRound = 100;
    TunerRig rig;
    if (!rig.open())
        return 1;
    tuner::MainWidget *stack = rig.window()->screenStack();
    // Player, options, PTY list, options, player: four changes a round.
    const std::function<void()> changes[] = {
        [&] { stack->onShowOptionWnd(); },
        [&] { stack->onShowPTYWdiget(); },
        [&] { stack->onShowOptionWnd(); },
        [&] { stack->onShowTunerPlayer(); },
    };
    int done = 0;
    for (int checkpoint : checkpoints) {
        for (; done < checkpoint; ++done) {
            changes[done % 4]();
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            // The fakes record every call they answer; that list is the rig's
            // memory, not the tuner's, so it must not count.
            if (done % kCallRecordRound == 0)
                rig.services().clearCalls();
        }
        out() << "rss_kib_" << checkpoint << "=" << residentKiB() << "\n";
        out() << "heap_kib_" << checkpoint << "=" << mallinfo2().uordblks / 1024 << "\n";
    }
    return 0;
}

int writes()
{
    auto rig = std::make_unique<TunerRig>();
    if (!rig->open())
        return 1;
    spin(kAfterFlushMs);
    const QString root = rig->stateRoot();
    const QString radioConf = root + QLatin1String("/system/etc/radio.conf");
    const QString settingsIni = root + QLatin1String("/media/flash/nvm/settings.ini");
    RewriteCounter counter({radioConf, settingsIni});
    counter.setOrder({QStringLiteral("radio.conf"), QStringLiteral("settings.ini")});

    const auto report = [&](const char *action) {
        spin(kAfterFlushMs);
        const QVector<int> counts = counter.take();
        out() << "writes_" << action << "=" << counts.value(0) << "," << counts.value(1) << "\n";
    };

    // A second start on the same files, as after a power cycle.
    rig->close();
    tuner::Preferences::resetInstance();
    tuner::tunerfunction::resetInstance();
    counter.take();
    if (!rig->open())
        return 1;
    report("startup_unchanged");

    rig->reportStation(9800, 1);
    report("station_report");
    rig->reportStation(9800, 1);
    report("same_station");

    auto *preset = rig->find<QAbstractButton>(kPresetKeyOfBand[1]);
    QTest::mouseClick(preset, Qt::LeftButton);
    report("preset_tap");

    QTest::mousePress(preset, Qt::LeftButton);
    spin(1700);
    QTest::mouseRelease(preset, Qt::LeftButton);
    report("preset_store");

    tuner::MainWidget *stack = rig->window()->screenStack();
    stack->onShowOptionWnd();
    auto *options = rig->find<QAbstractItemView>("Lst_0016_tuner_option_list");
    const QModelIndexList ta
        = options->model()->match(options->model()->index(0, 0), tuner::RoleItemId, tuner::OpItemTa);
    if (ta.isEmpty())
        return 1;
    stack->optionList()->onItemClicked(ta.first());
    report("option_toggle");
    stack->onShowTunerPlayer();

    QTest::mouseClick(rig->find<QAbstractButton>("Key_0020_switch_band"), Qt::LeftButton);
    report("band_change");
    return 0;
}

namespace {

// Notes every turn of the event loop (a 1 ms timer) and keeps the longest
// time between two: how long the host's UI thread was blocked.
class LoopGapMeter
{
public:
    LoopGapMeter()
    {
        m_ticker.setTimerType(Qt::PreciseTimer);
        m_ticker.setInterval(1);
        QObject::connect(&m_ticker, &QTimer::timeout, [this] { tick(); });
        m_last = benchClockNs();
        m_ticker.start();
    }
    double longestMs() const { return m_longestNs / 1e6; }

private:
    void tick()
    {
        const qint64 now = benchClockNs();
        m_longestNs = std::max(m_longestNs, now - m_last);
        m_last = now;
    }

    QTimer m_ticker;
    qint64 m_last = 0;
    qint64 m_longestNs = 0;
};

// What the host does in one turn of its event loop, measured with the
// turns before and after: `settleMs` lets late answers and timeouts arrive.
double longestGapAround(const std::function<void()> &hostCall, int settleMs)
{
    LoopGapMeter meter;
    spin(20);
    QTimer::singleShot(0, hostCall);
    spin(settleMs);
    return meter.longestMs();
}

} // namespace

const QStringList &faultNames()
{
    static const QStringList names{QStringLiteral("startup_radio_hung"),     QStringLiteral("startup_radio_slow"),
                                   QStringLiteral("startup_radio_absent"),   QStringLiteral("restart_radio_hung"),
                                   QStringLiteral("running_radio_hung"),     QStringLiteral("close_source_hung"),
                                   QStringLiteral("media_player_next_flood")};
    return names;
}

int fault(const QString &name)
{
    constexpr int kSettleMs = 1600; // past the longest reply deadline
    TunerRig rig;
    FakeServices &services = rig.services();
    double gap = -1;
    if (name.startsWith(QLatin1String("startup_"))) {
        if (name == QLatin1String("startup_radio_hung"))
            services.radio()->setHung(true);
        if (name == QLatin1String("startup_radio_slow"))
            services.radio()->setReplyDelay(600);
        // The host builds the window and shows it in one go.
        bool opened = false;
        gap = longestGapAround([&] { opened = rig.open(name != QLatin1String("startup_radio_absent")); }, kSettleMs);
        if (!opened)
            return 1;
    } else {
        if (!rig.open())
            return 1;
        spin(200);
        if (name == QLatin1String("restart_radio_hung")) {
            gap = longestGapAround(
                [&] {
                    services.restart();
                    services.radio()->setHung(true);
                    services.mcu()->setHung(true);
                },
                kSettleMs);
        } else if (name == QLatin1String("running_radio_hung")) {
            services.radio()->setHung(true);
            services.mcu()->setHung(true);
            auto *preset = rig.find<QAbstractButton>(kPresetKeyOfBand[1]);
            auto *seek = rig.find<QAbstractButton>("Key_0029_seek_plus");
            gap = longestGapAround(
                [&] {
                    QTest::mouseClick(preset, Qt::LeftButton);
                    QTest::mouseClick(seek, Qt::LeftButton);
                },
                kSettleMs);
        } else if (name == QLatin1String("media_player_next_flood")) {
            // A hostile media-player client: 5 000 Next and Previous as fast as
            // it can send them, from a connection and a thread of its own (as
            // another process would: its sending is not the tuner's time).
            if (!QTest::qWaitFor([&] { return !rig.window()->nowPlaying()->serviceName().isEmpty(); }, 5000))
                return 1;
            std::unique_ptr<QThread> client(QThread::create([] {
                QDBusConnection bus
                    = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("client"));
                for (int i = 0; i < 5000; ++i) {
                    QDBusMessage call = QDBusMessage::createMethodCall(
                        QLatin1String(tuner::NowPlaying::kServiceName), QLatin1String(tuner::NowPlaying::kObjectPath),
                        QStringLiteral("org.mpris.MediaPlayer2.Player"), QLatin1String(i % 2 ? "Previous" : "Next"));
                    bus.send(call);
                }
            }));
            gap = longestGapAround([&] { client->start(); }, kSettleMs);
            client->wait();
            QDBusConnection::disconnectFromBus(QStringLiteral("client"));
        } else if (name == QLatin1String("close_source_hung")) {
            services.source()->setHung(true);
            gap = longestGapAround(
                [&] {
                    rig.window()->onHide();
                    rig.window()->onDestroy();
                },
                kSettleMs);
        }
    }
    if (gap < 0)
        return 1;
    out() << "gap_ms=" << gap << "\n";
    return 0;
}

} // namespace benchmode

#include "benchmodes.moc"
