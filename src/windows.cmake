add_library(qlb_windows STATIC
    platform/windows/Ansi.cpp
    platform/windows/AutomationObject.cpp
    platform/windows/Com.cpp
    platform/windows/DesktopShell.cpp
    platform/windows/JapaneseFont.cpp
    platform/windows/ProgramFile.cpp
    platform/windows/StarterFiles.cpp
    platform/windows/WindowsClock.cpp
    platform/windows/WindowsConsole.cpp
    platform/windows/WindowsDrives.cpp
    platform/windows/WindowsFileSystem.cpp
    platform/windows/WindowsHotKeys.cpp
    platform/windows/WindowsInstalledFonts.cpp
    platform/windows/WindowsInstanceGuard.cpp
    platform/windows/WindowsKeySender.cpp
    platform/windows/WindowsLogonStart.cpp
    platform/windows/WindowsNameOrder.cpp
    platform/windows/WindowsPrintDevice.cpp
    platform/windows/WindowsProfileFiles.cpp
    platform/windows/WindowsProgramStarter.cpp
    platform/windows/WindowsRegistry.cpp
    platform/windows/WindowsShell.cpp
    platform/windows/WindowsShellIcons.cpp
    platform/windows/WindowsStringSource.cpp
    platform/windows/WindowsTextCase.cpp
    platform/windows/WindowsTopLevelWindows.cpp
    platform/windows/WindowsTrayIcon.cpp
    platform/windows/WindowsWholeFiles.cpp)
target_include_directories(qlb_windows PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(qlb_windows PRIVATE qlb_warnings PUBLIC advapi32 comctl32 gdi32 user32)

# What every form shares.
add_library(qlb_ui STATIC
    ui/AccessibleButton.cpp
    ui/Controls.cpp
    ui/DialogFont.cpp
    ui/Dpi.cpp
    ui/Form.cpp
    ui/FormScroll.cpp
    ui/MessagePump.cpp
    ui/ModalForm.cpp
    ui/PictureButton.cpp
    ui/PictureList.cpp
    ui/Theme.cpp
    ui/ToolTip.cpp)
target_link_libraries(qlb_ui PRIVATE qlb_warnings PUBLIC qlb_core qlb_pixels qlb_windows comctl32)

# The trees.
add_library(qlb_browse STATIC
    browse/BrowseTree.cpp
    browse/IconPicture.cpp
    browse/NodeImageList.cpp
    browse/TreeControl.cpp)
target_link_libraries(qlb_browse PRIVATE qlb_warnings PUBLIC qlb_ui)

# The dialog for one button, and what it shares with others.
add_library(qlb_register STATIC
    dialogs/patterns/frmInputBox.cpp
    dialogs/register/DragCursor.cpp
    dialogs/register/SourcePanes.cpp
    dialogs/register/frmSetAp.cpp
    dialogs/register/frmSetApControls.cpp
    dialogs/register/frmSetApDrag.cpp
    dialogs/wizard/frmWizard.cpp
    dialogs/wizard/frmWizardControls.cpp)
target_link_libraries(qlb_register PRIVATE qlb_warnings PUBLIC qlb_browse)

# Version resources and manifests say the project's version and the programs' own titles.
function(qlb_titles table id prefix)
    set(file ${CMAKE_CURRENT_SOURCE_DIR}/resources/${table})
    file(STRINGS ${file} line REGEX "^QLB_STRING\\(${id}," ENCODING UTF-8)
    if(NOT line MATCHES "\"([^\"]+)\", \"([^\"]+)\"")
        message(FATAL_ERROR "No titles in ${file}")
    endif()
    set(${prefix}_ENGLISH "${CMAKE_MATCH_1}" PARENT_SCOPE)
    set(${prefix}_JAPANESE "${CMAKE_MATCH_2}" PARENT_SCOPE)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
endfunction()
set(qlb_generated ${CMAKE_CURRENT_BINARY_DIR}/resources)
qlb_titles(StringTable.inc 3000 QLB_TITLE)
set(QLB_PROGRAM QLBUtl)
qlb_titles(StringTable.inc 3000 QLB_DESCRIPTION)
configure_file(resources/Version.rc.in ${qlb_generated}/Version.rc @ONLY)
configure_file(resources/QLBUtl.manifest.in ${qlb_generated}/QLBUtl.manifest @ONLY)
set(QLB_PROGRAM QLBLauncher)
qlb_titles(LauncherTexts.inc 5000 QLB_DESCRIPTION)
configure_file(resources/Version.rc.in ${qlb_generated}/LauncherVersion.rc @ONLY)
configure_file(resources/QLBUtl.manifest.in ${qlb_generated}/QLBLauncher.manifest @ONLY)

# Gives a program these resources: texts, dialogs, pictures, version, manifest.
function(qlb_add_resources target)
    set(script QLBUtl.rc)
    if(ARGC GREATER 1)
        set(script ${ARGV1})
    endif()
    set(folder ${PROJECT_SOURCE_DIR}/src/resources)
    set(generated ${PROJECT_BINARY_DIR}/src/resources)
    file(GLOB parts CONFIGURE_DEPENDS ${folder}/pictures/*.bmp ${folder}/*.inc ${generated}/*)
    target_sources(${target} PRIVATE ${folder}/${script})
    set_source_files_properties(${folder}/${script} PROPERTIES
        COMPILE_OPTIONS "-c65001;-I${generated}"
        OBJECT_DEPENDS "${folder}/Forms.rc;${folder}/resource.h;${folder}/QLBUtl.ico;${parts}")
endfunction()

add_executable(QLBUtl WIN32
    app/Main.cpp
    app/RuntimeFailure.cpp
    app/StackGuard.cpp
    dialogs/main/frmMain.cpp
    dialogs/main/frmMainControls.cpp
    dialogs/main/OnScreenPage.cpp
    dialogs/main/ProgramTips.cpp
    dialogs/patterns/frmManager.cpp
    print/PrintCommand.cpp
    print/PrinterChoice.cpp
    print/PrintingForm.cpp)
qlb_add_resources(QLBUtl)
target_link_options(QLBUtl PRIVATE -municode)
target_link_libraries(QLBUtl PRIVATE qlb_register qlb_warnings)
set_target_properties(QLBUtl PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})

add_executable(QLBLauncher WIN32
    app/RuntimeFailure.cpp
    app/StackGuard.cpp
    launcher/LauncherWindow.cpp
    launcher/Main.cpp
    launcher/OnScreenWindow.cpp
    launcher/frmKeys.cpp)
qlb_add_resources(QLBLauncher QLBLauncher.rc)
target_compile_definitions(QLBLauncher PRIVATE QLB_VERSION=L"${PROJECT_VERSION}")
target_link_options(QLBLauncher PRIVATE -municode)
target_link_libraries(QLBLauncher PRIVATE qlb_ui qlb_warnings oleaut32 shell32)
set_target_properties(QLBLauncher PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
