; The installer. packages/pack runs makensis in a folder with the files to install and with Product.nsh,
; which it writes.

Unicode true
SetCompressor /SOLID lzma

!include Product.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh
!include WinVer.nsh

!define SETTINGS "Software\Korvo\KORVOQLB"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\QLBUtl"
; What the demo settings added, one value each: its full name, and what it was set to.
!define DEMO_RECORD "${ENTRY}\Demo"
; The data files that came with them: where each lies.
!define DEMO_FILES "${ENTRY}\DemoFiles"
!define UNINSTALLER "QLBUtl-uninstall.exe"
!define ENVIRONMENT "SYSTEM\CurrentControlSet\Control\Session Manager\Environment"
!define LAUNCHER_SETTINGS "${SETTINGS}\Launcher"
!define RUN "Software\Microsoft\Windows\CurrentVersion\Run"

; Beyond NSIS' own 0 done, 1 cancelled, 2 failed.
!define EXIT_IN_USE 3
!define EXIT_WINDOWS_TOO_OLD 4
!define FIRST_WINDOWS_BUILD 15063

Name "$(Title)"
OutFile "${OUT_FILE}"
BrandingText "QLBUtl ${VERSION}"
InstallDir "${PROGRAM_FILES}\QLBUtl"
InstallDirRegKey HKLM "${ENTRY}" "InstallLocation"
RequestExecutionLevel admin
ManifestDPIAware true
AllowSkipFiles off
ShowInstDetails nevershow
ShowUninstDetails nevershow

!define MUI_ICON QLBUtl.ico
!define MUI_UNICON QLBUtl.ico
!define MUI_ABORTWARNING
!define MUI_WELCOMEFINISHPAGE_BITMAP WizardImage.bmp
!define MUI_WELCOMEFINISHPAGE_BITMAP_STRETCH AspectFitHeight
!define MUI_FINISHPAGE_TEXT "$(Finished)"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE Japanese
!include Texts.nsh

!ifdef SIGN
    !uninstfinalize '${SIGN} "%1"' = 0
!endif

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
!macro VERSION_TEXTS language title
    VIAddVersionKey /LANG=${language} CompanyName "${PUBLISHER}"
    VIAddVersionKey /LANG=${language} FileDescription "${title}"
    VIAddVersionKey /LANG=${language} FileVersion "${VERSION}"
    VIAddVersionKey /LANG=${language} LegalCopyright ""
    VIAddVersionKey /LANG=${language} ProductName "${title}"
    VIAddVersionKey /LANG=${language} ProductVersion "${VERSION}"
!macroend
!insertmacro VERSION_TEXTS ${LANG_ENGLISH} "${TITLE_ENGLISH}"
!insertmacro VERSION_TEXTS ${LANG_JAPANESE} "${TITLE_JAPANESE}"

!macro REMOVE_DEMO_FILE name
    ReadRegStr $0 HKLM "${DEMO_FILES}" "${name}"
    ${If} $0 == "$INSTDIR\${name}"
        Delete "$INSTDIR\${name}"
        DeleteRegValue HKLM "${DEMO_FILES}" "${name}"
    ${EndIf}
!macroend

; Before anything is changed: what is in use can't be replaced, nor taken away.
!macro CHECK_IN_USE un
Function ${un}CheckInUse
    again:
    ; The launcher ends when it is asked to.
    FindWindow $0 "KORVOQLBCLASS" "QLBLauncher"
    ${If} $0 <> 0
        SendMessage $0 ${WM_CLOSE} 0 0 /TIMEOUT=5000
        Sleep 500
    ${EndIf}
    StrCpy $1 "QLBLauncher.exe"
    Call ${un}OpenToWrite
    ${If} $0 == ""
        StrCpy $1 "qlb.exe"
        Call ${un}OpenToWrite
    ${EndIf}
    ${If} $0 == ""
        StrCpy $1 "QLBUtl.exe"
        Call ${un}OpenToWrite
    ${EndIf}
    ${If} $0 == ""
        StrCpy $1 "QLBUTL.CHM"
        Call ${un}OpenToWrite
    ${EndIf}
    ${If} $0 == ""
        Return
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDRETRY again
    SetErrorLevel ${EXIT_IN_USE}
    Quit
FunctionEnd

; $0 = "" when the file $1 may be written, or is not there.
Function ${un}OpenToWrite
    StrCpy $0 ""
    ${IfNot} ${FileExists} "$INSTDIR\$1"
        Return
    ${EndIf}
    ClearErrors
    FileOpen $2 "$INSTDIR\$1" a
    ${If} ${Errors}
        StrCpy $0 "$INSTDIR\$1"
    ${Else}
        FileClose $2
    ${EndIf}
