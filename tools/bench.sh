#!/bin/sh
# bench.sh [ARGUMENT...]: builds and runs the benchmarks, interleaved, and prints the library's speed relative
# to each peer. The arguments are passed to the program; --benchmark_filter=REGEX chooses benchmarks. Without
# arguments everything is measured, windows under Wine too, and docs/performance.md is written.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

groups='core bench demo'
[ $# != 0 ] || groups="$groups windows"
# shellcheck disable=SC2086 # split on purpose
sh "$root/tools/setup.sh" $groups
build_preset linux-release quorvel_bench
[ $# != 0 ] || build_preset "$(windows_preset)" quorvel_window_bench quorvel_update_window_bench
bench=$root/build/linux-release/bin/quorvel_bench
results=$root/build/linux-release/bench
rm -rf "$results"
mkdir "$results"

# The warm-up pays for the first access to memory that the machine has not used yet.
measure() { # NAME ARGUMENT...
    name=$1
    shift
    "$bench" --benchmark_repetitions=5 --benchmark_enable_random_interleaving=true \
        --benchmark_min_time=0.1 --benchmark_min_warmup_time=0.1 \
        --benchmark_display_aggregates_only=true --benchmark_out="$results/$name.json" \
        --benchmark_out_format=json "$@"
}
if [ $# != 0 ]; then
    measure chosen "$@"
else
    measure others --benchmark_filter=-^Xml
    # Each document runs in its own process. If a virtual machine returns idle memory to its host, a long
    # run of one document makes the next access to memory slow.
    "$bench" --benchmark_list_tests --benchmark_filter=^Xml |
        sed -E 's,^([^/]+)/[^/]+(/.*)?$,^\1/[^/]+\2$,' | awk '!seen[$0]++' >"$results/cases"
    count=0
    while read -r case; do
        count=$((count + 1))
        measure "$(printf 'xml%02d' $count)" --benchmark_filter="$case" </dev/null
    done <"$results/cases"
    windows=$(windows_preset)
    say "== windows"
    for program in quorvel_window_bench quorvel_update_window_bench; do
        (cd "$root/build/$windows/bin" && WINERUN_ARCH=$windows sh "$root/tools/winerun.sh" "./$program.exe")
    done | tr -d '\r' | tee "$results/windows.txt"
    set -- --page "$root/docs/performance.md" --windows "$results/windows.txt"
    page=yes
fi
[ -n "${page:-}" ] || set --
say "== ratios (above 1 is faster than the peer)"
python3 "$root/tools/bench_ratios.py" "$@" "$results"/*.json
