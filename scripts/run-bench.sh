#!/usr/bin/env bash
# Builds the tuner in Release (build-release/) and measures its critical paths
# against bare Qt in the same run, on a private session bus, off screen. Prints
# one table of medians and ratios; exits 1 when a path misses its goal.
#   scripts/run-bench.sh [--runs N] [--quick] [--only startup|report|marquee|screens|writes|faults]
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tuner_install_packages
build="$TUNER_SRC/build-release"
cmake -S "$TUNER_SRC" -B "$build" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j"$(nproc)" --target nilo-bench

export QT_QPA_PLATFORM=offscreen
export XDG_RUNTIME_DIR="${XDG_RUNTIME_DIR:-$(mktemp -d)}"
exec dbus-run-session -- "$build/bench/nilo-bench" "$@"