FunctionEnd

; The machine's path may be longer than any string of NSIS, so it stays in the system's memory.
; $R1 = the key, $R2 = the value's type, $R3 = ";", the path and ";", with room for $R4 more characters;
; $R5 = where ";" and the folder $R0 and ";" are in it, or 0. $R1 = 0 when the path can't be read.
Function ${un}OpenPath
    StrLen $R4 "$R0;;;"
    System::Call 'advapi32::RegOpenKeyExW(p 0x80000002, w "${ENVIRONMENT}", i 0, i 0x2001B, *p .R1) i .r0'
    ${If} $0 <> 0
        StrCpy $R1 0
        Return
    ${EndIf}
    StrCpy $R2 2 ; REG_EXPAND_SZ
    System::Call 'advapi32::RegQueryValueExW(p R1, w "Path", p 0, *i .R2, p 0, *i .r1) i .r0'
    ${If} $0 = 2
        StrCpy $R2 2
        StrCpy $1 2
    ${ElseIf} $0 <> 0
        System::Call 'advapi32::RegCloseKey(p R1)'
        StrCpy $R1 0
        Return
    ${EndIf}
    IntOp $2 $R4 * 2
    IntOp $2 $2 + $1
    System::Alloc $2 ; is filled with zeros
    Pop $R3
    System::Call 'kernel32::lstrcpyW(p R3, w ";")'
    IntPtrOp $3 $R3 + 2
    System::Call 'advapi32::RegQueryValueExW(p R1, w "Path", p 0, p 0, p r3, *i r1)'
    System::Call 'kernel32::lstrcatW(p R3, w ";")'
    System::Call 'shlwapi::StrStrIW(p R3, w ";$R0;") p .R5'
FunctionEnd

; Stores what lies between the outer ";".
Function ${un}StorePath
    System::Call 'kernel32::lstrlenW(p R3) i .r1'
    IntOp $1 $1 - 1
    IntOp $2 $1 * 2
    IntPtrOp $3 $R3 + $2
    System::Call '*$3(&i2 0)'
    IntPtrOp $3 $R3 + 2
    System::Call 'advapi32::RegSetValueExW(p R1, w "Path", i 0, i R2, p r3, i r2) i .r0'
    SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=5000
FunctionEnd

Function ${un}ClosePath
    System::Free $R3
    System::Call 'advapi32::RegCloseKey(p R1)'
FunctionEnd

; Takes the folder out of the path again, if it was this installer that put it there.
Function ${un}RemoveFromPath
    ReadRegStr $R0 HKLM "${ENTRY}" "Path"
    DeleteRegValue HKLM "${ENTRY}" "Path"
    ${If} $R0 == ""
        Return
    ${EndIf}
    Call ${un}OpenPath
    ${If} $R1 = 0
        Return
    ${EndIf}
    ${If} $R5 <> 0
        StrLen $1 ";$R0"
        IntOp $1 $1 * 2
        IntPtrOp $2 $R5 + $1
        System::Call 'kernel32::lstrlenW(p r2) i .r3'
        IntOp $3 $3 + 1
        IntOp $3 $3 * 2
        System::Call 'ntdll::RtlMoveMemory(p R5, p r2, p r3)'
        Call ${un}StorePath
    ${EndIf}
    Call ${un}ClosePath
FunctionEnd

; Takes back the demo's data files, and its values that are still as they were set.
Function ${un}RemoveDemo
    !insertmacro REMOVE_DEMO_FILE QLBCODE.DAT
    !insertmacro REMOVE_DEMO_FILE QLBMCMNU.DAT
    DeleteRegKey /ifempty HKLM "${DEMO_FILES}"
    ${Do}
        EnumRegValue $0 HKLM "${DEMO_RECORD}" 0
        ${If} $0 == ""
            ${Break}
        ${EndIf}
        ReadRegStr $1 HKLM "${DEMO_RECORD}" $0
        DeleteRegValue HKLM "${DEMO_RECORD}" $0
        ${GetParent} $0 $2
        ${GetFileName} $0 $3
        ReadRegStr $4 HKLM $2 $3
        ${If} $4 S== $1
            DeleteRegValue HKLM $2 $3
        ${EndIf}
        ${While} $2 != "Software"
            ClearErrors
            DeleteRegKey /ifempty HKLM $2
            ${If} ${Errors}
                ${Break}
            ${EndIf}
            ${GetParent} $2 $2
        ${EndWhile}
    ${Loop}
    DeleteRegKey /ifempty HKLM "${DEMO_RECORD}"
