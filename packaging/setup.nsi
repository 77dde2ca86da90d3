; The set-up program: both DLLs, each registered for its bitness.
;
;   makensis -DVERSION=1.0.0 -DSTAGE=<folder with x86, x64, doctor.exe and telephone.ico> -DOUTPUT=<file>
;            [-DSIGN=<command that signs the file it is given>] setup.nsi
;
; Switches of the set-up program:
;   /S                    silent: asks nothing and shows nothing
;   /AllUsers             for all users; the default if started elevated
;   /CurrentUser          for this user only, even when elevated
;   /LibraryFrom=FOLDER   folder of SiUSBXp.dll; default: the set-up program's folder
;   /D=FOLDER             where to install to; must be the last one
; Exit codes: 0 installed; 1 cancelled by the user; 2 failed; 5 needs an administrator; 3010
; installed, but a running Outlook uses the former version until it is restarted. The uninstaller
; has /S and /RemoveSettings; its exit codes are the same.

Unicode true
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all

!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "WordFunc.nsh"
!include "x64.nsh"

!define DLL "QuorTelephoneToolbar.dll"
!define LIBRARY "SiUSBXp.dll"
!define APPS_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\QuorTelephoneToolbar"
!define RUN_ONCE_KEY "Software\Microsoft\Windows\CurrentVersion\RunOnce"
!define FOLDER_NAME "Telephone Plug-in"
!define EXIT_FAILED 2
!define EXIT_NOT_ADMINISTRATOR 5
!define EXIT_OUTLOOK_RUNS 3010

Name "Telephone Plug-in"
OutFile "${OUTPUT}"
BrandingText "Telephone Plug-in ${VERSION}"
!ifdef SIGN
  !finalize `${SIGN} "%1"`
  !uninstfinalize `${SIGN} "%1"`
!endif

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Telephone Plug-in"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Telephone Plug-in for Microsoft Outlook, set-up"
VIAddVersionKey "CompanyName" "${PUBLISHER}"
VIAddVersionKey "LegalCopyright" ""

Var Everybody      ; 1: all users, 0: this user
Var Switches       ; of regsvr32
Var InUse          ; 1: Outlook holds a file that should be removed
Var Renamed        ; 1: some program does, so that the file was only renamed
Var LibraryFolder  ; folder searched for SiUSBXp.dll
Var LibraryNote    ; message about SiUSBXp.dll, empty if there is no problem
Var MissingBits    ; bitnesses without SiUSBXp.dll, such as "32/64"

!define MUI_ICON "${STAGE}/telephone.ico"
!define MUI_UNICON "${STAGE}/telephone.ico"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "$(WelcomeText)"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TEXT "$(FinishText)"
; A renamed file waits for the next start of Windows, but nobody needs to wait for it.
!define MUI_FINISHPAGE_NOREBOOTSUPPORT
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "French"
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_RESERVEFILE_LANGDLL
!include "setup_texts.nsh"

; Functions of set-up and removal: NSIS requires different names in the uninstaller.
!macro COMMON_FUNCTIONS UN PROGRAM PARAMETERS

; Selects all users or this user for everything below.
Function ${UN}UseScope
  ${If} $Everybody == 1
    SetShellVarContext all
    StrCpy $Switches ""
  ${Else}
    SetShellVarContext current
    StrCpy $Switches "/n /i:user"
  ${EndIf}
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
FunctionEnd

; Shows the text on the stack and ends with the exit code below it.
Function ${UN}GiveUp
  Pop $0
  MessageBox MB_OK|MB_ICONSTOP "$0" /SD IDOK
  Pop $0
  SetErrorLevel $0
  Quit
FunctionEnd

; Starts this program again with elevation if necessary; a user must be present to agree.
Function ${UN}RequireAdministrator
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 == "Admin"
    Return
  ${EndIf}
  ${IfNot} ${Silent}
    ${GetParameters} $1
    ClearErrors
    ExecShell "runas" "${PROGRAM}" "${PARAMETERS}"
    ${IfNot} ${Errors}
      Quit
    ${EndIf}
  ${EndIf}
  Push ${EXIT_NOT_ADMINISTRATOR}
  Push "$(NeedsAdministrator)"
  Call ${UN}GiveUp
FunctionEnd

