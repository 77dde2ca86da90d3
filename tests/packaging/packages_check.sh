#!/usr/bin/env bash
# Installs, upgrades, repairs and removes the packages in new Wine prefixes, and compares the whole
# registry and all files before and after.
#
#   packages_check.sh PACKAGES NEXT     folders that scripts/package filled: the version under test, and
#                                       the same as a later version
set -uo pipefail
cd "$(dirname "$0")/../.."
source scripts/lib/wine.sh
export LC_ALL=C.UTF-8

packages=$1
next=$2
failed=0
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() { echo "FAILED: $*" >&2; failed=1; }
expect_code() {  # code, what, command...
  "${@:3}" </dev/null >"$work/output.txt" 2>&1
  local code=$?
  [[ $code == "$1" ]] || fail "$2: expected exit code $1, found $code: $(tail -n 5 "$work/output.txt")"
}
windows_path() { wine winepath -w "$1" 2>/dev/null </dev/null | tr -d '\r'; }

fresh_prefix() {  # name, win64|win32
  rm -rf "build/wine/$1"
  export WINEARCH=$2
  wine_prefix headless "$1"
  drive=$WINEPREFIX/drive_c
  # Otherwise Wine enters each shortcut in this machine's menus.
  WINEDLLOVERRIDES+=';winemenubuilder.exe='
  # Exist on every Windows with Office; created if missing, and not removed.
  wine reg add 'HKCU\Software\Classes\CLSID' /f </dev/null >/dev/null 2>&1
  wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall' /f </dev/null >/dev/null 2>&1
  wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\RunOnce' /f </dev/null >/dev/null 2>&1
  mkdir -p "$drive/users/$(id -un)/AppData/Local/Programs"
  local root
  for root in HKLM HKCU; do
    wine reg add "$root\\Software\\Microsoft\\Office\\Outlook\\Addins" /f /reg:32 </dev/null >/dev/null 2>&1
    wine reg add "$root\\Software\\Microsoft\\Office\\Outlook\\Addins" /f /reg:64 </dev/null >/dev/null 2>&1
  done
}

snapshot() {  # name
  wine regedit /E 'C:\windows\temp\snapshot.reg' </dev/null >/dev/null 2>&1
  python3 tests/packaging/snapshot.py "$drive/windows/temp/snapshot.reg" "$drive" >"$work/$1.txt"
}

# The registration entries in a snapshot.
registration_of() { grep -iE 'QuorTelephoneToolbar\.|DA593EC2-67C4-4602-B30E-3FEC47C1C55A|619B3283-8326-4895-A4F2-E3881DC00D2D' \
  "$work/$1.txt" | grep -viE '^file|\\Installer\\|\\Uninstall\\'; }

# Both compare a snapshot with the present state.
expect_same() {  # snapshot, what
  snapshot now
  diff "$work/$1.txt" "$work/now.txt" >"$work/difference.txt" || fail "$2: $(head -n 30 "$work/difference.txt")"
}
expect_same_registration() {  # snapshot, what
  snapshot now
  diff <(registration_of "$1") <(registration_of now) >"$work/difference.txt" ||
    fail "$2: $(head -n 30 "$work/difference.txt")"
}

regsvr32() {  # x86|x64, arguments
  local system='C:\windows\system32'
  [[ $1 == x86 && $WINEARCH == win64 ]] && system='C:\windows\syswow64'
  wine "$system\\regsvr32.exe" /s "${@:2}" </dev/null >/dev/null 2>&1
}

# The stand-in Outlook of that bitness finds the installed add-in by its registration alone; without one
# it ends with 2.
expect_start() {  # exit code, win32|win64, Outlook version, what
  expect_code "$1" "$4: the workbench ($2, Outlook $3)" timeout 120 wine "build/$2/workbench/workbench.exe" \
    --outlook "$3" --quiet "$(windows_path tests/scenarios/start_with_base.scn)"
  # The workbench leaves its library beside the add-in.
  find "$drive/Program Files"* -name SiUSBXp.dll -delete
}

