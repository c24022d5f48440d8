#include "benchtable.h"

#include "benchmodes.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusServiceWatcher>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cstring>
#include <functional>
#include <iterator>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/utsname.h>
#include <sys/wait.h>
#include <unistd.h>

namespace benchtable {

namespace {

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

double median(QVector<double> values)
{
    if (values.isEmpty())
        return 0;
    std::sort(values.begin(), values.end());
    const int mid = values.size() / 2;
    return values.size() % 2 ? values.at(mid) : (values.at(mid - 1) + values.at(mid)) / 2;
}

using Results = QHash<QString, QString>;

// Runs one of this program's own benchmark modes and reads its "name=value" lines.
Results runMode(const QStringList &args)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), args);
    child.waitForFinished(-1);
    Results results;
    const QList<QByteArray> lines = child.readAllStandardOutput().split('\n');
    for (const QByteArray &line : lines) {
        const int equals = line.indexOf('=');
        if (equals > 0)
            results.insert(QString::fromUtf8(line.left(equals)), QString::fromUtf8(line.mid(equals + 1)));
    }
    if (child.exitStatus() != QProcess::NormalExit || child.exitCode() != 0)
        out() << "nilo-bench: " << args.join(QLatin1Char(' ')) << " failed\n";
    return results;
}

struct ProcessCost
{
    double frameMs = 0; // until the program reported its frame saved
    double wallMs = 0;  // until it exited
    double cpuMs = 0;
    double maxRssMiB = 0;
};

// Starts a program and waits for it, with the time until it reports its
// first line on stdout (both programs print one when their frame is saved),
// its wall time to exit, CPU time and peak memory.
ProcessCost runTimed(const QStringList &command, const QStringList &environment)
{
    QVector<QByteArray> storage;
    QVector<char *> argv, envp;
    for (const QString &arg : command)
        storage.append(QFile::encodeName(arg));
    for (const QString &entry : environment)
        storage.append(entry.toLocal8Bit());
    for (int i = 0; i < storage.size(); ++i)
        (i < command.size() ? argv : envp).append(storage[i].data());
    argv.append(nullptr);
    envp.append(nullptr);

    int report[2];
    if (pipe(report) != 0)
        return {};
    QElapsedTimer wall;
    wall.start();
    const pid_t pid = fork();
    if (pid == 0) {
        const int devNull = ::open("/dev/null", O_WRONLY);
        dup2(report[1], STDOUT_FILENO);
        dup2(devNull, STDERR_FILENO);
        ::close(report[0]);
        execve(argv[0], argv.data(), envp.data());
        _exit(127);
    }
    ::close(report[1]);
    ProcessCost cost;
    char buffer[256];
    bool reported = false;
    for (ssize_t got; (got = ::read(report[0], buffer, sizeof buffer)) > 0;) {
        if (!reported && memchr(buffer, '\n', size_t(got))) {
            cost.frameMs = wall.nsecsElapsed() / 1e6;
            reported = true;
        }
    }
    ::close(report[0]);
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    cost.wallMs = wall.nsecsElapsed() / 1e6;
    cost.cpuMs = (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3
                 + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3;
    cost.maxRssMiB = usage.ru_maxrss / 1024.0;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0 || !reported)
        out() << "nilo-bench: " << command.first() << " failed\n";
    return cost;
}

bool waitForService(const QString &name, int ms)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.interface()->isServiceRegistered(name))
        return true;
    QDBusServiceWatcher watcher(name, bus, QDBusServiceWatcher::WatchForRegistration);
    QEventLoop loop;
    QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &loop, &QEventLoop::quit);
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    if (bus.interface()->isServiceRegistered(name))
        return true;
    loop.exec();
    return bus.interface()->isServiceRegistered(name);
}