; Runs regsvr32 of one bitness on the DLL in our folder. Stack: folder, further switches; returns
; the exit code.
Function ${UN}RegisterDll
  Exch $1
  Exch
  Exch $0
  ${If} $0 == "x64"
    ; From Vista on a 32-bit program finds the 64-bit system folder under this name.
    ExecWait '"$WINDIR\Sysnative\regsvr32.exe" /s $1 $Switches "$INSTDIR\x64\${DLL}"' $0
  ${Else}
    ExecWait '"$SYSDIR\regsvr32.exe" /s $1 $Switches "$INSTDIR\x86\${DLL}"' $0
  ${EndIf}
  Pop $1
  Exch $0
FunctionEnd

; Removes the file on the stack, even if Outlook has loaded it: Windows does not delete such a file
; but can rename it, which frees the name at once. The next start of Windows deletes the renamed
; file. Outlook is not asked to close, because it may contain unsent mail.
Function ${UN}RemoveFile
  Exch $0
  Push $1
  ClearErrors
  Delete "$0"
  ${If} ${Errors}
    StrCpy $1 1
    ${While} ${FileExists} "$0.$1.old"
      IntOp $1 $1 + 1
    ${EndWhile}
    ClearErrors
    Rename "$0" "$0.$1.old"
    ${If} ${Errors}
      Push ${EXIT_FAILED}
      Push "$(CannotReplace)$\r$\n$0"
      Call ${UN}GiveUp
    ${EndIf}
    StrCpy $InUse 1
    StrCpy $Renamed 1
    ${If} $Everybody == 1
      Delete /REBOOTOK "$0.$1.old"
    ${EndIf}
  ${EndIf}
  Pop $1
  Pop $0
FunctionEnd

; Deletes the files in the folder on the stack that an earlier run renamed, if nothing holds them any
; more.
Function ${UN}RemoveRenamed
  Exch $0
  Delete "$0\*.old"
  ${If} ${FileExists} "$0\*.old"
    StrCpy $InUse 1
    StrCpy $Renamed 1
  ${EndIf}
  Pop $0
FunctionEnd

; Only an administrator can have files deleted at Windows' start; for a user a command does it at
; the next logon. Windows runs a command of at most 260 characters, so the folder stands in it once.
Function ${UN}TidyLater
  ${If} $Renamed == 1
  ${AndIf} $Everybody == 0
    ${${UN}GetParent} "$INSTDIR" $0
    ${${UN}GetFileName} "$INSTDIR" $1
    WriteRegStr HKCU "${RUN_ONCE_KEY}" "QuorTelephoneToolbar" \
      'cmd.exe /c cd /d "$0"&&(del /s /q "$1\*.old"&rmdir "$1\x86" "$1\x64" "$1")'
  ${EndIf}
FunctionEnd

!macroend
!insertmacro COMMON_FUNCTIONS "" "$EXEPATH" "$1"
; The uninstaller runs as a copy in another folder; a parameter marks the copy.
!insertmacro COMMON_FUNCTIONS "un." "$INSTDIR\uninstall.exe" ""

Function .onInit
  ${GetParameters} $0
  StrCpy $Everybody ""
  ClearErrors
  ${GetOptions} $0 "/AllUsers" $1
  ${IfNot} ${Errors}
    StrCpy $Everybody 1
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/CurrentUser" $1
  ${IfNot} ${Errors}
    StrCpy $Everybody 0
  ${EndIf}
  ${If} $Everybody == ""
    UserInfo::GetAccountType
    Pop $1
    StrCpy $Everybody 0
    ${If} $1 == "Admin"
      StrCpy $Everybody 1
    ${EndIf}
  ${EndIf}
  ; Some shells put the quotation marks round the whole switch.
  ${WordReplace} $0 '"/LibraryFrom=' '/LibraryFrom="' "+" $0
  ClearErrors
  ${GetOptions} $0 "/LibraryFrom=" $LibraryFolder
  ${If} ${Errors}
    StrCpy $LibraryFolder $EXEDIR
  ${EndIf}

  ${If} $Everybody == 1
    Call RequireAdministrator
  ${EndIf}
  !insertmacro MUI_LANGDLL_DISPLAY
  Call UseScope
  ${If} $INSTDIR == ""
    ; An upgrade installs into the former version's folder.
    ReadRegStr $INSTDIR SHCTX "${APPS_KEY}" "InstallLocation"
  ${EndIf}
  ${If} $INSTDIR == ""
    ${If} $Everybody == 0
      StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${FOLDER_NAME}"
    ${ElseIf} ${RunningX64}
      StrCpy $INSTDIR "$PROGRAMFILES64\${FOLDER_NAME}"
    ${Else}
      StrCpy $INSTDIR "$PROGRAMFILES\${FOLDER_NAME}"
    ${EndIf}
  ${EndIf}
