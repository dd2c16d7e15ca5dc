#!/bin/sh
# fuzz.sh [TARGET] [SECONDS]: fuzzes one target, or all of them, each for 60 seconds or the given
# number. Findings are in build/linux-fuzz; copy useful ones to fuzz/corpus.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

known=$(sed -n 's/^ *quorvel_fuzz(\([a-z0-9_]*\).*/\1/p' "$root/fuzz/CMakeLists.txt")
case ${1:-} in
'' | [0-9]*) targets=$known ;;
*)
    printf '%s\n' "$known" | grep -qx -- "$1" || die "unknown target '$1':" $known
    targets=$1
    shift
    ;;
esac
seconds=${1:-60}
[ -n "$targets" ] || die "fuzz/CMakeLists.txt declares no targets"

sh "$root/tools/setup.sh" core fuzz
# shellcheck disable=SC2046
build_preset linux-fuzz $(printf 'fuzz_%s ' $targets)

export QUORVEL_REGISTRY="$root/build/linux-fuzz/registry.db" # not the user's
export LC_ALL=C.UTF-8 TZ=Europe/Berlin UBSAN_OPTIONS=print_stacktrace=1
for target in $targets; do
    say "== fuzz_$target, $seconds s"
    found=$root/build/linux-fuzz/found/$target
    mkdir -p "$found/corpus"
    set -- -max_total_time="$seconds" -timeout=10 -artifact_prefix="$found/" -print_final_stats=1
    [ ! -f "$root/fuzz/$target.dict" ] || set -- "$@" -dict="$root/fuzz/$target.dict"
    seeds=$root/fuzz/corpus/$target
    [ -d "$seeds" ] || seeds=
    # shellcheck disable=SC2086
    without_aslr "$root/build/linux-fuzz/bin/fuzz_$target" "$@" "$found/corpus" $seeds
done
