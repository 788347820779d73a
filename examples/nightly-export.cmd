@echo off
rem Exports the user's settings, one file for each day of the week. As a task of the user's:
rem     schtasks /create /tn "Quickfire buttons" /sc daily /st 22:00 /tr "C:\Tools\nightly-export.cmd"

set FOLDER=%USERPROFILE%\Documents\Quickfire
set QLB="%ProgramFiles%\QLBUtl\qlb.exe"

if not exist "%FOLDER%" mkdir "%FOLDER%"
for /f "tokens=2" %%d in ('powershell -NoProfile -Command "'day ' + (Get-Date).DayOfWeek"') do set DAY=%%d
%QLB% export "%FOLDER%\%DAY%.qlb" --force
exit /b %ERRORLEVEL%