settings() { echo "$drive/users/$(id -un)/AppData/Roaming/Microsoft/AddIns/vex_cfg.xml"; }
plant_settings() {
  mkdir -p "$(dirname "$(settings)")"
  echo '<Root><System><LanguageNo>2</LanguageNo></System></Root>' >"$(settings)"
}
expect_settings() {  # what
  grep -q '<LanguageNo>2<' "$(settings)" 2>/dev/null || fail "$1: the settings have changed"
}

wait_gone() {  # path, what
  local second
  for ((second = 0; second < 60; second++)); do
    [[ -e $1 ]] || return 0
    sleep 1
  done
  fail "$2: $1 is still there"
}
uninstall() {  # folder, switches...
  wine "$1/uninstall.exe" /S "${@:2}" </dev/null >/dev/null 2>&1
  wait_gone "$1" "uninstallation"
}

apps_value() {  # root, name
  wine reg query "$1\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\QuorTelephoneToolbar" /v "$2" /reg:64 \
    </dev/null 2>/dev/null | tr -d '\r' | sed -n 's/^    .*    REG_[A-Z]*    //p'
}

check_setup() {
  local setup next_setup folder
  setup=$(ls "$packages"/*-setup.exe) next_setup=$(ls "$next"/*-setup.exe)
  fresh_prefix packages win64
  plant_settings
  snapshot before

  echo "set-up program, for all users"
  expect_code 0 "installation" wine "$setup" /S
  folder="$drive/Program Files/Telephone Plug-in"
  [[ $(apps_value HKLM DisplayName) == "Telephone Plug-in" ]] || fail "Apps entry: no name"
  [[ $setup == *"-$(apps_value HKLM DisplayVersion)-"* ]] || fail "Apps entry: version"
  [[ $(apps_value HKLM Publisher) == Quor ]] || fail "Apps entry: publisher"
  local size
  size=$(($(apps_value HKLM EstimatedSize)))
  ((size > 1500 && size < 5000)) || fail "Apps entry: $size KB"
  snapshot installed
  expect_start 0 win64 16 "installed"
  expect_start 0 win32 11 "installed"

  # The registration equals that of regsvr32.
  for each in x86 x64; do regsvr32 $each /u "C:\\Program Files\\Telephone Plug-in\\$each\\QuorTelephoneToolbar.dll"; done
  for each in x86 x64; do regsvr32 $each "C:\\Program Files\\Telephone Plug-in\\$each\\QuorTelephoneToolbar.dll"; done
  expect_same installed "registering once more with regsvr32"

  echo "repair"
  rm "$folder/x64/QuorTelephoneToolbar.dll"
  regsvr32 x86 /u 'C:\Program Files\Telephone Plug-in\x86\QuorTelephoneToolbar.dll'
  expect_code 0 "repair" wine "$setup" /S
  expect_same installed "repair"

  echo "upgrade while Outlook runs"
  start_outlook
  expect_code $((3010 % 256)) "upgrade while Outlook runs" wine "$next_setup" /S  # Linux keeps 8 bits of an exit code
  end_outlook "$folder"
  expect_settings "upgrade"
  [[ $next_setup == *"-$(apps_value HKLM DisplayVersion)-"* ]] || fail "upgrade: the Apps entry has the former version"
  expect_code 0 "upgrade" wine "$next_setup" /S
  [[ -z $(find "$folder" -name '*.old') ]] || fail "the renamed file stays"

  echo "removal"
  uninstall "$folder"
  expect_same before "removal"
  expect_settings "removal"
  expect_start 2 win64 16 "removed"

  echo "the USB library is taken over"
  local wrong=$work/wrong library="$work/of the vendor"
  mkdir -p "$library/x86" "$library/x64" "$wrong/x86" "$wrong/x64"
  cp build/win32/workbench/SiUSBXp.dll "$library/x86/"
  cp build/win64/workbench/SiUSBXp.dll "$library/x64/"
  cp build/win64/workbench/SiUSBXp.dll "$wrong/x86/"
  cp build/win64/workbench/old_library/SiUSBXp.dll "$wrong/x64/"
  expect_code 0 "installation with libraries that do not fit" wine "$setup" /S "/LibraryFrom=$(windows_path "$wrong")"
  [[ -z $(find "$folder" -name SiUSBXp.dll) ]] || fail "a library of the wrong bitness, or without a function, was taken over"
  wine "$setup" /S "/LibraryFrom=$(windows_path "$library")" </dev/null >/dev/null 2>&1
  expect_libraries "$library" "$folder"
  # The folder is its own source.
  wine "$setup" /S "/LibraryFrom=$(windows_path "$folder")" </dev/null >/dev/null 2>&1
  expect_libraries "$library" "$folder"
  # On request, the settings are removed too.
  uninstall "$folder" /RemoveSettings
  [[ ! -e $(settings) ]] || fail "/RemoveSettings leaves the settings"
}

expect_libraries() {  # from, in
  local each
  for each in x86 x64; do
    cmp -s "$1/$each/SiUSBXp.dll" "$2/$each/SiUSBXp.dll" || fail "the $each library was not taken over"
  done
}

check_setup_for_user() {
  local setup next_setup folder windows_folder each later
  setup=$(ls "$packages"/*-setup.exe) next_setup=$(ls "$next"/*-setup.exe)
  fresh_prefix packages win64
  echo "set-up program, for this user"
  plant_settings
  snapshot before
  expect_code 0 "installation for the user" wine "$setup" /S /CurrentUser
  snapshot installed
  folder="$drive/users/$(id -un)/AppData/Local/Programs/Telephone Plug-in"
  [[ -e $folder/x64/QuorTelephoneToolbar.dll ]] || fail "for the user: no DLL"
  diff "$work/before.txt" "$work/installed.txt" | grep -E '^[<>] HKEY_LOCAL_MACHINE' >"$work/difference.txt" &&
    { fail "installation for the user writes for all users"; head "$work/difference.txt" >&2; }
  windows_folder=$(windows_path "$folder")
  for each in x86 x64; do regsvr32 $each /u /n /i:user "$windows_folder\\$each\\QuorTelephoneToolbar.dll"; done
  for each in x86 x64; do regsvr32 $each /n /i:user "$windows_folder\\$each\\QuorTelephoneToolbar.dll"; done
  expect_same installed "registering for the user with regsvr32"

  echo "upgrade and removal while Outlook runs"
  # Wine's COM ignores the registrations of users.
  regsvr32 x86 "$windows_folder\\x86\\QuorTelephoneToolbar.dll"
  start_outlook
  regsvr32 x86 /u "$windows_folder\\x86\\QuorTelephoneToolbar.dll"
  expect_code $((3010 % 256)) "upgrade for the user while Outlook runs" wine "$next_setup" /S /CurrentUser
  # In place, because only then the uninstaller returns its exit code; Wine would put quotation marks
  # round the switch.
  printf '"%s\\uninstall.exe" /S _?=%s\r\nexit %%errorlevel%%\r\n' "$windows_folder" "$windows_folder" >"$drive/windows/temp/uninstall.cmd"
  expect_code $((3010 % 256)) "removal for the user while Outlook runs" wine cmd /c 'C:\windows\temp\uninstall.cmd'
  end_outlook "$folder"
  later=$(wine reg query 'HKCU\Software\Microsoft\Windows\CurrentVersion\RunOnce' /v QuorTelephoneToolbar </dev/null 2>/dev/null |
    tr -d '\r' | sed -n 's/.*REG_SZ    //p')
  ((${#later} <= 260)) || fail "Windows does not run a command of ${#later} characters"
  # The next logon.
  rm -f "$folder/uninstall.exe"  # in place it cannot remove itself
  wine reg delete 'HKCU\Software\Microsoft\Windows\CurrentVersion\RunOnce' /v QuorTelephoneToolbar /f </dev/null >/dev/null 2>&1
  sed 's/[&()]/^&/g' <<<"$later" >"$drive/windows/temp/logon.cmd"
  wine cmd /c 'C:\windows\temp\logon.cmd' </dev/null >/dev/null 2>&1
  expect_same before "removal for the user"
  expect_settings "removal for the user"
}

# A stand-in Outlook with the add-in, until end_outlook: its DLL can only be renamed.
start_outlook() {
  wine "build/win32/workbench/workbench.exe" --outlook 11 </dev/null >/dev/null 2>&1 &
  outlook=$!
  sleep 8
}
end_outlook() {  # installation folder
  [[ -n $(find "$1/x86" -name '*.old') ]] || fail "the loaded DLL was not moved aside"
  kill "$outlook"
  wait "$outlook" 2>/dev/null
  find "$1" -name SiUSBXp.dll -delete
  # Ended like that, the workbench does not restore the application-data folder.
  wine reg add 'HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders' /v AppData \
    /t REG_EXPAND_SZ /d '%USERPROFILE%\AppData\Roaming' /f </dev/null >/dev/null 2>&1
}

msi() {  # arguments: msiexec, silent
  wine msiexec "$@" /qn </dev/null >/dev/null 2>&1
}

check_msi() {  # x64|x86
  local package later folder each parts=(x86)
  package=$(windows_path "$(ls "$packages"/*-"$1".msi)")
  later=$(windows_path "$(ls "$next"/*-"$1".msi)")
  [[ $1 == x64 ]] && parts=(x86 x64)
  if [[ $1 == x64 ]]; then fresh_prefix packages-x64 win64; else fresh_prefix packages-x86 win32; fi
  # On 64-bit Windows the 32-bit DLL is in the folder for 32-bit programs.
  folder="Program Files"
  [[ $1 == x64 ]] && folder="Program Files (x86)"
  declare -A dll=([x64]='C:\Program Files\Telephone Plug-in\x64\QuorTelephoneToolbar.dll'
    [x86]="C:\\$folder\\Telephone Plug-in\\x86\\QuorTelephoneToolbar.dll")
  folder="$drive/$folder/Telephone Plug-in"
  plant_settings
  # Windows Installer creates keys of its own at its first use and keeps them.
  msi /i "$package"; msi /x "$package"
  snapshot before

  echo "Windows Installer package, $1"
  expect_code 0 "msiexec /i" msi /i "$package"
  snapshot installed
  expect_start 0 win32 11 "installed by Windows Installer"
  [[ $1 == x64 ]] && expect_start 0 win64 16 "installed by Windows Installer"

  for each in "${parts[@]}"; do regsvr32 "$each" /u "${dll[$each]}"; done
  for each in "${parts[@]}"; do regsvr32 "$each" "${dll[$each]}"; done
  [[ $(registration_of installed | wc -l) -gt 30 ]] || fail "nothing to compare with"
  expect_same_registration installed "the package writes something else than regsvr32"

  rm "$folder/x86/QuorTelephoneToolbar.dll"
  regsvr32 x86 /u "${dll[x86]}"
  # Equivalent of "msiexec /fa"; Wine has no /f for a package.
  expect_code 0 "repair by msiexec" msi /i "$package" REINSTALL=ALL REINSTALLMODE=amus
  [[ -e $folder/x86/QuorTelephoneToolbar.dll ]] || fail "repair does not restore the DLL"
  expect_same_registration installed "repair by Windows Installer"

  expect_code 0 "msiexec /i of the later version" msi /i "$later"
  expect_same_registration installed "upgrade by Windows Installer"
  expect_settings "upgrade by Windows Installer"

  expect_code 0 "msiexec /x" msi /x "$later"
  expect_same before "removal by Windows Installer"
  expect_settings "removal by Windows Installer"
}

for part in ${PARTS:-setup user x64 x86}; do
  case $part in
    setup) check_setup ;;
    user) check_setup_for_user ;;
    *) check_msi "$part" ;;
  esac
  wine_stop
done
((failed == 0)) && echo "packages: good"
exit $failed