FunctionEnd

; Takes over the library for one bitness. Stack: our folder (x86, x64), bitness. An existing library
; stays if there is no other, even if Outlook has loaded it.
Function TakeLibrary
  Exch $1  ; bitness
  Exch
  Exch $0  ; folder
  Push $2
  Push $3
  ; The vendor puts the two bitnesses into folders of these names.
  StrCpy $2 "$LibraryFolder\$0\${LIBRARY}"
  ${IfNot} ${FileExists} "$2"
    StrCpy $2 "$LibraryFolder\${LIBRARY}"
  ${EndIf}
  ${If} ${FileExists} "$2"
  ${AndIf} $2 != "$INSTDIR\$0\${LIBRARY}"
    ExecWait '"$INSTDIR\doctor.exe" --library "$2"' $3
    ${If} $3 == $1
      Push "$INSTDIR\$0\${LIBRARY}"
      Call RemoveFile
      ClearErrors
      CopyFiles /SILENT "$2" "$INSTDIR\$0\${LIBRARY}"
      ${If} ${Errors}
        Push ${EXIT_FAILED}
        Push "$(CannotReplace)$\r$\n$INSTDIR\$0\${LIBRARY}"
        Call GiveUp
      ${EndIf}
      WriteRegDWORD SHCTX "${APPS_KEY}" "Library$1" 1
      Goto done
    ${ElseIf} $3 != 32
    ${AndIf} $3 != 64
      StrCpy $LibraryNote "$(LibraryUnfit)"
      Goto done
    ${EndIf}
  ${EndIf}
  ${If} ${FileExists} "$INSTDIR\$0\${LIBRARY}"
    Goto done
  ${EndIf}
  StrCpy $2 "$SYSDIR\${LIBRARY}"
  ${If} $1 == 64
    StrCpy $2 "$WINDIR\Sysnative\${LIBRARY}"
  ${EndIf}
  ${IfNot} ${FileExists} "$2"
    ${If} $MissingBits != ""
      StrCpy $MissingBits "$MissingBits/"
    ${EndIf}
    StrCpy $MissingBits "$MissingBits$1"
  ${EndIf}
done:
  Pop $3
  Pop $2
  Pop $0
  Pop $1
FunctionEnd

!macro INSTALL_DLL FOLDER BITNESS
  SetOutPath "$INSTDIR\${FOLDER}"
  Push "$INSTDIR\${FOLDER}"
  Call RemoveRenamed
  Push "$INSTDIR\${FOLDER}\${DLL}"
  Call RemoveFile
  File "${STAGE}/${FOLDER}/${DLL}"
  Push "${FOLDER}"
  Push ""
  Call RegisterDll
  Pop $0
  ${If} $0 != 0
    Push ${EXIT_FAILED}
    Push "$(CannotRegister) ($0)$\r$\n$INSTDIR\${FOLDER}\${DLL}"
    Call GiveUp
  ${EndIf}
  Push "${FOLDER}"
  Push "${BITNESS}"
  Call TakeLibrary
!macroend

Section
  ClearErrors
  SetOutPath "$INSTDIR"
  Push "$INSTDIR"
  Call RemoveRenamed
  Push "$INSTDIR\doctor.exe"
  Call RemoveFile
  StrCpy $InUse 0  ; Outlook does not use the doctor
  File "${STAGE}/doctor.exe"
  ${If} ${Errors}
    Push ${EXIT_FAILED}
    Push "$(CannotReplace)$\r$\n$INSTDIR"
    Call GiveUp
  ${EndIf}
  DeleteRegValue HKCU "${RUN_ONCE_KEY}" "QuorTelephoneToolbar"
  !insertmacro INSTALL_DLL x86 32
  ${If} ${RunningX64}
    !insertmacro INSTALL_DLL x64 64
  ${EndIf}
  SetOutPath "$INSTDIR"
  Call TidyLater

  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Telephone Plug-in Doctor.lnk" "$INSTDIR\doctor.exe"
  WriteRegStr SHCTX "${APPS_KEY}" "DisplayName" "Telephone Plug-in"
  WriteRegStr SHCTX "${APPS_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${APPS_KEY}" "DisplayIcon" "$INSTDIR\doctor.exe"
  WriteRegStr SHCTX "${APPS_KEY}" "Publisher" "${PUBLISHER}"
  WriteRegStr SHCTX "${APPS_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${APPS_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${APPS_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${APPS_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${APPS_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${APPS_KEY}" "EstimatedSize" $0

  ${If} $LibraryNote == ""
  ${AndIf} $MissingBits != ""
    StrCpy $LibraryNote "$(LibraryMissing)"
  ${EndIf}
  ${If} $LibraryNote != ""
    DetailPrint "$LibraryNote"
    MessageBox MB_OK|MB_ICONINFORMATION "$LibraryNote" /SD IDOK
  ${EndIf}
  ${If} $InUse == 1
    MessageBox MB_OK|MB_ICONINFORMATION "$(OutlookRuns)" /SD IDOK
    SetErrorLevel ${EXIT_OUTLOOK_RUNS}
  ${Else}
    SetErrorLevel 0
  ${EndIf}
