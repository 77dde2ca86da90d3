@echo off
rem Plays every scenario against the add-in of this folder, on the COM, MSXML and GDI+ of this Windows,
rem in each Outlook version that the stand-in supports. Outlook itself is neither needed nor changed. The
rem results are in results.txt afterwards.
rem
rem   play-all.cmd              a double click will do
rem   play-all.cmd everybody    registers for all users, which needs an administrator
rem   play-all.cmd user TEXT    only the lines of plays.txt with this text, such as incoming
rem
rem Meanwhile the add-in of this folder is registered instead of an installed one, whose registration is
rem restored at the end. Close Outlook first: it would load the wrong add-in.
setlocal
cd /d "%~dp0"
set how=/n /i:user
set root=HKCU
if "%1"=="everybody" set how=
if "%1"=="everybody" set root=HKLM
set class={DA593EC2-67C4-4602-B30E-3FEC47C1C55A}
set results=%~dp0results.txt
set /a passed=0
set /a failed=0

echo Telephone Plug-in: every scenario in the stand-in Outlook >"%results%" 2>nul
if errorlevel 1 (
  echo This folder is not writable. Unpack the archive to another folder and start again.
  set /a failed=1
  goto wait
)
ver >>"%results%"
echo %date% %time% %PROCESSOR_ARCHITECTURE% %PROCESSOR_ARCHITEW6432% >>"%results%"

rem With this key the stand-in gives each run a separate application-data folder, and restores it; this
rem script also restores it in case a run is stopped. If this window is closed early, open folders.reg to
rem restore it.
set folders=HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders
if not exist folders.reg reg export "%folders%" folders.reg /y >nul

copy plays.txt plays.tmp >nul
if not "%~2"=="" find "%~2" <plays.txt >plays.tmp
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" (
  call :play x64 "%SystemRoot%\System32\regsvr32.exe" /reg:64
  call :play x86 "%SystemRoot%\SysWOW64\regsvr32.exe" /reg:32
) else (
  call :play x86 "%SystemRoot%\System32\regsvr32.exe" /reg:32
)
del plays.tmp

reg import folders.reg >nul 2>&1
del folders.reg
echo %passed% passed, %failed% failed >>"%results%"
echo %passed% passed, %failed% failed. Everything is in "%results%".
:wait
if "%1"=="" pause
if %failed% gtr 0 exit /b 1
exit /b 0

rem play FOLDER REGSVR32 VIEW
:play
set folder=%1
set regsvr32=%2
rem The last line of the answer ends in the path. What stands before the type depends on the language.
set answer=
set installed=
for /f "delims=" %%a in ('reg query "%root%\Software\Classes\CLSID\%class%\InprocServer32" /ve %3 2^>nul') do set answer=%%a
if defined answer set installed=%answer:*REG_SZ    =%
if "%installed%"=="%answer%" set installed=
%regsvr32% /s %how% "%~dp0%folder%\QuorTelephoneToolbar.dll"
if errorlevel 1 (
  echo FAILED %folder%: the add-in cannot be registered >>"%results%"
  set /a failed+=1
  goto :eof
)
for /f "tokens=1,2,3*" %%a in (plays.tmp) do if %%a==%folder% call :scenario %%b %%c %%d
%regsvr32% /s /u %how% "%~dp0%folder%\QuorTelephoneToolbar.dll"
if defined installed %regsvr32% /s %how% "%installed%"
goto :eof

rem scenario VERSION FILE [OPTION...]
:scenario
echo %folder%, Outlook %1: %2 %3 %4 %5 %6
if exist ending rmdir /s /q ending
set options=%3 %4 %5 %6
if "%4"=="ending" set options=--data "%cd%\ending"
"%folder%\workbench\workbench.exe" --outlook %1 --quiet %options% %2 >play.tmp 2>&1 <nul
set code=%errorlevel%
if %code%==77 goto played
if not %code%==0 goto failed
rem The telephone number proves that the settings were saved.
if "%4"=="ending" find "0559876543" ending\Microsoft\AddIns\vex_cfg.xml >nul 2>&1
if "%4"=="ending" if errorlevel 1 set code=0, but the settings were not saved
if not "%code%"=="0" goto failed
set /a passed+=1
echo pass   %folder% %1 %2 %3 %4 %5 %6 >>"%results%"
goto played
:failed
set /a failed+=1
echo FAILED %folder% %1 %2 %3 %4 %5 %6, exit code %code% >>"%results%"
type play.tmp >>"%results%"
:played
del play.tmp
goto :eof
