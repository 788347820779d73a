add_library(qlb_windows STATIC
    platform/windows/Ansi.cpp
    platform/windows/WindowsInstalledFonts.cpp
    platform/windows/WindowsInstanceGuard.cpp
    platform/windows/WindowsProfileFiles.cpp
    platform/windows/WindowsRegistry.cpp
    platform/windows/WindowsShell.cpp
    platform/windows/WindowsStringSource.cpp
    platform/windows/WindowsTopLevelWindows.cpp)
target_include_directories(qlb_windows PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(qlb_windows PRIVATE qlb_warnings PUBLIC advapi32 gdi32 user32)

add_executable(QLBUtl WIN32
    app/Main.cpp
    dialogs/main/frmMain.cpp
    dialogs/main/frmMainControls.cpp
    dialogs/main/OnScreenPage.cpp
    dialogs/patterns/frmInputBox.cpp
    dialogs/patterns/frmManager.cpp
    ui/Controls.cpp
    ui/DialogFont.cpp
    ui/Dpi.cpp
    ui/Form.cpp
    ui/PictureButton.cpp
    ui/PictureList.cpp
    ui/Theme.cpp
    resources/QLBUtl.rc)
file(GLOB qlb_pictures CONFIGURE_DEPENDS resources/pictures/*.bmp)
set_source_files_properties(resources/QLBUtl.rc PROPERTIES
    COMPILE_OPTIONS "-c65001"
    OBJECT_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/resources/StringTable.inc;${CMAKE_CURRENT_SOURCE_DIR}/resources/resource.h;${CMAKE_CURRENT_SOURCE_DIR}/resources/QLBUtl.manifest;${CMAKE_CURRENT_SOURCE_DIR}/resources/QLBUtl.ico;${qlb_pictures}")
target_link_options(QLBUtl PRIVATE -municode)
target_link_libraries(QLBUtl PRIVATE qlb_core qlb_windows qlb_warnings comctl32)
set_target_properties(QLBUtl PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
