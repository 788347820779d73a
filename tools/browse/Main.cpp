#include "BrowseWindow.h"

#include "app/StringTable.h"
#include "platform/Platform.h"
#include "platform/windows/WindowsPlatform.h"

#include <windows.h>

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevInstance*/, wchar_t* /*lpCmdLine*/,
                    int /*nShowCmd*/) {
    WindowsPlatform system;
    const Platform platform = system.Interfaces();
    ResetGlobals(platform.strings);
    BrowseWindow(platform).ShowModal();
    return 0;
}
