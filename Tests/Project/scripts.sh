# shellcheck shell=sh disable=SC2016,SC2154
# What the tests of ./play and ./test share: a checkout with commands that write down how they were called. Whoever
# sources this sets `source`, the real checkout, and `work`, a folder for the other.
failures=0

# bare_checkout SCRIPT: makes a checkout, `root`, with the script. The commands there find everything installed and
# nothing to build, and write to the file CALLS.
bare_checkout() {
    rm -rf "${work:?}"
    mkdir -p "$work/bin" "$work/checkout"
    cp -R "$source/$1" "$source/Scripts" "$work/checkout"
    root=$(cd "$work/checkout" && pwd -P)
    CALLS=$root/calls
    export CALLS
    : >"$CALLS"

    command_that dpkg-query 'printf installed'
    command_that ninja 'echo "ninja: no work to do."'
    command_that cmake 'echo "cmake $*" >>"$CALLS"'
    command_that apt-get 'echo "apt-get $*" >>"$CALLS"'
    command_that sudo 'case $1 in -v) ;; *) "$@" ;; esac'
}

# configured_preset PRESET: has it look as if it had been configured.
configured_preset() {
    mkdir -p "$root/build/$1"
    : >"$root/build/$1/build.ninja"
    echo "CMAKE_HOME_DIRECTORY:INTERNAL=$root" >"$root/build/$1/CMakeCache.txt"
}

script() {
    printf '#!/bin/sh\n%s\n' "$2" >"$1"
    chmod +x "$1"
}

command_that() {
    script "$work/bin/$1" "$2"
}

# expect WHAT ACTUAL EXPECTED
expect() {
    [ "$2" = "$3" ] && return
    printf 'FAILED: %s\n  got:      %s\n  expected: %s\n' "$1" "$2" "$3"
    failures=$((failures + 1))
}
