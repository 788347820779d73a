#include "dialogs/main/frmMain.h"
#include "platform/Platform.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsInstalledFonts.h"
#include "platform/windows/WindowsInstanceGuard.h"
#include "platform/windows/WindowsProfileFiles.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsShell.h"
#include "platform/windows/WindowsStringSource.h"
#include "platform/windows/WindowsTopLevelWindows.h"

#include <windows.h>

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevInstance*/, wchar_t* lpCmdLine,
                    int /*nShowCmd*/) {
    // The program may lie in a folder of downloads: no library is taken from there.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);

    WindowsRegistry registry;
    WindowsProfileFiles profileFiles;
    const WindowsAnsiText ansiText;
    const WindowsStringSource strings;
    WindowsTopLevelWindows windows;
    WindowsInstanceGuard instanceGuard;
    const WindowsInstalledFonts fonts;
    WindowsShell shell;
    const Platform platform{registry, profileFiles, ansiText, strings, windows, instanceGuard, fonts, shell};

    frmMain mainDialog(platform);
    if (!mainDialog.Load(lpCmdLine)) {
        return 0;
    }
    mainDialog.Show();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!mainDialog.HandleDialogMessage(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return 0;
}
