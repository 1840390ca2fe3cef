# What the scripts of this folder share: packages, presets, a private display. Sourced by bash.
# shellcheck shell=bash

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# The one list of packages (Debian 12 names), by purpose.
packages_build="build-essential cmake ninja-build ccache pkg-config libwxgtk3.2-dev libboost-dev
    libsimpleini-dev libspdlog-dev nlohmann-json3-dev"
packages_display="xvfb openbox xdotool imagemagick fonts-dejavu-core"
packages_test="libgtest-dev gettext"
packages_bench="libbenchmark-dev jq"
packages_wx_gtk2="build-essential dpkg-dev libgtk2.0-dev libsm-dev libxtst-dev libpng-dev
    libjpeg-dev libtiff-dev zlib1g-dev libexpat1-dev libpcre2-dev"

say()
{
    printf '%s\n' "$*" >&2
}

fail()
{
    say "$(basename "$0"): $*"
    exit 1
}

is_installed()
{
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# Runs a command with the rights to install packages.
as_root()
{
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        return 1
    fi
}

# install_packages NAME...: installs those that are missing, and names them where it can't.
install_packages()
{
    local package missing=()
    command -v dpkg-query >/dev/null ||
        fail "packages are installed with apt, which is not here; needed are: $*"
    for package; do
        is_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} != 0 ] || return 0

    say "Installing: ${missing[*]}"
    if ! { as_root apt-get update -q &&
           as_root env DEBIAN_FRONTEND=noninteractive \
               apt-get install -q -y --no-install-recommends "${missing[@]}"; } >&2; then
        fail "could not install packages (root or sudo is needed). Install them and try again:
    apt-get install ${missing[*]}"
    fi
}
