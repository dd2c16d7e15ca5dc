#!/bin/sh
# demo.sh: runs the tour, the XML tool, the packer, the settings tool, the keys tool, the listing tool and the updater as Linux and as Windows
# programs on the same files, and compares their output. Fails if it differs.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" core windows
windows=$(windows_preset)
demo=$root/build/demo
mkdir -p "$root/build"
programs='tour xmltool pack settings keys listing updater'
for preset in linux-debug "$windows"; do
    say "demo: building $preset, some minutes the first time"
    case $preset in linux*) windowed='' ;; *) windowed='update_windows workbench_script' ;; esac
    # shellcheck disable=SC2086
    build_shown demo "$preset" $programs $windowed quorvel_languages
done

# Real DLLs with and without version resources; both programs use the same relative names.
case $windows in
win32) wine_dlls=/usr/lib/i386-linux-gnu/wine/i386-windows cpu=i686 ;;
*) wine_dlls=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows cpu=x86_64 ;;
esac
rm -rf "$demo"
mkdir -p "$demo/languages"
for name in libstdc++-6 libwinpthread-1; do
    cp "$($cpu-w64-mingw32-gcc-posix -print-file-name=$name.dll)" "$demo"
done
cp "/usr/$cpu-w64-mingw32/lib/zlib1.dll" "$demo"
for name in advapi32 comctl32 comdlg32 kernel32 ole32 shell32 user32 version ws2_32; do
    cp "$wine_dlls/$name.dll" "$demo"
done
cp "$root/build/$windows/bin"/Quorvel_*.dll "$demo/languages"

cp "$root/examples/data/updates.xml" "$demo"
for name in notepad regedit winefile wordpad; do # programs with accelerator tables and menus
    cp "$wine_dlls/$name.exe" "$demo"
done

# programs FOLDER SUFFIX [RUNNER]: runs them all on a few texts and a listing. The listing is displayed,
# changed and converted to a different encoding.
programs() {
    tour=$1/tour$2 xmltool=$1/xmltool$2 pack=$1/pack$2 settings=$1/settings$2 keys=$1/keys$2
    shift 2
    "$@" "$tour" --lang-dir languages ./*.dll || return
    printf '\n== An update listing\n'
    "$@" "$xmltool" print updates.xml || return
    "$@" "$xmltool" get '/rss/channel/item[3]/title' updates.xml || return
    "$@" "$xmltool" set '/rss/channel/item[2]/enclosure' @length 4702720 -o set.xml updates.xml || return
    "$@" "$xmltool" add '/rss/channel/item[3]' author 'Zoë & Jürgen' set.xml || return
    "$@" "$xmltool" convert --encoding utf-16 set.xml || return
    cksum <set.xml
    "$@" "$xmltool" get '/rss/channel/item[3]/author' set.xml || return
    "$@" "$xmltool" get '/rss/channel/item[2]/enclosure' @length set.xml || return
    printf '<rss>\n  <channel></chanel>\n</rss>\n' | "$@" "$xmltool" check || [ $? = 1 ] || return
    printf '\n== Packed\n'
    "$@" "$pack" deflate updates.xml updates.z || return
    "$@" "$pack" inflate updates.z unpacked.xml || return
    "$@" "$pack" zip updates.xml updates.zip || return
    printf '\n== Settings\n'
    key='HKCU\Software\Quorvel demo'
    "$@" "$settings" set "$key" Language 'Français' || return
    "$@" "$settings" set "$key\Columns" Width 120 --type dword || return
    "$@" "$settings" list "$key" || return
    "$@" "$settings" export "$key" settings.reg || return
    cksum <settings.reg
    "$@" "$settings" remove "$key" || return
    "$@" "$settings" import "$key" settings.reg || return
    "$@" "$settings" get "$key\Columns" Width || return
    "$@" "$settings" remove "$key" || return
    printf '\n== Keys\n'
    "$@" "$keys" sheet notepad.exe || return
    "$@" "$keys" sheet --format markdown regedit.exe || return
    "$@" "$keys" sheet --format html wordpad.exe || return
    for program in notepad regedit winefile wordpad; do
        "$@" "$keys" conflicts $program.exe || return
    done
    "$@" "$keys" export notepad.exe notepad.xml || return
    cksum <notepad.xml
    sed 's/key="Ctrl+N" code="78"/key="Ctrl+M" code="77"/' notepad.xml >moved.xml
    "$@" "$keys" import notepad.exe moved.xml || return
    "$@" "$keys" compare notepad.xml moved.xml || [ $? = 1 ]
}

# The current folder, the locale and the time zone are fixed, so that the output does not depend on them.
cd "$demo"
export WINERUN_LOCALE=C.UTF-8 WINERUN_TZ=Europe/Berlin
programs "$root/build/linux-debug/bin" "" env LC_ALL=$WINERUN_LOCALE TZ=$WINERUN_TZ \
    QUORVEL_REGISTRY="$demo/registry.db" >linux.txt ||
    die "a Linux program failed ($?)"
case $windows in win64) export WINERUN_ARCH=win64 ;; esac
programs "$root/build/$windows/bin" .exe "$root/tools/winerun.sh" >windows.raw ||
    die "a Windows program failed ($?)"
tr -d '\r' <windows.raw >windows.txt # its standard output is in text mode

cat linux.txt
if diff -u linux.txt windows.txt; then
    say "demo: the Linux and the Windows build ($windows) print the same $(wc -l <linux.txt) lines"
else
    die "the Linux and the Windows build ($windows) print different lines, see build/demo"
fi

sh "$root/tools/demo_updates.sh" "$windows"
sh "$root/tools/demo_workbench.sh" "$windows"
