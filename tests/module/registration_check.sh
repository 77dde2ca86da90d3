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

present() { exists "$1" || { echo "$1 is missing" >&2; failed=1; }; }
gone() { exists "$1" && { echo "$1: still there" >&2; failed=1; }; return 0; }

addin='{DA593EC2-67C4-4602-B30E-3FEC47C1C55A}'
page='{619B3283-8326-4895-A4F2-E3881DC00D2D}'

# registration.scn checks the other values.
expect_registered() {  # the root of the classes, the root of the add-in key
  local addins="$2\\Software\\Microsoft\\Office\\Outlook\\Addins" class key
  for class in "$addin" "$page"; do
    expect "$1\\CLSID\\$class\\InprocServer32" "" "REG_SZ    $path"
    expect "$1\\CLSID\\$class\\InprocServer32" ThreadingModel "REG_SZ    Apartment"
  done
  for key in "$addin\\Programmable" "$page\\"{Control,Insertable,Programmable}; do present "$1\\CLSID\\$key"; done
  expect "$1\\QuorTelephoneToolbar.Addin\\CLSID" "" "REG_SZ    $addin"
  expect "$1\\QuorTelephoneToolbar.Addin.1\\CLSID" "" "REG_SZ    $addin"
  expect "$1\\QuorTelephoneToolbar.PropPage\\CLSID" "" "REG_SZ    ${page#\{}"
  expect "$1\\CLSID\\$addin" "" "REG_SZ    Addin Class"
  expect "$1\\CLSID\\$page\\ToolboxBitmap32" "" "REG_SZ    $path, 102"
  expect "$1\\CLSID\\$page\\MiscStatus\\1" "" "REG_SZ    131473"
  expect "$addins\\QuorTelephoneToolbar.Addin" LoadBehavior "REG_DWORD    0x3"
}

expect_gone() {
  local addins="$2\\Software\\Microsoft\\Office\\Outlook\\Addins" name
  for name in QuorTelephoneToolbar.{Addin,Addin.1,PropPage,PropPage.1} "CLSID\\"{"$addin","$page"}; do
    gone "$1\\$name"
  done
  gone "$addins\\QuorTelephoneToolbar.Addin"
  present "$1\\CLSID"
  present "$addins"
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

# Undecorated exports.
exports=$(objdump -p "$dll" | sed -n 's/^\t\[ *[0-9]*\] \(Dll.*\)/\1/p' | xargs)
[[ $exports == "DllCanUnloadNow DllGetClassObject DllInstall DllRegisterServer DllUnregisterServer" ]] ||
  { echo "exports: $exports" >&2; failed=1; }

((failed == 0)) && echo "registration of $(basename "$dll") ($view): good"
exit $failed
