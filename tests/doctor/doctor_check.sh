#!/usr/bin/env bash
# Plants one fault after another in the registry and the files of a Wine prefix, checks doctor.exe's
# findings, and lets it repair them. Needs a Wine prefix in the environment
# (scripts/lib/wine.sh).
#
#   doctor_check.sh DOCTOR WIN32_DLL WIN64_DLL WIN64_SIUSBXP WIN32_COUNTED_BASES
set -uo pipefail
doctor=$1 dll32=$2 dll64=$3 library=$4 counted=$5
workbench=$(dirname "$library")/workbench.exe
failed=0
drive=$WINEPREFIX/drive_c
addin='Software\Microsoft\Office\Outlook\Addins\QuorTelephoneToolbar.Addin'
office='Software\Microsoft\Office\16.0\Outlook'
policies='Software\Policies\Microsoft\Office\16.0\Outlook'
class='Software\Classes\CLSID\{DA593EC2-67C4-4602-B30E-3FEC47C1C55A}\InprocServer32'

fail() { echo "$*" >&2; failed=1; }
reg() { wine reg "$@" </dev/null >/dev/null 2>&1; }
findings() { wine "$doctor" --json </dev/null 2>/dev/null | { python3 -c \
  'import json, sys; print(*[finding["name"] for finding in json.load(sys.stdin)["findings"]])' 2>/dev/null ||
  echo "no answer"; } }
expect() {  # findings, what was planted
  local found
  found=$(findings)
  [[ $found == "$1" ]] || fail "$2: expected '$1', found '$found'"
}
expect_code() {  # code, arguments
  wine "$doctor" "${@:2}" </dev/null >/dev/null 2>&1
  local code=$?
  [[ $code == "$1" ]] || fail "doctor ${*:2}: expected exit code $1, found $code"
}

register() {  # x86|x64, arguments
  local system=system32
  [[ $1 == x86 ]] && system=syswow64
  wine "C:\\windows\\$system\\regsvr32.exe" /s "${@:2}" "C:\\Plug-in\\$1\\QuorTelephoneToolbar.dll" </dev/null >/dev/null 2>&1
}

plug32=$drive/Plug-in/x86/QuorTelephoneToolbar.dll
plug64=$drive/Plug-in/x64/QuorTelephoneToolbar.dll
library64=$drive/Plug-in/x64/SiUSBXp.dll
# A 64-bit Outlook: any 64-bit program of that name.
mkdir -p "$drive/Office" "$drive/Plug-in/x86" "$drive/Plug-in/x64"
cp "$drive/windows/system32/notepad.exe" "$drive/Office/OUTLOOK.EXE"
cp "$dll32" "$plug32"
cp "$dll64" "$plug64"
reg add "HKLM\\$office\\InstallRoot" /v Path /d 'C:\Office\' /f /reg:64
expect "not-registered" "nothing installed"
expect_code 1 --text
register x86
register x64
expect "library-missing" "registered"
cp "$library" "$library64"
expect "" "all well"
expect_code 0 --text
expect_code 0 --json
expect_code 2 --nonsense
expect_code 64 --library 'C:\Plug-in\x64\SiUSBXp.dll'
expect_code 1 --library 'C:\Office\OUTLOOK.EXE'
expect_code 2 --library 'C:\nowhere.dll'
reg delete "HKLM\\$addin" /f /reg:64
expect key-missing "no entry for Outlook"
register x64

# The library in the system folder of 64-bit programs, which a 32-bit program sees elsewhere.
mv "$library64" "$drive/windows/system32/"
expect "" "the library in the system folder"
wine "$doctor" --text </dev/null 2>/dev/null | grep -qi '64-bit: c:\\windows\\system32\\SiUSBXp.dll' ||
  fail "the library's path is not shown"
mv "$drive/windows/system32/SiUSBXp.dll" "$library64"

# Outlook's entries.
reg delete "HKLM\\$office\\InstallRoot" /v Path /f /reg:64
# Without one, both bitnesses count.
expect "no-outlook library-missing" "no Outlook"
reg add 'HKLM\Software\Microsoft\Windows\CurrentVersion\App Paths\OUTLOOK.EXE' /ve /d '"C:\Office\OUTLOOK.EXE"' /f /reg:64
expect "" "an Outlook without an installation folder"
reg add "HKLM\\$office\\InstallRoot" /v Path /d 'C:\Office\' /f /reg:64
expect "" "an Outlook with two entries"

# The bases; the 32-bit doctor sees them through the 32-bit library only.
cp "$counted" "$drive/Plug-in/x86/SiUSBXp.dll"
BASES=0 expect "no-base" "no base plugged in"
BASES=1 expect "" "a base that nobody uses"
BASES=1 BASES_OPEN=8 expect "base-in-use" "a base that another program uses"

