#!/usr/bin/env bash
# Checks the formatting, builds the tuner and runs every test, each on a
# private D-Bus session bus.
#   scripts/run-tests.sh              the normal build (build/)
#   scripts/run-tests.sh --sanitize   AddressSanitizer + UBSan build (build-asan/)
#   scripts/run-tests.sh -R preferences   extra arguments go to ctest
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

build_dir="$TUNER_SRC/build"
cmake_options=(-DTUNER_WERROR=ON)
if [ "${1:-}" = "--sanitize" ]; then
    shift
    build_dir="$TUNER_SRC/build-asan"
    cmake_options+=(-DTUNER_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug)
    export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:fast_unwind_on_malloc=0"
    export LSAN_OPTIONS="suppressions=$TUNER_SRC/scripts/lsan.supp:print_suppressions=0"
    export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
fi

tuner_install_packages
start=$(date +%s)
"$TUNER_SRC/scripts/check-format.sh"
tuner_build "$build_dir" "${cmake_options[@]}"
cd "$build_dir"
ctest --output-on-failure --timeout 300 "$@"
echo "Built and tested in $(( $(date +%s) - start )) s."
