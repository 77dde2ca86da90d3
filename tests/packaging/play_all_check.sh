#!/usr/bin/env bash
# Plays some scenarios with the support archive's play-all.cmd, as a double click does with all of
# them.
#
#   play_all_check.sh PACKAGES
set -uo pipefail
packages=$(realpath "$1")
cd "$(dirname "$0")/../.."
source scripts/lib/wine.sh
export LC_ALL=C.UTF-8
work=build/play-all-check
rm -rf "$work"
mkdir -p "$work"
unzip -q "$packages"/*-support.zip -d "$work" || exit 1
cd "$work"/* || exit 1
root=$OLDPWD
(cd "$root" && wine_prefix headless play-all)
export WINEPREFIX=$root/build/wine/play-all HOME=$root/build/wine/home
export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree=;mshtml='
# For all users: Wine's COM ignores registrations for the user.
timeout 600 wine cmd /c play-all.cmd everybody 'start_with*' </dev/null >/dev/null 2>&1
code=$?
wineserver -k
cat results.txt
[[ $code == 0 ]] || { echo "play-all.cmd ends with $code"; exit 1; }
# Two scenarios in five versions.
[[ $(grep -c '^pass' results.txt) == 10 ]] || { echo "not all scenarios were played"; exit 1; }
grep -q '^10 passed, 0 failed' results.txt
