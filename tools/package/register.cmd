@echo off
rem Registers both servers, in every bitness that this Windows runs: for the machine when this is
rem run as administrator, else for the present user alone.  With /u: takes that back.
setlocal
set failed=
set done=Registered.
if "%~1"=="/u" set done=Unregistered.

rem A 32-bit command interpreter sees the 64-bit programs under another name.
set programs=%SystemRoot%\System32
if defined PROCESSOR_ARCHITEW6432 set programs=%SystemRoot%\Sysnative
set bits=x86
if "%PROCESSOR_ARCHITECTURE%"=="AMD64" set bits=x64
if "%PROCESSOR_ARCHITEW6432%"=="AMD64" set bits=x64

call :each "%programs%\regsvr32.exe" %bits% %~1
if "%bits%"=="x64" if exist "%SystemRoot%\SysWOW64\regsvr32.exe" call :each "%SystemRoot%\SysWOW64\regsvr32.exe" x86 %~1
if defined failed exit /b 1
echo %done%
exit /b 0

:each
call :one %1 %2\LibTarvoCI_2402.dll %3
call :one %1 %2\LibTarvoRdpCI_2402.dll %3
exit /b 0

:one
"%~1" /s %3 "%~dp0%2"
if not errorlevel 1 exit /b 0
echo %2: this did not work.
set failed=1
exit /b 0
