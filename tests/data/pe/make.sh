#!/bin/sh
# Creates the sample images of this folder with the mingw tools.
set -eu
cd "$(dirname "$0")"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# image OUTPUT CPU OBJECT...: a DLL with the smallest alignment.
image() {
    output=$1 cpu=$2 entry=$3
    shift 3
    "$cpu-w64-mingw32-ld" -shared -s --entry="$entry" --no-insert-timestamp --file-alignment=512 \
        -o "$output" "$@"
    chmod 644 "$output" # never run
}
resources() { # SCRIPT CPU
    "$2-w64-mingw32-windres" -c 65001 --preprocessor="$2-w64-mingw32-cpp" --preprocessor-arg=-xc \
        --preprocessor-arg=-DRC_INVOKED -i "$1.rc" -o "$work/$1.$2.o"
}

for script in full strings_only no_translation all_texts keys; do
    resources $script i686
    image $script.dll i686 0 "$work/$script.i686.o"
done

printf 'int __attribute__((stdcall)) Entry(void* m, unsigned r, void* p) { return m && r | !p; }' \
    >"$work/code.c"
i686-w64-mingw32-gcc -O2 -fno-asynchronous-unwind-tables -c "$work/code.c" -o "$work/code.o"
image code.dll i686 _Entry@12 "$work/code.o" "$work/strings_only.i686.o"
image no_resources.dll i686 _Entry@12 "$work/code.o"

# A 64-bit program loads these as modules and reads the others as data.
mkdir -p x86_64
for script in full strings_only; do
    resources $script x86_64
    image x86_64/$script.dll x86_64 0 "$work/$script.x86_64.o"
done
