// nilo-bench: the tuner's critical paths against bare Qt, measured in the same
// run. Without arguments it runs every benchmark and prints one table.
//
//   nilo-bench [--runs N] [--quick] [--only PATH]   all benchmarks (or one), a Markdown table
//   nilo-bench report tuner|bare N      station report to repaint (one process)
//   nilo-bench marquee SECONDS          CPU share with the marquee running
//   nilo-bench screens N [N...]         RSS after N screen changes
//   nilo-bench writes                   synced rewrites per user action
//   nilo-bench fault NAME               longest event-loop gap under a service fault
//
// Needs a session bus of its own and the off-screen platform; see
// scripts/run-bench.sh.

#include "benchmodes.h"
#include "benchtable.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    const QString mode = args.value(0);
    if (mode == QLatin1String("report"))
        return benchmode::stationReport(args.value(1) == QLatin1String("bare"),
                                        args.value(2, QStringLiteral("200")).toInt());
    if (mode == QLatin1String("marquee"))
        return benchmode::marquee(args.value(1, QStringLiteral("5")).toInt());
    if (mode == QLatin1String("screens")) {
        QList<int> checkpoints;
        for (const QString &arg : args.mid(1))
            checkpoints.append(arg.toInt());
        return benchmode::screenChanges(checkpoints);
    }
    if (mode == QLatin1String("writes"))
        return benchmode::writes();
    if (mode == QLatin1String("fault"))
        return benchmode::fault(args.value(1));
    return benchtable::runAll(args);
}
