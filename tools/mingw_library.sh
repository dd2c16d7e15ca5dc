#!/bin/sh
# mingw_library.sh NAME CPU: builds a library that is not packaged for the Windows builds (i686 or
# x86_64) from the distribution's own source package: minizip, expat or sodium. The headers and the static
# library are in NAME-CPU of the cache folder, so that later builds need no network.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

# Each recipe runs in the folder above the unpacked source. It names the units to compile with their
# flags, and the headers to install.
minizip_recipe() {
    compile source "ioapi iowin32 unzip zip" -DNOCRYPT # entries are never encrypted
    install_headers source minizip ioapi.h iowin32.h unzip.h zip.h
}
expat_recipe() {
    # The settings that its own build scripts would detect for mingw; entropy comes from the system.
    : >source/expat/lib/expat_config.h
    compile source/expat/lib "xmlparse xmlrole xmltok" -Isource/expat/lib \
        -DXML_STATIC -DXML_NS -DXML_DTD -DXML_CONTEXT_BYTES=1024 -DBYTEORDER=1234
    install_headers source/expat/lib . expat.h expat_external.h
}
# Only the units that create and verify signatures; their other references are never called.
sodium_recipe() {
    include=source/src/libsodium/include
    sed -e 's/@VERSION@/1.0.18/' -e 's/@SODIUM_LIBRARY_VERSION_MAJOR@/10/' -e 's/@SODIUM_LIBRARY_VERSION_MINOR@/3/' \
        -e 's/@SODIUM_LIBRARY_MINIMAL_DEF@//' $include/sodium/version.h.in >$include/sodium/version.h
    cat >missing.c <<'END'
#include <stdlib.h>
void sodium_misuse(void) { abort(); }
void randombytes_buf(void *bytes, size_t count) { (void)bytes, (void)count; abort(); }
END
    flags="-ffunction-sections -fdata-sections -DSODIUM_STATIC -DCONFIGURED=1 -DNATIVE_LITTLE_ENDIAN -DDEV_MODE=0"
    flags="$flags -I$include/sodium -I$include"
    # shellcheck disable=SC2086
    for units in "crypto_sign/ed25519/ref10 open sign keypair" "crypto_core/ed25519/ref10 ed25519_ref10" \
        "crypto_hash/sha512/cp hash_sha512_cp" "crypto_verify/sodium verify" "sodium utils" \
        "crypto_generichash/blake2b/ref blake2b-ref blake2b-compress-ref generichash_blake2b"; do
        compile "source/src/libsodium/${units%% *}" "${units#* }" $flags
    done
    compile . missing
    install_headers $include . sodium.h
    # shellcheck disable=SC2046
    install_headers $include/sodium sodium $(cd $include/sodium && ls ./*.h)
}

name=$1
case $name in
minizip | expat) package=$name ;;
sodium) package=libsodium ;;
*) die "unknown library '$name': minizip, expat, sodium" ;;
esac
triple=$2-w64-mingw32
target=$cache/$name-$2
say "$target"
[ ! -f "$target/lib/lib$name.a" ] || exit 0

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
trap 'exit 1' INT TERM
made=$work/made
mkdir -p "$work/lists/partial" "$work/cache/archives/partial" "$work/sources" "$work/objects" \
    "$made/lib" "$made/include"

fail() {
    die "cannot build $name for $triple ($(grep -m 1 '^[EW]: ' "$work/log"))"
}
# The machine's package sources, as sources of source code. The machine's own settings are not changed.
name_sources() {
    for file in /etc/apt/sources.list.d/*.sources; do
        [ ! -f "$file" ] || sed 's/^Types:.*/Types: deb-src/' "$file" >"$work/sources/${file##*/}"
    done
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ ! -f "$file" ] ||
            sed -n 's/^deb\(-src\)\{0,1\}[[:space:]]/deb-src /p' "$file" | sort -u >"$work/sources/x-$(basename "$file" .list).list"
    done
}
fetch() {
    apt-get -qq -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$work/sources" \
        -o Dir::State::Lists="$work/lists" -o Dir::Cache="$work/cache" -o APT::Sandbox::User=root \
        "$@" >>"$work/log" 2>&1
}
compile() { # compile FOLDER UNITS [FLAG...]: the warnings are the package's own business
    folder=$1 units=$2
    shift 2
    for unit in $units; do
        "$triple-gcc-posix" -O2 -w "$@" -c "$folder/$unit.c" -o "objects/$unit.o"
    done
}
install_headers() { # install_headers FOLDER TARGET HEADER...
    folder=$1 into=$made/include/$2
    shift 2
    mkdir -p "$into"
    (cd "$folder" && cp "$@" "$into")
}

name_sources
cd "$work"
fetch update || true # a list that failed may be one that is not needed
# An update that was replaced by a newer one may be listed but missing; the release itself stays available.
suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
fetch source --download-only "$package" || fetch -t "$suite" source --download-only "$package" || fail
dpkg-source --no-check -x ./*.dsc source >>"$work/log" 2>&1 || fail
"${name}_recipe"
"$triple-ar" rcs "$made/lib/lib$name.a" objects/*.o
mkdir -p "$cache"
rm -rf "$target"
mv "$made" "$target.$$"
mv "$target.$$" "$target"
