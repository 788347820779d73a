#include "dialogs/main/frmMain.h"
#include "platform/windows/WindowsPlatform.h"
#include "platform/windows/Worker.h"

#include <windows.h>

namespace {

void Run(const Platform& platform, const wchar_t* commandLine) {
    frmMain mainDialog(platform);
    if (!mainDialog.Load(commandLine)) {
        return;
    }
    mainDialog.Show();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!mainDialog.HandleDialogMessage(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevInstance*/, wchar_t* lpCmdLine,
                    int /*nShowCmd*/) {
    // The program may lie in a folder of downloads: no library is taken from there.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    WindowsPlatform system;
    const Platform platform = system.Interfaces();
    Run(platform, lpCmdLine);
    if (WorkersRun()) {
        // One may hang in a shell extension or a printer; nothing is left to be saved.
        TerminateProcess(GetCurrentProcess(), 0);
    }
    return 0;
}