FunctionEnd
!macroend
!insertmacro CHECK_IN_USE ""
!insertmacro CHECK_IN_USE "un."

; An installation in another place goes before this one comes.
Function RemoveOldPlace
    ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
    ${If} $0 == ""
    ${OrIf} $0 == $INSTDIR
    ${OrIfNot} ${FileExists} "$0\${UNINSTALLER}"
        Return
    ${EndIf}
    ExecWait '"$0\${UNINSTALLER}" /S /moving _?=$0' $1
    ${If} $1 == ${EXIT_IN_USE}
        MessageBox MB_OK|MB_ICONEXCLAMATION "$(InUse)" /SD IDOK
        SetErrorLevel ${EXIT_IN_USE}
        Quit
    ${ElseIf} $1 != 0
        Abort
    ${EndIf}
    Delete "$0\${UNINSTALLER}"
    RMDir $0
FunctionEnd

Function AddToPath
    StrCpy $R0 $INSTDIR
    Call OpenPath
    ${If} $R1 = 0
        Return
    ${EndIf}
    ${If} $R5 = 0
        ; ";a;" becomes ";a;folder;", and ";;" of an empty path ";folder;".
        System::Call 'kernel32::lstrlenW(p R3) i .r1'
        ${If} $1 = 2
            System::Call 'kernel32::lstrcpyW(p R3, w ";")'
        ${EndIf}
        System::Call 'kernel32::lstrcatW(p R3, w "$R0;")'
        Call StorePath
        ${If} $0 = 0
            WriteRegStr HKLM "${ENTRY}" "Path" $R0
        ${EndIf}
    ${EndIf}
    Call ClosePath
FunctionEnd

; Takes from the stack: kind, key below the settings, value name, data. What is there already stays: it may
; be a real keyboard's.
Function AddDemoValue
    Pop $3
    Pop $2
    Pop $1
    Pop $0
    System::Call 'advapi32::RegGetValueW(p -2147483646, w r1, w r2, i 0xffff, p 0, p 0, p 0) i.r4'
    ${If} $4 = 2
        ${If} $0 == "number"
            WriteRegDWORD HKLM $1 $2 $3
        ${Else}
            WriteRegStr HKLM $1 $2 $3
        ${EndIf}
        WriteRegStr HKLM "${DEMO_RECORD}" "$1\$2" $3
    ${EndIf}
FunctionEnd

!macro DEMO_VALUE kind key name data
    Push "${kind}"
    Push "${key}"
    Push "${name}"
    Push "${data}"
    Call AddDemoValue
!macroend
!define DemoValue "!insertmacro DEMO_VALUE"

Section "-QLBUtl" ProgramSection
    SetShellVarContext all
    Call CheckInUse
    Call RemoveOldPlace
    SetOutPath $INSTDIR
    File QLBUtl.exe
    File qlb.exe
    ${If} $LANGUAGE = ${LANG_JAPANESE}
        File ja\QLBUTL.CHM
    ${Else}
        File en\QLBUTL.CHM
    ${EndIf}
    ; Of an installation in the other language.
    ReadRegStr $0 HKLM "${ENTRY}" "Shortcut"
    ${If} $0 != ""
        Delete $0
    ${EndIf}

    ClearErrors
    WriteUninstaller "$INSTDIR\${UNINSTALLER}"
    StrCpy $0 "$SMPROGRAMS\$(FullTitle).lnk"
    CreateShortCut $0 "$INSTDIR\QLBUtl.exe" "/k"

    WriteRegStr HKLM "${ENTRY}" "Shortcut" $0
    WriteRegStr HKLM "${ENTRY}" "DisplayName" "$(FullTitle)"
    WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${ENTRY}" "Publisher" "${PUBLISHER}"
    WriteRegStr HKLM "${ENTRY}" "DisplayIcon" "$INSTDIR\QLBUtl.exe,0"
    WriteRegStr HKLM "${ENTRY}" "InstallLocation" $INSTDIR
    WriteRegStr HKLM "${ENTRY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
    WriteRegStr HKLM "${ENTRY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
    WriteRegDWORD HKLM "${ENTRY}" "EstimatedSize" ${INSTALLED_KB}
    WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
    WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
    ${If} ${Errors}
        Abort
    ${EndIf}
SectionEnd

; Beside the program they would hide the maker's own lists in the registry: so only with the demo, and never over
; files that are there.
!macro DEMO_FILE language name
    ReadRegStr $0 HKLM "${DEMO_FILES}" "${name}"
    ${If} $0 == "$INSTDIR\${name}"
    ${OrIfNot} ${FileExists} "$INSTDIR\${name}"
        File ${language}\${name}
        WriteRegStr HKLM "${DEMO_FILES}" "${name}" "$INSTDIR\${name}"
    ${EndIf}
