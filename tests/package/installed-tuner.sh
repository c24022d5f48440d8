#!/usr/bin/env bash
# Builds the Debian packages, unpacks them into a scratch root (dpkg -x) and
# runs what they installed there: the simulator, the host app and the plug-in
# it finds beside itself, on a private session bus, up to a saved screenshot.
# Where the cross build made arm64 packages of the same version, checks those
# too: their architecture, the same files, and arm64 binaries, stripped.
#   installed-tuner.sh BUILD_DIR [MAX_TUNER_PACKAGE_BYTES [ARM64_PACKAGE_DIR]]   (0: no limit)
set -euo pipefail
build="$1"
max_tuner_bytes="${2:-1048576}"
arm64_packages="${3:-}"
scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT

cpack -G DEB --config "$build/CPackConfig.cmake" -B "$scratch/packages" >"$scratch/cpack.log" 2>&1 \
    || { cat "$scratch/cpack.log"; exit 1; }
root="$scratch/root"
for package in nilo-tuner nilo-tuner-devtools; do
    deb=$(ls "$scratch/packages/${package}"_*.deb)
    dpkg -x "$deb" "$root"
    echo "$package $(dpkg-deb -f "$deb" Version), $(stat -c %s "$deb") bytes: $(dpkg-deb -f "$deb" Depends)"
    ls "$scratch/packages/${package}-dbgsym_"*.ddeb >/dev/null \
        || { echo "FAIL: $package has no package of debug symbols"; exit 1; }
done

# As Debian ships them: no lintian error, stripped binaries, a small plug-in.
lint_status=0
lint=$(lintian --fail-on error "$scratch/packages/"*.deb 2>&1) || lint_status=$?
echo "$lint" | grep -v "root privileges" || true
[ "$lint_status" -eq 0 ] || { echo "FAIL: lintian reports errors"; exit 1; }
tuner_deb_bytes=$(stat -c %s "$scratch/packages/"nilo-tuner_*.deb)
if [ "$max_tuner_bytes" -gt 0 ] && [ "$tuner_deb_bytes" -gt "$max_tuner_bytes" ]; then
    echo "FAIL: nilo-tuner is $tuner_deb_bytes bytes, over $max_tuner_bytes"
    exit 1
fi

# The arm64 packages: what the native ones hold, built for the target.
file_list() { dpkg-deb -c "$1" | awk '{ print $6 }' | sed 's/x86_64-linux-gnu\|aarch64-linux-gnu/MULTIARCH/' | sort; }
if [ -n "$arm64_packages" ] && ls "$arm64_packages"/nilo-tuner_*_arm64.deb >/dev/null 2>&1; then
    version=$(dpkg-deb -f "$scratch/packages/"nilo-tuner_*.deb Version)
    arm64_version=$(dpkg-deb -f "$arm64_packages"/nilo-tuner_*_arm64.deb Version)
    if [ "$arm64_version" != "$version" ]; then
        echo "SKIP: the arm64 packages are of $arm64_version, this build is $version (scripts/cross-build.sh arm64 rebuilds them)"
    else
        for package in nilo-tuner nilo-tuner-devtools; do
            native=$(ls "$scratch/packages/${package}"_*.deb)
            arm64=$(ls "$arm64_packages/${package}_${version}_arm64.deb")
            [ "$(dpkg-deb -f "$arm64" Architecture)" = arm64 ] || { echo "FAIL: $arm64 is not for arm64"; exit 1; }
            ls "$arm64_packages/${package}-dbgsym_${version}_arm64.ddeb" >/dev/null \
                || { echo "FAIL: $package for arm64 has no package of debug symbols"; exit 1; }
            if ! diff <(file_list "$native") <(file_list "$arm64"); then
                echo "FAIL: $package holds other files for arm64"
                exit 1
            fi
            dpkg -x "$arm64" "$scratch/arm64"
        done
        while read -r binary; do
            file -b "$binary" | grep -q "ARM aarch64.*, stripped" || { echo "FAIL: $binary: $(file -b "$binary")"; exit 1; }
        done < <(find "$scratch/arm64" -type f \( -name '*.so*' -o -path '*/bin/*' \))
        echo "arm64 packages of $version: architecture, files and stripped binaries as expected"
    fi
