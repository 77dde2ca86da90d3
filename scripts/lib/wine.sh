# Sourced by scripts that run Windows programs. Creates a Wine prefix under build/, so that the
# user's own is not used and every run starts with the same registry.
#
#   wine_prefix headless|screen [NAME]   creates the prefix if it is missing and starts its server;
#                                        NAME distinguishes several prefixes of one kind
#   wine_stop                            ends all programs that run in it

# Without a UTF-8 locale Wine cannot create files with non-ASCII names.
export LC_ALL=C.UTF-8

wine_prefix() {
  local kind=$1 name=${2:-$1}
  export WINEPREFIX="$PWD/build/wine/$name" HOME="$PWD/build/wine/home"
  export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES='mscoree=;mshtml='
  mkdir -p "$HOME"
  if [[ ! $WINEPREFIX/.ready -nt scripts/lib/wine.sh ]]; then
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    (unset DISPLAY; wineboot -i && wineserver -w) </dev/null >/dev/null 2>&1
    wine_registry "$kind"
    wineserver -k || true
    touch "$WINEPREFIX/.ready"
  fi
  # Keep the server running between programs: starting it takes seconds. The first program starts
  # Wine's helpers, which would inherit and keep our output pipes, so run it without any.
  wineserver -p </dev/null >/dev/null 2>&1
  wine cmd /c exit </dev/null >/dev/null 2>&1
}

# Prints a LOGFONTW of this height (pixels) and name, weight 400, as bytes for regedit.
log_font() {
  python3 - "$1" "$2" <<'PYTHON'
import struct, sys
font = struct.pack("<5i8B64s", -int(sys.argv[1]), 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0x22, sys.argv[2].encode("utf-16-le"))
print(font.hex(","))
PYTHON
}

# Prints a list of one text as bytes for regedit's hex(7) in REGEDIT4.
text_list() {
  python3 -c 'import sys; print((sys.argv[1] + "\0\0").encode().hex(","))' "$1"
}

wine_registry() {
  local kind=$1
  {
    echo 'REGEDIT4'
    # Windows shows messages in Segoe UI 9, Wine by default in MS Shell Dlg 8.
    echo '[HKEY_CURRENT_USER\Control Panel\Desktop\WindowMetrics]'
    echo "\"MessageFont\"=hex:$(log_font 12 'Segoe UI')"
    echo '[HKEY_CURRENT_USER\Software\Wine\WineDbg]'
    echo '"ShowCrashDialog"=dword:00000000'
    if [[ $kind == headless ]]; then
      echo '[HKEY_CURRENT_USER\Software\Wine\Drivers]'
      echo '"Graphics"="null"'
    else
      echo '[HKEY_CURRENT_USER\Control Panel\Desktop]'
      echo '"FontSmoothing"="2"'
      echo '"FontSmoothingType"=dword:00000001'
      echo '"FontSmoothingOrientation"=dword:00000001'
      echo '"FontSmoothingGamma"=dword:00000578'
      echo '[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\FontSubstitutes]'
      echo '"MS Shell Dlg"="Liberation Sans"'
      echo '"MS Shell Dlg 2"="Liberation Sans"'
      echo '"Segoe UI"="Liberation Sans"'
      # Where Liberation Sans has no glyph.
      echo '[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink]'
      echo "\"Liberation Sans\"=hex(7):$(text_list 'wqy-microhei.ttc,WenQuanYi Micro Hei')"
      # Wine draws the title bars, so that a window's picture has no frame of the host; their buttons
      # are glyphs of Marlett, which Wine finds only here.
      ln -sf /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
      echo '[HKEY_CURRENT_USER\Software\Wine\X11 Driver]'
      echo '"Decorated"="N"'
      echo '[HKEY_CURRENT_USER\Control Panel\Desktop\WindowMetrics]'
      echo "\"CaptionFont\"=hex:$(log_font 12 'Segoe UI')"
      echo "\"StatusFont\"=hex:$(log_font 12 'Segoe UI')"
      echo '"CaptionHeight"="-330"'
      echo '[HKEY_CURRENT_USER\Control Panel\Colors]'
      echo '"ActiveTitle"="255 255 255"'
      echo '"GradientActiveTitle"="255 255 255"'
      echo '"InactiveTitle"="255 255 255"'
      echo '"GradientInactiveTitle"="255 255 255"'
    fi
  } >"$WINEPREFIX/settings.reg"
  wine regedit /S "$(winepath -w "$WINEPREFIX/settings.reg" 2>/dev/null)" </dev/null >/dev/null 2>&1
}

wine_stop() {
  wineserver -k >/dev/null 2>&1 || true
}