!macroend

; $0 = "" when this half of the machine's registry has no settings.
!macro SETTINGS_OF_MACHINE
    EnumRegKey $0 HKLM "${SETTINGS}" 0
    EnumRegValue $1 HKLM "${SETTINGS}" 0
    StrCpy $0 "$0$1"
!macroend

Section /o "$(DemoName)" DemoSection
    SetOutPath $INSTDIR
    ; A keyboard's own settings may lie in the other half, where the program finds them as long as this half has
    ; none.
    !insertmacro SETTINGS_OF_MACHINE
    ${If} $0 == ""
        SetRegView ${OTHER_VIEW}
        !insertmacro SETTINGS_OF_MACHINE
        SetRegView default
        ${If} $0 != ""
            Return
        ${EndIf}
    ${EndIf}
    ${If} $LANGUAGE = ${LANG_JAPANESE}
        !insertmacro DEMO_JAPANESE
        !insertmacro DEMO_FILE ja QLBCODE.DAT
        !insertmacro DEMO_FILE ja QLBMCMNU.DAT
    ${Else}
        !insertmacro DEMO_ENGLISH
        !insertmacro DEMO_FILE en QLBCODE.DAT
        !insertmacro DEMO_FILE en QLBMCMNU.DAT
    ${EndIf}
SectionEnd

Section /o "$(LauncherName)" LauncherSection
    SetShellVarContext all
    SetOutPath $INSTDIR
    File QLBLauncher.exe
    StrCpy $0 "$SMPROGRAMS\$(LauncherTitle).lnk"
    CreateShortCut $0 "$INSTDIR\QLBLauncher.exe"
    WriteRegStr HKLM "${ENTRY}" "LauncherShortcut" $0
SectionEnd

Section /o "$(LogonName)" LogonSection
    WriteRegStr HKCU "${RUN}" "QLBLauncher" '"$INSTDIR\QLBLauncher.exe" /s'
SectionEnd

Section "-WithoutLauncher"
    ${IfNot} ${SectionIsSelected} ${LauncherSection}
        Delete "$INSTDIR\QLBLauncher.exe"
        ReadRegStr $0 HKLM "${ENTRY}" "LauncherShortcut"
        ${If} $0 != ""
            Delete $0
            DeleteRegValue HKLM "${ENTRY}" "LauncherShortcut"
        ${EndIf}
    ${EndIf}
    ${IfNot} ${SectionIsSelected} ${LogonSection}
        DeleteRegValue HKCU "${RUN}" "QLBLauncher"
    ${EndIf}
SectionEnd

Section "-WithoutDemo"
    ${IfNot} ${SectionIsSelected} ${DemoSection}
        Call RemoveDemo
    ${EndIf}
SectionEnd

Section /o "$(PathName)" PathSection
    Call AddToPath
SectionEnd

Section "-WithoutPath"
    ${IfNot} ${SectionIsSelected} ${PathSection}
        Call RemoveFromPath
    ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${PathSection} "$(PathDescription)"
    !insertmacro MUI_DESCRIPTION_TEXT ${DemoSection} "$(DemoDescription)"
    !insertmacro MUI_DESCRIPTION_TEXT ${LauncherSection} "$(LauncherDescription)"
    !insertmacro MUI_DESCRIPTION_TEXT ${LogonSection} "$(LogonDescription)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; The start with Windows needs the launcher.
Function .onSelChange
    ${If} ${SectionIsSelected} ${LogonSection}
        !insertmacro SelectSection ${LauncherSection}
    ${EndIf}
FunctionEnd

