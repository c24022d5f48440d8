#!/usr/bin/env bash
# Runs a command as a client of a weston compositor of its own, as a head
# unit's single-app screen: kiosk-shell, an 800 x 480 output, the pixman
# renderer, and --debug for weston-screenshooter. Weston runs as a window of
# the X server in DISPLAY: the desktop's, or the Xvfb of xvfb-run. That also
# gives it a seat, so the pointer reaches the client through the compositor
# (weston 10's headless backend has none, and kiosk-shell then never shows a
# client).
#   in-weston.sh COMMAND [ARGS...]
set -euo pipefail
runtime="$(mktemp -d)"
chmod 700 "$runtime"
export XDG_RUNTIME_DIR="$runtime"
socket=tuner-weston
weston --backend=x11-backend.so --use-pixman --shell=kiosk-shell.so --width=800 --height=480 \
    --socket="$socket" --idle-time=0 --debug >"$runtime/weston.log" 2>&1 &
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
