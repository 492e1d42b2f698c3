# shellcheck shell=sh disable=SC2034,SC2154
# Shell functions that ./play, ./test and ./bench share. The script that sources this sets `program`, the name that
# its messages start with, and `root`, the checkout.

say() {
    printf '%s: %s\n' "$program" "$*" >&2
}

die() {
    say "$*"
    exit 1
}

# run_logged LOG COMMAND...: keeps the command's output in LOG and shows its end only when the command fails.
run_logged() {
    log=$1
    shift
    mkdir -p "$(dirname "$log")"
    if "$@" >"$log" 2>&1 </dev/null; then
        return 0
    fi
    tail -n 60 "$log" >&2
    die "'$*' failed; the whole log is $log"
}

# Prints those of the given Debian packages that are not installed.
missing_packages() {
    for package in "$@"; do
        case $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) in
        installed) ;;
        *) printf ' %s' "$package" ;;
        esac
    done
}

# require_packages PACKAGE...: installs what is missing, and does nothing else when nothing is.
require_packages() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        command -v cmake >/dev/null && command -v ninja >/dev/null && return 0
        die "this is no Debian system: install the counterparts of these packages first: $*"
    fi
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0

    if [ "$(id -u)" -eq 0 ]; then
        as_root=
    elif command -v sudo >/dev/null; then
        as_root=sudo
    else
        die "missing packages; run this as root, then try again: apt-get install --no-install-recommends$missing"
    fi
    say "installing$missing"
    export DEBIAN_FRONTEND=noninteractive
    # sudo may have to ask for a password, so it is asked before the output goes to the log.
    [ -z "$as_root" ] || sudo -v || die "cannot become root to install:$missing"
    run_logged "$root/build/apt-update.log" $as_root apt-get -o DPkg::Lock::Timeout=300 update
    # shellcheck disable=SC2086 # the list is meant to split
    run_logged "$root/build/apt-install.log" $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -o DPkg::Lock::Timeout=300 install -y --no-install-recommends $missing
}

# build_preset PRESET [TARGET...]: configures once, then builds when something changed.
build_preset() {
    preset=$1
    shift
    [ $# -gt 0 ] || set -- all
    folder=$root/build/$preset
    # A checkout that was moved keeps a cache that names the old place and cannot be used.
    if [ -f "$folder/CMakeCache.txt" ] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$folder/CMakeCache.txt"
    then
        rm -rf "$folder"
    fi
    if [ ! -f "$folder/build.ninja" ]; then
        run_logged "$root/build/$preset-configure.log" cmake -S "$root" --preset "$preset"
    fi
    if ninja -C "$folder" -n "$@" 2>&1 | grep -qF 'no work to do'; then
        return 0
    fi
    say "building ($preset); the first time takes a few minutes"
    run_logged "$root/build/$preset-build.log" cmake --build "$folder" --target "$@"
}

# Lists of Debian packages, to be passed unquoted.
build_packages="g++ cmake ninja-build pkg-config"
player_packages="libsdl2-dev libmpv-dev libcairo2-dev libpango1.0-dev libgl-dev libcli11-dev
fonts-inter fonts-dejavu-core fonts-wqy-microhei fonts-noto-color-emoji"