# A running Outlook, with and without the add-in connected.
for view in 32 64; do
  reg add 'HKLM\Software\Classes\Outlook.Application\CLSID' /ve /d '{0006F03A-0000-0000-C000-000000000046}' /f "/reg:$view"
done
while_outlook_runs() {  # scenario, findings, what, add-in: looks while the workbench plays the scenario
  printf '%s\n' "$1" 'wait 60000' 'wait 60000' >"$drive/running.scn"
  wine "$workbench" --register-running --quiet --addin "${4:-QuorTelephoneToolbar.Addin}" 'C:\running.scn' </dev/null >/dev/null 2>&1 &
  local outlook=$! try
  for try in $(seq 20); do
    [[ $(findings) == "$2" ]] && break
    sleep 0.5
  done
  expect "$2" "$3"
  kill "$outlook" 2>/dev/null
  wait "$outlook" 2>/dev/null
}
export BASES=1 BASES_OPEN=8
while_outlook_runs "" "base-in-use not-connected" "Outlook without the plug-in"
while_outlook_runs "start" "" "Outlook with the plug-in, which uses the base"
export BASES_OPEN=0
# An Outlook that knows another add-in only.
mkdir -p "$drive/Other"
other='Software\Classes\CLSID\{0C0F2D4A-55A1-4D0B-8F0C-7B0A4C2E9D11}'
reg add "HKLM\\${addin%\\*}\\Other.Addin" /v LoadBehavior /t REG_DWORD /d 3 /f /reg:64
reg add 'HKLM\Software\Classes\Other.Addin\CLSID' /ve /d "${other##*\\}" /f /reg:64
reg add "HKLM\\$other\\InprocServer32" /ve /d 'C:\Other\other.dll' /f /reg:64
while_outlook_runs "" not-among-add-ins "Outlook that does not know the plug-in" Other.Addin
# Under Wine every program is elevated, and both views share the user's classes.
for each in x86 x64; do register $each /u; register $each /n /i:user; done
while_outlook_runs "" "leftover elevated-outlook not-among-add-ins" "an elevated Outlook, the plug-in for the user only" Other.Addin
for each in x86 x64; do register $each /u /n /i:user; register $each; done
reg delete "HKLM\\${addin%\\*}\\Other.Addin" /f /reg:64
rm "$drive/Plug-in/x86/SiUSBXp.dll"
# A killed run has redirected the application data; the next run restores it.
echo 'say "Nothing runs."' >"$drive/running.scn"
wine "$workbench" --quiet 'C:\running.scn' </dev/null >/dev/null 2>&1

planted() {  # finding, key, value, type, data, view: plants one value, looks, takes it away
  reg add "$2" /v "$3" /t "$4" /d "$5" /f "${6:-/reg:64}"
  expect "$1" "$2 $3"
  reg delete "$2" /v "$3" /f "${6:-/reg:64}"
}
planted new-outlook "HKCU\\$office\\Preferences" UseNewOutlook REG_DWORD 1
packages='Software\Classes\Local Settings\Software\Microsoft\Windows\CurrentVersion\AppModel\Repository\Packages'
planted store-outlook "HKCU\\$packages\\Microsoft.Office.Desktop.Outlook_16.0_x86__8wekyb3d8bbwe" x REG_SZ x
reg delete "HKCU\\$packages" /f
planted not-at-start "HKCU\\$addin" LoadBehavior REG_DWORD 8
planted switched-off "HKCU\\$addin" LoadBehavior REG_DWORD 2
reg delete "HKCU\\$addin" /f
planted policy-off "HKCU\\$policies\\Resiliency\\AddinList" QuorTelephoneToolbar.Addin REG_SZ 0
planted policy-unlisted "HKCU\\$policies\\Resiliency" RestrictToList REG_DWORD 1
planted policy-signed-only "HKLM\\$policies\\Security" RequireAddinSig REG_DWORD 1
planted policy-all-off "HKCU\\$policies\\Security" DisableAllAddins REG_DWORD 1
planted kept "HKCU\\$office\\Resiliency\\DoNotDisableAddinList" QuorTelephoneToolbar.Addin REG_DWORD 8
expect_code 0 --text

# "quortelephonetoolbar.dll" in UTF-16, among other bytes.
path=$(printf 'c:\\plug-in\\x64\\quortelephonetoolbar.dll' | iconv -t UTF-16LE | od -An -v -tx1 | tr -d ' \n')
reg add "HKCU\\$office\\Resiliency\\DisabledItems" /v 1A2B /t REG_BINARY /d "01000000${path}0000" /f
reg add "HKCU\\$office\\Resiliency\\DisabledItems" /v Other /t REG_BINARY /d 0100000061006200 /f
reg add "HKCU\\$office\\Resiliency\\CrashingAddinList" /v QuorTelephoneToolbar.Addin /t REG_DWORD /d 3 /f
reg add "HKCU\\$addin" /v LoadBehavior /t REG_DWORD /d 2 /f
expect "switched-off disabled crashed" "disabled by Outlook"
for language in "en:Outlook (16.0) has disabled the plug-in" "fr:Outlook (16.0) a désactivé le complément" \
  "es:Outlook (16.0) ha deshabilitado el complemento"; do
  [[ $(wine "$doctor" --text --language "${language%%:*}" </dev/null 2>/dev/null) == *"${language#*:}"* ]] ||
    fail "no '${language#*:}'"
