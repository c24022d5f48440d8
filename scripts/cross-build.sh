#!/usr/bin/env bash
# Builds everything for the head unit's 64-bit ARM into build-arm64/, runs the
# tests there under user-mode emulation (qemu-aarch64-static), each on a
# private session bus of the build machine's dbus-daemon, and makes the arm64
# packages (build-arm64/packages/). Among the tests, tst_endtoend starts the
# arm64 simulator and host app with the plug-in, drives a seek and preset
# taps, and compares its start screen with the one this machine's build draws.
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
# The theme generator runs at build time, so it is built for this machine;
# so is the app with its end-to-end test, whose start screen is the reference.
tools="$TUNER_SRC/build-arm64/host-tools"
cmake -S "$TUNER_SRC" -B "$tools" -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=ON >/dev/null
cmake --build "$tools" -j"$(nproc)" --target nilo-themegen tst_endtoend

build="$TUNER_SRC/build-arm64"
cmake -S "$TUNER_SRC" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTUNER_WERROR=ON \
    -DCMAKE_TOOLCHAIN_FILE="$TUNER_SRC/cmake/aarch64-linux-gnu.cmake" \
    -DNILO_THEMEGEN_EXECUTABLE="$tools/forms/nilo-themegen" >/dev/null
cmake --build "$build" -j"$(nproc)"
built=$(date +%s)
file -b "$build/plugin/libtuner.so" | grep -q "ARM aarch64" \
    || { echo "libtuner.so is not an aarch64 library" >&2; exit 1; }
echo "Built for aarch64 in $(( built - start )) s."

frames="$build/frames"
mkdir -p "$frames"
rm -f "$frames"/*.png
TUNER_E2E_FRAME_OUT="$frames/amd64.png" QT_QPA_PLATFORM=offscreen \
    dbus-run-session -- "$tools/tests/tst_endtoend" -silent
export TUNER_E2E_FRAME_REFERENCE="$frames/amd64.png" TUNER_E2E_FRAME_OUT="$frames/arm64.png"

cd "$build"
ctest --output-on-failure --timeout 900 "$@"
tested=$(date +%s)
echo "Tested under emulation in $(( tested - built )) s; start screens: $frames/"

# dpkg-shlibdeps reads the arm64 binaries with the cross binutils.
rm -rf "$build/packages"
DEB_HOST_ARCH=arm64 cpack -G DEB --config "$build/CPackConfig.cmake" -B "$build/packages" >"$build/cpack.log" 2>&1 \
    || { cat "$build/cpack.log"; exit 1; }
rm -rf "$build/packages/_CPack_Packages"
for deb in "$build/packages/"*.deb; do
    echo "$(basename "$deb"): $(stat -c %s "$deb") bytes"
done
echo "Built, tested and packaged in $(( $(date +%s) - start )) s."
