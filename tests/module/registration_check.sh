#!/usr/bin/env bash
# Registers the add-in's DLL with regsvr32, for all users and for the current user only, and
# compares the registry with the expected entries; unregisters it and checks for remains. Then
# registers it together with the DLL of the other bitness. Needs a Wine prefix in the environment
# (scripts/lib/wine.sh).
#
#   registration_check.sh DLL THE_OTHER_BITNESS
set -euo pipefail

dll=$1
dlls=("$@")
# A path with characters that need quoting.
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

use() {  # which DLL: sets the DLL, its regsvr32 and its view of the registry
  local copy="$folder/$1 René's 100% {add-in} %MODULE%.dll"
  case $(file -b "${dlls[$1]}") in
    *x86-64*) view=/reg:64 system='C:\windows\system32' ;;
    *80386*) view=/reg:32 system='C:\windows\syswow64' ;;
    *) echo "${dlls[$1]}: not one of our DLLs" >&2; exit 2 ;;
  esac
  [[ -e $copy ]] || cp "${dlls[$1]}" "$copy"
  path=$(wine winepath -w "$copy" 2>/dev/null | tr -d '\r')
}

use 0
failed=0

regsvr32() {
  wine "$system\\regsvr32.exe" /s "$@" "$path" </dev/null >/dev/null 2>&1 && return
  echo "regsvr32 $* $path failed ($?)" >&2
  failed=1
}

value() {  # key, name ("" for the default): the type and data, or nothing
  local which=(/ve)
  [[ -n $2 ]] && which=(/v "$2")
  wine reg query "$1" "${which[@]}" "$view" </dev/null 2>/dev/null | iconv -f cp437 | tr -d '\r' |
    sed -n 's/^    .*    REG_/REG_/p'
}

exists() { wine reg query "$1" "$view" </dev/null >/dev/null 2>&1; }

expect() {  # key, name, type and data
  local found
  found=$(value "$1" "$2") || true
  [[ $found == "$3" ]] && return
  echo "$1 [$2]: expected '$3', found '$found'" >&2
  failed=1
}

gone() {
  exists "$1" || return 0
  echo "$1: still there" >&2
  failed=1
}

addin='{DA593EC2-67C4-4602-B30E-3FEC47C1C55A}'
page='{619B3283-8326-4895-A4F2-E3881DC00D2D}'

expect_registered() {  # the root of the classes, the root of the add-in key
  local text='REG_SZ    ' class key
  expect "$1\\QuorTelephoneToolbar.Addin" "" "${text}Addin Class"
  expect "$1\\QuorTelephoneToolbar.Addin\\CLSID" "" "$text$addin"
  expect "$1\\QuorTelephoneToolbar.Addin\\CurVer" "" "${text}QuorTelephoneToolbar.Addin.1"
  expect "$1\\QuorTelephoneToolbar.Addin.1\\CLSID" "" "$text$addin"
  expect "$1\\CLSID\\$addin" "" "${text}Addin Class"
  for class in "$addin" "$page"; do
    expect "$1\\CLSID\\$class\\InprocServer32" "" "$text$path"
    expect "$1\\CLSID\\$class\\InprocServer32" ThreadingModel "${text}Apartment"
  done
  for key in "$addin\\Programmable" "$page\\"{Control,Insertable,Programmable}; do
    exists "$1\\CLSID\\$key" || { echo "$key is missing" >&2; failed=1; }
  done
  expect "$1\\QuorTelephoneToolbar.PropPage\\CLSID" "" "$text${page#\{}"
  expect "$1\\CLSID\\$page\\ToolboxBitmap32" "" "$text$path, 102"
  expect "$1\\CLSID\\$page\\MiscStatus\\1" "" "${text}131473"
  expect "$2\\Software\\Microsoft\\Office\\Outlook\\Addins\\QuorTelephoneToolbar.Addin" \
    FriendlyName "${text}Telephone Plug-in"
  expect "$2\\Software\\Microsoft\\Office\\Outlook\\Addins\\QuorTelephoneToolbar.Addin" \
    LoadBehavior 'REG_DWORD    0x3'
}

expect_gone() {
  local name
  for name in Addin Addin.1 PropPage PropPage.1; do gone "$1\\QuorTelephoneToolbar.$name"; done
  gone "$1\\CLSID\\$addin"
  gone "$1\\CLSID\\$page"
  gone "$2\\Software\\Microsoft\\Office\\Outlook\\Addins\\QuorTelephoneToolbar.Addin"
  exists "$1\\CLSID" || { echo "$1\\CLSID is gone" >&2; failed=1; }
  exists "$2\\Software\\Microsoft\\Office\\Outlook\\Addins" || { echo "Addins is gone" >&2; failed=1; }
}

everybody=(HKCR HKLM)
user=('HKCU\Software\Classes' HKCU)

regsvr32
expect_registered "${everybody[@]}"
gone 'HKCU\Software\Microsoft\Office\Outlook\Addins\QuorTelephoneToolbar.Addin'
regsvr32 /u
expect_gone "${everybody[@]}"

regsvr32 /n /i:user
expect_registered "${user[@]}"
gone 'HKLM\Software\Microsoft\Office\Outlook\Addins\QuorTelephoneToolbar.Addin'
regsvr32 /u /n /i:user
expect_gone "${user[@]}"

# The registrations for all users and for the user are independent.
regsvr32 /n /i:user
regsvr32
regsvr32 /u /n /i:user
expect_gone "${user[@]}"
expect_registered "${everybody[@]}"
regsvr32 /u
expect_gone "${everybody[@]}"

# Both bitnesses share the names that lead to the classes: they are removed with the last one. Not
# checked for the current user: Wine has one copy of a user's classes, Windows has two.
for first in 0 1; do
  for earlier in 0 1; do
    for each in "$first" $((1 - first)); do use "$each"; regsvr32; done
    use "$earlier"
    regsvr32 /u
    gone "HKCR\\CLSID\\$addin"
    gone "HKLM\\Software\\Microsoft\\Office\\Outlook\\Addins\\QuorTelephoneToolbar.Addin"
    use $((1 - earlier))
    expect_registered "${everybody[@]}"
    regsvr32 /u
    expect_gone "${everybody[@]}"
  done
done

# Undecorated exports, and the protections of a modern DLL.
headers=$(objdump -p "$dll")
exports=$(sed -n 's/^\t\[ *[0-9]*\] \(Dll.*\)/\1/p' <<<"$headers" | xargs)
[[ $exports == "DllCanUnloadNow DllGetClassObject DllInstall DllRegisterServer DllUnregisterServer" ]] ||
  { echo "exports: $exports" >&2; failed=1; }
for flag in DYNAMIC_BASE NX_COMPAT; do
  grep -q "$flag" <<<"$headers" || { echo "$flag is not set" >&2; failed=1; }
done

((failed == 0)) && echo "registration of $(basename "$dll") ($view): good"
exit $failed
