add_library(qlb_windows STATIC
    platform/windows/Ansi.cpp
    platform/windows/AutomationObject.cpp
    platform/windows/Com.cpp
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
    platform/windows/WindowsTopLevelWindows.cpp
    platform/windows/Worker.cpp)
target_include_directories(qlb_windows PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(qlb_windows PRIVATE qlb_warnings PUBLIC advapi32 gdi32 user32)

# What every form shares, and the trees.
add_library(qlb_ui STATIC
    browse/BrowseTree.cpp
    browse/IconLoader.cpp
    browse/IconPicture.cpp
    browse/NodeImageList.cpp
    browse/TreeControl.cpp
    ui/AccessibleButton.cpp
    ui/Controls.cpp
    ui/DialogFont.cpp
    ui/Dpi.cpp
    ui/Form.cpp
    ui/MessagePump.cpp
    ui/MessageWindow.cpp
    ui/PictureButton.cpp
    ui/PictureList.cpp
    ui/Theme.cpp
    ui/ToolTip.cpp)
target_link_libraries(qlb_ui PRIVATE qlb_warnings PUBLIC qlb_core qlb_windows comctl32)

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
target_link_libraries(qlb_register PRIVATE qlb_warnings PUBLIC qlb_ui)

add_executable(QLBUtl WIN32
    app/Main.cpp
    dialogs/main/frmMain.cpp
    dialogs/main/frmMainControls.cpp
    dialogs/main/OnScreenPage.cpp
    dialogs/main/ProgramTips.cpp
    dialogs/patterns/frmManager.cpp
    print/PrintCommand.cpp
    resources/QLBUtl.rc)
file(GLOB qlb_pictures CONFIGURE_DEPENDS resources/pictures/*.bmp)
set_source_files_properties(resources/QLBUtl.rc PROPERTIES
    COMPILE_OPTIONS "-c65001"
    OBJECT_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/resources/StringTable.inc;${CMAKE_CURRENT_SOURCE_DIR}/resources/OwnTexts.inc;${CMAKE_CURRENT_SOURCE_DIR}/resources/resource.h;${CMAKE_CURRENT_SOURCE_DIR}/resources/QLBUtl.manifest;${CMAKE_CURRENT_SOURCE_DIR}/resources/QLBUtl.ico;${qlb_pictures}")
target_link_options(QLBUtl PRIVATE -municode)
target_link_libraries(QLBUtl PRIVATE qlb_register qlb_warnings)
set_target_properties(QLBUtl PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
