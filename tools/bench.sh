#!/bin/sh
# bench.sh [ARGUMENT...]: builds and runs the benchmarks, passing the arguments to the program.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" core bench
build_preset linux-release quorvel_bench
exec "$root/build/linux-release/bin/quorvel_bench" "$@"