Function .onInit
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/LANG=" $1
    ${If} $1 == "ja"
        StrCpy $LANGUAGE ${LANG_JAPANESE}
    ${ElseIf} $1 == "en"
        StrCpy $LANGUAGE ${LANG_ENGLISH}
    ${EndIf}

    ${IfNot} ${AtLeastBuild} ${FIRST_WINDOWS_BUILD}
        MessageBox MB_OK|MB_ICONSTOP "$(WindowsTooOld)" /SD IDOK
        SetErrorLevel ${EXIT_WINDOWS_TOO_OLD}
        Quit
    ${EndIf}

    ; An update keeps the demo settings that are there.
    EnumRegValue $2 HKLM "${DEMO_RECORD}" 0
    ${If} $2 == ""
        EnumRegValue $2 HKLM "${DEMO_FILES}" 0
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 "/demo" $1
    ${IfNot} ${Errors}
    ${OrIf} $2 != ""
        !insertmacro SelectSection ${DemoSection}
    ${EndIf}

    ; And its place in the path.
    ReadRegStr $2 HKLM "${ENTRY}" "Path"
    ClearErrors
    ${GetOptions} $0 "/path" $1
    ${IfNot} ${Errors}
    ${OrIf} $2 != ""
        !insertmacro SelectSection ${PathSection}
    ${EndIf}
    ; Likewise the launcher, and whether it starts with Windows.
    ClearErrors
    ${GetOptions} $0 "/launcher" $1
    ${IfNot} ${Errors}
    ${OrIf} ${FileExists} "$INSTDIR\QLBLauncher.exe"
        !insertmacro SelectSection ${LauncherSection}
    ${EndIf}
    ReadRegStr $2 HKCU "${RUN}" "QLBLauncher"
    ClearErrors
    ${GetOptions} $0 "/logon" $1
    ${IfNot} ${Errors}
    ${OrIf} $2 != ""
        !insertmacro SelectSection ${LauncherSection}
        !insertmacro SelectSection ${LogonSection}
    ${EndIf}
FunctionEnd

; What the launcher stored so that the settings open without the keyboard.
Function un.TakeBackKeyboard
    ReadRegDWORD $0 HKCU "${LAUNCHER_SETTINGS}" "StoredKeyboard"
    ${If} $0 = 1
        ReadRegDWORD $0 HKCU "${SETTINGS}" "QLBB"
        ${If} $0 = 5
            DeleteRegValue HKCU "${SETTINGS}" "QLBB"
        ${EndIf}
        ReadINIStr $0 "$WINDIR\KORVOQLB.INI" "KORVOQLB" "QLBKeyboard"
        ${If} $0 == "5"
            DeleteINIStr "$WINDIR\KORVOQLB.INI" "KORVOQLB" "QLBKeyboard"
        ${EndIf}
    ${EndIf}
    DeleteRegValue HKCU "${LAUNCHER_SETTINGS}" "StoredKeyboard"
    DeleteRegKey /ifempty HKCU "${LAUNCHER_SETTINGS}"
    DeleteRegKey /ifempty HKCU "${SETTINGS}"
    DeleteRegKey /ifempty HKCU "Software\Korvo"
FunctionEnd

Section "Uninstall"
    SetShellVarContext all
    Call un.CheckInUse

    StrCpy $9 ""
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/moving" $1
    ${If} ${Errors}
        Call un.TakeBackKeyboard
        DeleteRegValue HKCU "${RUN}" "QLBLauncher"
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/removesettings" $1
    ${IfNot} ${Errors}
        StrCpy $9 "remove"
        Delete "$WINDIR\KORVOQLB.INI" ; all users', so never without being told
    ${Else}
        EnumRegKey $1 HKCU "${SETTINGS}" 0
        EnumRegValue $2 HKCU "${SETTINGS}" 0
        ${If} "$1$2" != ""
            ; An administrator's name may have been given for a user who is none.
            System::Call 'advapi32::GetUserNameW(w .r8, *i ${NSIS_MAX_STRLEN})'
            MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(RemoveSettings)" /SD IDNO IDNO kept
            StrCpy $9 "remove"
            kept:
        ${EndIf}
    ${EndIf}

    ReadRegStr $0 HKLM "${ENTRY}" "Shortcut"
    ${If} $0 != ""
        Delete $0
    ${EndIf}
    ReadRegStr $0 HKLM "${ENTRY}" "LauncherShortcut"
    ${If} $0 != ""
        Delete $0
    ${EndIf}
    Call un.RemoveDemo
    Call un.RemoveFromPath
    Delete "$INSTDIR\QLBUtl.exe"
    Delete "$INSTDIR\qlb.exe"
    Delete "$INSTDIR\QLBLauncher.exe"
    Delete "$INSTDIR\QLBUTL.CHM"
    SetOutPath $TEMP
    ${If} $EXEDIR != $INSTDIR
        ; The program that this is a copy of may still be on its way out.
        ${For} $0 1 100
            Delete "$INSTDIR\${UNINSTALLER}"
            ${IfNot} ${FileExists} "$INSTDIR\${UNINSTALLER}"
                ${Break}
            ${EndIf}
            Sleep 100
        ${Next}
    ${EndIf}
    ; Only when nothing else was put there.
    RMDir $INSTDIR
    DeleteRegKey HKLM "${ENTRY}"

    ${If} $9 == "remove"
        DeleteRegKey HKCU "${SETTINGS}"
        DeleteRegKey /ifempty HKCU "Software\Korvo"
    ${EndIf}
SectionEnd
