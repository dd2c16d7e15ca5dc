#!/bin/sh
# demo_workbench.sh WINDOWS-PRESET: works with the windows of the workbench, which demo.sh has built, by
# keys and clicks under Wine without a screen, and prints what they show.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
. "$root/tools/env.sh"

windows=$1
demo=$root/build/demo-workbench
rm -rf "$demo"
mkdir -p "$demo"
cd "$demo"
cp "$root/examples/data/updates.xml" .
export WINERUN_LOCALE=C.UTF-8 WINERUN_TZ=Europe/Berlin
case $windows in win64) export WINERUN_ARCH=win64 ;; esac
# Wine's file dialog complains on standard error that it can't read the name of the disk.
if "$root/tools/winerun.sh" "$root/build/$windows/bin/workbench_script.exe" updates.xml >windows.txt 2>errors.txt; then
    tr -d '\r' <windows.txt
    say "demo: the workbench has shown $(grep -c '^>' windows.txt) keys, clicks and drops and what came of them"
else
    code=$?
    tr -d '\r' <windows.txt
    die "the workbench script failed ($code): $(cat errors.txt)"
fi
