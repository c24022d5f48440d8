#pragma once

#include <QStringList>

// The benchmarks that run inside one process. Each prints its results as
// "name=value" lines on standard output and returns the process's exit code.
namespace benchmode {

// Station report to repainted frequency label, `iterations` times: the
// tuner's, or a bare QtDBus signal into a QLabel::setText.
int stationReport(bool bare, int iterations);
// CPU share of the tuner screen, idle and with a 70-character marquee running.
int marquee(int seconds);
// Resident memory after each of the given numbers of screen changes.
int screenChanges(const QList<int> &checkpoints);
// Synced rewrites of radio.conf and settings.ini per user action.
int writes();
// The longest time the UI thread went without turning its event loop while
// one of the services misbehaves (`faultNames()`): at start-up, when it
// restarts, while the tuner runs and when the window closes.
const QStringList &faultNames();
int fault(const QString &name);

} // namespace benchmode
