#!/bin/sh
# Tests what ./play decides: what it installs, builds and makes, and what it hands to the player. The commands that
# it calls are replaced by ones that write down how they were called: play.sh SOURCE WORK [KIVPLAYER]
# shellcheck source=Tests/Project/scripts.sh
# shellcheck disable=SC2016 # the replaced commands expand their own arguments
set -eu
source=$1
work=$2
player=${3:-}
. "$source/Tests/Project/scripts.sh"

# Sets up a checkout in which everything is installed and built.
fresh_checkout() {
    bare_checkout play
    configured_preset release
    mkdir -p "$root/Player/Desktop" "$root/build/release/Player/Desktop"
    script "$root/Player/Desktop/make-sample" 'echo make-sample >>"$CALLS"; : >"$1"'
    script "$root/build/release/Player/Desktop/kivplayer" 'for each; do echo "[$each]"; done; exit "${PLAYER_EXIT:-0}"'
}

play() {
    (cd "$work" && PATH="$work/bin:$PATH" "$root/play" "$@" 2>"$root/errors")
}

# plays WHAT EXPECTED [arguments of play]
plays() {
    what=$1
    expected=$2
    shift 2
    expect "$what" "$(play "$@" | tr -d '\n')" "$expected"
}

fresh_checkout
sample=$root/build/sample.mkv
plays 'a film is handed on' '[film.mkv]' film.mkv
plays 'an argument with blanks stays one' '[my film.mkv]' 'my film.mkv'
plays 'options before and after a film are handed on' '[--at][5][film.mkv][--software]' --at 5 film.mkv --software
plays 'a film after two dashes is a film' '[--][-film.mkv]' -- -film.mkv
plays 'help needs no film' '[--help]' --help
plays 'version needs no film' '[--version]' --version
expect 'no sample is made for any of these' "$(cat "$CALLS")" ''

plays 'nothing plays the sample' "[$sample]"
plays 'options alone play the sample' "[--snapshot][pictures][--at=5][$sample]" --snapshot pictures --at=5
plays 'a value is taken for no film' "[--size][640x360][--scale][2][$sample]" --size 640x360 --scale 2
plays 'an option without its value gets none' '[--mute][--at]' --mute --at
plays 'the standard input is a film' '[-]' -
plays 'two dashes alone play the sample' "[--][$sample]" --
if [ -n "$player" ]; then
    options=$("$player" --help | sed -nE 's/^ +(-., *)?(--[a-z-]+) [A-Za-z|]+( .*)?$/\2/p')
    expect 'the help names the options that take a value' "$(echo "$options" | grep -cx -e --size)" 1
    for option in $options; do
        plays "the value of $option is taken for no film" "[$option][value][$sample]" "$option" value
    done
fi
expect 'the sample is made once, and nothing is installed or built' "$(cat "$CALLS")" make-sample

status=0
PLAYER_EXIT=7 play film.mkv >/dev/null || status=$?
expect "the player's exit code is play's" "$status" 7

fresh_checkout
script "$root/Player/Desktop/make-sample" 'echo "no encoder"; exit 1'
status=0
play >"$root/output" || status=$?
expect 'a sample that cannot be made ends play' "$status $(cat "$root/output")" '1 '
expect 'the reason is shown' "$(head -n 2 "$root/errors" | tail -n 1)" 'no encoder'

fresh_checkout
command_that ninja 'echo "[1/2] Compile"'
play film.mkv >/dev/null
expect 'what changed is built' "$(cat "$CALLS")" "cmake --build $root/build/release --target kivplayer"

fresh_checkout
rm -r "$root/build/release/build.ninja"
play film.mkv >/dev/null
expect 'a build that was never configured is configured' "$(cat "$CALLS")" "cmake -S $root --preset release"

fresh_checkout
command_that cmake 'echo "error: it broke"; exit 1'
command_that ninja 'echo "[1/2] Compile"'
status=0
play film.mkv >"$root/output" || status=$?
expect 'a build that fails ends play' "$status $(cat "$root/output")" '1 '
expect "the compiler's words are shown" "$(grep -c 'error: it broke' "$root/errors")" 1

fresh_checkout
command_that dpkg-query 'for each; do :; done; [ "$each" = ninja-build ] && exit 1; printf installed'
play film.mkv >/dev/null
expect 'only what is missing is installed' "$(sed -n 's/.*--no-install-recommends //p' "$CALLS")" ninja-build

fresh_checkout
command_that dpkg-query 'exit 1'
command_that id 'echo 1000'
command_that sudo 'exit 1'
status=0
play film.mkv >/dev/null || status=$?
expect 'without the right to install play ends' "$status $(grep -c 'cannot become root' "$root/errors")" '1 1'

fresh_checkout
command_that ffmpeg 'for each; do :; done; echo half >"$each"; exit 1'
status=0
PATH="$work/bin:$PATH" "$source/Player/Desktop/make-sample" "$root/half/sample.mkv" || status=$?
expect 'a sample cut short leaves nothing behind' "$status $(ls -A "$root/half")" '1 '

[ "$failures" -eq 0 ]
