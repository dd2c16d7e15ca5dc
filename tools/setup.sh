#!/bin/sh
# setup.sh [GROUP...]: installs the missing packages of the groups (default: all groups).
# If none is missing, this only needs dpkg-query, so every other script calls it first.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

log=$root/build/setup.log
no_wine32=$cache/no-wine32 # exists if 32-bit Wine could not be installed: do not try every time

missing() { # missing GROUP: its packages that are not installed
    wanted=$(sed -n "s/^$1 //p" "$root/tools/packages.txt")
    # shellcheck disable=SC2086,SC2016 # names are split on purpose; ${...} belongs to dpkg-query
    dpkg-query -W -f '${db:Status-Status} ${Package} ${Architecture}\n' $wanted 2>/dev/null |
        awk -v wanted="$wanted" '
            $1 == "installed" { has[$2 ":" $3] = 1; if ($3 != "i386") has[$2] = 1 }
            END {
                n = split(wanted, name, /[ \n]+/)
                for (i = 1; i <= n; i++) if (!(name[i] in has)) printf "%s%s", sep++ ? " " : "", name[i]
            }'
}

become_root() { # finds out once how to do it, or why it is impossible
    [ -z "${as_root+set}" ] || return 0
    if [ "$(id -u)" = 0 ]; then
        as_root=
    elif ! command -v sudo >/dev/null; then
        die "needs root or sudo to install: $1"
    elif sudo -n true 2>/dev/null || [ -t 0 ]; then
        as_root=sudo
    else
        die "sudo wants a password and there is no terminal to ask; to install: $1"
    fi
}

check_system() { # check_system PACKAGES
    system=$(. /etc/os-release 2>/dev/null && echo "${ID:-unknown} ${VERSION_ID:-}")
    [ "$system" = "debian 12" ] || die "this is ${system:-unknown}, not Debian 12; install by hand: $1"
    [ "$(dpkg --print-architecture)" = amd64 ] || die "needs an amd64 machine; to install: $1"
}

apt() {
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300 \
        -o Acquire::Retries=2 "$@" </dev/null >>"$log" 2>&1
}

# The package lists are fetched once for each run. If a list cannot be fetched, the others may be enough;
# otherwise the installation names the missing package.
update_lists() {
    apt update || true
    update_lists() { :; }
}

try_install() { # try_install [OPTION...] PACKAGE...
    apt install -y --no-remove --no-install-recommends "$@"
}

# The i386 index of an update suite may be missing or have a wrong signature. Then 32-bit libraries exist
# only in the base release, and the 64-bit libraries that share files with them must be of that release
# too: prefer it, and as a last resort downgrade libraries that an update has replaced.
install() { # install PACKAGE...
    try_install "$@" && return 0
    suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
    say "setup: no matching versions among the updates, trying those of $suite itself"
    try_install -t "$suite" "$@" && return 0
    say "setup: moving libraries that the updates took ahead of $suite back to it"
    preferences=$(mktemp)
    chmod 644 "$preferences"
    printf 'Package: *\nPin: release n=%s\nPin-Priority: 1001\n' "$suite" >"$preferences"
    installed=0
    try_install --allow-downgrades -o Dir::Etc::preferences="$preferences" \
        -o Dir::Etc::preferencesparts=/dev/null "$@" || installed=$?
    rm -f "$preferences"
    return $installed
}

prepare_install() { # prepare_install PACKAGES
    check_system "$1"
    become_root "$1"
    mkdir -p "$root/build"
    echo "--- $1" >>"$log"
}

last_error() {
    grep '^E: ' "$log" | tail -n 1
}

ensure() { # ensure GROUP
    packages=$(missing "$1")
    [ -n "$packages" ] || return 0
    prepare_install "$packages"
    say "setup: installing $packages"
    update_lists
    # shellcheck disable=SC2086
    install $packages || die "cannot install $packages ($(last_error)); the log is $log"
}

# The package of a web server would start it at once and at every boot, on the port that the demonstration
# needs. An existing server belongs to the user and is not changed; neither is a policy of the administrator.
install_server() { # install_server GROUP PROGRAM
    [ ! -x "/usr/sbin/$2" ] || return 0
    packages=$(missing "$1")
    policy=/usr/sbin/policy-rc.d
    prepare_install "$packages"
    if [ ! -e $policy ]; then
        trap '$as_root rm -f $policy' EXIT
        trap 'exit 1' HUP INT TERM
        printf '#!/bin/sh\nexit 101\n' | $as_root tee $policy >/dev/null
        $as_root chmod 755 $policy
    fi
    ensure "$1"
    $as_root update-rc.d "$2" disable >>"$log" 2>&1 || true
}

install_wine32() { # install_wine32 PACKAGE...
    added=
    if ! dpkg --print-foreign-architectures | grep -qx i386; then
        $as_root dpkg --add-architecture i386 || return 1
        added=1
    fi
    apt update || true
    install "$@" && return 0
    # Remove the architecture again: its index could break every later update.
    [ -z "$added" ] || $as_root dpkg --remove-architecture i386 || true
    return 1
}

install_windows() {
    packages=$(missing windows)
    if [ -z "$packages" ] && wine32_runs; then return 0; fi
    if [ ! -f "$no_wine32" ] && [ -n "$packages" ]; then
        prepare_install "$packages"
        say "setup: installing $packages"
        # shellcheck disable=SC2086
        if install_wine32 $packages && wine32_runs; then return 0; fi
    fi
    say "setup: 32-bit Wine cannot run here: the 64-bit Windows build (win64) stands in for it"
    ensure windows64
    mkdir -p "$cache"
    : >"$no_wine32"
}

ensure_libraries() { # ensure_libraries WINDOWS-PRESET
    case $1 in
    win32) cpu=i686 ;;
    *) cpu=x86_64 ;;
    esac
    for name in expat minizip sodium; do
        sh "$root/tools/mingw_library.sh" "$name" "$cpu" >/dev/null
    done
}

if [ $# -eq 0 ]; then
    set -- core windows bench fuzz gallery reference demo servers
    rm -f "$no_wine32"
fi
for group; do
    case $group in
    windows)
        install_windows
        ensure_libraries "$(windows_preset)"
        ;;
    windows64)
        ensure windows64
        ensure_libraries win64
        ;;
    demo) install_server demo nginx ;;
    servers) install_server servers lighttpd ;;
    core | bench | fuzz | gallery | reference) ensure "$group" ;;
    *) die "unknown group '$group': core, windows, windows64, bench, fuzz, gallery, reference, demo, servers" ;;
    esac
done
