#!/bin/sh
# package.sh [PRESET...]: builds the library and makes its packages, in build/packages; by default for
# Linux and for the Windows that runs here. A program is built with each package and run.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" core windows
[ $# -gt 0 ] || set -- package-linux "package-$(windows_preset)"
for preset; do
    case $preset in *win64) sh "$root/tools/setup.sh" windows64 ;; esac
    say "== $preset: building"
    build_shown package "$preset" quorvel quorvel_languages
    folder=$root/build/$preset/cpack
    rm -rf "$folder"
    (cd "$root" && cpack --config "build/$preset/CPackConfig.cmake" -B "$folder") >"$root/build/cpack-$preset.log" 2>&1 || {
        tail -n 20 "$root/build/cpack-$preset.log" >&2
        die "$preset cannot be packed, see build/cpack-$preset.log"
    }
    toolchain=
    case $preset in
    *win32) toolchain=$root/cmake/mingw-i686.cmake ;;
    *win64) toolchain=$root/cmake/mingw-x86_64.cmake ;;
    esac
    log=$root/build/$preset-consumer.log
    cmake -D BUILD="$root/build/$preset" -D SOURCE="$root/tests/packaging/consumer" -D TOOLCHAIN="$toolchain" \
        -D COMPILER=c++ -D BUILD_TYPE=Release -D FLAGS= -D PACKAGES=TRUE -D CMAKE_CPACK_COMMAND=cpack \
        -D WORK="$root/build/$preset-consumer" -P "$root/tests/packaging/consumer.cmake" >"$log" 2>&1 ||
        die "$preset: a program cannot be built with the package, see $log"
    mkdir -p "$root/build/packages"
    for package in "$folder"/*.deb "$folder"/*.zip; do
        [ ! -f "$package" ] || { mv "$package" "$root/build/packages" && say "build/packages/${package##*/}"; }
    done
done
