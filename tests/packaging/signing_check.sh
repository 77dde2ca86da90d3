#!/usr/bin/env bash
# Builds packages signed with a temporary certificate and checks each program, DLL and package for its
# signature, the uninstaller included.
set -euo pipefail
cd "$(dirname "$0")/../.."
work=build/signing-check
rm -rf "$work"
mkdir -p "$work"
openssl req -x509 -newkey rsa:2048 -nodes -days 1 -subj "/CN=Throw-away" -addext extendedKeyUsage=codeSigning \
  -keyout "$work/key.pem" -out "$work/certificate.pem" 2>/dev/null
scripts/package --sign "$work/certificate.pem" "$work/key.pem" --out "$work/dist"
unzip -q "$work"/dist/*-support.zip -d "$work"
(
  source scripts/lib/wine.sh
  wine_prefix headless signing
  wine "$work"/dist/*-setup.exe /S /D='C:\signed' </dev/null >/dev/null 2>&1
  cp "$WINEPREFIX/drive_c/signed/uninstall.exe" "$work/"
  wine_stop
)
files=0
while IFS= read -r file; do
  osslsigncode verify -CAfile "$work/certificate.pem" "$file" >"$work/verify.txt" 2>&1 ||
    { echo "$file is not signed"; tail -n 20 "$work/verify.txt"; exit 1; }
  files=$((files + 1))
done < <(find "$work" -name '*.msi' -o -name '*.exe' -o -name '*.dll')
# Set-up program, two packages, uninstaller, doctor; in the archive for each bitness the DLL, the
# stand-in and its two libraries.
((files == 13)) || { echo "$files files were looked at"; exit 1; }