QString machine()
{
    QString cpu;
    QFile info(QStringLiteral("/proc/cpuinfo"));
    if (info.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : info.readAll().split('\n')) {
            if (line.startsWith("model name")) {
                cpu = QString::fromUtf8(line.mid(line.indexOf(':') + 1)).trimmed();
                break;
            }
        }
    }
    utsname system{};
    uname(&system);
    return QStringLiteral("%1, %2 cores, Linux %3, Qt %4")
        .arg(cpu)
        .arg(QThread::idealThreadCount())
        .arg(QString::fromLatin1(system.release))
        .arg(QString::fromLatin1(qVersion()));
}

class Table
{
public:
    void row(const QString &path, const QString &tuner, const QString &bare, const QString &ratio, const QString &goal,
             bool met)
    {
        m_rows.append(QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |")
                          .arg(path, tuner, bare, ratio, goal, met ? QStringLiteral("yes") : QStringLiteral("**no**")));
        m_allMet = m_allMet && met;
    }
    void print() const
    {
        out() << "| path | tuner | bare Qt | ratio | goal | met |\n|---|---|---|---|---|---|\n";
        for (const QString &row : m_rows)
            out() << row << "\n";
    }
    bool allMet() const { return m_allMet; }

private:
    QStringList m_rows;
    bool m_allMet = true;
};

QString ms(double value)
{
    return QStringLiteral("%1 ms").arg(value, 0, 'f', value < 10 ? 2 : 0);
}

QString times(double ratio)
{
    return QStringLiteral("%1x").arg(ratio, 0, 'f', 2);
}

struct Options
{
    int runs = 10;
    bool quick = false;
};

