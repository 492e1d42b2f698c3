#!/bin/sh
# Uses the library as somebody else's project would: try.sh WAY SOURCE WORK
#
# WAY is `subdirectory` or `fetch`, which take the sources, or `package` or `pkg-config`, which take what `subdirectory`
# installed into WORK. Each builds a small program and runs it.
set -eu
way=$1
source=$2
work=$3
consumers=$source/Tests/Project/Consumers
installed=$work/installed

# build_and_run NAME [CMake options]
build_and_run() {
    name=$1
    shift
    rm -rf "${work:?}/$name"
    cmake -S "$consumers/$name" -B "$work/$name" -G Ninja "$@"
    cmake --build "$work/$name" --target consumer
    "$work/$name/consumer"
}

case $way in
package)
    build_and_run Package -DCMAKE_PREFIX_PATH="$installed"
    ;;
pkg-config)
    PKG_CONFIG_PATH=$(dirname "$(find "$installed" -name kivuicore.pc)")
    export PKG_CONFIG_PATH
    # shellcheck disable=SC2046 # the flags are meant to split
    "${CXX:-c++}" -std=c++20 "$consumers/consumer.cpp" -o "$work/pkg-config-consumer" \
        $(pkg-config --cflags --libs kivuicore)
    "$work/pkg-config-consumer"
    ;;
subdirectory)
    rm -rf "${installed:?}" "$work/staged"
    build_and_run Subdirectory -DKIVUICORE_SOURCE="$source" -DKIVUICORE_INSTALL=ON \
        -DCMAKE_INSTALL_PREFIX="$work/staged"
    cmake --build "$work/Subdirectory"
    cmake --install "$work/Subdirectory"
    # What was installed must work wherever it is put, and without the build that it came from.
    mv "$work/staged" "$installed"
    rm -rf "$work/Subdirectory"
    ;;
fetch)
    build_and_run Fetch -DKIVUICORE_SOURCE="$source"
    # The linker keeps of a shared library what the program names; the version is there to be looked up by name.
    nm --dynamic --defined-only "$work"/Fetch/_deps/kivuicore-build/KivUICore/libKivUICore.so >"$work/symbols"
    grep -q ' KivUICoreVersionNumber$' "$work/symbols"
    grep -q ' KivUICoreVersionString$' "$work/symbols"
    ;;
*)
    echo "unknown way: $way" >&2
    exit 2
    ;;
esac
