@echo off
rem Plays every scenario against the add-in of this folder, on the COM, MSXML and GDI+ of this Windows,
rem in each Outlook version that the stand-in supports. Outlook itself is neither needed nor changed. The
rem results are in results.txt afterwards.
rem
rem   play-all.cmd                 a double click will do
rem   play-all.cmd everybody       registers for all users, which needs an administrator
rem   play-all.cmd user PATTERN    only scenarios with matching names, such as incoming*
rem
rem Meanwhile the add-in of this folder is registered instead of an installed one, whose registration is
rem restored at the end. Close Outlook first: it would load the wrong add-in.
setlocal
cd /d "%~dp0"
set how=/n /i:user
set root=HKCU
if "%1"=="everybody" set how=
if "%1"=="everybody" set root=HKLM
set pattern=*
if not "%2"=="" set pattern=%2
set class={DA593EC2-67C4-4602-B30E-3FEC47C1C55A}
set results=%~dp0results.txt
set /a passed=0
set /a failed=0

echo Telephone Plug-in: every scenario in the stand-in Outlook >"%results%" 2>nul
if errorlevel 1 (
  echo This folder is not writable. Unpack the archive to another folder and start again.
  goto wait
)
ver >>"%results%"
echo %date% %time% %PROCESSOR_ARCHITECTURE% %PROCESSOR_ARCHITEW6432% >>"%results%"

rem With this key the stand-in gives each run a separate application-data folder, and restores it; this
rem script also restores it in case a run is stopped. If this window is closed early, open folders.reg to
rem restore it.
set folders=HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders
if not exist folders.reg reg export "%folders%" folders.reg /y >nul

set wide=no
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" set wide=yes
if %wide%==yes (
  call :play x64 "%SystemRoot%\System32\regsvr32.exe" /reg:64 14 16
  call :play x86 "%SystemRoot%\SysWOW64\regsvr32.exe" /reg:32 11 12 16
) else (
  call :play x86 "%SystemRoot%\System32\regsvr32.exe" /reg:32 11 12 16
)

reg import folders.reg >nul 2>&1
del folders.reg
echo %passed% passed, %failed% failed >>"%results%"
echo %passed% passed, %failed% failed. Everything is in "%results%".
:wait
if "%1"=="" pause
if %failed% gtr 0 exit /b 1
exit /b 0

rem play FOLDER REGSVR32 VIEW VERSION...
:play
set folder=%1
set regsvr32=%2
set installed=
for /f "tokens=2*" %%a in ('reg query "%root%\Software\Classes\CLSID\%class%\InprocServer32" /ve %3 2^>nul') do set installed=%%b
%regsvr32% /s %how% "%~dp0%folder%\QuorTelephoneToolbar.dll"
if errorlevel 1 (
  echo FAILED %folder%: the add-in cannot be registered >>"%results%"
  set /a failed+=1
  goto :eof
)
for %%v in (%4 %5 %6) do for %%s in (tests\scenarios\%pattern%.scn) do call :scenario %%v "%%s"
if "%pattern%"=="*" for %%v in (%4 16) do call :scenario %%v tests\scenarios\sweep\start.scn --sweep
%regsvr32% /s /u %how% "%~dp0%folder%\QuorTelephoneToolbar.dll"
if not "%installed%"=="" %regsvr32% /s %how% "%installed%"
goto :eof

rem scenario VERSION FILE [OPTION]
:scenario
echo %folder%, Outlook %1: %~nx2 %3
"%folder%\workbench\workbench.exe" --outlook %1 --quiet %3 %2 >play.tmp 2>&1 <nul
set code=%errorlevel%
if %code%==77 goto played
if %code%==0 (
  set /a passed+=1
  echo pass   %folder% %1 %~nx2 %3 >>"%results%"
) else (
  set /a failed+=1
  echo FAILED %folder% %1 %~nx2 %3, exit code %code% >>"%results%"
  type play.tmp >>"%results%"
)
:played
del play.tmp
goto :eof
