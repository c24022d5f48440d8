#!/usr/bin/env bash
# Builds everything for the head unit's 64-bit ARM into build-arm64/, then runs
# the tests there under user-mode emulation (qemu-aarch64-static), each on a
# private session bus of the build machine's dbus-daemon.
#   scripts/cross-build.sh arm64 [extra arguments go to ctest]
# Installs what it needs from Debian when missing: the cross compiler, the
# :arm64 Qt packages (multiarch) and the emulator.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

if [ "${1:-}" != "arm64" ]; then
    echo "usage: scripts/cross-build.sh arm64 [ctest arguments]" >&2
    exit 2
fi
shift

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
if ! dpkg --print-foreign-architectures | grep -qx arm64; then
    $sudo dpkg --add-architecture arm64
    $sudo apt-get update -qq
fi
tuner_install_packages crossbuild-essential-arm64 qemu-user-static \
    qtbase5-dev:arm64 qttools5-dev:arm64 libfontconfig1:arm64

start=$(date +%s)
# The theme generator runs at build time, so it is built for this machine.
tools="$TUNER_SRC/build-arm64/host-tools"
cmake -S "$TUNER_SRC" -B "$tools" -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF >/dev/null
cmake --build "$tools" -j"$(nproc)" --target nilo-themegen

build="$TUNER_SRC/build-arm64"
cmake -S "$TUNER_SRC" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTUNER_WERROR=ON \
    -DCMAKE_TOOLCHAIN_FILE="$TUNER_SRC/cmake/aarch64-linux-gnu.cmake" \
    -DNILO_THEMEGEN_EXECUTABLE="$tools/forms/nilo-themegen" >/dev/null
cmake --build "$build" -j"$(nproc)"
built=$(date +%s)
file -b "$build/plugin/libtuner.so" | grep -q "ARM aarch64" \
    || { echo "libtuner.so is not an aarch64 library" >&2; exit 1; }
echo "Built for aarch64 in $(( built - start )) s."

cd "$build"
ctest --output-on-failure --timeout 900 "$@"
echo "Built and tested in $(( $(date +%s) - start )) s."
