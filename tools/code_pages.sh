#!/bin/sh
# code_pages.sh [PATTERN]: shows where the code pages of the Linux layer differ from the platform's.
# Lines with "<" are the platform's results, lines with ">" ours. Code pages that one of them lacks
# are omitted. PATTERN chooses lines, as in "^1361 ". It takes some minutes.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" core windows
build_preset linux-debug quorvel
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
source=$root/tools/code_pages.cpp
i686-w64-mingw32-g++ -std=c++20 -O2 -static -o "$work/dump.exe" "$source"
g++ -std=c++20 -O2 -I"$root/include" -o "$work/dump" "$source" \
    -L"$root/build/linux-debug/bin" -lquorvel -Wl,-rpath,"$root/build/linux-debug/bin"
"$work/dump" >"$work/ours"
sh "$root/tools/winerun.sh" "$work/dump.exe" | tr -d '\r' >"$work/theirs"
for each in ours theirs; do
    cut -d' ' -f1 "$work/$each" | sort -u >"$work/$each.pages"
    grep -E "${1:-.}" "$work/$each" | sort >"$work/$each.sorted" || :
done
join "$work/ours.pages" "$work/theirs.pages" >"$work/pages"
for each in ours theirs; do
    join "$work/pages" "$work/$each.sorted" >"$work/$each.common"
done
diff "$work/theirs.common" "$work/ours.common" | grep '^[<>]' || say "no difference"
