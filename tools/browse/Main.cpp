#include "BrowseWindow.h"

#include "app/StringTable.h"
#include "platform/Platform.h"
#include "platform/windows/WindowsPlatform.h"
#include "platform/windows/WindowsSession.h"
#include "settings/RegIniFunc.h"

#include <windows.h>

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevInstance*/, wchar_t* /*lpCmdLine*/,
                    int /*nShowCmd*/) {
    const WindowsSession session;
    WindowsPlatform system(kProductKey);
    const Platform platform = system.Interfaces();
    ResetGlobals(platform.strings);
    BrowseWindow(platform).ShowModal();
    return 0;
}
