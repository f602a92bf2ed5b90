# Shared by the scripts of this folder: what a machine needs, how to build. Sourced, not run.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Debian packages needed to build the program, and those that the embedded desktop and the tests need as well.
build_packages=(
    cmake ninja-build g++ pkg-config
    qt6-base-dev qt6-svg-dev qt6-tools-dev qt6-l10n-tools qt6-translations-l10n libgl-dev libdbus-1-dev libplist-dev
    nlohmann-json3-dev libpugixml-dev libappstream-dev
    libxcb1-dev libxcb-xinput-dev libxcb-randr0-dev libxcb-xkb-dev libxcb-res0-dev libxcb-shape0-dev libxcb-xfixes0-dev
    libxkbcommon-dev libxkbcommon-x11-dev
)
desktop_packages=(
    xvfb xauth xkb-data openbox dbus at-spi2-core dconf-gsettings-backend dconf-service
    mousepad xdotool imagemagick x11-utils fonts-dejavu-core adwaita-icon-theme
)
test_packages=(
    libgtest-dev libgmock-dev libsystemd-dev libxcb-xtest0-dev libatspi2.0-dev libgtk-3-dev
    xserver-xorg-core xserver-xorg-video-dummy xfwm4 picom geany featherpad xterm x11-xkb-utils libplist-utils gobjc libgnustep-base-dev make
    dex desktop-file-utils libglib2.0-bin openssl python3
)
benchmark_packages=(libbenchmark-dev)
lint_packages=(clang-format clang-tidy)

# Installs those of the named Debian packages that are missing. Elsewhere, and without the right to install, it says
# what is missing and goes on: the build then tells what it cannot do without.
ensure_packages() {
    local missing=()
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian machine: please see that these are installed: $*" >&2
        return 0
    fi
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0

    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Please install as root: apt-get install ${missing[*]}" >&2
            return 0
        fi
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -qq >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# configure_and_build PRESET [TARGET...], with more CMake options in configure_options.
configure_options=()
configure_and_build() {
    local preset=$1
    shift
    cmake --preset "$preset" "${configure_options[@]}" >/dev/null
    cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"} >&2
}
