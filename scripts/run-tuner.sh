#!/usr/bin/env bash
# Builds the tuner and starts it: the service simulator and the host app with
# the plug-in, together on a private session bus. With a display it opens the
# 800 x 480 window; without one it saves a screenshot and says where.
#   scripts/run-tuner.sh [--screenshot FILE] [extra nilo-tuner-host options]
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

host_args=("$@")
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [[ " $* " != *" --screenshot "* ]]; then
    export QT_QPA_PLATFORM=offscreen
    host_args+=(--screenshot "$state/tuner.png")
    echo "No display: the tuner runs off screen and saves $state/tuner.png"
fi

build="$TUNER_SRC/build"
exec dbus-run-session -- bash -c '
    echo "To drive it from another shell: export DBUS_SESSION_BUS_ADDRESS=$DBUS_SESSION_BUS_ADDRESS"
    "$0/sim/nilo-sim" --state "$1/sim.json" &
    sim=$!
    trap "kill $sim 2>/dev/null" EXIT
    shift
    "$0/runner/nilo-tuner-host" "$@"
' "$build" "$state" "${host_args[@]}"
