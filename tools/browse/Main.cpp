#include "BrowseWindow.h"

#include "platform/Platform.h"
#include "platform/windows/WindowsPlatform.h"
#include "platform/windows/Worker.h"
#include "settings/GlobalValue.h"

#include <windows.h>

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevInstance*/, wchar_t* /*lpCmdLine*/,
                    int /*nShowCmd*/) {
    WindowsPlatform system;
    const Platform platform = system.Interfaces();
    ResetGlobals(platform.strings);
    BrowseWindow(platform).Run();
    if (WorkersRun()) {
        TerminateProcess(GetCurrentProcess(), 0);
    }
    return 0;
}
