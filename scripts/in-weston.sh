#!/usr/bin/env bash
# Runs a command as a client of a weston compositor of its own, as a head
# unit's screen: the pixman renderer and an X11 window for its output, in the
# X server of DISPLAY (the desktop's, or the Xvfb of xvfb-run). That also
# gives it a seat, so the pointer reaches the client through the compositor
# (weston 10's headless backend has none, and its shells then never show a
# client).
#   in-weston.sh [--ivi] COMMAND [ARGS...]
# By default the shell is kiosk-shell, which shows one app full screen on an
# 800 x 480 output and places it by its app id. With --ivi it is ivi-shell
# with Debian's hmi-controller, which places apps by a numeric surface id:
# Qt clients then use the ivi-shell integration, with QT_IVI_SURFACE_ID
# (default 8000) as their id. hmi-controller lays the application layer out
# in tiles of a quarter of its width and half its height, above its 70 px
# panel, and scales each surface into its tile. The output is
# TUNER_IVI_OUTPUT, by default 3200x1030, where the first tile is the tuner's
# own 800 x 480 (on an 800x550 output it is scaled down to 200 x 240).
set -euo pipefail
shell=kiosk
if [ "${1:-}" = "--ivi" ]; then
    shell=ivi
    shift
fi
runtime="$(mktemp -d)"
chmod 700 "$runtime"
export XDG_RUNTIME_DIR="$runtime"
socket=tuner-weston
size=800x480
options=(--shell=kiosk-shell.so)
if [ "$shell" = ivi ]; then
    size="${TUNER_IVI_OUTPUT:-3200x1030}"
    # The controller's own images and their surface ids, 1001 on.
    images=""
    id=1001
    for name in background panel tiling sidebyside fullscreen random home; do
        images+="$name-image=/usr/share/weston/$name.png"$'\n'"$name-id=$id"$'\n'
        id=$((id + 1))
    done
    cat >"$runtime/weston.ini" <<INI
[core]
shell=ivi-shell.so
modules=hmi-controller.so

[ivi-shell]
ivi-shell-user-interface=$(dpkg -L weston | grep -m1 '/weston-ivi-shell-user-interface$')
base-layer-id=1000
base-layer-id-offset=10000
workspace-background-layer-id=2000
workspace-layer-id=3000
application-layer-id=4000
transition-duration=0
surface-id-offset=10
workspace-background-color=0x99000000
workspace-background-id=2001
$images
INI
    options=(--config="$runtime/weston.ini")
    export QT_WAYLAND_SHELL_INTEGRATION=ivi-shell
    export QT_IVI_SURFACE_ID="${QT_IVI_SURFACE_ID:-8000}"
fi
weston --backend=x11-backend.so --use-pixman "${options[@]}" --width="${size%x*}" --height="${size#*x}" \
    --socket="$socket" --idle-time=0 >"$runtime/weston.log" 2>&1 &
weston_pid=$!
trap 'kill $weston_pid 2>/dev/null; wait $weston_pid 2>/dev/null; rm -rf "$runtime"' EXIT
# weston says nothing when its socket is ready; the socket itself does.
for _ in $(seq 100); do
    [ -S "$runtime/$socket" ] && break
    sleep 0.1
done
[ -S "$runtime/$socket" ] || { echo "weston did not start:"; cat "$runtime/weston.log"; exit 1; }
export WAYLAND_DISPLAY="$socket"
"$@"
