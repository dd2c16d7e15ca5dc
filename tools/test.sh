#!/bin/sh
# test.sh [PRESET...]: builds and tests the presets; by default both builds of the library.
# QUORVEL_CTEST_ARGS contains more arguments for ctest (-R registry, -L threads).
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" core windows
[ $# -gt 0 ] || set -- linux-debug "$(windows_preset)"
export UBSAN_OPTIONS=print_stacktrace=1
cd "$root"
for preset; do
    say "== $preset: building, half an hour the first time"
    [ "$preset" != win64 ] || sh "$root/tools/setup.sh" windows64
    build_shown test "$preset"
    say "== $preset: testing"
    case $preset in
    linux-asan | linux-tsan) runner=without_aslr ;;
    *) runner= ;;
    esac
    # shellcheck disable=SC2086
    $runner ctest --preset "$preset" --output-on-failure --parallel "$(nproc)" ${QUORVEL_CTEST_ARGS:-}
done
