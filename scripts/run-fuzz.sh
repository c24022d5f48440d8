#!/usr/bin/env bash
# Fuzzes the main window and the tuner screen with libFuzzer (clang, ASan +
# UBSan) for a bounded time, starting from the seed corpus in fuzz/corpus.
#   scripts/run-fuzz.sh [SECONDS]     default 60
# Exits non-zero on a crash or a sanitizer report; the crashing input is left
# in build-fuzz/ as crash-*.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

seconds="${1:-60}"
tuner_install_packages clang libclang-rt-14-dev
build_dir="$TUNER_SRC/build-fuzz"
# The theme generator runs during the build; its leaks are not the tuner's.
export ASAN_OPTIONS="detect_leaks=0"
CC=clang CXX=clang++ cmake -S "$TUNER_SRC" -B "$build_dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTUNER_FUZZ=ON >/dev/null
cmake --build "$build_dir" -j"$(nproc)" --target fuzz_tuner

corpus="$build_dir/corpus"
mkdir -p "$corpus"
cd "$build_dir"
export ASAN_OPTIONS="detect_leaks=0:abort_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
set +e
./fuzz/fuzz_tuner -max_total_time="$seconds" -max_len=4096 -timeout=10 -rss_limit_mb=4096 -print_final_stats=1 \
    "$corpus" "$TUNER_SRC/fuzz/corpus" 2>&1 | tee fuzz.log | grep -E '^#[0-9]+[[:space:]]+(INITED|DONE)|ERROR|SUMMARY|stat::'
status=${PIPESTATUS[0]}
set -e
if [ "$status" -ne 0 ]; then
    echo "Fuzzing found a fault (exit $status); see $build_dir/fuzz.log"
    exit "$status"
fi
echo "Fuzzed for $seconds s: 0 crashes, 0 sanitizer reports."