// Start-up: the host app loading the plug-in, against the bare window, in
// alternating order, with the simulator running.
void startUp(const Options &options, Table &table)
{
    QTemporaryDir state;
    QDir(state.path()).mkpath(QStringLiteral("root"));
    QDir(state.path()).mkpath(QStringLiteral("nilo/etc"));
    QDir(state.path()).mkpath(QStringLiteral("runtime"));
    QFile vehicle(state.filePath(QStringLiteral("vehicle.ini")));
    vehicle.open(QIODevice::WriteOnly);
    vehicle.write(
        "[Vehicle]\nDestination=0\nRdsSupport=1\nRdsAfTaTpSupport=1\nRegionalSupport=1\nRadioInfoDispLine=1\n");
    vehicle.close();

    QProcessEnvironment processEnvironment = QProcessEnvironment::systemEnvironment();
    processEnvironment.insert(QStringLiteral("TUNER_ROOT"), state.filePath(QStringLiteral("root")));
    processEnvironment.insert(QStringLiteral("NILO_DIR"), state.filePath(QStringLiteral("nilo")));
    processEnvironment.insert(QStringLiteral("NILO_VEHICLE_CONF"), state.filePath(QStringLiteral("vehicle.ini")));
    processEnvironment.insert(QStringLiteral("XDG_RUNTIME_DIR"), state.filePath(QStringLiteral("runtime")));
    const QStringList environment = processEnvironment.toStringList();

    QProcess sim;
    sim.setStandardOutputFile(QProcess::nullDevice());
    sim.setStandardErrorFile(QProcess::nullDevice());
    sim.setProcessEnvironment(processEnvironment);
    sim.start(QStringLiteral(BENCH_SIM), {QStringLiteral("--state"), state.filePath(QStringLiteral("sim.json"))});
    if (!waitForService(QStringLiteral("com.nilo.mcu"), 5000)) {
        out() << "nilo-bench: the simulator did not start\n";
        return;
    }

    const QString frame = state.filePath(QStringLiteral("frame.png"));
    const QStringList tuner{QStringLiteral(BENCH_HOST),     QStringLiteral(BENCH_PLUGIN),
                            QStringLiteral("--screenshot"), frame,
                            QStringLiteral("--settle"),     QStringLiteral("0")};
    const QStringList bare{QStringLiteral(BENCH_BARE_WINDOW), frame};
    const QStringList minimal{QStringLiteral(BENCH_BARE_WINDOW), QStringLiteral("--minimal"), frame};
    const QStringList floor{QStringLiteral(BENCH_READS_WINDOW), frame};
    const QStringList *commands[] = {&tuner, &bare, &minimal, &floor};
    constexpr int kPrograms = std::size(commands);
    // The first runs fill the page cache and write the tuner's first radio.conf.
    for (const QStringList *command : commands)
        runTimed(*command, environment);

    // Each run starts the programs in turn, from a different one each time.
    QVector<double> tunerFrame, bareFrame, minimalFrame, floorFrame, tunerWall, bareWall, tunerCpu, bareCpu, tunerRss,
        bareRss;
    for (int run = 0; run < options.runs; ++run) {
        ProcessCost costs[kPrograms];
        for (int k = 0; k < kPrograms; ++k)
            costs[(run + k) % kPrograms] = runTimed(*commands[(run + k) % kPrograms], environment);
        const ProcessCost &t = costs[0], &b = costs[1];
        tunerFrame << t.frameMs, bareFrame << b.frameMs, minimalFrame << costs[2].frameMs,
            floorFrame << costs[3].frameMs;
        tunerWall << t.wallMs, bareWall << b.wallMs, tunerCpu << t.cpuMs, bareCpu << b.cpuMs;
        tunerRss << t.maxRssMiB, bareRss << b.maxRssMiB;
    }
    sim.terminate();
    sim.waitForFinished();

    // Medians, with the spread of the runs (fastest to slowest).
    const auto spread = [](const QVector<double> &values) {
        const auto [low, high] = std::minmax_element(values.cbegin(), values.cend());
        return QStringLiteral("%1 (%2-%3)").arg(ms(median(values))).arg(*low, 0, 'f', 0).arg(*high, 0, 'f', 0);
    };
    const double frameRatio = median(tunerFrame) / median(bareFrame);
    const double minimalRatio = median(tunerFrame) / median(minimalFrame);
    table.row(QStringLiteral("start-up to first frame saved as PNG, wall"), spread(tunerFrame), spread(bareFrame),
              times(frameRatio), QStringLiteral("≤ 1.15x"), options.quick || frameRatio <= 1.15);
    table.row(QStringLiteral("the same, against a window of one label"), spread(tunerFrame), spread(minimalFrame),
              times(minimalRatio), QStringLiteral("≤ 1.3x"), options.quick || minimalRatio <= 1.3);
    table.row(QStringLiteral("the same run to process exit, wall"), ms(median(tunerWall)), ms(median(bareWall)),
              times(median(tunerWall) / median(bareWall)), QStringLiteral("-"), true);
    table.row(QStringLiteral("the same run to process exit, CPU"), ms(median(tunerCpu)), ms(median(bareCpu)),
              times(median(tunerCpu) / median(bareCpu)), QStringLiteral("-"), true);
    table.row(QStringLiteral("peak memory at start-up"), QStringLiteral("%1 MiB").arg(median(tunerRss), 0, 'f', 1),
              QStringLiteral("%1 MiB").arg(median(bareRss), 0, 'f', 1), times(median(tunerRss) / median(bareRss)),
              QStringLiteral("-"), true);
    // What the protocol's start-up reads alone cost: no tuner can start faster.
    table.row(QStringLiteral("the least tuner: the bare window after the radio's start-up reads"), spread(floorFrame),
              spread(bareFrame), times(median(floorFrame) / median(bareFrame)), QStringLiteral("-"), true);
    table.row(QStringLiteral("the least tuner, against a window of one label"), spread(floorFrame),
              spread(minimalFrame), times(median(floorFrame) / median(minimalFrame)), QStringLiteral("-"), true);
}

