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
mkdir -p "$work/installed before"
unzip -q "$packages"/*-support.zip -d "$work" || exit 1
wine_prefix headless play-all
cp "$work"/*-support/x86/QuorTelephoneToolbar.dll "$work/installed before/"
installed=$(winepath -w "$work/installed before/QuorTelephoneToolbar.dll" 2>/dev/null)
# For all users: Wine's COM ignores registrations for the user.
wine 'C:\windows\syswow64\regsvr32.exe' /s "$installed" </dev/null >/dev/null 2>&1
registered() {
  wine reg query 'HKLM\Software\Classes\CLSID\{DA593EC2-67C4-4602-B30E-3FEC47C1C55A}\InprocServer32' /ve "/reg:$1" \
    </dev/null 2>/dev/null | tr -d '\r' | sed -n 's/.*REG_SZ    //p'
}
cd "$work"/*-support || exit 1

play() {  # text, number of plays
  timeout 600 wine cmd /c play-all.cmd everybody "$1" </dev/null >/dev/null 2>&1
  local code=$?
  cat results.txt
  [[ $code == 0 ]] || { echo "play-all.cmd ends with $code"; exit 1; }
  [[ $(grep -c '^pass' results.txt) == "$2" ]] || { echo "not all scenarios were played"; exit 1; }
  grep -q "^$2 passed, 0 failed" results.txt || exit 1
}
# Two scenarios in five versions, one of them once more with other add-ins.
play start_with 11
play process_end/alive.scn 3
[[ $(registered 32) == "$installed" ]] || { echo "the former registration was not restored: $(registered 32)"; exit 1; }
[[ -z $(registered 64) ]] || { echo "a registration is left"; exit 1; }

# A failure is counted, and its output is in the results.
echo 'expect handles 9' >>tests/scenarios/start_without_base.scn
timeout 600 wine cmd /c play-all.cmd everybody start_without </dev/null >/dev/null 2>&1 &&
  { echo "play-all.cmd hides a failure"; exit 1; }
grep -q '^FAILED x64 16 .*start_without_base.scn.*exit code 1' results.txt || { cat results.txt; exit 1; }
wineserver -k
