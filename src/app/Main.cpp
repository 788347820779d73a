#include "app/LauncherNotification.h"
#include "app/StringTable.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/main/MainSettings.h"
#include "dialogs/main/frmMain.h"
#include "platform/windows/WindowsPlatform.h"
#include "platform/windows/WindowsSession.h"
#include "settings/GlobalValue.h"
#include "settings/RegIniFunc.h"

#include <windows.h>

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevInstance*/, wchar_t* lpCmdLine,
                    int /*nShowCmd*/) {
    // The program may lie in a folder of downloads: no library is taken from there.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    const WindowsSession session;
    WindowsPlatform system(kProductKey);
    const Platform platform = system.Interfaces();
    ResetGlobals(platform.strings);
    const StringTable texts(platform.strings);
    RegIniFunc store(platform.registry, platform.profileFiles, platform.ansiText, Globals().IniFileName);
    LauncherNotification launcher(platform.windows);
    FontList fonts(Globals().DialogFontName);
    MainSettings settings(store, launcher, fonts);
    frmMain mainDialog(platform, texts, store, fonts, settings);
    if (mainDialog.Load(lpCmdLine)) {
        mainDialog.Show();
        mainDialog.RunLoop();
    }
    return 0;
}
