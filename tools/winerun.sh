#!/bin/sh
# winerun.sh PROGRAM [ARGUMENT...]: runs a Windows program under Wine; returns its exit code.
# The cross builds use it as their emulator. All programs share one Wine prefix, which is created on first
# use. Variables that the caller may set, in addition to Wine's own:
#   WINERUN_ARCH=win64   a 64-bit prefix, for 64-bit programs
#   WINERUN_X=1          a prefix that draws on the caller's DISPLAY; otherwise Wine's null driver
#                        keeps windows in memory, and windows and dialogs work without a screen
#   WINERUN_LOCALE       the locale, as in de_DE.UTF-8 (C.UTF-8: English, United States)
#   WINERUN_TZ           the time zone, as in Europe/Berlin (the machine's)
set -u
cache=${QUORVEL_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/quorvel}

case ${WINERUN_ARCH:-win32} in
win32) arch=win32 name=wine cpu=i686 wine=/usr/lib/wine/wine ;;
win64) arch=win64 name=wine64 cpu=x86_64 wine=/usr/lib/wine/wine64 ;;
*)
    echo "winerun: WINERUN_ARCH is '$WINERUN_ARCH': win32 or win64" >&2
    exit 125
    ;;
esac
# Increase the number when make_prefix changes: an older checkout keeps its own prefix.
if [ "${WINERUN_X:-0}" = 1 ]; then
    name=$name-x11-1
else
    name=$name-null-1
    unset DISPLAY
fi
if [ ! -x "$wine" ]; then
    echo "winerun: $wine is missing, './run setup windows' installs it" >&2
    exit 125
fi

export WINEPREFIX="$cache/$name" WINEARCH=$arch WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:+$WINEDLLOVERRIDES;}mscoree,mshtml=;winemenubuilder.exe=d"
export LC_ALL="${WINERUN_LOCALE:-C.UTF-8}"
[ $arch = win32 ] || export WINELOADER="$wine"
# Wine links the user's folders into the prefix and refuses a home folder of another user.
export HOME="$cache/home"
# With TZ set, the C runtime's own conversions are wrong by the zone, so only tests that need it get it.
if [ -n "${WINERUN_TZ:-}" ]; then export TZ="$WINERUN_TZ"; else unset TZ; fi

# The folders of the compiler's runtime DLLs, found once. (The loader also searches the program's folder.)
runtime_dlls="$cache/runtime-dlls-$cpu"
find_runtime_dlls() {
    mkdir -p "$cache"
    for dll in libstdc++-6.dll libwinpthread-1.dll; do
        file=$(realpath "$($cpu-w64-mingw32-gcc-posix -print-file-name=$dll)") || return 1
        printf '%s\n' "${file%/*}"
    done >"$runtime_dlls.$$" && mv "$runtime_dlls.$$" "$runtime_dlls"
}
read_runtime_dlls() {
    { read -r cxx && read -r threads; } 2>/dev/null <"$runtime_dlls" && [ -f "$cxx/libstdc++-6.dll" ]
}
if [ -z "${WINEPATH:-}" ]; then
    if [ ! -f "$runtime_dlls" ] || ! read_runtime_dlls; then
        if ! find_runtime_dlls || ! read_runtime_dlls; then
            echo "winerun: no runtime DLLs of $cpu-w64-mingw32-gcc-posix, './run setup windows'" >&2
            exit 125
        fi
    fi
    export WINEPATH="Z:$cxx;Z:$threads"
fi

make_prefix() {
    rm -rf "$WINEPREFIX"
    mkdir -p "$HOME"
    "$wine" wineboot.exe --init || return 1
    # Wine does not find these fonts by itself; with them text metrics do not depend on the host.
    ln -sf /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts/"
    # Wine's default debugger may end a crashed program with exit code 0. This one prints the place of the
    # crash and passes the exception on, so the program ends with the exception's code.
    printf 'pass\nquit\n' >"$WINEPREFIX/drive_c/crash.txt"
    cat >"$WINEPREFIX/drive_c/settings.reg" <<'EOF'
REGEDIT4

[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\AeDebug]
"Debugger"="winedbg --file C:\\crash.txt %ld %ld"
EOF
    if [ "${WINERUN_X:-0}" = 1 ]; then
        # Wine draws the frames of windows itself: there may be no window manager.
        cat <<'EOF'

[HKEY_CURRENT_USER\Software\Wine\X11 Driver]
"Managed"="N"
EOF
    else
        cat <<'EOF'

[HKEY_CURRENT_USER\Software\Wine\Drivers]
"Graphics"="null"
EOF
    fi >>"$WINEPREFIX/drive_c/settings.reg"
    "$wine" regedit.exe /S 'C:\settings.reg' || return 1
    # The driver is chosen when the desktop starts: end this session, and let it write its registry.
    wineserver -k
    wineserver -w
    : >"$ready"
}

ready="$WINEPREFIX/.ready"
if [ ! -f "$ready" ]; then
    mkdir -p "$cache"
    exec 9>"$cache/$name.lock"
    flock 9
    [ -f "$ready" ] || make_prefix </dev/null >"$cache/$name.log" 2>&1 9>&-
    exec 9>&-
    if [ ! -f "$ready" ]; then
        echo "winerun: could not make the Wine prefix $WINEPREFIX, see $cache/$name.log" >&2
        exit 125
    fi
fi

# The server stays for 30 s after the last program, so that the next one starts in 0.05 s instead of 0.6 s.
wineserver -p30 </dev/null >/dev/null 2>&1

# Wine's services inherit standard error and outlive the program. If it were a pipe, ctest would wait for
# its end. So they get a file without a name.
errors=$(mktemp) || exit 125
exec 8>"$errors" 9<"$errors"
rm -f "$errors"

# Wine writes the locale of a starting program into the prefix, where all programs read it. So a program
# with a different locale runs alone.
exec 7>>"$cache/$name.locale"
case $LC_ALL in
C.UTF-8) flock -s 7 ;;
*) flock 7 ;;
esac
"$wine" "$@" 2>&8 7>&- 8>&- 9<&-
code=$?
cat <&9 >&2
exit $code
