# What the scripts of this folder share: packages, presets, a private display. Sourced by bash.
# shellcheck shell=bash

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# The one list of packages (Debian 12 names), by purpose.
packages_build="build-essential cmake ninja-build ccache pkg-config libwxgtk3.2-dev libboost-dev
    libspdlog-dev nlohmann-json3-dev libpango1.0-dev libgtk-3-dev zlib1g-dev libzstd-dev libre2-dev"
packages_display="xvfb openbox xdotool imagemagick fonts-dejavu-core librsvg2-common"
packages_pictures="zstd"
packages_test="libgtest-dev libxtst-dev xclip gzip zstd"
packages_sanitizers="clang libclang-rt-dev llvm"
packages_check="git clang clang-format clang-tidy doxygen"
packages_bench="libbenchmark-dev jq libxtst-dev libxdamage-dev qt6-base-dev libxcb1-dev fonts-droid-fallback
    fonts-noto-color-emoji"
packages_wx_gtk2="build-essential dpkg-dev libgtk2.0-dev libsm-dev libxtst-dev libpng-dev
    libjpeg-dev libtiff-dev zlib1g-dev libexpat1-dev libpcre2-dev"

say()
{
    printf '%s\n' "$*" >&2
}

# What stands at the top of the script that is run.
print_usage()
{
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$0"
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

# need_value OPTION COUNT: an option without its value is an error.
need_value()
{
    [ "$2" -ge 2 ] || fail "$1 needs a value"
}

# configure PRESET WX_CONFIG ARGUMENT...: sets build_folder. Another wxWidgets than the packaged one
# gets a build folder of its own, named after its port.
configure()
{
    local preset=$1 wx_config=$2 port=""
    shift 2
    if [ -n "$wx_config" ]; then
        wx_config=$(realpath -e -- "$wx_config") || fail "there is no such wx-config"
        port=$("$wx_config" --selected-config) || fail "$wx_config does not work"
        port=-${port%%-*}
    fi
    build_folder=$root/build/$preset$port
    # CMake looks for presets in the folder that it is called in.
    (cd "$root" && cmake --preset "$preset" -B "$build_folder" "-DTOLVAN_WX_CONFIG=$wx_config" "$@")
}

# wait_until SECONDS COMMAND...: whether the command succeeded before the deadline.
wait_until()
{
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.1
    done
}

has_window_manager()
{
    xdotool get_num_desktops >/dev/null 2>&1
}

# Makes the folder scratch, which goes with the script, as does every program started with it in its
# environment, also one that has put itself in the background.
make_scratch()
{
    scratch=$(mktemp -d -t tolvan.XXXXXX)
    display_server=""
    trap clean_up EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
}

clean_up()
{
    local status=$?
    trap - EXIT
    unset XDG_RUNTIME_DIR TOLVAN_USER_DIR
    signal_programs TERM
    wait_until 10 have_programs_ended || signal_programs KILL
    [ -z "$display_server" ] || kill "$display_server" 2>/dev/null || true
    wait
    rm -rf "$scratch"
    exit "$status"
}

# Process ids, one a line.
programs_with_scratch()
{
    grep -lsz -- "^[A-Z_]*=$scratch/" /proc/[0-9]*/environ | cut -d / -f 3
}

signal_programs()
{
    local program
    for program in $(programs_with_scratch); do
        kill "-$1" "$program" 2>/dev/null || true
    done
}

have_programs_ended()
{
    [ -z "$(programs_with_scratch)" ]
}

# Sets DISPLAY to an X server of this script's own with a window manager on it. The desktop of
# whoever calls stays out of it: no Wayland, no sockets in the user's runtime folder.
start_display()
{
    local number screen=${1:-1600x1200x24}
    make_scratch
    mkfifo "$scratch/number"
    Xvfb -displayfd 3 -screen 0 "$screen" -nolisten tcp -noreset \
        3>"$scratch/number" 2>"$scratch/xvfb.log" &
    display_server=$!
    read -r -t 30 number <"$scratch/number" ||
        fail "Xvfb did not start: $(cat "$scratch/xvfb.log")"
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY
    export GDK_BACKEND=x11 XDG_RUNTIME_DIR=$scratch/runtime
    mkdir -m 700 "$XDG_RUNTIME_DIR"

    XDG_CONFIG_HOME=$scratch/config openbox --sm-disable >"$scratch/openbox.log" 2>&1 &
    wait_until 30 has_window_manager ||
        fail "openbox did not start: $(cat "$scratch/openbox.log")"
}

# stands_still WINDOW: whether two pictures in a row are the same, so that what is to be shown has
# been drawn. Sets still to the file with the later one.
stands_still()
{
    still=$scratch/still.ppm
    import -window "$1" "$scratch/before.ppm" 2>/dev/null || return 1
    sleep 0.3
    import -window "$1" "$still" 2>/dev/null && cmp -s "$scratch/before.ppm" "$still"
}
