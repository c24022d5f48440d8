#!/usr/bin/env bash
# Builds the tuner and starts it: simulator, host app and plug-in on a private
# session bus. Until the host app lands it builds and reports what is ready.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tuner_install_packages
tuner_build "$TUNER_SRC/build"

echo
echo "Built in $TUNER_SRC/build:"
for lib in bus/libtuner_bus.a host/libnilo_host_core.a host/libnilo_host_widgets.a state/libtuner_state.a; do
    [ -f "$TUNER_SRC/build/$lib" ] && echo "  $lib"
done
echo "The plug-in, the service simulator and the host app are not there yet;"
echo "scripts/run-tests.sh runs what exists."
