#!/bin/sh
# gallery.sh: draws the dialogs and controls on a separate screen and writes the pictures to docs/gallery.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" core windows gallery
windows=$(windows_preset)
build_preset "$windows" gallery workbench_script

drawn=$root/build/gallery
rm -rf "$drawn"
mkdir -p "$drawn" "$root/docs/gallery"
cd "$drawn"
mkfifo display
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>display >xvfb.log 2>&1 &
screen=$!
trap 'kill $screen 2>/dev/null' EXIT
trap 'exit 1' INT TERM
read -r display <display || die "Xvfb does not start, see build/gallery/xvfb.log"

case $windows in win64) export WINERUN_ARCH=win64 ;; esac
export DISPLAY=":$display" WINERUN_X=1 WINERUN_TZ=Europe/Berlin # of the dates in the pictures
wine() { "$root/tools/winerun.sh" "$@"; }
# Those in English, and then those in German.
draw() {
    for locale in C.UTF-8 de_DE.UTF-8; do
        WINERUN_LOCALE=$locale wine "$root/build/$windows/bin/gallery.exe" --out . "$@" ||
            die "the gallery program failed ($?)"
    done
}

# The workbench in its main states, in both languages.
draw_workbench() { # draw_workbench [SET]
    cp "$root/examples/data/updates.xml" workbench.xml
    WINERUN_LOCALE=C.UTF-8 wine "$root/build/$windows/bin/workbench_script.exe" workbench.xml --pictures . "$@" \
        >workbench.txt 2>&1 || die "the workbench script failed ($?), see build/gallery/workbench.txt"
}

# Settings of the prefix that a program reads at its start: pixels per inch, and whether there is a theme
# (a theme uses only its own colours).
desktop='HKCU\Control Panel\Desktop' theme='HKCU\Software\Microsoft\Windows\CurrentVersion\ThemeManager'
set_value() { wine reg.exe add "$1" /v "$2" /t "$3" /d "$4" /f >>settings.log 2>&1 || die "no $2 in Wine"; }
draw
draw_workbench
set_value "$desktop" LogPixels REG_DWORD 144
draw
draw_workbench _144dpi
set_value "$desktop" LogPixels REG_DWORD 96
set_value "$theme" ThemeActive REG_SZ 0
draw --high-contrast
draw_workbench _high_contrast
set_value "$theme" ThemeActive REG_SZ 1
for picture in *.bmp; do
    [ -f "$picture" ] || die "the gallery program drew nothing"
    # Opaque and without dates, so that the same picture gives the same file.
    /usr/bin/convert "$picture" -alpha off -strip -define png:exclude-chunks=date,time \
        "PNG24:$root/docs/gallery/${picture%.bmp}.png"
    say "docs/gallery/${picture%.bmp}.png"
done
python3 "$root/tools/check_pictures.py" "$root/docs/gallery"
