#!/bin/sh
# minizip_mingw.sh CPU: builds minizip for the Windows builds (i686 or x86_64) from the distribution's
# own source package, since only zlib is packaged for them. The headers and the static library lie in
# minizip-CPU of the cache folder, so that builds need no network afterwards.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

triple=$1-w64-mingw32
target=$cache/minizip-$1
say "$target"
[ ! -f "$target/lib/libminizip.a" ] || exit 0

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' INT TERM
mkdir -p "$work/lists/partial" "$work/cache/archives/partial" "$work/sources" "$work/objects"
# The machine's package sources, as sources of source code: nothing of the machine's own is changed.
for file in /etc/apt/sources.list.d/*.sources; do
    [ ! -f "$file" ] || sed 's/^Types:.*/Types: deb-src/' "$file" >"$work/sources/${file##*/}"
done
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ ! -f "$file" ] ||
        sed -n 's/^deb\(-src\)\{0,1\}[[:space:]]/deb-src /p' "$file" | sort -u >"$work/sources/x-$(basename "$file" .list).list"
done
fetch() {
    apt-get -qq -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$work/sources" \
        -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work/cache" -o APT::Sandbox::User=root \
        "$@" >>"$work/log" 2>&1
}
fail() {
    die "cannot build minizip for $triple ($(grep -m 1 '^[EW]: ' "$work/log"))"
}
cd "$work"
fetch update || true # a list that failed may be one that is not needed
fetch source --download-only minizip || fail
dpkg-source --no-check -x ./*.dsc source >>"$work/log" 2>&1 || fail

for unit in ioapi iowin32 unzip zip; do
    # NOCRYPT: entries are never encrypted. The warnings are the package's own business.
    "$triple-gcc-posix" -O2 -w -DNOCRYPT -c "source/$unit.c" -o "objects/$unit.o"
done
made=$target.$$
mkdir -p "$made/lib" "$made/include/minizip"
"$triple-ar" rcs "$made/lib/libminizip.a" objects/*.o
(cd source && cp ioapi.h iowin32.h unzip.h zip.h "$made/include/minizip")
rm -rf "$target"
mv "$made" "$target"
