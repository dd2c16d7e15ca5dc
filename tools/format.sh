#!/bin/sh
# format.sh [--check]: formats all source files in place. With --check it changes nothing, lists the
# files that need formatting, and fails.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

case ${1:-} in
'' | --check) ;;
*) die "unknown option '$1': --check" ;;
esac
# Versions format some lines differently: with another version the check would always fail.
case $(clang-format --version 2>/dev/null) in
*"version 14."*) ;;
*) die "clang-format 14 is missing: './run setup core' installs it" ;;
esac

cd "$root"
sources() {
    find include src tests bench fuzz examples \( -name '*.h' -o -name '*.cpp' \) -type f -print0
}
if [ $# -eq 0 ]; then
    sources | xargs -0 -r -n 8 -P "$(nproc)" clang-format -i
    exit
fi
wrong=$(sources | xargs -0 -r -n 8 -P "$(nproc)" clang-format --dry-run 2>&1 |
    sed -n 's/^\([^:]*\):[0-9]*:[0-9]*: .*/\1/p' | sort -u)
[ -z "$wrong" ] || {
    printf '%s\n' "$wrong"
    die "these files need './run format'"
}
