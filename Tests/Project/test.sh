#!/bin/sh
# Tests what ./test decides: what it builds and which tests it runs. The commands that it calls are replaced by ones
# that write down how they were called: test.sh SOURCE WORK BUILD
# shellcheck source=Tests/Project/scripts.sh
# shellcheck disable=SC2016 # the replaced commands expand their own arguments
set -eu
source=$1
work=$2
build=$3
. "$source/Tests/Project/scripts.sh"

# Sets up a checkout in which everything is installed and configured, and something has changed.
fresh_checkout() {
    bare_checkout test
    for preset in dev clang optimised; do
        configured_preset $preset
    done
    for folder in Platform KivCore KivUICore Hosts Player Tests Benchmarks Docs; do
        mkdir "$root/$folder"
        : >"$root/$folder/Source.cpp"
    done
    for list in "$source"/Tests/*/CMakeLists.txt; do
        folder=$root/Tests/$(basename "$(dirname "$list")")
        mkdir "$folder"
        : >"$folder/CMakeLists.txt"
    done
    command_that ninja 'echo "[1/2] Compile"'
    command_that clang-format 'echo "clang-format $*" >>"$CALLS"'
    command_that clang-tidy 'echo clang-tidy >>"$CALLS"'
    command_that g++ 'cat >/dev/null'
    command_that nproc 'echo 2'
    command_that ctest 'echo "ctest $*" >>"$CALLS"; echo "100% tests passed, 0 tests failed out of 7"'
}

run_test() {
    status=0
    (cd "$work" && PATH="$work/bin:$PATH" "$root/test" "$@" >"$root/output" 2>"$root/errors") || status=$?
}

# Prints what was built, as PRESET TARGET...
builds() {
    sed -n "s|^cmake --build $root/build/\([a-z]*\) --target|\1|p" "$CALLS"
}

# Prints which tests were run, as PRESET OPTION...
runs() {
    sed -n 's/^ctest .*--preset //p' "$CALLS"
}

fresh_checkout
run_test UIKit UIKitt
expect 'an unknown part ends it' "$status" 1
expect 'an unknown part is told in one line' "$(wc -l <"$root/errors")$(cat "$root/output")" 1
expect 'an unknown part is named' "$(grep -c "there is no part 'UIKitt'; the parts are " "$root/errors")" 1
expect 'the parts are named' "$(grep -cE ' Overlay .* UIKit .*' "$root/errors")" 1
run_test KivUI
expect 'the beginning of a name is no part' "$status $(grep -c "no part 'KivUI'" "$root/errors")" '1 1'
run_test coverage UIKit
expect 'coverage is no part' "$status $(grep -c "no part 'coverage'" "$root/errors")" '1 1'
run_test --coverage
expect 'an unknown option is told as a part' "$status $(grep -c "no part '--coverage'" "$root/errors")" '1 1'
run_test 'SDL UIKit'
expect 'two parts in one argument are none' "$status $(grep -c "no part 'SDL UIKit'" "$root/errors")" '1 1'
run_test --help
expect 'help is shown' "$status $(grep -cE '^(Usage|PART|quick|coverage)' "$root/output")" '0 4'
help=$(cat "$root/output")
run_test -h
expect 'a short option shows it too' "$(cat "$root/output")" "$help"
expect 'nothing is installed, built or run for any of these' "$(cat "$CALLS")" ''

labels=$(cd "$build" && ctest --print-labels | sed -n 's/^  //p')
expect 'the labels of this build are found' "$(echo "$labels" | grep -cx Project)" 1
for label in $labels; do
    : >"$CALLS"
    run_test "$label"
    expect "the label $label is a part" "$status $(runs)" "0 dev --label-regex ^($label)$"
    expect "the help names $label" "$(echo "$help" | grep -cw "$label" | sed 's/^[1-9]/named/')" named
done

fresh_checkout
run_test UIKit
expect 'the tests of a part are built with g++' "$(builds)" 'dev Tests/UIKit/all'
expect "the end is CTest's summary" "$status $(tail -n 1 "$root/output")" '0 100% tests passed, 0 tests failed out of 7'

fresh_checkout
run_test Docs Overlay Consumers
expect 'several parts are built at once' "$(builds)" 'dev Docs/examples/all Tests/Overlay/all build.ninja'
expect 'several parts are run at once' "$(runs)" 'dev --label-regex ^(Docs|Overlay|Consumers)$'

fresh_checkout
command_that ctest 'echo "7: it broke"; echo "0% tests passed, 1 tests failed out of 1"; exit 8'
run_test UIKit
expect 'a test that fails ends it' "$status $(cat "$root/output")" '1 0% tests passed, 1 tests failed out of 1'
expect 'what failed is shown' "$(grep -c 'it broke' "$root/errors")" 1

fresh_checkout
run_test quick
expect 'quick checks the format first' "$(head -n 1 "$CALLS" | cut -d ' ' -f 1-3)" 'clang-format --dry-run -Werror'
expect 'quick builds with g++ alone' "$(builds)" 'dev all'
expect 'quick leaves the slow tests out' "$(runs)" 'dev --label-exclude ^(Player|Hostile|Consumers)$'

fresh_checkout
command_that clang-format 'exit 1'
run_test quick
expect 'a wrong format ends it before anything is built' "$status $(cat "$CALLS")" '1 '

fresh_checkout
run_test
expect 'without arguments all is built' "$(builds | tr '\n' ' ')" 'dev all clang all optimised all '
expect 'without arguments all is run' "$(runs | tr '\n' ' ')" 'optimised clang dev '
expect 'without arguments clang-tidy is run' "$(grep -c clang-tidy "$CALLS")" 5

[ "$failures" -eq 0 ]
