# Shared by the run and test commands: Debian packages, configure and build.
# Sourced, not run.

TUNER_SRC="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

TUNER_PACKAGES=(
    cmake g++ make
    qtbase5-dev qtbase5-dev-tools qttools5-dev qttools5-dev-tools
    dbus-daemon dbus-session-bus-common
    fonts-dejavu-core fonts-dejavu-extra
    dpkg-dev file lintian
    xvfb xauth xdotool
    weston qtwayland5 x11-apps
    playerctl desktop-file-utils systemd
    clang-format
)

# Installs the packages that are missing (needs root, as on the head-unit build
# machines and CI).
tuner_install_packages() {
    local missing=()
    local pkg
    for pkg in "${TUNER_PACKAGES[@]}" "$@"; do
        if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed"; then
            missing+=("$pkg")
        fi
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    echo "Installing missing packages: ${missing[*]}"
    local sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# tuner_build BUILD_DIR [extra cmake options...]
tuner_build() {
    local dir="$1"
    shift
    cmake -S "$TUNER_SRC" -B "$dir" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
    cmake --build "$dir" -j"$(nproc)"
}
