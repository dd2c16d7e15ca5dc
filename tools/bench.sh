#!/bin/sh
# bench.sh [ARGUMENT...]: builds and runs the benchmarks, interleaved, and prints how many times as fast as
# each peer the library is. The arguments go to the program; --benchmark_filter=REGEX picks some.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" core bench demo
build_preset linux-release quorvel_bench
results=$root/build/linux-release/bench.json
# The warm-up takes the first touch of memory that the machine has not used so far.
"$root/build/linux-release/bin/quorvel_bench" --benchmark_repetitions=5 \
    --benchmark_enable_random_interleaving=true --benchmark_min_time=0.1 \
    --benchmark_min_warmup_time=0.1 --benchmark_display_aggregates_only=true \
    --benchmark_out="$results" --benchmark_out_format=json "$@"
say "== ratios (above 1 is faster than the peer)"
python3 "$root/tools/bench_ratios.py" "$results"
