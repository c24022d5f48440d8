#!/usr/bin/env bash
# Builds the tuner and starts it: the service simulator and the host app with
# the plug-in, together on a private session bus. With a display it opens the
# 800 x 480 window; without one it saves a screenshot and says where. With
# --wayland the host app is a client of weston (kiosk-shell) instead, nested in
# the desktop's X session, or in a virtual X server when there is no display;
# with --wayland=ivi weston runs ivi-shell with hmi-controller, and the tuner's
# surface id is QT_IVI_SURFACE_ID (default 8000; see scripts/in-weston.sh).
#   scripts/run-tuner.sh [--wayland[=ivi]] [--screenshot FILE] [extra nilo-tuner-host options]
# State (radio.conf, settings.ini, the simulator's presets) lives in .tuner-state/.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tuner_install_packages
tuner_build "$TUNER_SRC/build"

state="$TUNER_SRC/.tuner-state"
mkdir -p "$state/root" "$state/nilo/etc" "$state/runtime"
chmod 700 "$state/runtime"
if [ ! -f "$state/vehicle.ini" ]; then
    cat > "$state/vehicle.ini" <<'INI'
[Vehicle]
Destination=0
RdsSupport=1
RdsAfTaTpSupport=1
RegionalSupport=1
RadioInfoDispLine=1
INI
fi
export TUNER_ROOT="$state/root"
export NILO_VEHICLE_CONF="$state/vehicle.ini"
export NILO_DIR="$state/nilo"
export XDG_RUNTIME_DIR="$state/runtime"

wrapper=()
host_args=()
for arg in "$@"; do
    if [ "$arg" = "--wayland" ]; then
        wrapper=("$TUNER_SRC/scripts/in-weston.sh")
    elif [ "$arg" = "--wayland=ivi" ]; then
        wrapper=("$TUNER_SRC/scripts/in-weston.sh" --ivi)
    else
        host_args+=("$arg")
    fi
done
no_display=$([ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && echo 1 || echo 0)
if [ ${#wrapper[@]} -gt 0 ]; then
    export QT_QPA_PLATFORM=wayland
    # A virtual screen larger than weston's output (ivi-shell's is 3200 x 1030).
    [ -n "${DISPLAY:-}" ] || wrapper=(xvfb-run -a -s "-screen 0 3300x1100x24" "${wrapper[@]}")
elif [ "$no_display" = 1 ]; then
    export QT_QPA_PLATFORM=offscreen
fi
if [ "$no_display" = 1 ] && [[ " ${host_args[*]:-} " != *" --screenshot "* ]]; then
    host_args+=(--screenshot "$state/tuner.png")
    where=$([ ${#wrapper[@]} -gt 0 ] && echo "in weston, in a virtual X server," || echo "off screen")
    echo "No display: the tuner runs $where and saves $state/tuner.png"
fi

build="$TUNER_SRC/build"
exec ${wrapper[@]+"${wrapper[@]}"} dbus-run-session -- bash -c '
    echo "To drive it from another shell: export DBUS_SESSION_BUS_ADDRESS=$DBUS_SESSION_BUS_ADDRESS"
    "$0/sim/nilo-sim" --state "$1/sim.json" &
    sim=$!
    trap "kill $sim 2>/dev/null" EXIT
    shift
    "$0/runner/nilo-tuner-host" "$@"
' "$build" "$state" ${host_args[@]+"${host_args[@]}"}