void stationReport(const Options &options, Table &table)
{
    const QString iterations = options.quick ? QStringLiteral("20") : QStringLiteral("200");
    QVector<double> tuner, bare;
    for (int run = 0; run < options.runs; ++run) {
        const QString first = run % 2 ? QStringLiteral("tuner") : QStringLiteral("bare");
        const QString second = run % 2 ? QStringLiteral("bare") : QStringLiteral("tuner");
        const double a
            = runMode({QStringLiteral("report"), first, iterations}).value(QStringLiteral("median_us")).toDouble();
        const double b
            = runMode({QStringLiteral("report"), second, iterations}).value(QStringLiteral("median_us")).toDouble();
        (run % 2 ? tuner : bare) << a;
        (run % 2 ? bare : tuner) << b;
    }
    const double ratio = median(tuner) / median(bare);
    table.row(QStringLiteral("station report to repainted frequency label"), ms(median(tuner) / 1000),
              ms(median(bare) / 1000), times(ratio), QStringLiteral("≤ 2x"), options.quick || ratio <= 2);
}

void marquee(const Options &options, Table &table)
{
    const int runs = options.quick ? 1 : 3;
    const QString seconds = options.quick ? QStringLiteral("1") : QStringLiteral("4");
    QVector<double> running, idle;
    bool kept = true;
    for (int run = 0; run < runs; ++run) {
        const Results results = runMode({QStringLiteral("marquee"), seconds});
        running << results.value(QStringLiteral("marquee_percent")).toDouble();
        idle << results.value(QStringLiteral("idle_percent")).toDouble();
        kept = kept && results.value(QStringLiteral("still_running")) == QLatin1String("1");
    }
    const double share = median(running);
    table.row(QStringLiteral("marquee of a 70-character name, 20 ms ticks (CPU of a core; bare: the idle screen)"),
              QStringLiteral("%1 %").arg(share, 0, 'f', 2), QStringLiteral("%1 %").arg(median(idle), 0, 'f', 2),
              QStringLiteral("-"), QStringLiteral("≤ 2 %"), kept && (options.quick || share <= 2));
}

void screenChanges(const Options &options, Table &table)
{
    const int first = options.quick ? 40 : 1000;
    const int last = options.quick ? 400 : 10000;
    const Results results = runMode({QStringLiteral("screens"), QString::number(first), QString::number(last)});
    const double atFirst = results.value(QStringLiteral("rss_kib_%1").arg(first)).toDouble() / 1024;
    const double atLast = results.value(QStringLiteral("rss_kib_%1").arg(last)).toDouble() / 1024;
    // Allocator noise stays well under a quarter of a MiB; a leak of one
    // screen's widgets per change would be many MiB.
    constexpr double kNoiseMiB = 0.25;
    table.row(QStringLiteral("RSS after %1 and %2 screen changes").arg(first).arg(last),
              QStringLiteral("%1 / %2 MiB").arg(atFirst, 0, 'f', 1).arg(atLast, 0, 'f', 1), QStringLiteral("-"),
              QStringLiteral("%1%2 MiB").arg(atLast >= atFirst ? "+" : "").arg(atLast - atFirst, 0, 'f', 2),
              QStringLiteral("no growth"), atFirst > 0 && (options.quick || atLast - atFirst <= kNoiseMiB));
}

void writes(Table &table)
{
    const Results results = runMode({QStringLiteral("writes")});
    // Actions that change nothing must not write at all.
    const QHash<QString, QString> actions{
        {QStringLiteral("startup_unchanged"), QStringLiteral("start-up where nothing changed")},
        {QStringLiteral("station_report"), QStringLiteral("station report")},
        {QStringLiteral("same_station"), QStringLiteral("repeated report of the same station")},
        {QStringLiteral("preset_tap"), QStringLiteral("preset tap")},
        {QStringLiteral("preset_store"), QStringLiteral("preset store")},
        {QStringLiteral("band_change"), QStringLiteral("band change")},
        {QStringLiteral("option_toggle"), QStringLiteral("option toggle")},
    };
    const QStringList order{QStringLiteral("startup_unchanged"), QStringLiteral("station_report"),
                            QStringLiteral("same_station"),      QStringLiteral("preset_tap"),
                            QStringLiteral("preset_store"),      QStringLiteral("band_change"),
                            QStringLiteral("option_toggle")};
    for (const QString &action : order) {
        const QString counted = results.value(QStringLiteral("writes_") + action);
        const QStringList perFile = counted.split(QLatin1Char(','));
        const bool unchanged = action == QLatin1String("startup_unchanged") || action == QLatin1String("same_station");
        const int limit = unchanged ? 0 : 1;
        const bool met = perFile.size() == 2 && perFile.at(0).toInt() <= limit && perFile.at(1).toInt() <= limit;
        table.row(QStringLiteral("synced rewrites, %1 (radio.conf, settings.ini)").arg(actions.value(action)),
                  counted.isEmpty() ? QStringLiteral("?") : counted, QStringLiteral("0, 0"), QStringLiteral("-"),
                  unchanged ? QStringLiteral("0 each") : QStringLiteral("≤ 1 each"), met);
    }
}

