#!/bin/sh
# gallery.sh: draws the dialogs and controls on a screen of its own and puts the pictures into docs/gallery.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

sh "$root/tools/setup.sh" core windows gallery
windows=$(windows_preset)
build_preset "$windows" gallery

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
DISPLAY=:$display WINERUN_X=1 "$root/tools/winerun.sh" \
    "$root/build/$windows/bin/gallery.exe" --out . || die "the gallery program failed ($?)"
for picture in *.bmp; do
    [ -f "$picture" ] || die "the gallery program drew nothing"
    # Opaque, and without dates, so that the same picture is the same file.
    /usr/bin/convert "$picture" -alpha off -strip -define png:exclude-chunks=date,time \
        "PNG24:$root/docs/gallery/${picture%.bmp}.png"
    say "docs/gallery/${picture%.bmp}.png"
done
python3 "$root/tools/check_pictures.py" "$root/docs/gallery"
