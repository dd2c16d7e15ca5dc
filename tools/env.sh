# shellcheck shell=sh
# Sourced by the scripts of this folder, after they set $root to the top of the tree.
# It starts no process, so it costs nothing.

# shellcheck disable=SC2034 # for the scripts that source this
cache=${QUORVEL_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/quorvel}

say() {
    printf '%s\n' "$*"
}

die() { # one line that says what is missing, then the end
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# 32-bit Wine needs its packages and a kernel that still runs 32-bit programs: ask the loader itself.
wine32_runs() {
    /usr/lib/wine/wine --version >/dev/null 2>&1
}

windows_preset() {
    if wine32_runs; then echo win32; else echo win64; fi
}

# Some kernels map memory at the place of the sanitizers' shadow ("unexpected memory mapping"). Without
# address randomization they do not. If a container forbids that option, the plain call is used.
without_aslr() {
    if setarch -R true 2>/dev/null; then setarch -R "$@"; else "$@"; fi
}

# build_shown NAME PRESET [TARGET...]: as build_preset, but shows its progress. All output is in
# build/NAME-PRESET.log.
build_shown() {
    mkdir -p "$root/build"
    log=$root/build/$1-$2.log
    shift
    { build_preset "$@" 2>&1 && echo "build: done"; } | python3 "$root/tools/build_progress.py" "$log"
}

build_preset() { # build_preset PRESET [TARGET...]
    preset=$1
    shift
    (cd "$root" && cmake --preset "$preset") || return 1
    if [ $# -gt 0 ]; then set -- --target "$@"; fi
    (cd "$root" && cmake --build --preset "$preset" --parallel "$(nproc)" "$@")
}
