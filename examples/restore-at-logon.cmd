@echo off
rem A standard set for every user, brought back at logon. Make it on one computer with
rem     qlb export \\server\share\standard.qlb
rem and name this script as the logon script of the users. Their own settings of before are in a backup:
rem "qlb backups" lists them, "qlb restore N" brings one back.

set SET=\\server\share\standard.qlb
set QLB="%ProgramFiles%\QLBUtl\qlb.exe"

if not exist %QLB% exit /b 0
%QLB% restore "%SET%" 2>"%TEMP%\qlb-restore.log"

rem 3: the user has the settings dialog open. The next logon will do.
if %ERRORLEVEL% == 3 exit /b 0
exit /b %ERRORLEVEL%