// The host's UI thread must never stand still longer than this over a service fault.
void faults(const Options &options, Table &table)
{
    constexpr double kGoalMs = 250;
    const QHash<QString, QString> described{
        {QStringLiteral("startup_radio_hung"), QStringLiteral("start-up, radio service hung")},
        {QStringLiteral("startup_radio_slow"), QStringLiteral("start-up, radio service answering 600 ms late")},
        {QStringLiteral("startup_radio_absent"), QStringLiteral("start-up, no services on the bus")},
        {QStringLiteral("restart_radio_hung"), QStringLiteral("radio service restarted, then hung")},
        {QStringLiteral("running_radio_hung"), QStringLiteral("preset tap and seek, radio service hung")},
        {QStringLiteral("close_source_hung"), QStringLiteral("onHide and onDestroy, source service hung")},
        {QStringLiteral("media_player_next_flood"), QStringLiteral("5 000 media-player Next and Previous")},
    };
    const int runs = options.quick ? 1 : 3;
    for (const QString &name : benchmode::faultNames()) {
        double worst = 0;
        bool ran = true;
        for (int run = 0; run < runs; ++run) {
            const Results results = runMode({QStringLiteral("fault"), name});
            ran = ran && results.contains(QStringLiteral("gap_ms"));
            worst = std::max(worst, results.value(QStringLiteral("gap_ms")).toDouble());
        }
        table.row(QStringLiteral("longest event-loop gap, %1 (worst of %2)").arg(described.value(name)).arg(runs),
                  ran ? ms(worst) : QStringLiteral("?"), QStringLiteral("-"), QStringLiteral("-"),
                  QStringLiteral("≤ 250 ms"), ran && (options.quick || worst <= kGoalMs));
    }
}

} // namespace

int runAll(const QStringList &args)
{
    Options options;
    QString only;
    for (int i = 0; i < args.size(); ++i) {
        if (args.at(i) == QLatin1String("--quick"))
            options.quick = true, options.runs = 1;
        else if (args.at(i) == QLatin1String("--runs"))
            options.runs = qMax(1, args.value(++i).toInt());
        else if (args.at(i) == QLatin1String("--only"))
            only = args.value(++i);
    }
    const QList<QPair<QString, std::function<void(Table &)>>> paths{
        {QStringLiteral("startup"), [&](Table &t) { startUp(options, t); }},
        {QStringLiteral("report"), [&](Table &t) { stationReport(options, t); }},
        {QStringLiteral("marquee"), [&](Table &t) { marquee(options, t); }},
        {QStringLiteral("screens"), [&](Table &t) { screenChanges(options, t); }},
        {QStringLiteral("writes"), [&](Table &t) { writes(t); }},
        {QStringLiteral("faults"), [&](Table &t) { faults(options, t); }},
    };
    Table table;
    for (const auto &path : paths) {
        if (only.isEmpty() || only == path.first)
            path.second(table);
    }

    out() << "Measured on " << machine() << "; " << BENCH_BUILD_TYPE << " build, medians of " << options.runs
          << " paired runs.\n\n";
    table.print();
    out().flush();
    return table.allMet() ? 0 : 1;
}

} // namespace benchtable
