add_library(qlb_windows STATIC
    platform/windows/Ansi.cpp
    platform/windows/AutomationObject.cpp
    platform/windows/Com.cpp
    platform/windows/JapaneseFont.cpp
    platform/windows/WindowsClock.cpp
    platform/windows/WindowsConsole.cpp
    platform/windows/WindowsDrives.cpp
    platform/windows/WindowsFileSystem.cpp
    platform/windows/WindowsInstalledFonts.cpp
    platform/windows/WindowsInstanceGuard.cpp
    platform/windows/WindowsNameOrder.cpp
    platform/windows/WindowsPrintDevice.cpp
    platform/windows/WindowsProfileFiles.cpp
    platform/windows/WindowsRegistry.cpp
    platform/windows/WindowsShell.cpp
    platform/windows/WindowsShellIcons.cpp
    platform/windows/WindowsStringSource.cpp
    platform/windows/WindowsTextCase.cpp
    platform/windows/WindowsTopLevelWindows.cpp
    platform/windows/WindowsWholeFiles.cpp)
target_include_directories(qlb_windows PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(qlb_windows PRIVATE qlb_warnings PUBLIC advapi32 gdi32 user32)

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

# Version.rc and the manifest say the project's version and the program's own titles.
set(qlb_string_table ${CMAKE_CURRENT_SOURCE_DIR}/resources/StringTable.inc)
file(STRINGS ${qlb_string_table} qlb_title REGEX "^QLB_STRING\\(3000," ENCODING UTF-8)
if(NOT qlb_title MATCHES "\"([^\"]+)\", \"([^\"]+)\"")
    message(FATAL_ERROR "No titles in ${qlb_string_table}")
endif()
set(QLB_TITLE_ENGLISH "${CMAKE_MATCH_1}")
set(QLB_TITLE_JAPANESE "${CMAKE_MATCH_2}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${qlb_string_table})
set(qlb_generated ${CMAKE_CURRENT_BINARY_DIR}/resources)
configure_file(resources/Version.rc.in ${qlb_generated}/Version.rc @ONLY)
configure_file(resources/QLBUtl.manifest.in ${qlb_generated}/QLBUtl.manifest @ONLY)

# Gives a program these resources: texts, dialogs, pictures, version, manifest.
function(qlb_add_resources target)
    set(folder ${PROJECT_SOURCE_DIR}/src/resources)
    set(generated ${PROJECT_BINARY_DIR}/src/resources)
    file(GLOB pictures CONFIGURE_DEPENDS ${folder}/pictures/*.bmp)
    target_sources(${target} PRIVATE ${folder}/QLBUtl.rc)
    set_source_files_properties(${folder}/QLBUtl.rc PROPERTIES
        COMPILE_OPTIONS "-c65001;-I${generated}"
        OBJECT_DEPENDS "${folder}/StringTable.inc;${folder}/OwnTexts.inc;${folder}/resource.h;${folder}/QLBUtl.ico;${generated}/Version.rc;${generated}/QLBUtl.manifest;${pictures}")
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