SectionEnd

Function un.onInit
  !insertmacro MUI_UNGETLANGUAGE
  ; The folder shows for whom this copy was installed.
  ${If} ${RunningX64}
    SetRegView 64
  ${EndIf}
  StrCpy $Everybody 0
  ReadRegStr $0 HKLM "${APPS_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    StrCpy $Everybody 1
    Call un.RequireAdministrator
  ${EndIf}
  Call un.UseScope
FunctionEnd

!macro UNINSTALL_DLL FOLDER BITNESS
  Push "$INSTDIR\${FOLDER}"
  Call un.RemoveRenamed
  ${If} ${FileExists} "$INSTDIR\${FOLDER}\${DLL}"
    Push "${FOLDER}"
    Push "/u"
    Call un.RegisterDll
    Pop $0
    Push "$INSTDIR\${FOLDER}\${DLL}"
    Call un.RemoveFile
  ${EndIf}
  ReadRegDWORD $0 SHCTX "${APPS_KEY}" "Library${BITNESS}"
  ${If} $0 == 1
  ${AndIf} ${FileExists} "$INSTDIR\${FOLDER}\${LIBRARY}"
    Push "$INSTDIR\${FOLDER}\${LIBRARY}"
    Call un.RemoveFile
  ${EndIf}
  RMDir "$INSTDIR\${FOLDER}"
!macroend

Section "Uninstall"
  ${un.GetParameters} $0
  ClearErrors
  ${un.GetOptions} $0 "/RemoveSettings" $1
  ${If} ${Errors}
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(RemoveSettings)" /SD IDNO IDNO keep
  ${EndIf}
  SetShellVarContext current
  Delete "$APPDATA\Microsoft\AddIns\vex_cfg.xml*"
  Delete "$APPDATA\Microsoft\AddIns\vex_cfg.bad*.xml"
  Delete "$APPDATA\Microsoft\AddIns\vex_times.txt"
  Delete "$APPDATA\Temp\catlog????????.txt"
  RMDir "$APPDATA\Temp"
keep:
  Call un.UseScope
  Push "$INSTDIR"
  Call un.RemoveRenamed
  Push "$INSTDIR\doctor.exe"
  Call un.RemoveFile
  StrCpy $InUse 0
  !insertmacro UNINSTALL_DLL x86 32
  ${If} ${RunningX64}
    !insertmacro UNINSTALL_DLL x64 64
  ${EndIf}
  Delete "$INSTDIR\uninstall.exe"
  Delete "$SMPROGRAMS\Telephone Plug-in Doctor.lnk"
  DeleteRegKey SHCTX "${APPS_KEY}"
  DeleteRegValue HKCU "${RUN_ONCE_KEY}" "QuorTelephoneToolbar"
  Call un.TidyLater
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  ${If} $Renamed == 1
  ${AndIf} $Everybody == 1
    RMDir /REBOOTOK "$INSTDIR\x86"
    RMDir /REBOOTOK "$INSTDIR\x64"
    RMDir /REBOOTOK "$INSTDIR"
  ${EndIf}

  ${If} $InUse == 1
    MessageBox MB_OK|MB_ICONINFORMATION "$(OutlookRunsRemoved)" /SD IDOK
    SetErrorLevel ${EXIT_OUTLOOK_RUNS}
  ${Else}
    SetErrorLevel 0
  ${EndIf}
SectionEnd
