#!/usr/bin/env bash
# Runs clang-tidy with the project's .clang-tidy over every translation unit of
# the normal build (build/), headers included by its filter. Exits 1 on any
# warning.
#   scripts/run-tidy.sh
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tuner_install_packages clang-tidy
tuner_build "$TUNER_SRC/build" -DTUNER_WERROR=ON
log=$(mktemp)
trap 'rm -f "$log"' EXIT
# The compile commands leave the standard to the compiler default; say it.
run-clang-tidy -p "$TUNER_SRC/build" -j "$(nproc)" -quiet -extra-arg=-std=c++17 "^$TUNER_SRC/(?!build)" >"$log" 2>&1 || true
if grep -qE "(warning|error):" "$log"; then
    grep -E -A3 "(warning|error):" "$log" >&2
    exit 1
fi
echo "clang-tidy: no warnings in $(grep -c "^clang-tidy" "$log") files."
