#!/bin/sh
# Uses the library as somebody else's project would: try.sh WAY KIND TYPE COMPILER SOURCE WORK
#
# WAY is `subdirectory` or `fetch`, which take the sources, or `package` or `pkg-config`, which take what `subdirectory`
# installed into WORK. Each builds the README's sample, as it stands, and compares what it prints. KIND is `static` or
# `shared`, TYPE one of CMake's build types, COMPILER a C++ compiler; warnings are errors everywhere.
set -eu
way=$1
kind=$2
type=$3
compiler=$4
source=$5
work=$6/$kind-$type-$compiler
consumers=$source/Tests/Project/Consumers
sample=$source/Docs/examples/overlay.cpp
expected=$source/Docs/examples/overlay.out
installed=$work/installed
warnings="-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror"
mkdir -p "$work"

# Linkers of many systems leave out what a program does not name itself.
linking=-Wl,--as-needed

shared=OFF
[ "$kind" = static ] || shared=ON

# What is built in two ways is compiled once, where there is a cache.
launcher=$(command -v ccache || true)
export CCACHE_NOHASHDIR=1

# build NAME [CMake options]
build() {
    name=$1
    shift
    rm -rf "${work:?}/$name"
    cmake -S "$consumers/$name" -B "$work/$name" -G Ninja -DSAMPLE="$sample" -DBUILD_SHARED_LIBS=$shared \
        -DCMAKE_BUILD_TYPE="$type" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" \
        -DCMAKE_EXE_LINKER_FLAGS="$linking" -DCMAKE_SHARED_LINKER_FLAGS="$linking" -DKIVUICORE_WERROR=ON "$@"
    cmake --build "$work/$name" --target consumer
}

# run PROGRAM
run() {
    "$1" >"$work/$way.printed"
    diff -u "$expected" "$work/$way.printed"
}

case $way in
package)
    build Package -DCMAKE_PREFIX_PATH="$installed"
    run "$work/Package/consumer"
    ;;
pkg-config)
    PKG_CONFIG_PATH=$(dirname "$(find "$installed" -name kivuicore.pc)")
    export PKG_CONFIG_PATH
    optimisation=-O0
    [ "$type" = Debug ] || optimisation=-O3
    # shellcheck disable=SC2046,SC2086 # the flags are meant to split
    "$compiler" -std=c++20 $optimisation $warnings $linking "$sample" -o "$work/pkg-config-consumer" \
        $(pkg-config --cflags --libs kivuicore)
    run "$work/pkg-config-consumer"
    ;;
subdirectory)
    rm -rf "${installed:?}" "$work/staged"
    build Subdirectory -DKIVUICORE_SOURCE="$source" -DKIVUICORE_INSTALL=ON -DCMAKE_INSTALL_PREFIX="$work/staged"
    run "$work/Subdirectory/consumer"
    cmake --build "$work/Subdirectory"
    cmake --install "$work/Subdirectory"
    # What was installed must work wherever it is put, and without the build that it came from.
    mv "$work/staged" "$installed"
    rm -rf "$work/Subdirectory"
    find "$installed" -name LICENSE -exec cmp {} "$source/LICENSE" \; -print | grep -q .
    ;;
fetch)
    build Fetch -DKIVUICORE_SOURCE="$source"
    run "$work/Fetch/consumer"
    # The linker keeps of a shared library what the program names; the version is there to be looked up by name.
    if [ "$kind" = shared ]; then
        nm --dynamic --defined-only "$work"/Fetch/_deps/kivuicore-build/KivUICore/libKivUICore.so >"$work/symbols"
        grep -q ' KivUICoreVersionNumber$' "$work/symbols"
        grep -q ' KivUICoreVersionString$' "$work/symbols"
    fi
    ;;
*)
    echo "unknown way: $way" >&2
    exit 2
    ;;
esac
