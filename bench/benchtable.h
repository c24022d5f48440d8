#pragma once

#include <QStringList>

namespace benchtable {

// Runs every benchmark, each against its bare-Qt baseline in the same run, and
// prints the Markdown table. Returns 1 if a path misses its goal (never with
// --quick, which only checks that every benchmark still runs).
int runAll(const QStringList &args);

} // namespace benchtable