done
expect_code 1 --fix  # no answer
expect "switched-off disabled crashed" "not agreed"
echo O | wine "$doctor" --fix --language fr >/dev/null 2>&1 || fail "doctor --fix, agreed: exit code $?"
expect "kept" "repaired"
wine reg query "HKCU\\$office\\Resiliency\\DisabledItems" </dev/null 2>/dev/null | grep -q Other ||
  fail "the repair removed another add-in's entry"
# The copy restores the old values.
backup=$(find "$drive/users" -name 'telephone-before-*.reg')
wine regedit /S "$(wine winepath -w "$backup" </dev/null 2>/dev/null | tr -d '\r')" </dev/null >/dev/null 2>&1
expect "switched-off disabled crashed" "put back"
wine "$doctor" --fix --yes </dev/null >/dev/null 2>&1
reg delete "HKCU\\$office\\Resiliency" /f

instead() {  # finding, file or none, place: looks while another file is in its place
  mv "$3" "$drive/kept"
  [[ $2 == none ]] || cp "$2" "$3"
  expect "$1" "$2 as $3"
  mv "$drive/kept" "$3"
}
instead leftover none "$plug32"
instead versions-differ "$drive/windows/syswow64/notepad.exe" "$plug32"
instead file-of-other-bitness "$dll32" "$plug64"
instead file-missing none "$plug64"
instead library-incomplete "$dll64" "$library64"
instead library-of-other-bitness "$dll32" "$library64"
settings=$(find "$drive/users" -type d -path "*$(id -un)/AppData/Roaming")/Microsoft/AddIns
mkdir -p "$settings"
for day in 1 2 3 4 5; do
  printf '2026-01-0%s 08:00:00 start=1200 folder-switch=- shutdown=20\r\n' "$day"
done >"$settings/vex_times.txt"
expect slow "five slow starts"
expect_code 0 --text
[[ $(wine "$doctor" --text --language fr </dev/null 2>/dev/null) == *"2026-01-05 08:00:00 : 1200, -, 20"* ]] ||
  fail "the times are not shown"
rm "$settings/vex_times.txt"
echo '<Root/>' >"$settings/vex_cfg.xml"
chmod a-w "$settings/vex_cfg.xml"
expect settings-read-only "a settings file that is read-only"
chmod u+w "$settings/vex_cfg.xml"
echo '<Root><System>' >"$settings/vex_cfg.xml"
expect settings-unreadable "a settings file that is cut off"
mv "$settings/vex_cfg.xml" "$settings/vex_cfg.bad.xml"
expect settings-aside "a settings file set aside"
rm "$settings/vex_cfg.bad.xml"
mkdir -p "$settings/../../Temp"
printf '2026/01/02 03:04:05.678 Call request Line1 (#0551234567) complete.\r\n' >"$settings/../../Temp/catlog20260102.txt"
expect_code 0 --report 'C:\report.txt'
grep -q '(#0000000001) complete' "$drive/report.txt" || fail "the report lacks the masked log"
grep -qiE '0551234567|\\users\\'"$(id -un)" "$drive/report.txt" && fail "the report contains a number or a name"
# The masked log of a real session gives the same events when replayed.
mkdir -p "$drive/run"
wine "$workbench" --quiet --data 'C:\run' "$(wine winepath -w tests/scenarios/incoming_call.scn </dev/null 2>/dev/null | tr -d '\r')" </dev/null >/dev/null 2>&1
grep -q $'SI_Write complete.\r$' "$drive"/run/Temp/catlog*.txt || fail "the log's lines do not end as on Windows"
cat "$drive"/run/Temp/catlog*.txt >"$settings/../../Temp/catlog20260103.txt"
expect_code 0 --report 'C:\report.txt'
wine "$workbench" --quiet --replay 'C:\report.txt' </dev/null >"$drive/replay.txt" 2>&1 ||
  fail "the masked log does not replay: $(tail "$drive/replay.txt")"
grep -aq '\[R\] (39)' "$drive/report.txt" || fail "the report lacks a caller's frame"
expect_code 2 --report 'Q:\nowhere\report.txt'
reg delete "HKLM\\$class" /f /reg:64
expect class-missing "no class"
expect_code 1 --json

((failed == 0)) && echo "doctor: good"
exit $failed