fi

host="$(find "$root" -path '*/bin/nilo-tuner-host')"
sim="$(find "$root" -path '*/bin/nilo-sim')"
plugin="$(find "$root" -name 'libtuner.so')"
# Everything must come from the scratch root, nothing from the build tree.
for program in "$host" "$sim" "$plugin"; do
    file -L "$program" | grep -q ", stripped" || { echo "FAIL: $program is not stripped"; exit 1; }
    if ldd "$program" | grep -E 'nilo_host|not found' | grep -v -F "$root"; then
        echo "FAIL: $program does not load the host libraries it was installed with"
        exit 1
    fi
done

state="$scratch/state"
mkdir -p "$state/root" "$state/nilo/etc" "$state/runtime"
chmod 700 "$state/runtime"
printf '[Vehicle]\nDestination=0\n' >"$state/vehicle.ini"
export TUNER_ROOT="$state/root" NILO_DIR="$state/nilo" NILO_VEHICLE_CONF="$state/vehicle.ini"
export XDG_RUNTIME_DIR="$state/runtime" QT_QPA_PLATFORM=offscreen
frame="$scratch/frame.png"
output=$(dbus-run-session -- bash -c '
    "$0" --state "$1/sim.json" &
    sim=$!
    trap "kill $sim 2>/dev/null" EXIT
    "$2" --screenshot "$3" --settle 300
' "$sim" "$state" "$host" "$frame" 2>&1) || { echo "$output"; exit 1; }
echo "$output" | grep -F "Screenshot saved to $frame"
# A frame that shows the tuner, not an empty window: the images are there.
[ "$(stat -c %s "$frame")" -gt 20000 ] || { echo "FAIL: the frame is nearly empty"; exit 1; }
echo "The installed tuner ran from $root"

# What desktops and systemd read: the host app's desktop file, and the user
# units as systemd-analyze checks them (any remark fails; their programs
# pointed into the scratch root, where they are).
desktop-file-validate "$root/usr/share/applications/nilo-tuner-host.desktop"
mkdir -p "$scratch/units" "$scratch/services"
for unit in "$root"/usr/lib/systemd/user/*.service; do
    sed "s|=/usr/|=$root/usr/|" "$unit" >"$scratch/units/$(basename "$unit")"
done
remarks=$(systemd-analyze verify --user "$scratch"/units/*.service 2>&1) || true
[ -z "$remarks" ] || { echo "FAIL: systemd-analyze verify: $remarks"; exit 1; }
echo "units verified: $(cd "$scratch/units" && echo *.service)"

# Started on demand: a private bus whose service folder holds the installed
# activation files (their Exec lines pointed into the scratch root) starts
# the simulator when the radio service is called, and the host app when its
# automation is. Nothing is started by hand.
for file in "$root"/usr/share/dbus-1/services/*.service; do
    sed "s|^Exec=/|Exec=$root/|" "$file" >"$scratch/services/$(basename "$file")"
done
cat >"$scratch/bus.conf" <<EOF
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=$scratch</listen>
  <servicedir>$scratch/services</servicedir>
  <auth>EXTERNAL</auth>
  <policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/></policy>
</busconfig>
EOF
output=$(dbus-run-session --config-file="$scratch/bus.conf" -- bash -c '
    call() { dbus-send --session --print-reply --reply-timeout=20000 "$@"; }
    owner() { call --dest=org.freedesktop.DBus / org.freedesktop.DBus.GetConnectionUnixProcessID "string:$1" | awk "/uint32/ { print \$2 }"; }
    trap "kill \$(owner nilo.TunerHost) \$(owner com.nilo.mcu) 2>/dev/null" EXIT
    call --dest=com.nilo.mcu /RadioService nilo.RadioService.fmMaxFreq
    call --dest=nilo.TunerHost /Host nilo.TunerHost.widgets
' 2>&1) || { echo "$output"; exit 1; }
echo "$output" | grep -q "int32 10800" || { echo "FAIL: the activated simulator did not answer: $output"; exit 1; }
echo "$output" | grep -q "Txt_0035_rds_freq" || { echo "FAIL: the activated host app did not answer: $output"; exit 1; }
echo "The simulator and the host app started on demand from their activation files"
